// The preview, the sample name, and the rules of the pages.
#include <map>
#include <set>

#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

class PreviewTest : public EngineTest {
 protected:
  std::string Sample() { return pages.Label_SampleFileName.Caption(); }
};

TEST_F(PreviewTest, LetsEventsThroughEveryTenRows) {
  Fill(25);
  Scan();
  AtYield(1, [this] {
    EXPECT_EQ(status.Pane(0), "Building Preview 10 of 25");
    preview.PreviewFiles();  // a second click
  });
  // The list may even be emptied under a preview.
  events.atYield[4] = [this] { scan.ClearFileList(); };
  preview.PreviewFiles();
  EXPECT_EQ(events.yields, 4);
  EXPECT_EQ(status.Pane(0), "Finished building preview");
}

TEST_F(PreviewTest, AnEmptyTagMaskIsAskedFor) {
  List({"a.mp3"});
  Set("TabIndex", "4");
  list.Row(1).newName = "before";
  dialogs.answers = {Answer::Ok};
  for (const bool isEnter : {false, true}) pages.TagMaskKeyReleased(isEnter);
  EXPECT_EQ(dialogs.asked.back().title + ": " + dialogs.asked.back().text,
            "Nothing to rename: You haven't entered a new filename mask\r\n\r\n"
            "example: <v1artist> - <v1title> - <v1album>");
  EXPECT_EQ(NewNames()[0], "before");
}

// A refused row counts and shows its reason alone; a row without a check mark doesn't count.
TEST_F(PreviewTest, FillsTheColumnAndLeavesTheDiskAlone) {
  List({"w.ext", "x.ext", "y.ext"});
  list.SetChecked(1, false);
  Set("Check_Prefix=1|Text_Prefix=<0>");
  EXPECT_EQ(Sample(), "<0>filename-0001.abc");
  EXPECT_EQ(Previewed(), (Lines{"(Not Selected)", "x-0001.ext", "y-0002.ext"}));
  EXPECT_EQ(list.Row(1).colour, RowColour::Skipped);
  EXPECT_EQ(list.Row(2).colour, RowColour::Refused);
  Set("Text_Prefix", "a<0>");
  EXPECT_EQ(Previewed()[1], "a<0>x-0001.ext");
  EXPECT_EQ(list.Row(2).colour, RowColour::Plain);
  EXPECT_EQ(folder.Names(), (Lines{"w.ext", "x.ext", "y.ext"}));
}

// Some fields refresh the sample, some don't: those follow with the next change of another one. It
// goes by the active page, and enters what it used into the histories.
TEST_F(PreviewTest, TheSampleFollowsTheFieldsThatRefreshIt) {
  EXPECT_EQ(Sample(), "filename-0001.abc");
  // clang-format off
  const Lines refreshing = {
      "Check_Prefix=1", "Text_Prefix=x", "Check_Original=0", "Combo_Original=2", "Check_UniqueFirst=1",
      "Check_Seperator=0", "Text_Seperator=_", "Check_Unique=0", "Combo_Unique=1", "Text_UniqueMask=x",
      "Text_UniqueStart=b", "Txt_RandomTo=7", "Combo_UniqueDateStart0=0", "Combo_UniqueDateStart1=0",
      "Combo_UniqueDateStart2=1999", "Combo_UniqueDate0=0", "Combo_UniqueDate1=0", "Combo_UniqueDate2=0",
      "Text_UniqueDate1=x", "Text_UniqueDate2=x", "Check_Suffix=1", "Text_Suffix=x", "Check_Extension=0",
      "Combo_Extension=1", "Text_Extension=z", "RTxt_Unique_Other=x"};
  const Lines silent = {"Combo_OriginalName=x", "Combo_Direction=2", "Text_UniqueIncrement=5",
                        "TabIndex=2", "Combo_Find=x", "Check_UniqueOnly=1"};
  // clang-format on
  for (const Lines& fields : {refreshing, silent}) {
    for (const std::string& field : fields) {
      pages.Label_SampleFileName.SetCaption("stale");
      Set(field);
      EXPECT_EQ(Sample() == "stale", fields == silent) << field;
    }
  }
  Set("TabIndex=2|Combo_Find=file|Combo_Replace=x|Text_Prefix=p");
  EXPECT_EQ(Sample(), "xname.abc");
  EXPECT_EQ(settings.Combo_Find.Items(), Lines{"file"});
}

TEST_F(PreviewTest, TicksGovernTheirFields) {
  EXPECT_FALSE(settings.Text_Prefix.Enabled());  // a fresh start has the box off
  // clang-format off
  const Pairs rows = {
      {"Check_Prefix", "Text_Prefix"}, {"Check_Suffix", "Text_Suffix"}, {"Check_Seperator", "Text_Seperator"},
      {"Check_Original", "Combo_Original"}, {"Check_Extension", "Combo_Extension"},
      {"Check_MoveEnable", "Txt_MoveTo"}, {"Check_Unique", "Text_UniqueMask"},
      {"Check_Unique", "Text_UniqueIncrement"}, {"Check_UseCurrentDateTime", "DTPicker_AdvancedDate"},
      {"Check_UseCurrentDateTime", "Combo_AdvancedDate5"}};
  // clang-format on
  for (const auto& [box, field] : rows) {
    for (const char* value : {"1", "0"}) {
      Set(box, value);
      const bool isOn = (*value == '1') != (box == "Check_UseCurrentDateTime");
      EXPECT_EQ(screen.Find(field)->Enabled(), isOn) << box << "=" << value;
    }
  }
  EXPECT_TRUE(settings.Txt_RandomTo.Enabled() && settings.Combo_DateInterval.Enabled());
}

TEST_F(PreviewTest, TheNameFieldAndThePanelsFollowTheirChoices) {
  const auto& name = settings.Combo_OriginalName;
  const auto& extension = settings.Text_Extension;
  Set("Combo_Original=1|Combo_Extension=1");
  EXPECT_FALSE(name.ReadOnly() || extension.ReadOnly());
  EXPECT_EQ(name.Value(), "filename");
  Set("Combo_OriginalName=typed|Combo_Original=4|Combo_Extension=2");
  EXPECT_TRUE(name.ReadOnly() && extension.ReadOnly());
  EXPECT_EQ(name.Value() + "." + extension.Value(), "Filename.ABC");
  Set("TabIndex=3|Option_ChangeFileDate=True");
  EXPECT_TRUE(pages.Frame_AdvancedDate.Visible() && !pages.Frame_Advanced.Visible());
  for (const auto& [option, shown] :
       Pairs{{"Option_Move", "1Move To:"}, {"Option_Copy", "0Copy To:"}}) {
    Set(option, "True");
    EXPECT_EQ(settings.TransferMethod.ValueText() + pages.Lbl_MoveTo.Caption(), shown);
  }
}

// Which settings a reset sets back, and which keep what the user gave them. Three lists are
// appended to instead of filled anew; that is wanted.
TEST_F(PreviewTest, AResetSetsJustItsOwnFields) {
  dialogs.answers = std::deque<Answer>(9, Answer::Ok);
  std::map<Control*, std::string> before;
  for (Control* control : screen.Controls()) {
    if (control->Kind() == ControlKind::Label) continue;
    const std::string value = control->ValueText();
    for (const char* text : {value == "0" ? "1" : value == "1" ? "0" : "True", "2", "3/4/2005"}) {
      if (control->SetValueText(text)) break;
    }
    before[control];
  }
  for (auto& [control, value] : before) value = control->ValueText();
  for (auto* box : {&settings.Combo_Find, &settings.Combo_OriginalName}) box->SetItems({"kept"});
  pages.ResetSettings();
  std::set<std::string> setBack;
  for (const auto& [control, value] : before) {
    if (control->ValueText() != value) setBack.insert(control->Name());
  }
  // clang-format off
  EXPECT_EQ(setBack, (std::set<std::string>{
      "Check_AllInfoPresent", "Check_Extension", "Check_MP3Extension", "Check_Original", "Check_Seperator",
      "Check_Unique", "Combo_AdvancedDate3", "Combo_AdvancedDate4", "Combo_AdvancedDate5",
      "Combo_DateInterval", "Combo_Direction", "Combo_Extension", "Combo_Occurances", "Combo_Original",
      "Combo_OriginalName", "Combo_RemoveChars", "Combo_RemoveStarting", "Combo_Unique",
      "Combo_UniqueDate0", "Combo_UniqueDate1", "Combo_UniqueDate2", "Combo_UniqueDateStart0",
      "Combo_UniqueDateStart1", "Combo_UniqueDateStart2", "Combo_UpdateDateType", "TabIndex",
      "Text_Extension", "Text_Seperator", "Text_StartCheck", "Text_Step", "Text_UniqueMask",
      "Text_UniqueStart", "Txt_RandomTo"}));
  // clang-format on
  EXPECT_EQ(settings.Combo_Find.Items().back() + settings.Combo_OriginalName.Items().back(),
            "keptkept");
  std::string counts;
  for (const tallowbrook::List* box :
       {&settings.Combo_Occurances, &settings.Combo_RemoveStarting, &settings.Combo_UpdateDateType,
        &settings.Combo_RemoveChars}) {
    counts += std::to_string(box->Items().size()) + " ";
  }
  EXPECT_EQ(counts, "62 60 6 31 ");
  EXPECT_EQ(settings.Combo_Occurances.ItemText(), "All");
  EXPECT_EQ(settings.Combo_UniqueDateStart2.Items().front(), "2124");
}

TEST_F(PreviewTest, TheUniquePanelShowsWhatItsKindNeeds) {
  // clang-format off
  const std::vector<std::pair<const Control*, std::string>> parts = {
      {&pages.unique.Frame_Numbers, "numbers "}, {&pages.unique.Frame_Date, "date "},
      {&settings.Combo_DateInterval, "interval "}, {&settings.Text_UniqueIncrement, "increment "},
      {&pages.unique.Spin_UniqueIncrement, "arrows "}, {&settings.Txt_RandomTo, "randomTo "},
      {&pages.unique.Spin_RandomTo, "arrows "}, {&pages.unique.Lbl_RandomTo, "label "},
      {&settings.Check_UniqueOnly, "only "}, {&pages.unique.Frame_Unique_Other, "other "}};
  for (const auto& [kind, expected] : Pairs{
           {"0|Combo_Unique=0", "numbers increment arrows "}, {"2|Combo_Unique=0", "numbers "},
           {"3|Combo_Unique=0", "numbers randomTo arrows label only "},
           {"3|Combo_Direction=2", "numbers only "},  // the tick stays as it was
           {"1|Combo_Unique=1", "numbers increment arrows "},
           {"0|Combo_Unique=2", "date interval increment arrows "}, {"2|Combo_Unique=2", "date "}}) {
    Set("Combo_Unique=0|Combo_Direction=" + kind);
    std::string shown;
    for (const auto& [control, part] : parts) if (control->Visible()) shown += part;
    EXPECT_EQ(shown, expected) << kind;
  }
  // clang-format on
}

}  // namespace
}  // namespace tallowbrook
