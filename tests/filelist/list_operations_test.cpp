// What acts on rows that exist: check marks by the boxes' arrows, delete, open, dates, the menu.
#include "filelist/list_operations.h"

#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

class ListOperationsTest : public EngineTest {
 protected:
  void Highlight(std::initializer_list<std::size_t> rows) {
    for (std::size_t i = 1; i <= list.Count(); ++i) list.Row(i).Selected = false;
    for (const std::size_t row : rows) list.Row(row).Selected = true;
  }
};

TEST_F(ListOperationsTest, ArrowsStepTheCheckPattern) {
  Fill(6);
  Scan();
  const auto after = [&](int times, const auto& step) {
    for (int i = 0; i < times; ++i) step();
    return pane.Text_StartCheck.Value() + " " + pane.Text_Step.Value() + " " + Marks();
  };
  EXPECT_EQ(after(1, [&] { pane.VScroll2.StepUp(); }), "0 2 x.x.x.");
  EXPECT_EQ(after(3, [&] { pane.VScroll1.StepUp(); }), "3 2 ..x.x.");
  EXPECT_EQ(after(1, [&] { pane.VScroll1.StepDown(); }), "2 2 .x.x.x");
  EXPECT_EQ(after(1, [&] { pane.Text_StartCheck.focusLost(); }), "2 2 .x.x.x");
  // The number ends at 1, though 0 can be typed; marks made by hand give way there, too.
  EXPECT_EQ(after(2, [&] { pane.VScroll1.StepDown(); }), "1 2 x.x.x.");
  list.SetChecked(1, false);
  EXPECT_EQ(after(1, [&] { pane.VScroll1.StepDown(); }), "1 2 x.x.x.");
  EXPECT_EQ(after(5, [&] { pane.VScroll2.StepDown(); }), "1 0 ......");
}

TEST_F(ListOperationsTest, DeletesForGoodAndStopsAtTheFirstFailure) {
  List({"a", "b", "c", "d"});
  Highlight({1, 3});
  dialogs.answers = {Answer::No, Answer::Yes, Answer::Yes, Answer::Yes};
  operations.DeleteHighlighted();
  EXPECT_EQ(
      dialogs.asked.back().title + ": " + dialogs.asked.back().text,
      "Delete File: Are you sure you want to delete the 2 highlighted file(s) from the system?");
  EXPECT_EQ(folder.Names().size(), 4U);
  operations.DeleteHighlighted();
  EXPECT_EQ(folder.Names(), (Lines{"b", "d"}));
  EXPECT_EQ(Names(), folder.Names());
  EXPECT_EQ(Highlights(), "..");
  // None is highlighted: it asks all the same.
  operations.DeleteHighlighted();
  EXPECT_NE(dialogs.asked.back().text.find("the 0 highlighted"), std::string::npos);
  // "c" has become a folder since it was listed.
  folder.Write("c", "");
  Scan();
  remove(folder.Path("c").c_str());
  folder.MakeFolder("c");
  Highlight({1, 2, 3});
  operations.ListHasFocus = true;
  operations.DeleteKey();
  EXPECT_EQ(folder.Names(), (Lines{"c", "d"}));
  EXPECT_EQ(status.Pane(0),
            "1 file(s) deleted, stopped at '" + folder.Path("c") + "', which could not be deleted");
  EXPECT_EQ(list.Count(), 3U);
  operations.ListHasFocus = false;
  operations.DeleteKey();
  EXPECT_EQ(dialogs.asked.size(), 4U);
}

TEST_F(ListOperationsTest, TheMenuActsOnTheHighlightedRows) {
  List({"a.txt", "b.MP3", "c"});
  operations.mnu_Open.Press();
  EXPECT_TRUE(desktop.opened.empty());
  Highlight({1, 2});
  EXPECT_TRUE(operations.MouseUp(2, true));  // the row under the pointer is the one that opens
  EXPECT_FALSE(operations.mnu_EditID3Tag.Enabled()) << "there is no editor";
  operations.mnu_Open.Press();
  operations.mnu_OpenContaining.Press();
  EXPECT_EQ(desktop.opened,
            (Lines{folder.Path("b.MP3"), folder.Path() + " > " + folder.Path("b.MP3")}));
  list.SetAllChecks(2);
  list.SetChecked(3, true);
  operations.mnu_SelectHighlighted.Press();
  EXPECT_EQ(Marks(), "xxx");
  Highlight({2});
  operations.mnu_DeselectHighlighted.Press();
  EXPECT_EQ(Marks(), "x.x");
  operations.mnu_SelectOnlyHighlighted.Press();
  EXPECT_EQ(Marks(), ".x.");
  for (const auto& [row, isRight] : {std::pair{1U, false}, {0U, true}, {4U, true}}) {
    EXPECT_FALSE(operations.MouseUp(row, isRight));
    EXPECT_EQ(list.SelectedItem(), row % 4);
  }
}

// The selected item is a row, not a place. A check takes its highlight off, and no other's.
TEST_F(ListOperationsTest, ASortTakesTheSelectedItemAlong) {
  List({"a", "b", "c", "d"});
  Highlight({1, 2});
  operations.MouseUp(2, false);
  list.SortByColumn(Column::FileName);
  EXPECT_EQ(Names()[0] + list.Row(list.HighlightedRow()).name, "db");
  operations.ItemCheck(1, false);
  EXPECT_EQ(Highlights() + Marks(), "...x.xxx");
}

// The texts change, the order of a sort doesn't; a folder gets a date, a lost file loses its own.
TEST_F(ListOperationsTest, TheDateColumnSwitches) {
  List({"a", "b", "c"});
  folder.SetTime("a", 1'100'000'000);
  folder.SetTime("b", 1'000'000'000);
  folder.SetTime("c", 1'200'000'000);
  Scan();
  EXPECT_EQ(list.Cell(1, Column::Date), "11/9/2004 11:33:20 AM");
  folder.SetTime("b", 1'300'000'000);
  remove(folder.Path("a").c_str());
  operations.SetDateColumnMode(1);
  EXPECT_EQ(list.Caption(Column::Date), "Date Created");
  EXPECT_EQ(list.Cell(2, Column::Date), scan.GetListDate(folder.Path("b")));
  EXPECT_EQ(list.Cell(1, Column::Date), "");
  EXPECT_FALSE(list.Cell(1, Column::Size).empty());
  operations.SetDateColumnMode(0);
  EXPECT_EQ(list.Caption(Column::Date), "Date Modified");
  EXPECT_EQ(list.Cell(2, Column::Date), "3/13/2011 7:06:40 AM");
  // A photo's own date gives way to the file's.
  list.Row(3).shownDate = list.Row(3).sortDate = *MakeDate({1990, 1, 1});
  operations.UpdateDates();
  EXPECT_EQ(list.Cell(3, Column::Date), scan.GetListDate(folder.Path("c")));
  list.SortByColumn(Column::Date);
  EXPECT_EQ(Names(), (Lines{"a", "b", "c"}));
  folder.MakeFolder("sub");
  Set("Option1_Folders", "True");
  EXPECT_EQ(list.Cell(1, Column::Date), "");
  operations.UpdateDates();
  EXPECT_NE(list.Cell(1, Column::Date), "");
}

}  // namespace
}  // namespace tallowbrook
