// Tags of version 2, written: any bytes as a file, read, some properties set, written, read again.
//
// Aborts if what was set isn't read back although the tag's size says that it is, or if any byte
// changes that isn't the new tag's.
#include <algorithm>
#include <iterator>
#include <optional>

#include "base/code_page.h"
#include "fuzzing/memory_files.h"
#include "fuzzing/require.h"
#include "media/id3v2_walk.h"
#include "media/mp3_id3v2.h"
#include "media/tag_search.h"

namespace {

using namespace tallowbrook;
using Tag = cMP3ID3v2;

struct Property {
  const std::string& (Tag::*get)() const;
  void (Tag::*set)(std::string_view);
};

constexpr Property properties[] = {
    {&Tag::ArtistURL, &Tag::SetArtistURL}, {&Tag::LinkTo, &Tag::SetLinkTo},
    {&Tag::Title, &Tag::SetTitle},         {&Tag::Artist, &Tag::SetArtist},
    {&Tag::Comment, &Tag::SetComment},     {&Tag::Lyrics, &Tag::SetLyrics},
    {&Tag::Track, &Tag::SetTrack},         {&Tag::PlayCounter, &Tag::SetPlayCounter}};

// Each byte sets the property of its low bits to a piece of the file as long as its high ones say.
void Edit(Tag& tag, std::string_view bytes) {
  if (bytes.empty()) return;
  const std::size_t count = static_cast<unsigned char>(bytes.back()) % 5;
  for (std::size_t i = 0; i < count && i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - 1 - i]);
    (tag.*properties[byte % std::size(properties)].set)(bytes.substr(0, (byte >> 3) * 7u));
  }
  if (count > 3) tag.SetGenre(static_cast<std::uint8_t>(bytes[0]));
}

// A tag as it stands in a file: where, how long it is and what the reader charges for its frames.
struct Image {
  std::size_t at, length = 10;
  std::int64_t charged = 0, size = 0;

  Image(std::string_view file, std::size_t place) : at(place) {
    const std::string_view tag = file.substr(at);
    Require(tag.starts_with(std::string_view("ID3\3\0\0", 6)));
    size = BigEndian(tag.substr(6));
    while (tag.substr(length, 4) != std::string_view("\0\0\0\0", 4)) {
      const std::int32_t payload = BigEndian(tag.substr(length + 4));
      Require(payload >= 1 && tag.substr(length + 8, 3) == std::string_view("\0\0\0", 3));
      charged += 16 + payload;
      length += 10 + static_cast<std::size_t>(payload);
    }
    length += 4;
    Require(at + length <= file.size() && static_cast<std::int64_t>(length) < size);
  }
};

// The tag of the file before: where it stands, if anywhere, and what size it gave; and whether the
// new one stands there too or before the whole old file.
struct OldTag {
  std::optional<std::size_t> at;
  std::int64_t size = 0;
  bool isWrittenOver = false;
};

OldTag FindOldTag(const std::string& before, std::string_view after) {
  MemoryFiles disk;
  disk.Put("f", before);
  const auto file = disk.Open("f", FileAccess::Read, nullptr);
  BufferedFile reader(*file, "");
  const std::int64_t position = FindTagPosition(reader);
  if (position < 1) return {};
  char oldSize[4];
  reader.Fill(position + 2, oldSize);
  const auto at = static_cast<std::size_t>(position - 4);
  const bool isThere = after.substr(0, at) == before.substr(0, at) &&
                       after.substr(at + 6).starts_with(std::string_view(oldSize, 4));
  return {at, BigEndian({oldSize, 4}), isThere};
}

// Over the old tag if that is larger, else by whole blocks of 2048 bytes, less what the old one
// had.
void RequireSizes(const OldTag& old, const Image& image, std::size_t growth) {
  const auto length = static_cast<std::int64_t>(image.length);
  Require(old.isWrittenOver == (old.at && length < old.size));
  if (old.isWrittenOver) return Require(image.size == old.size);
  Require(image.size == (length / 2048 + 1) * 2048);
  Require(static_cast<std::int64_t>(growth) == image.size - old.size);
}

std::string WithoutZeros(const std::string& text) {
  std::string bytes = ToCodePage(text);
  std::erase(bytes, '\0');
  return FromCodePage(bytes);
}

void RequireReadBack(const Tag& tag, const Tag& again, const Image& image) {
  const bool isAllRead = image.charged <= image.size &&
                         static_cast<std::int64_t>(image.at + image.length) <= image.size;
  if (!isAllRead) return;
  for (const Property& property : properties) {
    if ((tag.*property.get)() == (again.*property.get)()) continue;
    Require(WithoutZeros((tag.*property.get)()) == WithoutZeros((again.*property.get)()));
  }
  Require(again.FrameCount() <= tag.FrameCount());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string before(reinterpret_cast<const char*>(data), size);
  MemoryFiles disk;
  disk.Put("f", before);
  Tag tag(disk), again(disk);
  NumberOf([&] { tag.SetMP3File("f"); });
  Edit(tag, before);
  const std::uint32_t number = NumberOf([&] { tag.Update(); });
  Require(disk.files.size() == 1);
  const std::string& after = *disk.files["f"];
  if (number != 0) {
    Require(number == failureInvalidArgument || number == failureOverflow ||
            number == failureDiskFull);
    Require(after == before);
    return 0;
  }
  const OldTag old = FindOldTag(before, after);
  const Image image(after, old.isWrittenOver ? *old.at : 0);
  RequireSizes(old, image, after.size() - before.size());
  std::string expected = before;
  if (!old.isWrittenOver) expected.insert(0, after.size() - before.size(), '\0');
  Require(after.size() == std::max(expected.size(), image.at + image.length));
  expected.resize(after.size());
  Require(after.substr(0, image.at) == expected.substr(0, image.at));
  Require(after.substr(image.at + image.length) == expected.substr(image.at + image.length));
  Require(NumberOf([&] { again.SetMP3File("f"); }) == 0);
  RequireReadBack(tag, again, image);
  return 0;
}
