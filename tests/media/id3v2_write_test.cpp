// What Update makes of a file's bytes, and what it leaves where a step fails.
#include <sys/stat.h>

#include <functional>

#include "media/mp3_id3v2.h"
#include "tests/support/media_fixture.h"

namespace tallowbrook {
namespace {

using namespace std::string_literals;
using Edit = std::function<void(cMP3ID3v2&)>;
using NameList = std::vector<std::string>;

const std::string audio = "\xFF\xFB" + std::string(3000, 'a');

// A tag as it is written: always of version 3, and closed by four zero bytes.
std::string Image(std::uint32_t size, const std::string& frames) {
  return TagBytes(3, size, frames) + std::string(4, '\0');
}

// A title that makes the image that long, alone in it.
std::string TitleFor(std::size_t imageSize) {
  return std::string(imageSize - Image(0, TextFrame("TIT2", "")).size(), 't');
}

class Id3v2Write : public MediaTest {
 protected:
  // What Update raised, 0 for nothing. The file is read, edited and updated.
  std::uint32_t Run(const std::string& bytes, const Edit& edit) {
    cMP3ID3v2 tag(files_);
    tag.SetMP3File(folder_.Write("f", bytes));
    edit(tag);
    return Update(tag);
  }
  std::uint32_t Update(cMP3ID3v2& tag) {
    const std::uint32_t number = NumberOf([&] { tag.Update(); });
    EXPECT_TRUE(number == 0 || failure_.source.ends_with("_tests.cMP3ID3v2")) << failure_.source;
    return number;
  }

  TemporaryFilesIn temporary_{folder_.MakeFolder("temporary")};
};

TEST_F(Id3v2Write, PutsEachFrameBehindAZeroByteInTheOrderOfTheStore) {
  // clang-format off
  const std::pair<Edit, std::string> rows[] = {
      {[](auto&) {}, ""},
      {[](auto& t) { t.SetTitle("Hi"); }, TextFrame("TIT2", "Hi")},
      {[](auto& t) { t.SetTitle(""); t.SetYear("\u20ac\u6f22"); t.SetTitle("x"); },
       TextFrame("TYER", "\x80?") + TextFrame("TIT2", "x")},
      {[](auto& t) { t.SetComment("c"); t.SetLyrics("l"); t.SetLinkTo("w"); t.SetPlayCounter("9"); },
       FrameBytes("COMM", "\0\0\0c"s) + FrameBytes("USLT", "\0\0l"s) +
           FrameBytes("WXXX", "\0\0w"s) + TextFrame("PCNT", "9")},
      {[](auto& t) { t.SetGenre(17); }, TextFrame("TCON", "(17)")},
      {[](auto& t) { t.SetOtherGenreName("x"); }, TextFrame("TCON", "(255)x")},
      {[](auto& t) { t.AddTag("LONGER", "1"); t.AddTag("AB", "2"); t.AddTag("AID3", "3");
          t.AddTag("LONGER", "4"); },
       TextFrame("LONG", "1") + TextFrame("LONG", "4") + TextFrame("AB\0\0"s, "2")},
      {[](auto& t) { t.AddTag("ID3x", ""); t.RemoveTag("ID3x", 1); }, ""},
      {[](auto& t) { t.AddTag("PRIV", "1"); t.RemoveTag("PRIV", 1); t.RemoveFrame("PRIV");
          t.AddTag("PRIV", "2"); }, TextFrame("PRIV", "2")},
  };
  // clang-format on
  for (const auto& [edit, frames] : rows) {
    EXPECT_EQ(Run(audio, edit), 0u);
    EXPECT_TRUE(folder_.Read("f") == Filled(Image(2048, frames), 2048, '\0') + audio) << frames;
  }
}

// Padding before the whole old file, then the image over the front or over the old tag.
TEST_F(Id3v2Write, GoesOverATagThatIsLargerAndElseBeforeTheFile) {
  const std::string junk(77, '.'), old = TextFrame("TIT2", "old"),
                                   rest = std::string(1985, 'r') + audio;
  constexpr std::size_t whole = 65535;
  // clang-format off
  const struct {
    std::string before;
    std::size_t image, padding, at;  // at: where the image goes
    std::uint32_t size, raised;      // size: as the new tag tells it
  } rows[] = {
      {TagBytes(3, 2048, old) + rest, 2047, 0, 0, 2048, 0},
      {TagBytes(3, 2048, old) + rest, 2048, 2048, 0, 4096, 0},
      {TagBytes(2, 60, "") + rest, 59, 0, 0, 60, 0}, {"ID3\4\1\xFF\0\0\0\x3C"s + rest, 59, 0, 0, 60, 0},
      {junk + TagBytes(3, 2048, old) + rest, 100, 0, 77, 2048, 0},
      {junk + TagBytes(3, 100, old) + rest, 100, 1948, 0, 2048, 0},
      {audio, 2047, 2048, 0, 2048, 0}, {audio, 2048, 4096, 0, 4096, 0},
      // A sync-safe size is taken for a larger one, and the audio behind the real tag is overwritten.
      {TagBytes(4, 3958, Filled(old, 2028, '\0')) + audio, 3000, 0, 0, 3958, 0},
      {"ID3", 100, 2048, 0, 2048, 0}, {"ID3\3", 100, 2048, 0, 2048, 0},
      {TagBytes(3, 0xFFFFFFFF, "") + rest, 100, 2049, 0, 2048, 0},
      {TagBytes(3, 0x80000000, "") + rest, 100, 0, 0, 0, failureOverflow},
      {TagBytes(3, whole, "") + rest, whole - 1, 0, 0, whole, 0},
      {TagBytes(3, whole + 1, "") + rest, 100, 0, 0, 0, failureOverflow},
      {audio, 63487, 63488, 0, 63488, 0}, {audio, 63488, 0, 0, 0, failureOverflow},
      {audio, whole + 1, 0, 0, 0, failureOverflow}, {audio, whole + 9999, 0, 0, 0, failureOverflow},
  };
  // clang-format on
  int number = 0;
  for (const auto& row : rows) {
    const std::string title = TitleFor(row.image);
    EXPECT_EQ(Run(row.before + ".", [&](auto& tag) { tag.SetTitle(title); }), row.raised) << number;
    std::string after = std::string(row.padding, '\0') + row.before + ".";
    if (row.raised == 0)
      after.replace(row.at, row.image, Image(row.size, TextFrame("TIT2", title)));
    EXPECT_TRUE(folder_.Read("f") == after) << number;
    EXPECT_EQ(folder_.Names(), (NameList{"f", "temporary"})) << number;
    EXPECT_EQ(folder_.Names("temporary"), NameList{}) << number;
    ++number;
  }
  const int reads = files_.Count(FileCall::Read);
  Run(TagBytes(3, 2048, old) + rest, [](auto& tag) { tag.SetTitle("x"); });
  EXPECT_EQ(files_.Count(FileCall::Read) - reads, 2) << "one for the load, one for Update";
}

TEST_F(Id3v2Write, WritesBackWhatItReadAndReadsWhatItWrote) {
  const std::string read = ShortFrame("TT2", "\1\xFF\xFEx\0"s) + ShortFrame("COM", "\0eng\0c"s) +
                           ShortFrame("TCO", "(17)");
  const std::string before = Filled(TagBytes(2, 2048, read), 2048, '\0') + audio;
  EXPECT_EQ(Run(before, [](auto& tag) { tag.SetArtist("\u00e9"); }), 0u);
  cMP3ID3v2 tag(files_);
  tag.SetMP3File(folder_.Path("f"));
  EXPECT_TRUE(folder_.Read("f").starts_with(
      Image(2048, TextFrame("TIT2", "\1\xFF\xFEx") + TextFrame("COMM", "engc") +
                      TextFrame("TCON", "(17)") + TextFrame("TPE1", "\xE9"))));
  EXPECT_EQ(tag.Title() + tag.Comment() + tag.OtherGenreName() + tag.Artist(),
            "\1\u00ff\u00fexengcRock\u00e9");
  EXPECT_EQ(tag.FrameCount(), 4);
  EXPECT_EQ(Update(tag), 0u);
  EXPECT_EQ(Update(tag), 0u);
  EXPECT_TRUE(folder_.Read("f").ends_with(audio));
}

TEST_F(Id3v2Write, FailsBeforeTheFileIsTouched) {
  const std::string unknown = TagBytes(2, 100, ShortFrame("PIC", "p")) + "\0\0\0"s;
  const Edit none = [](auto&) {};
  EXPECT_EQ(Run(unknown, none), failureInvalidArgument) << "no id to write";
  EXPECT_EQ(Run(unknown, [](auto& tag) { tag.RemoveFrame(""); }), 0u);
  const int opened = files_.Count(FileCall::Open);
  const Edit lost = [](auto& tag) { tag.AddTag("A", ""), tag.RemoveTag("A", 1); };
  EXPECT_EQ(Run(audio, lost), failureInvalidArgument);
  EXPECT_EQ(Run(audio, [](auto& tag) { tag.SetTitle(std::string(65535, 't')); }), failureOverflow);
  EXPECT_EQ(files_.Count(FileCall::Open) - opened, 2) << "for the loads";
  EXPECT_TRUE(folder_.Read("f") == audio);
  EXPECT_EQ(Run(audio, [&](auto&) { folder_.Write("f"); }), failureInvalidArgument);
  EXPECT_EQ(Run(audio, [&](auto&) { system_.Delete(folder_.Path("f")); }), failureInvalidArgument);
  EXPECT_EQ(folder_.Read("f"), "") << "made, and left empty";
}

TEST_F(Id3v2Write, LeavesTheOriginalOrTheCopyWhereAStepOfGrowingFails) {
  const std::string padded = std::string(2048, '\0') + audio;
  // clang-format off
  const std::tuple<FileCall, int, std::uint32_t, bool, bool> rows[] = {  // original stays, copy stays
      {FileCall::Open, 2, failureDevice, true, false},       {FileCall::Read, 2, failureDevice, true, false},
      {FileCall::CopyPadded, 1, failureDevice, true, false}, {FileCall::Delete, 1, failureDevice, true, true},
      {FileCall::Move, 1, failureDevice, false, true}};
  // clang-format on
  for (const auto& [call, n, number, original, copy] : rows) {
    files_.FailAt(call, files_.Count(call) + n, FileError::Io);
    EXPECT_EQ(Run(audio, [](auto&) {}), number) << static_cast<int>(call);
    EXPECT_EQ(folder_.Exists("f"), original) << static_cast<int>(call);
    EXPECT_TRUE(!original || folder_.Read("f") == audio) << static_cast<int>(call);
    const NameList left = folder_.Names("temporary");
    ASSERT_EQ(left.size(), copy ? 1u : 0u) << static_cast<int>(call);
    if (!copy) continue;
    EXPECT_TRUE(folder_.Read("temporary/" + left[0]) == padded) << static_cast<int>(call);
    system_.Delete(folder_.Path("temporary/" + left[0]));
  }
  // Behind the swap: grown, but not written.
  files_.FailAt(FileCall::Open, files_.Count(FileCall::Open) + 3, FileError::NotPermitted);
  EXPECT_EQ(Run(audio, [](auto&) {}), failureNotPermitted);
  EXPECT_TRUE(folder_.Read("f") == padded);
  files_.FailAt(FileCall::WriteAt, 1, FileError::NoSpace);
  EXPECT_EQ(Run(audio, [](auto&) {}), failureDiskFull);
  EXPECT_TRUE(folder_.Read("f") == padded);
}

TEST_F(Id3v2Write, KeepsPermissionsAndLinks) {
  chmod(folder_.Write("f", audio).c_str(), 0604);
  folder_.MakeLink("link", "f");
  cMP3ID3v2 tag(files_);
  tag.SetMP3File(folder_.Path("link"));
  EXPECT_EQ(Update(tag), 0u);
  struct stat link {
  }, file{};
  lstat(folder_.Path("link").c_str(), &link);
  lstat(folder_.Path("f").c_str(), &file);
  EXPECT_TRUE(S_ISLNK(link.st_mode) && S_ISREG(file.st_mode) && (file.st_mode & 07777) == 0604);
}

}  // namespace
}  // namespace tallowbrook
