// Names from tags: what each keyword stands for, what counts as missing, and why a file is refused.
#include "engine/tag_mask.h"

#include "engine/keywords.h"
#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

class TagMaskTest : public EngineTest {
 protected:
  TagMaskTest() { Set("TabIndex=4|Check_AllInfoPresent=0|Check_MP3Extension=0"); }

  // A file with the tags asked for; an empty title where none is given.
  void Write(const std::string& name, bool v1, bool v2, const std::string& title = "T") {
    folder.Write(name, "\xFF\xFB" + std::string(200, 'x'));
    if (v1) {
      cMP3ID3v1 tag(files);
      tag.SetMP3File(folder.Path(name));
      tag.Title = title;
      tag.Artist = "A";
      tag.Genre = 0;
      tag.Update();
    }
    if (!v2) return;
    cMP3ID3v2 tag(files);
    tag.SetMP3File(folder.Path(name));
    tag.SetTitle(title.empty() ? "" : title + "2");
    tag.SetComposer("C");
    tag.SetGenre(0);
    tag.SetTrack("3/9");
    tag.Update();
  }
  std::string Compose(const std::string& mask, std::string_view name, std::string_view boxes = {}) {
    Set("Check_AllInfoPresent=0|Check_MP3Extension=0");
    Set(boxes);
    Set("RTxt_ID3Name", mask);
    return names.BuildNewName(name, 0, folder.Path());
  }
};

TEST_F(TagMaskTest, FieldsAreFilledInOrTheFileIsRefused) {
  Write("v1.mp3", true, false);
  Write("V2.MP3", false, true);
  Write("both.mp3", true, true);
  Write("none.mp3", false, false);
  Write("empty.mp3", true, true, "");
  Write("nested.mp3", true, true, "<v2Composer>");
  const std::string all = "Check_AllInfoPresent=1", mp3 = "Check_MP3Extension=1";
  const std::string no1 = "<0>ID3v1 tag not found", no2 = "<0>ID3v2 tag not found";
  const std::string missing = "<0>(missing information)";
  struct Row {
    std::string file, mask, expected, boxes;
  };
  // clang-format off
  const Row rows[] = {
      {"v1.mp3", "<v1artist> - <V1TITLE>", "A - T.mp3", mp3}, {"V2.MP3", "<v2Title> <v2Composer> <v2Track>", "T2 C 3/9", ""},
      {"both.mp3", "<v1Title><v2Title>.MP3", "TT2.MP3", mp3},
      {"v1.mp3", "<v1Genre> <v1GenreName> <v1Track> [<v1Album>]", "0 Blues 0 []", ""},
      {"V2.MP3", "<v2Genre> <v2GenreName>", "0 Blues", ""},
      // Refusals, whichever comes last; what has no keyword asks no tag.
      {"a.wav", "<v1Title>", "<0>Not an MP3 File", mp3}, {"mp3", "x", "<0>Not an MP3 File", ""}, {".mp3", "x", "x", ""},
      {"V2.MP3", "<v1Title>", no1, mp3}, {"v1.mp3", "<v2Title>", no2, mp3}, {"v1.mp3", "<v1Title><v2Title>", no2, ""},
      {"V2.MP3", "<v1Title><v2Title>", no1, ""}, {"none.mp3", "<v1Title><v2Title>", no2, all}, {"none.mp3", "x", "x.mp3", mp3},
      // What isn't there has nothing of the file before it.
      {"both.mp3", "<v1Title><v2Title>", "TT2", ""}, {"gone.mp3", "<v1Title>", no1, ""}, {"gone.mp3", "<v2Title>", no2, ""},
      // What is missing; genre 0 is a genre of version 1 alone.
      {"v1.mp3", "<v1Genre>", "0", all}, {"v1.mp3", "<v1Track>", missing, all}, {"v1.mp3", "<v1Album>", missing, all},
      {"V2.MP3", "<v2Genre>", missing, all}, {"V2.MP3", "<v2GenreName>", "Blues", all}, {"empty.mp3", "<v2Title>", missing, all + "|" + mp3},
      {"empty.mp3", "<v1Album>-<v1Artist>", "-A", ""}, {"v1.mp3", "<v1Album><v2Title>", missing, all}, {"v1.mp3", "<v1Title><v2Title>", no2, all},
      {"both.mp3", "<v1Titel>", missing, all}, {"both.mp3", "<v1Titel>", "<v1Titel>", ""}, {"both.mp3", "<ext>", "<ext>.mp3", mp3},
      // What version 1 put in is searched for the keywords of version 2, and not the other way round.
      {"nested.mp3", "<v1Title> <v2Track>", "C 3/9", all}, {"nested.mp3", "<v1Title>", "<v2Composer>", ""},
  };
  // clang-format on
  for (const Row& row : rows) {
    EXPECT_EQ(Compose(row.mask, row.file, row.boxes), row.expected) << row.file << " " << row.mask;
  }
  EXPECT_FALSE(folder.Exists("gone.mp3"));
}

TEST_F(TagMaskTest, EachKeywordIsItsOwnField) {
  Write("f.mp3", true, true);
  cMP3ID3v1 v1(files);
  v1.SetMP3File(folder.Path("f.mp3"));
  v1.Album = "b", v1.Comment = "c", v1.Year = "1987", v1.Genre = 1, v1.Track = 4;
  v1.Update();
  cMP3ID3v2 v2(files);
  v2.SetMP3File(folder.Path("f.mp3"));
  v2.SetAlbum("B"), v2.SetArtist("A"), v2.SetComment("K"), v2.SetCopyright("R"),
      v2.SetEncodedBy("E");
  v2.SetLinkTo("L"), v2.SetOriginalArtist("O"), v2.SetYear("1988"), v2.SetGenre(2);
  v2.Update();
  std::string mask;
  for (const Keyword& row : TagKeywords()) mask.append(row.keyword) += "|";
  EXPECT_EQ(Compose(mask, "f.mp3"),
            "b|A|c|1|Classic Rock|T|4|1987|B|A|K|C|R|E|2|Country|L|O|T2|3/9|1988|");
}

// Fields that name each other by the hundred: a step that would make too much of them is left out.
TEST_F(TagMaskTest, FieldsThatMultiplyEachOtherComeToAnEnd) {
  Write("f.mp3", false, true);
  const auto times = [](int count, const std::string& text) {
    std::string all;
    for (int i = 0; i < count; ++i) all += text;
    return all;
  };
  cMP3ID3v2 tag(files);
  tag.SetMP3File(folder.Path("f.mp3"));
  tag.SetAlbum(times(200, "<v2Artist>")), tag.SetArtist(times(200, "<v2Title>"));
  tag.SetTitle(times(200, "<v2Year>")), tag.SetYear(times(200, "y"));
  tag.Update();
  EXPECT_LE(Compose("<v2Album>", "f.mp3").size(), std::size_t{64} << 10);
  EXPECT_EQ(Compose("<v2Year>", "f.mp3"), times(200, "y"));
}

// A tag names its own file, and nothing else on the disk.
TEST_F(TagMaskTest, ATagDoesntSteerTheDisk) {
  // clang-format off
  const std::string titles[] = {
      "../up", "/tmp/up", "..", "a\nb", "a?b", "<DateModified,1/2/2003>", "<DateCreated", "<x>", "a\x07"};
  // clang-format on
  folder.MakeFolder("music");
  for (std::size_t i = 0; i < std::size(titles); ++i) {
    Write("music/" + std::to_string(i) + ".mp3", true, false, titles[i]);
  }
  Scan("music");
  Set("RTxt_ID3Name", "<v1Title>");
  const Lines before = folder.Names("music");
  run.RenameFiles(0, {});
  Lines outcomes(std::size(titles), "error");
  outcomes[5] = outcomes[6] = "success";  // dates of the two files themselves
  EXPECT_EQ(NewNames(), outcomes);
  EXPECT_EQ(folder.Names("music"), before);
  EXPECT_EQ(folder.Names(), Lines{"music"});
}

}  // namespace
}  // namespace tallowbrook
