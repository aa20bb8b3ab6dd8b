// Tags of version 1: any bytes as a file, read, edited, written, read again.
//
// Aborts if a field doesn't come back as it was written, but for blanks at its ends, or if any
// other byte of the file changes.
#include "base/code_page.h"
#include "base/text.h"
#include "fuzzing/memory_files.h"
#include "fuzzing/require.h"
#include "media/mp3_id3v1.h"

namespace {

using namespace tallowbrook;

constexpr std::size_t tagSize = 128;

std::string AsRead(std::string_view text, std::ptrdiff_t width) {
  std::string bytes = ToCodePage(*LeftCharacters(text, width));
  std::erase(bytes, '\0');
  return FromCodePage(TrimBlanks(bytes));
}

void RequireSame(const cMP3ID3v1& read, const cMP3ID3v1& written) {
  Require(read.Title == AsRead(written.Title, 30) && read.Artist == AsRead(written.Artist, 30));
  Require(read.Album == AsRead(written.Album, 30) && read.Year == AsRead(written.Year, 4));
  Require(read.Comment == AsRead(written.Comment, 28));
  Require(read.Track == written.Track && read.Genre == written.Genre);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  MemoryFiles disk;
  disk.Put("f", bytes);
  cMP3ID3v1 tag(disk), again(disk);
  tag.SetMP3File("f");
  Require(tag.HasID3v1Tag() ||
          (tag.Genre == 255 && tag.Track == 0 && tag.Title.empty() && tag.Comment.empty()));
  Require(tag.Title == AsRead(tag.Title, 30) && tag.Comment == AsRead(tag.Comment, 28));
  const bool isEdited = size > 0 && data[0] % 2 != 0;
  if (isEdited) {
    tag.Title = bytes.substr(0, 200);
    tag.Year = bytes.substr(0, bytes.find('\n'));
    tag.Track = data[size - 1];
  }
  const std::uint32_t number = NumberOf([&] { tag.Update(); });
  Require(number == (bytes.empty() ? failureInvalidFile : 0));
  const std::string& after = *disk.files["f"];
  if (size <= tagSize) {
    Require(after == bytes);
    return 0;
  }
  const std::size_t kept = size - (tag.HasID3v1Tag() ? tagSize : 1);
  Require(after.size() == kept + tagSize && after.starts_with(bytes.substr(0, kept)));
  again.SetMP3File("f");
  Require(again.HasID3v1Tag());
  RequireSame(again, tag);
  return 0;
}
