// The 128 bytes at a file's end: what they read as, and what Update makes of them.
#include "media/mp3_id3v1.h"
#include "tests/support/media_fixture.h"

namespace tallowbrook {
namespace {

using namespace std::string_literals;

std::string Tag(const std::string& title, const std::string& comment, char behindComment,
                char track, char genre, char filler = ' ') {
  return "TAG" + Filled(title, 30, filler) + Filled("A", 30, filler) + Filled("B", 30, filler) +
         "1999" + Filled(comment, 28, filler) + behindComment + track + genre;
}

std::string FieldsOf(const cMP3ID3v1& tag) {
  return tag.Title + "|" + tag.Artist + "|" + tag.Album + "|" + tag.Year + "|" + tag.Comment + "|" +
         std::to_string(tag.Track) + "|" + std::to_string(tag.Genre);
}

class Id3v1 : public MediaTest {
 protected:
  std::uint32_t Load(const std::string& name) {
    return NumberOf([&] { tag_.SetMP3File(folder_.Path(name)); });
  }
  std::uint32_t Update() {
    return NumberOf([&] { tag_.Update(); });
  }

  cMP3ID3v1 tag_{files_};
};

// A plain v1 comment of 30 characters loses two of them and has a track: no byte tells them apart.
TEST_F(Id3v1, IsTheLast128BytesOfALongerFile) {
  const std::string plain = Tag("T", "c", '\0', 7, 17);
  const std::string none = "|||||0|255", full(28, '-');
  // clang-format off
  const std::pair<std::string, std::string> rows[] = {
      {"x" + plain, "T|A|B|1999|c|7|17"}, {plain, none}, {"", none}, {plain + "x", none},
      {"xTag" + plain.substr(3), none},
      {"x" + Tag("a\0b\0\0 c"s, "c", '\0', 0, '\xff', '\0'), "ab c|A|B|1999|c|0|255"},
      {"x" + Tag("  \0 t \0 \t"s, "", '\1', '\xff', 0), "t  \t|A|B|1999||255|0"},
      {"x" + Tag("\x80\x81\xe9\xff", full, 'Y', 'Z', 1), "€\u0081éÿ|A|B|1999|" + full + "|90|1"},
  };
  // clang-format on
  for (const auto& [bytes, fields] : rows) {
    folder_.Write("f", bytes);
    tag_.Title = "of the file before";
    EXPECT_EQ(Load("f"), 0u);
    EXPECT_EQ(FieldsOf(tag_), fields);
    EXPECT_EQ(tag_.HasID3v1Tag(), fields != none) << fields;
  }
}

TEST_F(Id3v1, UpdateOverwritesATagOrTheLastByteWithFixedWidths) {
  const std::string audio(999, 'x'), blank = Filled("", 30);
  const std::string made = "TAG" + Filled("\x80?", 30) + blank + Filled(std::string(30, 'b'), 30) +
                           "2024" + Filled("c", 28) + "\0\x09\x20"s;
  // clang-format off
  const std::pair<std::string, std::string> rows[] = {
      {audio + "y", audio + made}, {audio + Tag("old", "old", 'Y', 1, 2, '\0'), audio + made},
      {audio + "tag" + std::string(125, '.'), audio + "tag" + std::string(124, '.') + made},
      {Tag("old", "", 0, 0, 0), Tag("old", "", 0, 0, 0)}, {"x", "x"},
  };
  // clang-format on
  for (const auto& [before, after] : rows) {
    folder_.Write("f", before);
    ASSERT_EQ(Load("f"), 0u);
    tag_.Title = "€漢", tag_.Artist = "", tag_.Album = std::string(40, 'b'), tag_.Year = "20245";
    tag_.Comment = "c", tag_.Track = 9, tag_.Genre = 32;
    EXPECT_EQ(Update(), 0u);
    EXPECT_TRUE(folder_.Read("f") == after) << before.size();
    EXPECT_EQ(tag_.Album.size(), 40u) << "cut in the file only";
  }
}

TEST_F(Id3v1, RaisesWhatTheDiskSaysAndKeepsTheFieldsOfAFileWithoutATag) {
  folder_.Write("f", "x" + Tag("T", "", 0, 1, 2));
  ASSERT_EQ(Load("f"), 0u);
  EXPECT_EQ(Load("missing"), failureFileNotFound);
  EXPECT_TRUE(failure_.source.ends_with("_tests.cMP3ID3v1")) << failure_.source;
  EXPECT_EQ(FieldsOf(tag_), "|||||0|255");
  EXPECT_FALSE(folder_.Exists("missing"));
  EXPECT_EQ(Update(), failureInvalidFile);
  EXPECT_EQ(failure_.description, folder_.Path("missing") + " is not a valid MP3 file.");
  EXPECT_EQ(folder_.Read("missing"), "") << "made, and left empty";
  files_.FailAt(FileCall::Read, files_.Count(FileCall::Read) + 1, FileError::Io);
  EXPECT_EQ(Load("f"), failureDevice);
}

}  // namespace
}  // namespace tallowbrook
