// cMP3ID3v2::Update: the frames as a tag of version 2.3, over the old tag or in front of the file.
//
// The size in the tag's head counts from its first byte and is a plain number: the reader takes it
// like that. No size of 65536 or more is ever written. An old tag that doesn't fit stays in the
// file behind the room for the new one. All of this is wanted.
#include <limits>

#include "media/buffered_file.h"
#include "media/file_failure.h"
#include "media/id3v2_walk.h"
#include "media/mp3_id3v2.h"
#include "media/tag_search.h"

namespace tallowbrook {
namespace {

constexpr std::string_view marker = "ID3";
constexpr std::size_t headWidth = 10, frameHeadWidth = 10, idWidth = 4;
constexpr std::size_t tagSizeAt = 6;
constexpr std::string_view padding{"\0\0\0\0", 4};  // ends the walk over the frames
constexpr std::int64_t roomUnit = 2048;

[[noreturn]] void RaiseHere(std::uint32_t number) {
  Raise(number, "cMP3ID3v2");
}

// Into four bytes, highest first; failureOverflow for 65536 and more.
void PutBigEndianSize(std::string& image, std::size_t at, std::int64_t size) {
  if (size > 0xFFFF) RaiseHere(failureOverflow);
  const char bytes[] = {0, 0, static_cast<char>(size >> 8), static_cast<char>(size)};
  image.replace(at, sizeof bytes, bytes, sizeof bytes);
}

// The zero byte says to readers of text frames that bytes are characters; other frames get it too.
void AppendFrame(std::string& image, std::string_view id, std::string_view text) {
  if (id.empty()) RaiseHere(failureInvalidArgument);
  const std::size_t at = image.size();
  image.append(id.substr(0, idWidth)).resize(at + frameHeadWidth + 1);
  PutBigEndianSize(image, at + idWidth, std::ssize(text) + 1);
  image += text;
}

std::string BuildImage(const FrameStore& store) {
  std::string image(marker);
  image += '\3';
  image.resize(headWidth);
  std::string_view current;
  bool isSkipped = false;
  store.Visit(
      [&](std::string_view id, std::int32_t count) {
        current = id;
        isSkipped = id.find(marker) != id.npos;
        if (!isSkipped && count == FrameStore::noCount) RaiseHere(failureInvalidArgument);
      },
      [&](std::string_view text) {
        if (!isSkipped) AppendFrame(image, current, text);
      });
  image += padding;
  PutBigEndianSize(image, tagSizeAt, std::ssize(image));
  return image;
}

// Always more than the image takes.
std::int64_t RoomFor(const std::string& image) {
  return (std::ssize(image) / roomUnit + 1) * roomUnit;
}

// An old size that reads as negative can make the difference too large for a size.
std::int64_t Difference(std::int64_t newSize, std::int64_t oldSize) {
  const std::int64_t count = newSize - oldSize;
  if (count > std::numeric_limits<std::int32_t>::max()) RaiseHere(failureOverflow);
  return count;
}

}  // namespace

// For a moment nothing stands at the path. If deleting fails, the original is
// whole and the copy stays beside it; if moving fails, the copy is the only one and stays.
std::unique_ptr<RandomAccessFile> cMP3ID3v2::InsertPadding(std::int64_t count) {
  constexpr std::string_view source = "cMP3ID3v2";
  PaddedCopy copy;
  RaiseOnError(files_.CopyPadded(path_, count, copy), source);
  RaiseOnError(files_.Delete(copy.original), source);
  RaiseOnError(files_.MovePath(copy.path, copy.original), source);
  return OpenOrRaise(files_, path_, FileAccess::WriteOrCreate, source);
}

// What can't be put into an image is found before the file is opened. A missing file is made, and
// stays, empty. What was in an old tag behind a new one that fits isn't cleared.
void cMP3ID3v2::Update() {
  constexpr std::string_view source = "cMP3ID3v2";
  std::string image = BuildImage(Store());
  auto file = OpenOrRaise(files_, path_, FileAccess::WriteOrCreate, source);
  BufferedFile reader(*file, source);
  const std::int64_t position = FindTagPosition(reader);
  std::array<char, 7> head{};  // version, revision, flags, size
  if (position >= 1) reader.Fill(position - 1, head);
  const std::int64_t oldSize = BigEndian({head.data() + 3, 4});
  const bool fits = std::ssize(image) < oldSize;
  const std::int64_t newSize = fits ? oldSize : RoomFor(image);
  PutBigEndianSize(image, tagSizeAt, newSize);
  if (!fits) {
    const std::int64_t count = Difference(newSize, oldSize);
    file.reset();
    file = InsertPadding(count);
  }
  const std::int64_t at = fits ? position - 1 - std::ssize(marker) : 0;
  RaiseOnError(file->Write(at, image), source);
}

}  // namespace tallowbrook
