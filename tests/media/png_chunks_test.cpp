// PNG files, chunk by chunk.
#include "media/png_chunks.h"

#include <gtest/gtest.h>

#include "tests/support/jpeg_bytes.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

const std::string signature = "\x89PNG\r\n\x1A\n";

std::string Chunk(const std::string& type, const std::string& data) {
  return Bytes(ByteOrder::Big, static_cast<std::uint32_t>(data.size()), 4) + type + data + "sum.";
}

// What is left of a file, with something before and behind it.
std::string Left(const std::string& png) {
  constexpr std::string_view keys[] = {"Key", "Other"};
  const TemporaryFolder folder;
  SystemFiles files;
  const auto file =
      files.Open(folder.Write("p", "before" + png + "behind"), FileAccess::Read, nullptr);
  std::string left;
  for (const auto& [at, size] : PngParts(*file, {6, std::ssize(png)}, keys)) {
    left += ("before" + png + "behind")
                .substr(static_cast<std::size_t>(at), static_cast<std::size_t>(size));
  }
  return left;
}

TEST(PngChunks, LeavesOutWhatPixelsDontNeed) {
  const std::string header = Chunk("IHDR", std::string(13, 'h'));
  const std::string pixels = Chunk("IDAT", std::string(3'000, 'x'));
  const std::string end = Chunk("IEND", "");
  const std::string key = Chunk("tEXt", std::string("Key\0text", 8));
  const std::string other = Chunk("zTXt", std::string("Other\0\0text", 11));
  const std::string palette = Chunk("PLTE", "abc") + Chunk("tRNS", "d");
  std::string many;
  for (int i = 0; i < 200'000; ++i) many += Chunk("IDAT", "");
  const std::string start = signature + header;
  // clang-format off
  const std::pair<std::string, std::string> rows[] = {
      {start + palette + pixels + pixels + end, start + palette + pixels + pixels + end},
      {start + Chunk("tEXt", "Comment") + pixels + Chunk("zTXt", "Comment") + end, start + pixels + end},
      {start + other + key + pixels + end, start + other + key + pixels + end},
      {start + pixels + key + key + end + pixels, start + pixels + key + end},
      {start + Chunk("tEXt", "Key" + std::string(5'000, '\0')) + pixels + end, start + pixels + end},
      {start + Chunk("iCCP", std::string(2 << 20, 'c')) + pixels + end, start + pixels + end},
      // A checksum that looks like a key.
      {start + Bytes(ByteOrder::Big, 0, 4) + "tEXt" + std::string("Key\0", 4) + key + pixels + end, start + key + pixels + end},
      {start + Chunk("fdAT", "frame") + pixels + end, start + pixels + end},
      // Cut, or none at all.
      {start + pixels.substr(0, 900), start + pixels.substr(0, 900)}, {start, start}, {signature, signature},
      {start + many + end, ""}, {"\x89PNG", ""}, {"GIF89a" + start, ""}, {"", ""}};
  // clang-format on
  for (const auto& [png, left] : rows) EXPECT_TRUE(Left(png) == left) << png.substr(0, 60);
}

}  // namespace
}  // namespace tallowbrook
