// The preview, the sample name, and the rules of the pages.
#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

using Lines = std::vector<std::string>;

class PreviewTest : public EngineTest {
 protected:
  std::string Sample() { return pages.Label_SampleFileName.Caption(); }
};

TEST_F(PreviewTest, ShowsWhatARunWouldDoAndTouchesNothing) {
  List({"a.txt", "b.txt", "c.txt"});
  list.SetChecked(1, false);
  preview.PreviewFiles();
  EXPECT_EQ(NewNames(), (Lines{"(Not Selected)", "b-0001.txt", "c-0002.txt"}));
  EXPECT_EQ(list.Row(1).colour, RowColour::Skipped);
  EXPECT_EQ(status.Pane(0), "Finished building preview");
  EXPECT_EQ(folder.Names(), (Lines{"a.txt", "b.txt", "c.txt"}));
}

TEST_F(PreviewTest, LetsEventsThroughEveryTenRows) {
  for (int i = 0; i < 25; ++i) folder.Write(std::to_string(100 + i), "");
  scan.ScanFolder(folder.Path());
  events.yields = 0;
  events.atYield[1] = [this] {
    EXPECT_EQ(status.Pane(0), "Building Preview 10 of 25");
    preview.PreviewFiles();  // a second click
  };
  // The list may even be emptied under a preview.
  events.atYield[4] = [this] { scan.ClearFileList(); };
  preview.PreviewFiles();
  EXPECT_EQ(events.yields, 4);
  EXPECT_EQ(status.Pane(0), "Finished building preview");
}

TEST_F(PreviewTest, AnEmptyTagMaskIsAskedFor) {
  List({"a.mp3"});
  Set("TabIndex", "4");
  Control* focused = nullptr;
  screen.focusRequested = [&](Control& control) { focused = &control; };
  dialogs.answers = {Answer::Ok};
  preview.PreviewFiles();
  EXPECT_EQ(dialogs.asked.back().title, "Nothing to rename");
  EXPECT_EQ(dialogs.asked.back().text,
            "You haven't entered a new filename mask\r\n\r\n"
            "example: <v1artist> - <v1title> - <v1album>");
  EXPECT_EQ(focused, &settings.RTxt_ID3Name);
  EXPECT_EQ(NewNames(), Lines{""});
}

TEST_F(PreviewTest, RefusalsShowTheirReasonAlone) {
  List({"x.ext"});
  Set("Check_Prefix", "1");
  Set("Text_Prefix", "<0>");
  preview.PreviewFiles();
  EXPECT_EQ(NewNames(), Lines{"x-0001.ext"});
  EXPECT_EQ(list.Row(1).colour, RowColour::Refused);
  Set("Text_Prefix", "a<0>");
  preview.PreviewFiles();
  EXPECT_EQ(NewNames(), Lines{"a<0>x-0001.ext"});
  EXPECT_EQ(list.Row(1).colour, RowColour::Plain);
}

TEST_F(PreviewTest, DateCommandsShowAsTheyAre) {
  List({"a.txt"});
  Set("TabIndex", "3");
  Set("Option_ChangeFileDate", "True");
  preview.PreviewFiles();
  EXPECT_EQ(NewNames(), Lines{"<DateCreated,9/11/2005 00:01:01>"});
}

TEST_F(PreviewTest, TheSampleFollowsTheFieldsThatRefreshIt) {
  EXPECT_EQ(Sample(), "filename-0001.abc");
  const std::vector<std::pair<std::pair<std::string, std::string>, std::string>> steps = {
      {{"Check_Prefix", "1"}, "filename-0001.abc"},
      {{"Text_Prefix", "x"}, "xfilename-0001.abc"},
      {{"Combo_Original", "2"}, "xFILENAME-0001.abc"},
      {{"Check_UniqueFirst", "1"}, "x0001-FILENAME.abc"},
      {{"Check_Seperator", "0"}, "x0001FILENAME.abc"},
      {{"Text_UniqueStart", "7"}, "x0007FILENAME.abc"},
      {{"Combo_Direction", "2"}, "x0007FILENAME.abc"},
      {{"Text_UniqueMask", ""}, "x7FILENAME.abc"},
      {{"Check_Unique", "0"}, "xFILENAME.abc"},
      {{"Combo_Extension", "1"}, "xFILENAME.abc"},
      {{"Text_Extension", "z"}, "xFILENAME.z"},
      {{"Combo_Original", "1"}, "xFILENAME.z"},  // the text stays until somebody types
  };
  for (const auto& [field, expected] : steps) {
    Set(field.first, field.second);
    EXPECT_EQ(Sample(), expected) << field.first << "=" << field.second;
  }
  // Typing the name itself doesn't refresh.
  Set("Combo_OriginalName", "typed");
  EXPECT_EQ(Sample(), "xFILENAME.z");
  Set("Check_Suffix", "1");
  EXPECT_EQ(Sample(), "xtyped.z");
}

TEST_F(PreviewTest, TicksGovernTheirFields) {
  const std::vector<std::pair<std::string, std::string>> pairs = {
      {"Check_Prefix", "Text_Prefix"},        {"Check_Suffix", "Text_Suffix"},
      {"Check_Seperator", "Text_Seperator"},  {"Check_Original", "Combo_Original"},
      {"Check_Extension", "Combo_Extension"}, {"Check_Unique", "Text_UniqueMask"},
      {"Check_MoveEnable", "Txt_MoveTo"},
  };
  for (const auto& [box, field] : pairs) {
    for (const char* value : {"1", "0"}) {
      Set(box, value);
      EXPECT_EQ(screen.Find(field)->Enabled(), *value == '1') << box << "=" << value;
    }
  }
  Set("Check_UseCurrentDateTime", "1");
  EXPECT_FALSE(settings.DTPicker_AdvancedDate.Enabled());
}

TEST_F(PreviewTest, TheNameFieldPicturesItsForm) {
  Set("Combo_Original", "1");
  EXPECT_FALSE(settings.Combo_OriginalName.ReadOnly());
  EXPECT_EQ(settings.Combo_OriginalName.Value(), "filename");
  Set("Combo_OriginalName", "typed");
  Set("Combo_Original", "4");
  EXPECT_TRUE(settings.Combo_OriginalName.ReadOnly());
  EXPECT_EQ(settings.Combo_OriginalName.Value(), "Filename");
  Set("Combo_Extension", "2");
  EXPECT_EQ(settings.Text_Extension.Value(), "ABC");
}

// Three lists are not emptied by a reset: the first copy keeps its indices.
TEST_F(PreviewTest, ASecondResetDoublesThreeListsAndKeepsTheRest) {
  Set("Check_Prefix", "1");
  Set("Text_Prefix", "kept");
  Set("Combo_Find", "kept");
  Set("TabIndex", "2");
  Set("Combo_Unique", "2");
  pages.ResetSettings();
  EXPECT_EQ(settings.Combo_Occurances.Items().size(), 62U);
  EXPECT_EQ(settings.Combo_Occurances.ItemText(), "All");
  EXPECT_EQ(settings.Combo_RemoveStarting.Items().size(), 60U);
  EXPECT_EQ(settings.Combo_UpdateDateType.Items().size(), 6U);
  EXPECT_EQ(settings.Combo_RemoveChars.Items().size(), 31U);
  EXPECT_EQ(settings.Combo_AdvancedDate4.Items().size(), 60U);
  EXPECT_EQ(settings.Text_Prefix.Value(), "kept");
  EXPECT_EQ(settings.Combo_Find.Value(), "kept");
  EXPECT_EQ(settings.TabIndex.Index(), 0);
  EXPECT_EQ(settings.Combo_Unique.Index(), 0);
}

TEST_F(PreviewTest, TheUniquePanelShowsWhatItsKindNeeds) {
  struct Case {
    std::string unique, direction;
    bool numbers, date, interval, increment, randomTo;
  };
  for (const Case& row : std::vector<Case>{
           {"0", "0", true, false, false, true, false},
           {"0", "2", true, false, false, false, false},
           {"0", "3", true, false, false, false, true},
           {"1", "1", true, false, false, true, false},
           {"2", "0", false, true, true, true, false},
           {"2", "2", false, true, false, false, false},
       }) {
    Set("Combo_Unique", "0");
    Set("Combo_Direction", row.direction);
    Set("Combo_Unique", row.unique);
    const std::string shown = row.unique + "/" + row.direction;
    EXPECT_EQ(pages.unique.Frame_Numbers.Visible(), row.numbers) << shown;
    EXPECT_EQ(pages.unique.Frame_Date.Visible(), row.date) << shown;
    EXPECT_EQ(settings.Combo_DateInterval.Visible(), row.interval) << shown;
    EXPECT_EQ(settings.Text_UniqueIncrement.Visible(), row.increment) << shown;
    EXPECT_EQ(settings.Txt_RandomTo.Visible(), row.randomTo) << shown;
    EXPECT_EQ(pages.unique.Lbl_RandomTo.Visible(), row.randomTo) << shown;
  }
  // The start value follows between numbers and letters.
  Set("Combo_Unique", "0");
  Set("Combo_Direction", "0");
  Set("Text_UniqueStart", "28");
  Set("Combo_Unique", "1");
  EXPECT_EQ(settings.Text_UniqueStart.Value(), "ab");
  Set("Combo_Unique", "0");
  EXPECT_EQ(settings.Text_UniqueStart.Value(), "28");
}

TEST_F(PreviewTest, PagesShowTheirPanels) {
  Set("TabIndex", "3");
  EXPECT_TRUE(pages.Frame_Advanced.Visible());
  EXPECT_FALSE(pages.Frame1.Visible());
  Set("Option_ChangeFileDate", "True");
  EXPECT_EQ(settings.AdvancedType.Value(), 1);
  EXPECT_TRUE(pages.Frame_AdvancedDate.Visible());
  EXPECT_FALSE(pages.Frame_Advanced.Visible());
  Set("Option_Move", "True");
  EXPECT_EQ(settings.TransferMethod.Value(), 1);
  EXPECT_EQ(pages.Lbl_MoveTo.Caption(), "Move To:");
}

}  // namespace
}  // namespace tallowbrook
