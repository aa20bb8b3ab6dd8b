// The list as the view sees it while the rows change under it.
#include "desktop/file_table.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QTest>
#include <QtWidgets>

namespace tallowbrook {

class FileTableTest : public testing::Test {
 protected:
  void Add(std::initializer_list<const char*> names) {
    for (const char* name : names) {
      FileEntry entry;
      entry.name = name;
      entry.folder = list.Folders().Intern("/d/");
      list.Add(std::move(entry));
    }
  }
  QString Cell(int row, Column column) {
    return model().index(row, SectionOf(column)).data().toString();
  }
  FileTableModel& model() { return *static_cast<FileTableModel*>(table.model()); }
  void Show() {
    model().Sync();
    table.resize(900, 400);
    table.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&table));
  }
  // The numbers of the rows that are checked or highlighted.
  std::vector<std::size_t> Rows(bool FileEntry::*mark) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 1; row <= list.Count(); ++row) {
      if (list.Row(row).*mark) rows.push_back(row);
    }
    return rows;
  }

  using Numbers = std::vector<std::size_t>;
  FileList list;
  FileTable table{list, nullptr};
  QAbstractItemModelTester tester{table.model(),
                                  QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(FileTableTest, ShowsAppendedRowsAfterAnEventUnlessOutOfSight) {
  bool told = false;
  table.visibilityChanged = [&] { told = true; };
  list.SetVisible(false);
  Add({"a.txt", "b.txt"});
  model().Sync();
  EXPECT_TRUE(told);
  EXPECT_EQ(model().rowCount(), 0);
  list.SetVisible(true);
  Add({"c"});
  model().Sync();
  Add({"d.txt"});
  EXPECT_EQ(model().rowCount(), 3) << "long work is not held up";
  QTest::qWait(60);
  ASSERT_EQ(model().rowCount(), 4);
  EXPECT_EQ(Cell(3, Column::FileName), QStringLiteral("d.txt"));
  EXPECT_EQ(Cell(3, Column::Ext), QStringLiteral("TXT"));
}

TEST_F(FileTableTest, AnswersSafelyWhileTheViewIsBehind) {
  Add({"a", "b", "c", "d", "e"});
  model().Sync();
  list.Clear();
  EXPECT_EQ(model().rowCount(), 5);
  EXPECT_EQ(Cell(4, Column::FileName), QString());
  EXPECT_FALSE(model().setData(model().index(4, 0), Qt::Checked, Qt::CheckStateRole));
  Add({"new"});
  model().Sync();
  EXPECT_EQ(Cell(0, Column::FileName), QStringLiteral("new"));
}

TEST_F(FileTableTest, NamesAreShownAsPlainVisibleText) {
  Add({"<b>\n\xFF"});
  model().Sync();
  EXPECT_EQ(Cell(0, Column::FileName), QStringLiteral("<b>\u21B5\uFFFD"));
  EXPECT_EQ(model().index(0, SectionOf(Column::FileName)).data(Qt::ToolTipRole).toString(),
            QStringLiteral("<p style='white-space:pre-wrap'>&lt;b&gt;\u21B5\uFFFD</p>"));
}

TEST_F(FileTableTest, OutcomesHaveTheirColours) {
  // clang-format off
  const std::pair<RowColour, QColor> rows[] = {
      {RowColour::Plain, {0, 0, 0}}, {RowColour::Done, {0, 0, 255}},
      {RowColour::Failed, {255, 0, 0}}, {RowColour::Skipped, {224, 224, 224}}};
  // clang-format on
  Add({"a"});
  model().Sync();
  for (const auto& [colour, expected] : rows) {
    list.Row(1).colour = colour;
    const QModelIndex cell = model().index(0, SectionOf(Column::NewFileName));
    EXPECT_EQ(cell.data(Qt::ForegroundRole).value<QColor>(), expected);
  }
}

TEST_F(FileTableTest, AClickOnABoxTogglesItsRowAloneAndSpaceMakesAllHighlightedRowsAlike) {
  Add({"a", "b", "c", "d"});
  Show();
  table.selectAll();
  const QRect cell = table.visualRect(model().index(1, 0));
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, {cell.left() + 10, cell.center().y()});
  EXPECT_EQ(Rows(&FileEntry::Checked), Numbers{2});
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, {cell.right() + 40, cell.center().y()});
  EXPECT_EQ(Rows(&FileEntry::Checked), Numbers{2}) << "a click beside the box";
  table.selectRow(1);
  QTest::keyClick(&table, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Rows(&FileEntry::Selected), (Numbers{2, 3}));
  QTest::keyClick(&table, Qt::Key_Space);
  EXPECT_EQ(Rows(&FileEntry::Checked), Numbers());
  QTest::keyClick(&table, Qt::Key_Space);
  EXPECT_EQ(Rows(&FileEntry::Checked), (Numbers{2, 3}));
}

TEST_F(FileTableTest, HighlightsMoveWithTheirRowsThroughASort) {
  Add({"b", "c", "a"});
  Show();
  table.selectRow(1);
  QHeaderView& header = *table.horizontalHeader();
  const int section = SectionOf(Column::FileName);
  const QPoint onHeader(header.sectionViewportPosition(section) + 20, header.height() / 2);
  for (int clicks = 1; clicks <= 2; ++clicks) {
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, onHeader);
    std::size_t row = 1;
    while (list.Row(row).name != "c") ++row;
    EXPECT_EQ(Rows(&FileEntry::Selected), Numbers{row});
    EXPECT_TRUE(table.selectionModel()->isRowSelected(static_cast<int>(row) - 1));
    const bool ascending = list.Row(1).name == "a";
    EXPECT_EQ(header.sortIndicatorOrder(), ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
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
  for (int i = 0; i < 1'000'000; ++i) Add({"x"});
  Show();
  table.scrollToBottom();
  table.selectAll();
  EXPECT_TRUE(list.Row(1'000'000).Selected);
  EXPECT_GT(table.rowAt(table.viewport()->height() / 2), 999'900);
}

}  // namespace tallowbrook
