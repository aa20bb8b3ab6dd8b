// The preview, the sample name, and the rules of the pages.
#include <map>
#include <set>

#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

using Lines = std::vector<std::string>;

class PreviewTest : public EngineTest {
 protected:
  std::string Sample() { return pages.Label_SampleFileName.Caption(); }
};

TEST_F(PreviewTest, FillsTheColumnAndLeavesTheDiskAlone) {
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
  list.Row(1).newName = "before";
  status.Set(0, "before");
  dialogs.answers = {Answer::Ok};
  pages.TagMaskKeyReleased(false);
  pages.TagMaskKeyReleased(true);
  EXPECT_EQ(dialogs.asked.back().title, "Nothing to rename");
  EXPECT_EQ(dialogs.asked.back().text,
            "You haven't entered a new filename mask\r\n\r\n"
            "example: <v1artist> - <v1title> - <v1album>");
  EXPECT_EQ(focused, &settings.RTxt_ID3Name);
  EXPECT_EQ(NewNames(), Lines{"before"});
  EXPECT_EQ(status.Pane(0), "before");
}

// A refused row counts like any other.
TEST_F(PreviewTest, RefusalsShowTheirReasonAlone) {
  List({"x.ext", "y.ext"});
  Set("Check_Prefix", "1");
  Set("Text_Prefix", "<0>");
  EXPECT_EQ(Sample(), "<0>filename-0001.abc");
  preview.PreviewFiles();
  EXPECT_EQ(NewNames(), (Lines{"x-0001.ext", "y-0002.ext"}));
  EXPECT_EQ(list.Row(1).colour, RowColour::Refused);
  Set("Text_Prefix", "a<0>");
  preview.PreviewFiles();
  EXPECT_EQ(NewNames()[0], "a<0>x-0001.ext");
  EXPECT_EQ(list.Row(1).colour, RowColour::Plain);
}

// In the thumbnail view a row's own text is its new name, if it has one.
TEST_F(PreviewTest, RowTextsFollowInTheThumbnailView) {
  List({"a", "b", "c"});
  preview.thumbnailMode = [this] { return scan.ThumbnailMode; };
  preview.PreviewFiles();
  EXPECT_EQ(list.Row(1).rowText, "");
  scan.ThumbnailMode = true;
  list.SetChecked(2, false);
  preview.PreviewFiles();
  EXPECT_EQ(list.Row(1).rowText, "a-0001");
  EXPECT_EQ(list.Row(2).rowText, "");
  Set("Text_Prefix", "<0>");
  Set("Check_Prefix", "1");
  preview.PreviewFiles();
  EXPECT_EQ(list.Row(3).rowText, "c-0002");
  Set("Check_Prefix", "0");
  folder.Write("c-0002", "in the way");
  run.RenameFiles(0, {});
  EXPECT_EQ(list.Row(1).rowText, "a-0001 (success)");
  EXPECT_EQ(list.Row(3).rowText, "(could not rename)");
}

TEST_F(PreviewTest, DateCommandsShowAsTheyAre) {
  List({"a.txt"});
  Set("TabIndex", "3");
  Set("Option_ChangeFileDate", "True");
  preview.PreviewFiles();
  EXPECT_EQ(NewNames(), Lines{"<DateCreated,9/11/2005 00:01:01>"});
}

// Some fields refresh the sample, some don't: those follow with the next change of another one.
TEST_F(PreviewTest, TheSampleFollowsTheFieldsThatRefreshIt) {
  EXPECT_EQ(Sample(), "filename-0001.abc");
  const std::vector<std::tuple<std::string, std::string, bool>> fields = {
      {"Check_Prefix", "1", true},
      {"Text_Prefix", "x", true},
      {"Check_Original", "0", true},
      {"Combo_Original", "2", true},
      {"Check_UniqueFirst", "1", true},
      {"Check_Seperator", "0", true},
      {"Text_Seperator", "_", true},
      {"Check_Unique", "0", true},
      {"Combo_Unique", "1", true},
      {"Text_UniqueMask", "x", true},
      {"Text_UniqueStart", "b", true},
      {"Txt_RandomTo", "7", true},
      {"Combo_UniqueDateStart0", "0", true},
      {"Combo_UniqueDateStart1", "0", true},
      {"Combo_UniqueDateStart2", "1999", true},
      {"Combo_UniqueDate0", "0", true},
      {"Combo_UniqueDate1", "0", true},
      {"Combo_UniqueDate2", "0", true},
      {"Text_UniqueDate1", "x", true},
      {"Text_UniqueDate2", "x", true},
      {"Check_Suffix", "1", true},
      {"Text_Suffix", "x", true},
      {"Check_Extension", "0", true},
      {"Combo_Extension", "1", true},
      {"Text_Extension", "z", true},
      {"RTxt_Unique_Other", "x", true},
      {"Combo_OriginalName", "x", false},
      {"Combo_Direction", "2", false},
      {"Text_UniqueIncrement", "5", false},
      {"TabIndex", "2", false},
      {"Combo_Find", "x", false},
      {"Check_UniqueOnly", "1", false},
  };
  for (const auto& [name, value, refreshes] : fields) {
    pages.Label_SampleFileName.SetCaption("stale");
    Set(name, value);
    EXPECT_EQ(Sample() != "stale", refreshes) << name;
  }
}

TEST_F(PreviewTest, TheSampleGoesByTheActivePage) {
  Set("TabIndex", "2");
  Set("Combo_Find", "file");
  Set("Combo_Replace", "x");
  Set("Text_Prefix", "p");
  EXPECT_EQ(Sample(), "xname.abc");
  EXPECT_EQ(settings.Combo_Find.Items(), Lines{"file"});
}

TEST_F(PreviewTest, TicksGovernTheirFields) {
  EXPECT_FALSE(settings.Text_Prefix.Enabled());  // a fresh start has the box off
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
  EXPECT_FALSE(settings.Combo_AdvancedDate5.Enabled());
  Set("Check_Unique", "0");
  EXPECT_FALSE(settings.Text_UniqueIncrement.Enabled());
  EXPECT_TRUE(settings.Txt_RandomTo.Enabled());
  EXPECT_TRUE(settings.Combo_DateInterval.Enabled());
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
  EXPECT_TRUE(settings.Text_Extension.ReadOnly());
  Set("Combo_Extension", "1");
  EXPECT_FALSE(settings.Text_Extension.ReadOnly());
}

// Which settings a reset sets back, and which keep what the user gave them. Three lists are
// appended to instead of filled anew; that is wanted.
TEST_F(PreviewTest, AResetSetsJustItsOwnFields) {
  dialogs.answers = std::deque<Answer>(9, Answer::Ok);
  const auto values = [this] {
    std::map<std::string, std::string> texts;
    for (Control* control : screen.Controls()) {
      if (control->Kind() != ControlKind::Label) texts[control->Name()] = control->ValueText();
    }
    return texts;
  };
  for (const auto& [name, value] : values()) {
    Control& control = *screen.Find(name);
    if (!control.SetValueText(value == "0"   ? "1"
                              : value == "1" ? "0"
                                             : "True") &&
        !control.SetValueText("2")) {
      control.SetValueText("3/4/2005");
    }
  }
  const auto before = values();
  settings.Combo_Find.SetItems({"kept"});
  settings.Combo_OriginalName.SetItems({"kept"});
  pages.ResetSettings();
  std::set<std::string> setBack;
  for (const auto& [name, value] : before) {
    if (screen.Find(name)->ValueText() != value) setBack.insert(name);
  }
  EXPECT_EQ(setBack, (std::set<std::string>{"Check_AllInfoPresent",
                                            "Check_Extension",
                                            "Check_MP3Extension",
                                            "Check_Original",
                                            "Check_Seperator",
                                            "Check_Unique",
                                            "Combo_AdvancedDate3",
                                            "Combo_AdvancedDate4",
                                            "Combo_AdvancedDate5",
                                            "Combo_DateInterval",
                                            "Combo_Direction",
                                            "Combo_Extension",
                                            "Combo_Occurances",
                                            "Combo_Original",
                                            "Combo_OriginalName",
                                            "Combo_RemoveChars",
                                            "Combo_RemoveStarting",
                                            "Combo_Unique",
                                            "Combo_UniqueDate0",
                                            "Combo_UniqueDate1",
                                            "Combo_UniqueDate2",
                                            "Combo_UniqueDateStart0",
                                            "Combo_UniqueDateStart1",
                                            "Combo_UniqueDateStart2",
                                            "Combo_UpdateDateType",
                                            "TabIndex",
                                            "Text_Extension",
                                            "Text_Seperator",
                                            "Text_StartCheck",
                                            "Text_Step",
                                            "Text_UniqueMask",
                                            "Text_UniqueStart",
                                            "Txt_RandomTo"}));
  EXPECT_EQ(settings.Combo_Find.Items(), Lines{"kept"});
  EXPECT_EQ(settings.Combo_OriginalName.Items().back(), "kept");
  EXPECT_EQ(settings.Combo_Occurances.Items().size(), 62U);
  EXPECT_EQ(settings.Combo_Occurances.ItemText(), "All");
  EXPECT_EQ(settings.Combo_RemoveStarting.Items().size(), 60U);
  EXPECT_EQ(settings.Combo_UpdateDateType.Items().size(), 6U);
  EXPECT_EQ(settings.Combo_RemoveChars.Items().size(), 31U);
  const Lines& years = settings.Combo_UniqueDateStart2.Items();
  EXPECT_EQ(years.size(), 201U);
  EXPECT_EQ(years.front(), "2124");
  EXPECT_EQ(settings.Combo_UniqueDateStart2.Value(), "2024");
}

// What a profile that lacks a key stands for isn't always what a fresh start shows.
TEST_F(PreviewTest, SomeProfileDefaultsAreNotTheInitialValues) {
  std::map<std::string_view, std::pair<std::string_view, std::string_view>> odd;
  for (const Control* control : screen.Controls()) {
    const ControlFacts& facts = control->Facts();
    if (facts.key.empty()) continue;
    if (facts.key.substr(0, facts.key.size() - 1) != facts.name) {
      odd[facts.name] = {facts.key, facts.keyDefault};
    }
  }
  EXPECT_EQ(odd, (decltype(odd){{"Combo_OriginalName", {"Text_Original=", "filename"}},
                                {"Option1_Folders", {"ViewFolders=", "False"}},
                                {"Check_Thumbnails", {"ShowThumbnails=", "0"}}}));
  for (const auto& [name, value] :
       std::vector<std::pair<std::string, std::string>>{{"Text_Extension", ".abc"},
                                                        {"Txt_RandomTo", "0"},
                                                        {"Check_AllInfoPresent", "0"},
                                                        {"Combo_UniqueDate2", "7"},
                                                        {"Option_Search1", "1"}}) {
    EXPECT_EQ(screen.Find(name)->Facts().keyDefault, value) << name;
  }
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
  Set("Option_Copy", "True");
  EXPECT_EQ(settings.TransferMethod.Value(), 0);
  EXPECT_EQ(pages.Lbl_MoveTo.Caption(), "Copy To:");
}

}  // namespace
}  // namespace tallowbrook
