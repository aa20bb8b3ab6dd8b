// Heads of JPEG files, built byte by byte.
#include "media/exif_thumbnail.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "tests/support/jpeg_bytes.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

// "4000x3000 rows, way 6, 12 bytes"
std::string Told(const std::optional<JpegHead>& head) {
  if (!head) return "none";
  return std::to_string(head->width) + "x" + std::to_string(head->height) +
         (head->decodesByRows ? " rows" : "") + ", way " + std::to_string(head->orientation) +
         ", " + std::to_string(head->thumbnail.size()) + " bytes";
}

const std::string small = "\xFF\xD8\xFF small...";
const std::string frame = JpegFrame(0xC0, 4000, 3000);

std::string Segment(int marker, const std::string& bytes) {
  const auto length = static_cast<std::uint32_t>(bytes.size() + 2);
  return std::string("\xFF") + static_cast<char>(marker) + Bytes(ByteOrder::Big, length, 2) + bytes;
}
std::string Photo6(const std::string& thumbnail = small) {
  return PhotoWithThumbnail(ByteOrder::Big, 6, thumbnail);
}
// The same with one number of the photo's bytes changed.
std::string Changed(std::string photo, const std::string& from, const std::string& to) {
  const std::size_t at = photo.find(from);
  return at == std::string::npos ? "not found" : photo.replace(at, from.size(), to);
}

TEST(JpegHead, TellsWhatItFindsAndLeavesOutWhatIsBroken) {
  const std::string photo = Photo6();
  const std::string start = "\xFF\xD8", whole6 = "4000x3000 rows, way 6, 12 bytes";
  const std::string none6 = "4000x3000 rows, way 6, 0 bytes", nothing = "0x0, way 1, 0 bytes";
  const std::string big = Segment(0xE2, std::string(60'000, 'x'));
  const std::string offset = std::string("\x02\x01\x00\x04\x00\x00\x00\x01", 8);
  const std::string length = std::string("\x02\x02\x00\x04\x00\x00\x00\x01", 8);
  const std::string sizeOfSmall =
      Bytes(ByteOrder::Big, static_cast<std::uint32_t>(small.size()), 4);
  const std::string nul("\xFF\0", 2);
  std::string many;
  for (int i = 0; i < 5'000; ++i) many += Segment(0xFE, "");
  const std::string far("\xFF\xFF\xFF\xF0", 4);
  // clang-format off
  const std::pair<std::string, std::string> rows[] = {
      {photo + frame, whole6},
      {PhotoWithThumbnail(ByteOrder::Little, 3, small) + frame, "4000x3000 rows, way 3, 12 bytes"},
      {photo + "\xFF\xFF\xFF" + frame, whole6},
      {photo + Segment(0xC4, "tables") + photo.substr(2) + frame, whole6},
      {start + Segment(0xE1, "http://of another kind") + photo.substr(2) + frame, whole6},
      {start + frame, "4000x3000 rows, way 1, 0 bytes"},
      // Pictures that a decoder holds as a whole.
      {start + JpegFrame(0xC2, 64, 48), "64x48, way 1, 0 bytes"},
      {start + JpegFrame(0xC0, 64, 48, 1), "64x48, way 1, 0 bytes"},
      {start + JpegFrame(0xC0, 65535, 65535).substr(0, 19), "65535x65535, way 1, 0 bytes"},
      // Small pictures that are none, or lie elsewhere.
      {Photo6("no picture") + frame, none6}, {Photo6("") + frame, none6},
      {Changed(photo, length + sizeOfSmall, length + far) + frame, none6},
      {Changed(photo, offset, "\x02\x03" + offset.substr(2)) + frame, none6},
      // Cut, far back, or too far.
      {photo, "0x0, way 6, 12 bytes"}, {photo.substr(0, photo.size() - 1), nothing},
      {start + big + big + photo.substr(2) + frame, whole6},
      {start + big + big + big + photo.substr(2) + big + frame, whole6},
      {start + many.substr(0, 4'000 * 4) + frame, "4000x3000 rows, way 1, 0 bytes"},
      {start + many + frame, nothing},
      // Bytes that decoders pass over too, and what lies behind them.
      {start + "\xFF\x01\xFF\xD3 .\xFF" + frame, "4000x3000 rows, way 1, 0 bytes"},
      {start + nul + Bytes(ByteOrder::Big, 21, 2) + JpegFrame(0xC2, 9, 8).substr(0, 19) + frame, "9x8, way 1, 0 bytes"},
      {start + start + frame, nothing}, {start + "\xFF\x02" + std::string("\0\2", 2) + frame, nothing},
      {start + "\xFF\xD9" + frame, nothing}, {"\xFF\xD8\xFF", nothing},
      {"\x89PNG", "none"}, {"\xFF\xD8", "none"}, {"", "none"}};
  // clang-format on
  const TemporaryFolder folder;
  SystemFiles files;
  for (const auto& [bytes, told] : rows) {
    EXPECT_EQ(Told(ReadJpegHead(files, folder.Write("p", bytes))), told) << bytes.substr(0, 100);
  }
  EXPECT_EQ(ReadJpegHead(files, folder.Write("p", photo + frame))->thumbnail, small);
  EXPECT_EQ(Told(ReadJpegHead(files, folder.Path("gone"))), "none");
  EXPECT_EQ(Told(ReadJpegHead(files, folder.Path())), "none");
}

// Neither texts nor what hides between segments; the rest as it stands.
TEST(JpegHead, NamesWhatADecoderNeeds) {
  const std::string profile = Segment(0xE2, std::string("ICC_PROFILE\0\1\1...", 17));
  const std::string whole =
      Segment(0xE0, "JFIF") + profile + Segment(0xDB, "tables") + frame + "data";
  const std::string start = "\xFF\xD8";
  const std::string longer = Segment(0xE2, "ICC_PROFILE" + std::string(60'000, '\0'));
  std::string profiles;
  for (int i = 0; i < 20; ++i) profiles += longer;
  const std::string rows[][2] = {
      {start + whole, start + whole},
      {Photo6() + Segment(0xFE, "a text") + " ..\xFF" + whole, start + whole},
      {start + Segment(0xE2, "no profile") + frame, start + frame},
      {start + profiles + frame, start + profiles.substr(0, 17 * longer.size()) + frame},
      {start + frame.substr(0, 19), ""}};
  for (const auto& [bytes, needed] : rows) {
    const std::optional<JpegHead> head = ParseJpegHead(bytes);
    std::string found;
    for (const auto& [at, size] : head->pixels) {
      found += bytes.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(size));
    }
    EXPECT_TRUE(found == needed) << bytes.substr(0, 100);
  }
}

TEST(JpegHead, CountsScansAcrossItsBlocks) {
  const TemporaryFolder folder;
  SystemFiles files;
  std::string bytes(1, ' ');
  for (const std::size_t at : {65'530, 65'532, 65'535, 65'537, 131'069, 131'071}) {
    bytes.resize(at, ' ');
    bytes += "\xFF\xDA";
  }
  EXPECT_EQ(CountScans(*files.Open(folder.Write("p", bytes), FileAccess::Read, nullptr), 0), 6);
}

}  // namespace
}  // namespace tallowbrook
