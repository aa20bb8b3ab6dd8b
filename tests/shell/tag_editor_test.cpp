// The tag editor over real files, from the list to the bytes on the disk and back.
#include "shell/tag_editor.h"

#include <gtest/gtest.h>

#include "tests/support/mp3_bytes.h"
#include "tests/support/test_world.h"

namespace tallowbrook {
namespace {

using namespace std::string_literals;

const std::string sound(300, 's');

std::string V1Bytes(std::uint8_t genre, std::uint8_t track = 3) {
  return "TAG" + Filled("Title", 30) + Filled("Artist", 30) + Filled("Album", 30) + "1999" +
         Filled("Comment", 28) + '\0' + static_cast<char>(track) + static_cast<char>(genre);
}

std::string V2Bytes(const std::string& frames) {
  return Filled(TagBytes(3, 2000, frames), 2000, '\0');
}

class TagEditorTest : public testing::Test, protected TestWorld {
 protected:
  // Lists what the home folder holds by then and edits a row.
  void Edit(std::size_t row, const std::function<void(TagEditor&)>& use) {
    form.Load();
    ASSERT_LE(row, form.ListView1.Count());
    form.ListView1.SetSelected(row, true);
    form.ListView1.SelectItem(row);
    int shown = 0;
    form.showTagEditor = [&](TagEditor& editor) {
      ++shown;
      use(editor);
    };
    form.ShowTagEditor();
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(form.ListView1.DropHighlight(), 0U);
  }
  // "Name=value" of each box that isn't empty; genres by the text of the entry.
  static std::string Shown(TagEditor& editor) {
    std::string text;
    for (Control* control : editor.screen.Controls()) {
      const auto* list = dynamic_cast<List*>(control);
      const std::string value = list ? list->ItemText() : control->ValueText();
      if (!value.empty()) text += control->Name().substr(4) + "=" + value + " ";
    }
    return text;
  }
  void SetGenres(const std::string& v1, const std::string& v2) {
    data.Write("id3genre.cfg", v1 + "~\r\n" + v2);
  }
  // The file's tags as its bytes have them: "ids of frames|genre of the first|genre of the second".
  std::string Saved(const std::string& name) {
    cMP3ID3v1 v1(files);
    cMP3ID3v2 v2(files);
    v1.SetMP3File(home.Path(name));
    v2.SetMP3File(home.Path(name));
    std::string text;
    for (std::int32_t i = 1; i <= v2.FrameCount(); ++i) text += v2.Frame(i) + " ";
    return text + "|" + std::to_string(v1.Genre) + "|" + std::to_string(v2.Genre());
  }

  FakeEvents events;
  Form1 form{With(events)};
};

constexpr char savedFrames[] = "TALB TPE1 TIT2 TRCK TYER TCON COMM TOPE TCOP TCOM TENC WXXX USLT ";

TEST_F(TagEditorTest, ShowsBothTagsAsTheFileHasThem) {
  SetGenres("17,Rock\r\n8,Jazz\r\n", "8,Jazz v2\r\n1,Last\r\n");
  const std::string frames =
      TextFrame("TPE1", "A") + TextFrame("TIT2", "T") + TextFrame("TALB", "L") +
      TextFrame("TRCK", "3/12") + TextFrame("TYER", "2001") + TextFrame("TCON", "(8)") +
      TextFrame("COMM", "eng\0one\r\ntwo"s) + TextFrame("TOPE", "O") + TextFrame("TCOP", "C") +
      TextFrame("TCOM", "M") + TextFrame("TENC", "E") + TextFrame("WXXX", "\0u"s) +
      TextFrame("USLT", "eng\0la"s);
  home.Write("a.mp3", V2Bytes(frames) + sound + V1Bytes(17));
  Edit(1, [&](TagEditor& editor) {
    EXPECT_EQ(Shown(editor),
              "FileName=a.mp3 v1Artist=Artist v1Title=Title v1Album=Album v1Track=3 v1Year=1999 "
              "v1Genre=Rock o_v1Genre=Rock v1Comments=Comment "
              "v2Artist=A v2Title=T v2Album=L v2Track=3/12 v2Year=2001 v2Genre=Jazz "
              "o_v2Genre=Jazz v2 v2Comments=engone\r\ntwo v2OriginalArtist=O v2Copyright=C "
              "v2Composer=M v2EncodedBy=E v2LinkTo=u v2Lyrics=engla ");
    EXPECT_EQ(editor.statusBar.Pane(0), "Loaded: '" + home.Path("a.mp3") + "'");
    EXPECT_EQ(form.ListView1.DropHighlight(), 1U);
    editor.Cmd_Save.Press();
  });
  EXPECT_TRUE(Saved("a.mp3").starts_with(savedFrames));
  Edit(1, [&](TagEditor& editor) {
    EXPECT_EQ(editor.Txt_v2Comments.Value(), "engone\r\ntwo") << "the language is text by now";
  });
}

// What can't be read shows as nothing, what can't be written is reported as saved: both are wanted.
TEST_F(TagEditorTest, AFileWithoutTagsShowsNothingAndGetsBothAndFailuresAreNotTold) {
  SetGenres("17,Rock\r\n8,Jazz\r\n", "8,Jazz\r\n1,Last\r\n");
  for (const char* name : {"a.mp3", "b.mp3"}) home.Write(name, sound);
  Edit(1, [&](TagEditor& editor) {
    ASSERT_EQ(files.Delete(home.Path("b.mp3")), FileError::None);
    home.MakeFolder("b.mp3");
    for (const std::string name : {"a.mp3", "b.mp3"}) {
      EXPECT_EQ(Shown(editor),
                "FileName=" + name + " v1Track=0 o_v1Genre=None Selected o_v2Genre=None Selected ");
      editor.Cmd_Save.Press();
      EXPECT_EQ(editor.statusBar.Pane(0), "Changes were saved successfully");
      editor.Cmd_Next.Press();
    }
  });
  EXPECT_TRUE(Saved("a.mp3").starts_with(savedFrames));
  EXPECT_TRUE(home.Read("a.mp3").ends_with("TAG" + std::string(122, ' ') + "\0\0\xFF"s))
      << "no genre is 255";
}

TEST_F(TagEditorTest, TheFirstTagTakesATrackOfOneByteAndTheSecondAnyText) {
  // clang-format off
  const std::tuple<std::string, int> rows[] = {
      {"7", 7}, {" 255 ", 255}, {"2.5", 2}, {"0", 0},
      {"256", 3}, {"-1", 3}, {"x", 3}, {"3/12", 3}, {"", 3}};
  // clang-format on
  for (const auto& [typed, track] : rows) {
    home.Write("a.mp3", sound + V1Bytes(255));
    Edit(1, [&, text = typed](TagEditor& editor) {
      editor.Txt_v1Track.Set(text);
      editor.Txt_v2Track.Set(text);
      editor.Cmd_Save.Press();
    });
    cMP3ID3v1 v1(files);
    cMP3ID3v2 v2(files);
    v1.SetMP3File(home.Path("a.mp3"));
    v2.SetMP3File(home.Path("a.mp3"));
    EXPECT_EQ(v1.Track, track) << typed;
    EXPECT_EQ(v2.Track(), typed);
  }
}

// Of three entries the last isn't offered, so that its number reads as none and is lost in a save.
TEST_F(TagEditorTest, GenresGoByTheNumbersOfTheList) {
  // clang-format off
  // The number, its name, its place in the list and what a save makes of it. 17 has another name in
  // the list, 200 is of the list alone, 5 is its last entry.
  const std::tuple<std::uint8_t, std::string, int, int> rows[] = {
      {17, "Rock", 1, 17}, {200, "", 2, 200}, {5, "Funk", 0, 255},
      {9, "Metal", 0, 255}, {255, "", 0, 255}, {0, "Blues", 0, 255}};
  // clang-format on
  const std::string list = "17,Steady\r\nx,heading\r\n200,Own\r\n5,Last\r\n";
  SetGenres(list, list);
  for (const auto& [number, name, place, saved] : rows) {
    const std::string frame = TextFrame("TCON", "(" + std::to_string(number) + ")");
    home.Write("a.mp3", V2Bytes(frame) + sound + V1Bytes(number));
    Edit(1, [&, expected = name + std::to_string(place)](TagEditor& editor) {
      EXPECT_EQ(editor.Txt_v1Genre.Value() + std::to_string(editor.Combo_v1Genre.Index()),
                expected);
      EXPECT_EQ(editor.Txt_v2Genre.Value() + std::to_string(editor.Combo_v2Genre.Index()),
                expected);
      EXPECT_EQ(editor.Combo_v1Genre.Items(),
                (std::vector<std::string>{"None Selected", "Steady", "Own"}));
      editor.Cmd_Save.Press();
    });
    const std::string number1 = std::to_string(saved);
    EXPECT_TRUE(Saved("a.mp3").ends_with("|" + number1 + "|" + number1)) << name;
  }
  // A number that is no byte leaves the tag's own.
  SetGenres("300,Far\r\n5,Last\r\n", "");
  home.Write("a.mp3", sound + V1Bytes(9));
  Edit(1, [&](TagEditor& editor) {
    editor.Combo_v1Genre.Select(1);
    editor.Cmd_Save.Press();
  });
  EXPECT_NE(Saved("a.mp3").find("|9|"), std::string::npos);
}

TEST_F(TagEditorTest, ATransferCopiesWhatBothHaveAndCutsNothing) {
  SetGenres("0,None\r\n17,Rock\r\n8,Jazz\r\n", "17,Rock\r\n0,Zero\r\n8,Jazz\r\n9,Last\r\n");
  home.Write("a.mp3", sound + V1Bytes(17));
  Edit(1, [&](TagEditor& editor) {
    editor.Txt_v2Composer.Set("kept");
    editor.Cmd_CopyV1toV2.Press();
    EXPECT_EQ(Shown(editor).substr(Shown(editor).find("v2Artist")),
              "v2Artist=Artist v2Title=Title v2Album=Album v2Track=3 v2Year=1999 o_v2Genre=Rock "
              "v2Comments=Comment v2Composer=kept ");
    const std::string longTitle(40, 't');
    editor.Txt_v2Title.Set(longTitle);
    editor.Txt_v2Track.Set("3/12");
    editor.Txt_v2Comments.Set("one\rtwo\0"s);
    editor.Combo_v2Genre.Select(0);
    editor.Cmd_CopyV2toV1.Press();
    EXPECT_EQ(editor.Txt_v1Title.Value(), longTitle);
    EXPECT_EQ(editor.Txt_v1Track.Value(), "3/12");
    EXPECT_EQ(editor.Txt_v1Comments.Value(), "one\rtwo\0"s);
    EXPECT_EQ(editor.Combo_v1Genre.ItemText(), "None") << "no genre is number 0";
    EXPECT_EQ(editor.Txt_v1Genre.Value(), "Rock");
    EXPECT_EQ(editor.statusBar.Pane(0), "Loaded: '" + home.Path("a.mp3") + "'");
    // The other list has the number in its last entry alone.
    editor.Combo_v2Genre.Select(3);
    dialogs.answers = {Answer::Ok};
    editor.Cmd_CopyV2toV1.Press();
    EXPECT_EQ(dialogs.asked.size(), 1U);
    EXPECT_EQ(editor.Combo_v1Genre.ItemText(), "None");
  });
  EXPECT_EQ(home.Read("a.mp3"), sound + V1Bytes(17));
}

TEST_F(TagEditorTest, StepsAlongTheListWithItsHighlightAndStopsAtItsEnds) {
  home.Write("a.mp3", sound + V1Bytes(17));
  home.Write("b.txt", sound);
  home.Write("c.mp3", sound + V1Bytes(8));
  FileList& list = form.ListView1;
  Edit(1, [&](TagEditor& editor) {
    editor.Cmd_Previous.Press();
    editor.Txt_v1Title.Set("dropped");
    std::string names;
    for (Button* button :
         {&editor.Cmd_Next, &editor.Cmd_Next, &editor.Cmd_Next, &editor.Cmd_Previous}) {
      editor.statusBar.Set(0, "as it was");
      button->Press();
      names += editor.Txt_FileName.Value() + (editor.statusBar.Pane(0)[0] == 'L' ? " " : "! ");
      EXPECT_EQ(list.DropHighlight(), list.SelectedItem());
    }
    EXPECT_EQ(names, "b.txt c.mp3 c.mp3! b.txt ");
    editor.Cmd_Save.Press();  // not in a file that a tag would spoil
    EXPECT_EQ(home.Read("b.txt") + editor.Txt_v1Title.Value(), sound);
    editor.Cmd_Previous.Press();
    EXPECT_EQ(editor.Txt_v1Title.Value(), "Title");
    EXPECT_TRUE(list.Row(1).Selected && !list.Row(2).Selected && !list.Row(3).Selected);
    // A save goes to the file that was loaded, whatever the list has become.
    list.Clear();
    for (Button* button : {&editor.Cmd_Next, &editor.Cmd_Previous}) button->Press();
    editor.Txt_v1Artist.Set("late");
    editor.Cmd_Save.Press();
  });
  EXPECT_NE(home.Read("a.mp3").find("late"), std::string::npos);
}

TEST_F(TagEditorTest, ButtonsAndMenuOpenItForASongAlone) {
  for (const char* name : {"a.MP3", "b.txt"}) home.Write(name, sound);
  form.Load();
  std::string opened;
  form.showTagEditor = [&](TagEditor& editor) { opened += editor.Txt_FileName.Value() + " "; };
  dialogs.answers = {Answer::Ok, Answer::Ok};
  for (const std::size_t row : {0U, 2U, 1U}) {
    for (std::size_t i = 1; i <= 2; ++i) form.ListView1.SetSelected(i, i == row);
    dynamic_cast<Button&>(*form.screen.Find(row ? "PushButton_EditID3" : "Cmd_EditID3")).Press();
  }
  EXPECT_EQ(dialogs.asked[0].text, "You must select an MP3 file to edit");
  EXPECT_EQ(dialogs.asked[1].text, "You must select which MP3 file you would like to edit");
  form.operations.MouseUp(1, true);
  form.operations.mnu_EditID3Tag.Press();
  EXPECT_EQ(opened, "a.MP3 a.MP3 ");
}

}  // namespace
}  // namespace tallowbrook
