// Tags of version 2, read: any bytes as a file, then every property and every frame.
//
// Aborts if the frames don't agree with each other, or if anything but a file that has to fails.
#include "base/text.h"
#include "fuzzing/memory_files.h"
#include "fuzzing/require.h"
#include "media/mp3_id3v2.h"

namespace {

using namespace tallowbrook;

void RequireFrames(const cMP3ID3v2& tag) {
  const std::int32_t count = tag.FrameCount();
  Require(count >= 0 && (count == 0 || (tag.TagVersion() >= 2 && tag.TagVersion() <= 4)));
  for (std::int32_t i = 1; i <= count; ++i) {
    const std::string id = tag.Frame(i);
    const std::size_t length = CountCharacters(id);
    Require(length == 4 || (length == 0 && tag.TagVersion() == 2));
    Require(tag.TagsInFrame(id) >= 1 && tag.TagsInFrame(i) == tag.TagsInFrame(id));
  }
  Require(NumberOf([&] { tag.Frame(count + 1); }) == failureSubscript);
}

// Where a plain search by chunks finds the tag, from 1 and behind "ID3"; 0 for none.
std::size_t PlainSearch(std::string_view file) {
  for (std::size_t scan = 1;; scan += 4093) {
    const bool isLast = scan + 4096 >= file.size();
    const std::string_view chunk =
        file.substr(scan - 1, isLast ? file.size() - scan : std::size_t{4096});
    if (const std::size_t at = chunk.find("ID3"); at != chunk.npos) return scan + at + 3;
    if (isLast || chunk.find("\xFF\xFB") != chunk.npos) return 0;
  }
}

std::int32_t PlainNumber(std::string_view bytes) {
  std::uint32_t number = 0;
  for (const char byte : bytes) number = number << 8 | static_cast<unsigned char>(byte);
  return static_cast<std::int32_t>(number);
}

// How many frames a plain walk over the whole file in memory takes; -1 where it fails.
std::int32_t PlainWalk(std::string file, std::size_t at) {
  file.append(64, '\0');
  const char version = file[at - 1];
  if (version < 2 || version > 4) return 0;
  const std::int64_t tagSize = PlainNumber(file.substr(at + 2, 4));
  const std::size_t width = version == 2 ? 3 : 4;
  std::int64_t charged = 0, place = static_cast<std::int64_t>(at) + 6;
  std::int32_t frames = 0;
  for (; frames == 0 || place + 1 <= tagSize; ++frames) {
    if (place >= std::ssize(file)) return frames;
    const std::string head = (file.substr(static_cast<std::size_t>(place)) + std::string(10, '\0'));
    charged += version == 2 ? 9 : 16;
    if (head.substr(0, width) == std::string(width, '\0')) return frames;
    const std::int64_t size = PlainNumber(std::string_view(head).substr(width, width));
    if (charged + size > tagSize) return frames;
    if (size < 0) return -1;
    charged += size;
    place += size + (version == 2 ? 6 : 10);
  }
  return frames;
}

std::int32_t CountAllTexts(const cMP3ID3v2& tag) {
  std::int32_t count = 0;
  for (std::int32_t i = 1; i <= tag.FrameCount(); ++i) count += tag.TagsInFrame(i);
  return count;
}

void RequireTexts(const cMP3ID3v2& tag) {
  const std::string* const texts[] = {&tag.ArtistURL(),   &tag.BuyURL(),    &tag.AudioURL(),
                                      &tag.Copyright(),   &tag.Composer(),  &tag.LinkTo(),
                                      &tag.PlayCounter(), &tag.EncodedBy(), &tag.Title(),
                                      &tag.Artist(),      &tag.Album(),     &tag.Year(),
                                      &tag.Lyrics(),      &tag.Track(),     &tag.OriginalArtist()};
  for (const std::string* text : texts) {
    Require(IsValidUtf8(*text) && text->find('\0') == text->npos);
  }
  Require(IsValidUtf8(tag.Comment()) && IsValidUtf8(tag.OtherGenreName()));
  Require(tag.Title().empty() || tag.TagsInFrame("TIT2") > 0);
  Require((tag.Genre() == 255 && tag.OtherGenreName().empty()) || tag.TagsInFrame("TCON") > 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  MemoryFiles disk;
  disk.Put("f", {reinterpret_cast<const char*>(data), size});
  cMP3ID3v2 tag(disk);
  const std::uint32_t number = NumberOf([&] { tag.SetMP3File("f"); });
  Require(number == 0 || number == failureInvalidArgument);
  Require(tag.HasID3v2Tag() || tag.TagVersion() == 0);
  const std::string file(reinterpret_cast<const char*>(data), size);
  const std::size_t place = file.empty() ? 0 : PlainSearch(file);
  Require(tag.HasID3v2Tag() == (place > 0));
  if (const std::int32_t frames = place > 0 ? PlainWalk(file, place) : 0; frames >= 0) {
    Require(number == (file.empty() ? failureInvalidArgument : 0));
    Require(CountAllTexts(tag) == frames);
  } else {
    Require(number == failureInvalidArgument);
  }
  RequireFrames(tag);
  RequireTexts(tag);
  while (tag.FrameCount() > 0) tag.RemoveFrame(size % 2 == 0 ? 1 : tag.FrameCount());
  return 0;
}
