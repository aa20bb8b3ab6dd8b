// What changes, who is told, and which rules run.
#include "base/controls.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

// A screen with a control of each kind, and a record of what it told and which rules ran.
struct Panel {
  Screen screen;
  Tick tick{screen, {.name = "Check_One"}};
  Text text{screen, {.name = "Text_One"}, "old"};
  History history{screen, {.name = "History_One"}};
  List list{screen, {.name = "Combo_One"}, {"a", "b"}, 0};
  Option first{screen, {.name = "Option_First"}, "group", true};
  Option second{screen, {.name = "Option_Second"}, "group"};
  Option third{screen, {.name = "Option_Third"}, "group"};
  Option stranger{screen, {.name = "Option_Stranger"}, "other", true};
  DateField date{screen, {.name = "Date_One"}, Date{}};
  Number number{screen, {.name = "Number_One"}};
  Label label{screen, {.name = "Label_One", .caption = "Name:", .tip = "A tip"}};
  Button button{screen, {.name = "Button_One"}};
  std::vector<std::string> told, ran;

  Panel() {
    screen.changed = [this](Control& control) { told.push_back(control.Name()); };
    for (Control* control : screen.Controls()) {
      control->rule = [this, control] { ran.push_back(control->Name()); };
    }
  }
};

using Names = std::vector<std::string>;

TEST(Controls, TextSetsAValueOfItsKindAndRunsTheRuleOncePerChange) {
  struct {
    const char *name, *text;
    bool taken, changed;
    const char* value;
  } rows[] = {
      {"Check_One", "1", true, true, "1"},
      {"Check_One", "0", true, false, "0"},
      {"Check_One", "2", false, false, "0"},
      {"Check_One", "-1", false, false, "0"},
      {"Check_One", "", false, false, "0"},
      {"Check_One", "1x", false, false, "0"},
      {"Check_One", "True", false, false, "0"},
      {"Text_One", "new", true, true, "new"},
      {"Text_One", "", true, true, ""},
      {"Text_One", "old", true, false, "old"},
      {"History_One", "typed", true, true, "typed"},
      {"Combo_One", "1", true, true, "1"},
      {"Combo_One", "-1", true, true, "-1"},
      {"Combo_One", "0", true, false, "0"},
      {"Combo_One", "2", false, false, "0"},
      {"Combo_One", "-2", false, false, "0"},
      {"Combo_One", "99999999999999999999", false, false, "0"},
      {"Combo_One", "b", false, false, "0"},
      {"Option_First", "False", true, false, "True"},
      {"Option_First", "1", true, false, "True"},
      {"Option_Second", "0", true, false, "False"},
      {"Option_Second", "on", false, false, "False"},
      {"Date_One", "9/11/2005", true, true, "9/11/2005"},
      {"Date_One", "9/11/2005 07:01", true, true, "9/11/2005 7:01:00 AM"},
      {"Date_One", "2/30/2005", false, false, "12/30/1899"},
      {"Number_One", "32767", true, true, "32767"},
      {"Number_One", "-32768", true, true, "-32768"},
      {"Number_One", "32768", false, false, "0"},
      {"Number_One", "1.5", false, false, "0"},
      {"Label_One", "x", false, false, "Name:"},
      {"Button_One", "1", false, false, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.name) + " = " + row.text);
    Panel panel;
    Control* control = panel.screen.Find(row.name);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->SetValueText(row.text), row.taken);
    EXPECT_EQ(control->ValueText(), row.value);
    const Names expected = row.changed ? Names{row.name} : Names{};
    EXPECT_EQ(panel.ran, expected);
    EXPECT_EQ(panel.told, expected);
  }
}

TEST(Controls, ValuesThatAKindCannotHoldAreIgnored) {
  Panel panel;
  panel.tick.Set(2);
  panel.list.Select(2);
  panel.list.Select(-2);
  panel.number.Set(40000);
  panel.history.SelectItem(0);
  EXPECT_EQ(panel.tick.Value(), 0);
  EXPECT_EQ(panel.list.Index(), 0);
  EXPECT_EQ(panel.number.Value(), 0);
  EXPECT_EQ(panel.told, Names{});
}

TEST(Controls, ChoosingAnOptionTurnsTheOthersOfItsGroupOffSilently) {
  Panel panel;
  panel.screen.changed = [&panel](Control& control) {
    EXPECT_EQ(panel.first.On() + panel.second.On() + panel.third.On(), 1);
    panel.told.push_back(control.Name());
  };
  panel.second.Choose();
  EXPECT_TRUE(panel.second.On());
  EXPECT_FALSE(panel.first.On());
  EXPECT_TRUE(panel.stranger.On());
  EXPECT_EQ(panel.told, (Names{"Option_First", "Option_Second"}));
  EXPECT_EQ(panel.ran, Names{"Option_Second"});
}

TEST(Controls, AnOptionOfTheSameGroupNameOnAnotherScreenStays) {
  Panel one, other;
  one.second.Choose();
  EXPECT_TRUE(other.first.On());
}

TEST(Controls, ARuleMaySetItsOwnControl) {
  Panel panel;
  panel.text.rule = [&] {
    panel.ran.push_back(panel.text.Value());
    panel.text.Set(panel.text.Value().substr(0, 3));
  };
  panel.text.Set("longer");
  EXPECT_EQ(panel.ran, (Names{"longer", "lon"}));
}

TEST(Controls, NewItemsOfAListSelectNothingAndRunNoRule) {
  Panel panel;
  panel.list.Select(1);
  panel.ran.clear();
  panel.list.AddItem("c");
  EXPECT_EQ(panel.list.ItemText(), "b");
  panel.list.SetItems({"x"});
  EXPECT_EQ(panel.list.Index(), -1);
  EXPECT_EQ(panel.list.ItemText(), "");
  EXPECT_EQ(panel.ran, Names{});
  EXPECT_EQ(panel.told, (Names{"Combo_One", "Combo_One", "Combo_One"}));
}

TEST(Controls, ItemsOfAHistoryLeaveItsTextUntilOneIsPicked) {
  Panel panel;
  panel.history.SetItems({"one", "two"});
  panel.history.AddItem("three");
  EXPECT_EQ(panel.history.Items(), (Names{"one", "two", "three"}));
  EXPECT_EQ(panel.history.Value(), "");
  EXPECT_EQ(panel.ran, Names{});
  panel.history.rule = [&] { panel.history.ClearItems(); };
  panel.history.SelectItem(1);
  EXPECT_EQ(panel.history.Value(), "two");
  EXPECT_EQ(panel.history.Items(), Names{});
}

TEST(Controls, LooksTellTheScreenOncePerChangeAndRunNoRule) {
  Panel panel;
  EXPECT_EQ(panel.label.Caption(), "Name:");
  EXPECT_EQ(panel.label.Tip(), "A tip");
  for (int twice = 0; twice < 2; ++twice) {
    panel.label.SetCaption("New");
    panel.label.SetEnabled(false);
    panel.label.SetVisible(false);
    panel.label.SetReadOnly(true);
  }
  EXPECT_EQ(panel.told, (Names{"Label_One", "Label_One", "Label_One", "Label_One"}));
  EXPECT_EQ(panel.ran, Names{});
}

TEST(Controls, ADisabledButtonDoesNothing) {
  Panel panel;
  panel.button.Press();
  panel.button.SetEnabled(false);
  panel.button.Press();
  EXPECT_EQ(panel.ran, Names{"Button_One"});
}

TEST(Controls, AScreenKnowsItsControlsByNameAndInOrder) {
  Panel panel;
  EXPECT_EQ(panel.screen.Find("Check_one"), nullptr);
  EXPECT_EQ(panel.screen.Find(""), nullptr);
  EXPECT_EQ(panel.screen.Controls().front(), &panel.tick);
  EXPECT_EQ(panel.screen.Controls().back(), &panel.button);
  Control* focused = nullptr;
  panel.screen.RequestFocus(panel.text);
  panel.screen.focusRequested = [&](Control& control) { focused = &control; };
  panel.screen.RequestFocus(panel.text);
  EXPECT_EQ(focused, &panel.text);
}

}  // namespace
}  // namespace tallowbrook
