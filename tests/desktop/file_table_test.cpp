// The list as the view sees it while the rows change under it.
#include "desktop/file_table.h"

#include <QAbstractItemModelTester>

#include "desktop/look.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "tests/desktop/window_fixture.h"
#include "tests/support/engine_fixture.h"

namespace tallowbrook {

class FileTableTest : public EngineTest {
 protected:
  void Add(std::initializer_list<const char*> fileNames) {
    for (const char* name : fileNames) {
      FileEntry entry;
      entry.name = name;
      entry.folder = list.Folders().Intern("/d/");
      list.Add(std::move(entry));
    }
  }
  QVariant Cell(int row, Column column, int role = Qt::DisplayRole) {
    return model().index(row, SectionOf(column)).data(role);
  }
  FileTableModel& model() { return rows.model; }
  void Show() {
    model().Sync();
    table.resize(900, 400);
    table.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&table));
  }
  // Of the middle of a row's name.
  QPoint NamePoint(int row) {
    return table.visualRect(model().index(row, SectionOf(Column::FileName))).center();
  }
  QPoint BoxPoint(int row) {
    const QRect cell = table.visualRect(model().index(row, 0));
    return {cell.left() + 10, cell.center().y()};
  }
  void Click(QPoint point, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers held = {}) {
    QTest::mouseClick(table.viewport(), button, held, point);
  }
  QMenu* Menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

  FileRows rows{list, operations};
  FileTable table{rows, nullptr};
  QAbstractItemModelTester tester{table.model(),
                                  QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(FileTableTest, ShowsRowsAfterAnEventUnlessOutOfSight) {
  bool told = false;
  model().stateChanged = [&] { told = true; };
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
  // It answers safely while the view is behind.
  list.Clear();
  EXPECT_EQ(model().rowCount(), 4);
  EXPECT_EQ(Cell(3, Column::FileName), QVariant());
  EXPECT_FALSE(model().setData(model().index(3, 0), Qt::Checked, Qt::CheckStateRole));
  Add({"new"});
  model().Sync();
  EXPECT_EQ(Cell(0, Column::FileName), QStringLiteral("new"));
}

TEST_F(FileTableTest, NamesAreShownAsPlainVisibleTextInTheColourOfTheirOutcome) {
  Add({"<b>\n\xFF"});
  model().Sync();
  const QString shown = QStringLiteral("<b>\u21B5\uFFFD");
  EXPECT_EQ(Cell(0, Column::FileName), shown);
  EXPECT_EQ(Cell(0, Column::FileName, Qt::ToolTipRole), PlainToolTip(shown));
  // clang-format off
  const std::pair<RowColour, QColor> inks[] = {{RowColour::Plain, {}}, {RowColour::Done, {0, 0, 255}},
      {RowColour::Failed, {255, 0, 0}}, {RowColour::Skipped, {224, 224, 224}}};
  // clang-format on
  for (const auto& [colour, expected] : inks) {
    list.Row(1).colour = colour;
    EXPECT_EQ(Cell(0, Column::NewFileName, Qt::ForegroundRole).value<QColor>(), expected);
  }
}

// The row that was chosen last loses its highlight; all others stay.
TEST_F(FileTableTest, AClickOnABoxTogglesItsRowAloneAndTheSpaceBarAllHighlightedOnes) {
  Add({"a", "b", "c", "d"});
  Show();
  for (const char* checked : {".x..", "....", ".x.."}) {
    Click(BoxPoint(0) + QPoint(60, 0));
    table.selectAll();
    Click(BoxPoint(1));
    EXPECT_EQ(Marks() + Highlights(), checked + std::string(".xxx"));
  }
  Click(BoxPoint(1) + QPoint(60, 0));
  EXPECT_EQ(Marks() + Highlights(), ".x...x..") << "a click beside the box";
  // The space bar makes all highlighted rows alike, and leaves the highlights.
  QTest::keyClick(&table, Qt::Key_Down, Qt::ShiftModifier);
  for (const char* checked : {"....", ".xx."}) {
    QTest::keyClick(&table, Qt::Key_Space);
    EXPECT_EQ(Marks() + Highlights(), checked + std::string(".xx."));
  }
}

// The view can paint with a few stretches of highlighted rows, not with thousands.
TEST_F(FileTableTest, ASortKeepsHighlightsUnlessTheyScatterTooFar) {
  for (int i = 0; i < 10'000; ++i) Add({"x"});
  list.Row(1).name = "y";
  Show();
  QHeaderView& header = *table.horizontalHeader();
  const QPoint onName(header.sectionViewportPosition(1) + 20, header.height() / 2);
  for (const auto& [highlighted, kept] : {std::pair{100U, 100}, {5'000U, 0}}) {
    for (std::size_t i = 0; i < highlighted; ++i) list.Row(2 * i + 1).Selected = true;
    for (const bool ascending : {false, true}) {
      QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, onName);
      EXPECT_EQ(Names().back() == "y", ascending);
      EXPECT_EQ(header.sortIndicatorOrder() == Qt::AscendingOrder, ascending);
      EXPECT_EQ(table.selectionModel()->isRowSelected(ascending ? 9'999 : 0), kept > 0);
    }
    EXPECT_EQ(std::ranges::count(Highlights(), 'x'), kept);
    EXPECT_EQ(table.selectionModel()->selectedRows().size(), kept);
  }
}

TEST_F(FileTableTest, TheRightButtonKeepsAHighlightAndTheEmptySpaceClearsIt) {
  Add({"a.txt", "b.mp3", "c"});
  Show();
  operations.ShowTagEditor = [] {};
  const QPoint below = NamePoint(2) + QPoint(0, 100);
  struct Row {
    QPoint place;
    Qt::MouseButton button;
    Qt::KeyboardModifiers held;
    const char* highlighted;
  };
  // clang-format off
  const Row clicks[] = {
      {NamePoint(1), Qt::RightButton, {}, ".x."}, {NamePoint(2), Qt::RightButton, {}, "..x"},
      {below, Qt::RightButton, {}, "..."}, {NamePoint(1), Qt::RightButton, {}, ".x."},
      {NamePoint(2), Qt::LeftButton, Qt::ControlModifier, ".xx"}, {NamePoint(1), Qt::RightButton, {}, ".xx"},
      {NamePoint(0), Qt::RightButton, Qt::ControlModifier, "x.."}, {below, Qt::LeftButton, {}, "..."}};
  // clang-format on
  for (const auto& [place, button, held, highlighted] : clicks) {
    Click(place, button, held);
    EXPECT_EQ(Highlights(), highlighted);
    ASSERT_EQ(Menu() != nullptr, button == Qt::RightButton && place != below);
    if (!Menu()) continue;
    const auto* editTag = Menu()->findChild<QAction*>(QStringLiteral("mnu_EditID3Tag"));
    EXPECT_EQ(editTag->isEnabled(), highlighted[1] == 'x');
    Menu()->close();
  }
}

TEST_F(FileTableTest, TheMenuActsOnTheHighlightedRowsAndGoesBeforeAnItemAsks) {
  Add({"a", "b", "c"});
  Show();
  table.selectRow(0);
  table.setFocus();
  QTest::keyClick(&table, Qt::Key_Down, Qt::ShiftModifier);
  QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, {});
  QCoreApplication::sendEvent(&table, &key);
  const QPointer<QMenu> menu = Menu();
  ASSERT_TRUE(menu);
  EXPECT_TRUE(table.viewport()->rect().contains(table.viewport()->mapFromGlobal(menu->pos())));
  QTest::keyClick(menu, Qt::Key_A);
  QTest::qWait(1);
  EXPECT_EQ(Marks(), "xx.");
  EXPECT_FALSE(menu);
  // What an item asks runs events of its own, in which the menu ends: it must be done with by then.
  bool menuEnded = false;
  operations.OpenManualRename = [&] {
    QTest::qWait(20);
    menuEnded = !table.findChild<QMenu*>();
  };
  Click(NamePoint(0), Qt::RightButton);
  ASSERT_TRUE(Menu());
  auto* rename = Menu()->findChild<QAction*>(QStringLiteral("mnu_ManualRename"));
  QTest::mouseClick(Menu(), Qt::LeftButton, {}, Menu()->actionGeometry(rename).center());
  EXPECT_TRUE(QTest::qWaitFor([&] { return menuEnded; }));
}

TEST_F(FileTableTest, ADoubleClickOpensTheRowAndF2RenamesTheCurrentOne) {
  Add({"a", "b", "c"});
  Show();
  std::size_t renamed = 0;
  operations.OpenManualRename = [&] { renamed = list.HighlightedRow(); };
  const QPoint below = NamePoint(2) + QPoint(0, 100);
  for (const auto& [point, button] : {std::pair{BoxPoint(0), Qt::LeftButton},
                                      {NamePoint(0), Qt::RightButton},
                                      {below, Qt::LeftButton},
                                      {NamePoint(1), Qt::LeftButton}}) {
    Click(point, button);
    if (Menu()) Menu()->close();
    QTest::mouseDClick(table.viewport(), button, {}, point);
  }
  EXPECT_EQ(desktop.opened, Lines{"/d/b"});
  table.setFocus();
  EXPECT_TRUE(operations.ListHasFocus);
  QTest::keyClick(&table, Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(&table, Qt::Key_F2);
  EXPECT_EQ(Highlights(), ".xx");
  EXPECT_EQ(renamed, 3U);
  table.clearFocus();
  EXPECT_FALSE(operations.ListHasFocus);
}

TEST_F(FileTableTest, TheRowOfTheKeyboardIsFramed) {
  Add({"a", "b"});
  Show();
  const auto isFramed = [&](int row) {
    const QRect cell = table.visualRect(model().index(row, 2));
    return table.viewport()->grab().toImage().pixelColor(cell.center().x(), cell.top()) ==
           CurrentTheme().focus;
  };
  Activate(table);
  table.setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(isFramed(0) && Highlights() == "..");
  QTest::keyClick(&table, Qt::Key_Down, Qt::ControlModifier);
  EXPECT_TRUE(isFramed(1) && !isFramed(0));
  table.clearFocus();
  EXPECT_FALSE(isFramed(1));
}

TEST_F(FileTableTest, TakesDroppedFilesOnceTheDropIsOver) {
  std::vector<std::string> dropped;
  table.dropped = [&](const std::vector<std::string>& paths) { dropped = paths; };
  QMimeData mime;
  mime.setData(QStringLiteral("text/uri-list"), "file:///a%FF\r\nfile:///b\r\n");
  QDragEnterEvent enter({20, 20}, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, {});
  QCoreApplication::sendEvent(table.viewport(), &enter);
  QDropEvent drop({20, 20}, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, {});
  QCoreApplication::sendEvent(table.viewport(), &drop);
  EXPECT_TRUE(drop.isAccepted());
  EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "nothing is moved away from its owner";
  EXPECT_TRUE(dropped.empty());
  QTest::qWait(10);
  EXPECT_EQ(dropped, (std::vector<std::string>{"/a\xFF", "/b"}));
}

}  // namespace tallowbrook
