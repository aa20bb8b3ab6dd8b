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
  RequireFrames(tag);
  RequireTexts(tag);
  while (tag.FrameCount() > 0) tag.RemoveFrame(size % 2 == 0 ? 1 : tag.FrameCount());
  return 0;
}
