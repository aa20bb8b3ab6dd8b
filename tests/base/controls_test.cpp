// What changes, who is told, and which rules run.
#include "base/controls.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

using Names = std::vector<std::string>;

// A screen with a control of each kind, and a record of what it told and which rules ran.
struct Panel {
  Screen screen;
  Tick tick{screen, {.name = "Check_One"}};
  Text text{screen, {.name = "Text_One"}, "old"};
  History history{screen, {.name = "History_One"}};
  List list{screen, {.name = "Combo_One"}, {"a", "b"}, 0};
  Option first{screen, {.name = "Option_First"}, "group", true};
  Option second{screen, {.name = "Option_Second"}, "group"};
  Option stranger{screen, {.name = "Option_Stranger"}, "other", true};
  DateField date{screen, {.name = "Date_One"}, Date{}};
  Number number{screen, {.name = "Number_One"}};
  Label label{screen, {.name = "Label_One", .caption = "Name:"}};
  Button button{screen, {.name = "Button_One"}};
  Names told, ran;

  Panel() {
    screen.changed = [this](Control& control) { told.push_back(control.Name()); };
    for (Control* control : screen.Controls()) {
      control->rule = [this, control] { ran.push_back(control->Name()); };
    }
  }
};

TEST(Controls, TextSetsAValueOfItsKindAndRunsTheRuleOncePerChange) {
  // clang-format off
  const std::tuple<std::string, std::string, bool, std::string> rows[] = {
      {"Check_One", "1", true, "1"}, {"Check_One", "2", false, "0"}, {"Check_One", "", false, "0"},
      {"Check_One", "1x", false, "0"}, {"Text_One", "old", true, "old"}, {"Combo_One", "-1", true, "-1"},
      {"Combo_One", "2", false, "0"}, {"Combo_One", "-2", false, "0"},
      {"Combo_One", "99999999999999999999", false, "0"}, {"Option_First", "False", true, "True"},
      {"Option_Second", "on", false, "False"}, {"Date_One", "9/11/2005 07:01", true, "9/11/2005 7:01:00 AM"},
      {"Date_One", "2/30/2005", false, "12/30/1899"}, {"Number_One", "-32768", true, "-32768"},
      {"Number_One", "32768", false, "0"},
      {"Label_One", "x", false, "Name:"}};
  // clang-format on
  for (const auto& [name, text, taken, value] : rows) {
    Panel panel;
    Control& control = *panel.screen.Find(name);
    const bool changes = control.ValueText() != value;
    EXPECT_EQ(control.SetValueText(text), taken) << name << " = " << text;
    EXPECT_EQ(control.ValueText(), value) << name << " = " << text;
    EXPECT_EQ(panel.ran, changes ? Names{name} : Names{}) << name << " = " << text;
    EXPECT_EQ(panel.told, panel.ran) << name << " = " << text;
  }
}

TEST(Controls, ChoosingAnOptionTurnsTheOthersOfItsGroupAndScreenOffSilently) {
  Panel panel, other;
  panel.screen.changed = [&panel](Control& control) {
    EXPECT_EQ(panel.first.On() + panel.second.On(), 1);
    panel.told.push_back(control.Name());
  };
  panel.second.Choose();
  EXPECT_TRUE(panel.second.On() && panel.stranger.On() && other.first.On());
  EXPECT_EQ(panel.told, (Names{"Option_First", "Option_Second"}));
  EXPECT_EQ(panel.ran, Names{"Option_Second"});
}

TEST(Controls, NewItemsSelectNothingAndARuleMayTakeThePickedOneAway) {
  Panel panel;
  panel.history.SetItems({"one", "two"});
  EXPECT_EQ(panel.history.Value(), "");
  EXPECT_EQ(panel.ran, Names{});
  panel.history.rule = [&] {
    panel.history.ClearItems();
    panel.history.Set(panel.history.Value().substr(0, 2));
  };
  panel.history.SelectItem(1);
  panel.history.SelectItem(1);
  EXPECT_EQ(panel.history.Value(), "tw");
}

}  // namespace
}  // namespace tallowbrook
