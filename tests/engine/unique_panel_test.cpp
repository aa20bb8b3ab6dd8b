// What may be typed into the panel "Unique Parameter", and how its arrows step.
#include <array>

#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

class UniquePanelTest : public EngineTest {
 protected:
  // Steps up for each "+", down for each "-".
  static void Step(Spin& spin, std::string_view steps) {
    for (const char step : steps) step == '+' ? spin.StepUp() : spin.StepDown();
  }
  std::string Values() const {
    return settings.Text_UniqueStart.Value() + " " + settings.Txt_RandomTo.Value() + " " +
           settings.Text_UniqueIncrement.Value();
  }
  UniquePanel& unique = pages.unique;
};

TEST_F(UniquePanelTest, ArrowsStepFromWhatStandsThere) {
  Step(unique.Spin_UniqueStart, "++");
  EXPECT_EQ(Values(), "3 1 1");
  EXPECT_EQ(pages.Label_SampleFileName.Caption(), "filename-0003.abc");
  Set("Text_UniqueStart=41");
  Step(unique.Spin_UniqueStart, "+-+");
  EXPECT_EQ(Values(), "42 1 1");
  Step(unique.Spin_UniqueStart, std::string(50, '-'));
  EXPECT_EQ(Values(), "0 1 1");
  // A step that changes no text refreshes the sample, too.
  pages.Label_SampleFileName.SetCaption("stale");
  Step(unique.Spin_UniqueStart, "-");
  EXPECT_EQ(pages.Label_SampleFileName.Caption(), "filename-0000.abc");
  // Letters end at "a", and count on behind "z".
  Set("Combo_Unique=1|Text_UniqueStart=y");
  Step(unique.Spin_UniqueStart, "++");
  EXPECT_EQ(Values(), "aa 1 1");
  Step(unique.Spin_UniqueStart, std::string(40, '-'));
  Step(unique.Spin_UniqueIncrement, "+++-");
  EXPECT_EQ(Values(), "a 1 3");
  Set("Text_UniqueIncrement=10");
  Step(unique.Spin_UniqueIncrement, std::string(20, '-'));
  EXPECT_EQ(Values(), "a 1 1");
}

// A typed bound counts as a typed start, and not for the bound's own arrows.
TEST_F(UniquePanelTest, ARandomBoundMovesTheStart) {
  Step(unique.Spin_RandomTo, "+++");
  Set("Txt_RandomTo=500");
  Step(unique.Spin_UniqueStart, "+");
  EXPECT_EQ(Values(), "501 500 1");
  Step(unique.Spin_RandomTo, "+");
  EXPECT_EQ(Values(), "501 5 1");
}

TEST_F(UniquePanelTest, LeavingAFieldFillsItAndRestsItsArrows) {
  for (const char* kind : {"0", "1"}) {
    Set("Combo_Unique", kind);
    Step(unique.Spin_UniqueStart, "+++");
    Set("Text_UniqueStart=|Text_UniqueIncrement=");
    settings.Text_UniqueStart.focusLost();
    settings.Text_UniqueIncrement.focusLost();
    EXPECT_EQ(Values(), *kind == '0' ? "1 1 1" : "a 1 1");
    EXPECT_EQ(unique.Spin_UniqueStart.Value(), 5000);
  }
  Step(unique.Spin_UniqueIncrement, "++");
  unique.Spin_UniqueIncrement.focusLost();
  EXPECT_EQ(unique.Spin_UniqueIncrement.Value(), 5000);
  Step(unique.Spin_UniqueIncrement, "+");
  EXPECT_EQ(Values(), "a 1 4");
  Set("Combo_UniqueDateStart2=");
  settings.Combo_UniqueDateStart2.focusLost();
  EXPECT_EQ(settings.Combo_UniqueDateStart2.Value(), "2024");
}

TEST_F(UniquePanelTest, KeysPassByTheKind) {
  // clang-format off
  for (const auto& [kind, field, text, passes] : std::vector<std::array<std::string, 4>>{
           {"0", "Text_UniqueStart", "", "07"}, {"1", "Text_UniqueStart", "", "azAZ"},
           {"2", "Txt_RandomTo", "", "azAZ"}, {"0", "Txt_RandomTo", "9999999", "07"},
           {"0", "Text_UniqueStart", "10000000", ""}, {"1", "Text_UniqueStart", "zzzzzzzzz", "azAZ"},
           {"0", "Text_UniqueStart", std::string(40, '9'), ""},
           {"1", "Text_UniqueIncrement", "99999999", "07"}, {"0", "Combo_UniqueDateStart2", "", "07"},
           {"0", "Text_StartCheck", "", "07"}, {"0", "Text_Step", "", "07"}}) {
    // clang-format on
    Set("Combo_Unique=" + kind + "|" + field + "=" + text);
    const auto& control = dynamic_cast<Text&>(*screen.Find(field));
    std::string passed;
    for (const std::string key : {"0", "7", "a", "z", "A", "Z", "[", "`", "-", " ", "é", "٣"}) {
      if (control.takesKey(key)) passed += key;
    }
    EXPECT_EQ(passed, passes) << field << " " << kind << " " << text;
  }
}

TEST_F(UniquePanelTest, AResetRestsTheArrowsAndDatesFromToday) {
  Step(unique.Spin_UniqueStart, "+++");
  Step(unique.Spin_RandomTo, "+++");
  Set("Combo_UniqueDateStart2=2023");
  pages.ResetSettings();
  EXPECT_EQ(unique.Spin_RandomTo.Value(), 5000);
  Step(unique.Spin_UniqueStart, "+");
  Step(unique.Spin_RandomTo, "+");
  EXPECT_EQ(Values(), "2 2 1");
  EXPECT_EQ(settings.Combo_UniqueDateStart1.ItemText(), "29");
}

// A start that isn't of the kind becomes what it counts as, be it none.
TEST_F(UniquePanelTest, TheStartFollowsTheKind) {
  for (const auto& [letters, number] : Pairs{{"ab", "28"}, {"a1", "-1"}, {"", "0"}, {"12", "12"}}) {
    Set("Combo_Unique=1|Text_UniqueStart=" + letters + "|Combo_Unique=0");
    EXPECT_EQ(settings.Text_UniqueStart.Value(), number);
  }
  Set("Text_UniqueStart=28|Combo_Unique=1");
  EXPECT_EQ(settings.Text_UniqueStart.Value(), "ab");
}

TEST_F(UniquePanelTest, RandomIsForNumbersAlone) {
  for (const std::string way :
       {"Combo_Unique=1|Combo_Direction=3", "Combo_Direction=3|Combo_Unique=2"}) {
    Set("Combo_Unique=0|Combo_Direction=0");
    dialogs.answers = {Answer::Ok};
    Set(way);
    EXPECT_EQ(settings.Combo_Direction.Index(), DirectionIncrement);
    EXPECT_EQ(dialogs.asked.back().title, "Random is only available with numbers");
    EXPECT_EQ(dialogs.asked.back().text, "The 'Random' feature is only available with numbers");
    EXPECT_TRUE(settings.Text_UniqueIncrement.Visible() && !settings.Txt_RandomTo.Visible());
  }
}

// Whichever of the three lists was clicked last, the day is one that its month has. A year that is
// typed, or none, leaves it alone.
TEST_F(UniquePanelTest, TheDayStaysInItsMonth) {
  const std::string field = "Combo_UniqueDateStart";
  Set(field + "0=0|" + field + "1=30|" + field + "0=1");
  EXPECT_EQ(settings.Combo_UniqueDateStart1.ItemText(), "29");
  Set(field + "2=2023");
  EXPECT_EQ(settings.Combo_UniqueDateStart1.ItemText(), "29");
  const auto& years = settings.Combo_UniqueDateStart2.Items();
  const auto at = std::find(years.begin(), years.end(), "2022") - years.begin();
  settings.Combo_UniqueDateStart2.SelectItem(static_cast<std::size_t>(at));
  EXPECT_EQ(settings.Combo_UniqueDateStart1.ItemText(), "28");
  for (const char* year : {"", "junk"}) {
    Set(field + "2=" + year + "|" + field + "1=30");
    EXPECT_EQ(settings.Combo_UniqueDateStart1.ItemText(), "31");
  }
}

}  // namespace
}  // namespace tallowbrook
