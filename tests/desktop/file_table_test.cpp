// The list as the view sees it while the rows change under it.
#include "desktop/file_table.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QTest>

namespace tallowbrook {

class FileTableTest : public testing::Test {
 protected:
  void Add(const std::string& name) {
    FileEntry entry;
    entry.name = name;
    entry.folder = list.Folders().Intern("/d/");
    list.Add(std::move(entry));
  }
  QString Cell(int row, Column column) {
    return model().index(row, SectionOf(column)).data().toString();
  }
  FileTableModel& model() { return *static_cast<FileTableModel*>(table.model()); }
  void Show() {
    window.resize(900, 400);
    table.resize(900, 400);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  }
  std::vector<std::size_t> Highlighted() {
    std::vector<std::size_t> rows;
    for (std::size_t row = 1; row <= list.Count(); ++row) {
      if (list.Row(row).Selected) rows.push_back(row);
    }
    return rows;
  }

  FileList list;
  QWidget window;
  FileTable table{list, &window};
  QAbstractItemModelTester tester{table.model(),
                                  QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(FileTableTest, ShowsAppendedRowsAfterAnEvent) {
  for (const char* name : {"a.txt", "b.txt", "c"}) Add(name);
  EXPECT_EQ(model().rowCount(), 0) << "long work is not held up";
  QTest::qWait(60);
  ASSERT_EQ(model().rowCount(), 3);
  EXPECT_EQ(Cell(1, Column::FileName), QStringLiteral("b.txt"));
  EXPECT_EQ(Cell(1, Column::Ext), QStringLiteral("TXT"));
  EXPECT_EQ(Cell(2, Column::Directory), QStringLiteral("/d/"));
}

TEST_F(FileTableTest, AnswersSafelyWhileTheViewIsBehind) {
  for (int i = 0; i < 5; ++i) Add("x");
  model().Sync();
  list.Clear();
  EXPECT_EQ(model().rowCount(), 5);
  EXPECT_EQ(Cell(4, Column::FileName), QString());
  EXPECT_FALSE(model().setData(model().index(4, 0), Qt::Checked, Qt::CheckStateRole));
  Add("new");
  model().Sync();
  EXPECT_EQ(model().rowCount(), 1);
  EXPECT_EQ(Cell(0, Column::FileName), QStringLiteral("new"));
}

TEST_F(FileTableTest, WaitsWhileTheListIsOutOfSight) {
  bool told = false;
  table.visibilityChanged = [&] { told = true; };
  list.SetVisible(false);
  Add("a");
  model().Sync();
  EXPECT_TRUE(told);
  EXPECT_EQ(model().rowCount(), 0);
  list.SetVisible(true);
  model().Sync();
  EXPECT_EQ(model().rowCount(), 1);
}

TEST_F(FileTableTest, NamesAreShownAsPlainVisibleText) {
  Add("<b>\n\xFF");
  model().Sync();
  EXPECT_EQ(Cell(0, Column::FileName), QStringLiteral("<b>\u21B5\uFFFD"));
  EXPECT_EQ(model().index(0, SectionOf(Column::FileName)).data(Qt::ToolTipRole).toString(),
            QStringLiteral("<p style='white-space:pre-wrap'>&lt;b&gt;\u21B5\uFFFD</p>"));
}

TEST_F(FileTableTest, OutcomesHaveTheirColours) {
  const std::pair<RowColour, QColor> rows[] = {
      {RowColour::Plain, {0, 0, 0}},
      {RowColour::Done, {0, 0, 255}},
      {RowColour::Failed, {255, 0, 0}},
      {RowColour::Skipped, {224, 224, 224}},
  };
  Add("a");
  model().Sync();
  for (const auto& [colour, expected] : rows) {
    list.Row(1).colour = colour;
    const QModelIndex cell = model().index(0, SectionOf(Column::NewFileName));
    EXPECT_EQ(cell.data(Qt::ForegroundRole).value<QColor>(), expected);
    EXPECT_FALSE(model().index(0, 1).data(Qt::ForegroundRole).isValid());
  }
}

TEST_F(FileTableTest, ColumnsAreAsWideAsTheyAreGiven) {
  EXPECT_EQ(table.columnWidth(SectionOf(Column::FileName)), 235);
  EXPECT_TRUE(table.isColumnHidden(SectionOf(Column::BaseSize)));
  EXPECT_TRUE(table.isColumnHidden(SectionOf(Column::BaseDate)));
  list.SetCaption(Column::FileName, "Folder Name");
  EXPECT_EQ(model().headerData(SectionOf(Column::FileName), Qt::Horizontal, Qt::DisplayRole),
            QStringLiteral("Folder Name"));
}

TEST_F(FileTableTest, AClickOnABoxTogglesItsRowAlone) {
  for (const char* name : {"a", "b", "c"}) Add(name);
  model().Sync();
  Show();
  table.selectAll();
  const QRect cell = table.visualRect(model().index(1, 0));
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, {cell.left() + 10, cell.center().y()});
  EXPECT_FALSE(list.Row(1).Checked);
  EXPECT_TRUE(list.Row(2).Checked);
  EXPECT_FALSE(list.Row(3).Checked);
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, {cell.right() + 40, cell.center().y()});
  EXPECT_TRUE(list.Row(2).Checked) << "a click beside the box";
}

TEST_F(FileTableTest, SpaceMakesAllHighlightedRowsAlike) {
  for (const char* name : {"a", "b", "c", "d"}) Add(name);
  list.SetChecked(3, true);
  model().Sync();
  Show();
  table.selectRow(1);
  QTest::keyClick(&table, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Highlighted(), (std::vector<std::size_t>{2, 3}));
  QTest::keyClick(&table, Qt::Key_Space);
  EXPECT_TRUE(list.Row(2).Checked);
  EXPECT_TRUE(list.Row(3).Checked);
  QTest::keyClick(&table, Qt::Key_Space);
  EXPECT_FALSE(list.Row(2).Checked);
  EXPECT_FALSE(list.Row(3).Checked);
  EXPECT_FALSE(list.Row(1).Checked);
  EXPECT_FALSE(list.Row(4).Checked);
}

TEST_F(FileTableTest, HighlightsMoveWithTheirRowsThroughASort) {
  for (const char* name : {"b", "c", "a"}) Add(name);
  model().Sync();
  Show();
  table.selectRow(1);
  QHeaderView& header = *table.horizontalHeader();
  const int section = SectionOf(Column::FileName);
  const QPoint onHeader(header.sectionViewportPosition(section) + 20, header.height() / 2);
  for (int clicks = 1; clicks <= 2; ++clicks) {
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, onHeader);
    std::size_t row = 1;
    while (list.Row(row).name != "c") ++row;
    EXPECT_EQ(Highlighted(), std::vector{row});
    EXPECT_TRUE(table.selectionModel()->isRowSelected(static_cast<int>(row) - 1));
    const bool ascending = list.Row(1).name == "a";
    EXPECT_EQ(header.sortIndicatorOrder(), ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    EXPECT_EQ(header.sortIndicatorSection(), section);
  }
}

TEST_F(FileTableTest, TakesDroppedFilesOnceTheDropIsOver) {
  std::vector<std::string> dropped;
  table.dropped = [&](const std::vector<std::string>& paths) { dropped = paths; };
  QMimeData files;
  files.setData(QStringLiteral("text/uri-list"), "file:///a%FF\r\nfile:///b\r\n");
  QDragEnterEvent enter({20, 20}, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
  QCoreApplication::sendEvent(table.viewport(), &enter);
  QDropEvent drop({20, 20}, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
  QCoreApplication::sendEvent(table.viewport(), &drop);
  EXPECT_TRUE(drop.isAccepted());
  EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "nothing is moved away from its owner";
  EXPECT_TRUE(dropped.empty());
  QTest::qWait(10);
  EXPECT_EQ(dropped, (std::vector<std::string>{"/a\xFF", "/b"}));
}

TEST_F(FileTableTest, AMillionRowsCostNoMoreThanTheirNames) {
  for (int i = 0; i < 1'000'000; ++i) Add("x");
  model().Sync();
  Show();
  EXPECT_EQ(model().rowCount(), 1'000'000);
  table.scrollToBottom();
  table.selectAll();
  EXPECT_TRUE(list.Row(1'000'000).Selected);
  EXPECT_EQ(table.rowAt(table.viewport()->height() / 2) > 999'900, true);
}

}  // namespace tallowbrook
