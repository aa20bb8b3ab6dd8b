// The history over a real log and real files, driven by keys and clicks.
#include "desktop/history_window.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "desktop/history_tables.h"
#include "store/log_file.h"
#include "tests/desktop/window_fixture.h"

namespace tallowbrook {

class HistoryWindowTest : public testing::Test, protected TestWorld {
 protected:
  // A batch that renamed each "x" to "new x".
  void Rename(const std::vector<std::string>& names) {
    LogFile log(files);
    log.SetPath(data.Path("Logfile.txt"));
    log.BeginBatch(clock.Now());
    for (const std::string& name : names) {
      home.Write("new " + name);
      log.Record({RunRecord::Kind::File, home.Path(), name, home.Path(), "new " + name});
    }
    log.EndBatch();
    log.Close();
  }
  void Show() {
    Activate(window);
    Settle();
  }
  void Click(const char* button) {
    QTest::mouseClick(&Child(window, button), Qt::LeftButton);
    Settle();
  }
  static QString Cell(const RowTable& table, int row, int section) {
    return table.model()->index(row, section).data().toString();
  }
  QColor Colour(int row, int section) {
    return filesTable.model()->index(row, section).data(Qt::ForegroundRole).value<QColor>();
  }
  // `across` pixels behind the left end of the row.
  void ClickRow(RowTable& table, int row, int across, Qt::KeyboardModifiers held = {}) {
    const QRect cell = table.visualRect(table.model()->index(row, 0));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, held, {across, cell.center().y()});
  }
  std::string Checks() {
    std::string marks;
    for (std::size_t row = 1; row <= history.Files.Count(); ++row) {
      marks += history.Files.Checked(row) ? 'x' : '.';
    }
    return marks;
  }

  static constexpr int onBox = 10;
  static constexpr int onText = 200;
  FakeEvents events;
  int filtered = 0;
  LogHistory history{{files, dialogs, events, nullptr, [this] { ++filtered; }},
                     data.Path("Logfile.txt")};
  HistoryWindow window{history, nullptr};
  BatchTable& batches{Child<BatchTable>(window, "ListView1")};
  BatchFileTable& filesTable{Child<BatchFileTable>(window, "ListView2")};
  QAbstractItemModelTester batchTester{batches.model()};
  QAbstractItemModelTester fileTester{filesTable.model()};
};

TEST_F(HistoryWindowTest, ShowsTheBatchesKeepsTheSelectionsAlikeAndDeletes) {
  for (int batch = 1; batch < 50; ++batch) Rename({"a"});
  Rename({"a", "b"});
  Show();
  EXPECT_TRUE(batches.hasFocus());
  EXPECT_EQ(Cell(batches, 49, 0) + Cell(batches, 49, 1) + Cell(batches, 49, 2),
            QStringLiteral("02/29/2413:052"));
  EXPECT_TRUE(batches.selectionModel()->isRowSelected(49));
  EXPECT_EQ(batches.indexAt(batches.visualRect(batches.currentIndex()).center()).row(), 49);
  QTest::keyClick(&batches, Qt::Key_Up);
  EXPECT_EQ(history.SelectedBatch(), 49U);
  ClickRow(batches, 47, onText);
  EXPECT_EQ(history.SelectedBatch(), 48U);
  ClickRow(batches, 47, onText, Qt::ControlModifier);
  EXPECT_EQ(history.SelectedBatch(), 0U);
  EXPECT_FALSE(Child(window, "Cmd_Undo").isEnabled() || Child(window, "Cmd_Switch").isEnabled());
  ClickRow(batches, 49, onText);
  ClickRow(batches, 47, onText, Qt::ControlModifier);
  dialogs.answers = {Answer::Yes};
  Press(Qt::Key_Delete);
  Settle();
  EXPECT_EQ(batches.model()->rowCount(), 48);
  EXPECT_EQ(data.Read("Logfile.txt").find("new b"), std::string::npos);
}

TEST_F(HistoryWindowTest, TheFilesAreCheckedByClicksAndKeys) {
  Rename({"a", "b", "<i>\xFF", "d"});
  Show();
  QTest::keyClick(&batches, Qt::Key_Return);
  Settle();
  EXPECT_TRUE(filesTable.hasFocus() && !batches.isVisible());
  EXPECT_TRUE(
      Cell(filesTable, 2, BatchFileModel::NewPath).endsWith(QStringLiteral("/new <i>\uFFFD")));
  ClickRow(filesTable, 0, onBox);
  EXPECT_EQ(Checks(), ".xxx");
  const QRect row = filesTable.visualRect(filesTable.model()->index(1, 0));
  // Twice on the box is one toggle.
  for (const auto& [across, checks] : {std::pair{onText, "..xx"}, {onBox, ".xxx"}}) {
    ClickRow(filesTable, 1, across);
    QTest::mouseDClick(filesTable.viewport(), Qt::LeftButton, {}, {across, row.center().y()});
    EXPECT_EQ(Checks(), checks);
  }
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_Space);
  EXPECT_EQ(Checks(), "xxxx");
  Press(Qt::Key_Return);
  EXPECT_TRUE(window.isVisible()) << "no button is pressed by the list's Enter";
}

TEST_F(HistoryWindowTest, UndoesTheCheckedRowsAndTellsHowTheyEnded) {
  Rename({"a", "b", "c"});
  home.Write("c");
  Show();
  Click("Cmd_Switch");
  EXPECT_EQ(Colour(0, BatchFileModel::Result), QColor(0, 0, 255));
  ClickRow(filesTable, 1, onBox);
  QSignalSpy told(filesTable.model(), &QAbstractItemModel::dataChanged);
  dialogs.answers = {Answer::Yes};
  Click("Cmd_Undo");
  EXPECT_FALSE(told.empty());
  EXPECT_EQ(home.Names(), (std::vector<std::string>{"a", "c", "new b", "new c"}));
  EXPECT_EQ(filtered, 1);
  const QColor colours[] = {{0, 0, 255}, {}, {255, 0, 0}};
  for (int row = 0; row < 3; ++row) EXPECT_EQ(Colour(row, BatchFileModel::NewPath), colours[row]);
  EXPECT_EQ(Cell(filesTable, 2, BatchFileModel::Detail), QStringLiteral("Could Not Undo"));
  Click("Cmd_Close");
  EXPECT_TRUE(batches.isVisible() && window.isVisible());
  Click("Cmd_Switch");
  EXPECT_EQ(Cell(filesTable, 0, BatchFileModel::Result), QStringLiteral("Undone"));
  EXPECT_EQ(Colour(0, BatchFileModel::Result), QColor(128, 128, 128));
  Click("Cmd_Close");
  Click("Cmd_Close");
  EXPECT_FALSE(window.isVisible());
}

TEST_F(HistoryWindowTest, NothingClosesItWhileItWorks) {
  Rename(std::vector<std::string>(25, "a"));
  Show();
  Click("Cmd_Switch");
  dialogs.answers = {Answer::Yes};
  int tries = 0;
  events.yields = 0;
  events.atYield = {{1, [&] {
                       window.close();
                       QTest::keyClick(&filesTable, Qt::Key_Escape);
                       QTest::keyClick(&window, Qt::Key_C, Qt::AltModifier);
                       tries += window.isVisible() && filesTable.isVisible();
                     }}};
  Click("Cmd_Undo");
  EXPECT_EQ(tries, 1);
  EXPECT_TRUE(home.Exists("a"));
  QTest::keyClick(&filesTable, Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
}

// The view paints and is clicked while the history replaces its lists.
TEST_F(HistoryWindowTest, AnswersSafelyWhileTheViewIsBehind) {
  for (const char* name : {"a", "b", "c"}) Rename({name});
  Show();
  Click("Cmd_Switch");
  const QModelIndex file = filesTable.model()->index(0, 0);
  const QModelIndex batch = batches.model()->index(2, 0);
  history.SwitchLogView();
  data.Write("Logfile.txt");
  history.LoadLogSummary();
  EXPECT_EQ(file.data(), QVariant());
  EXPECT_EQ(batch.data(), QVariant());
  EXPECT_FALSE(filesTable.model()->setData(file, Qt::Unchecked, Qt::CheckStateRole));
  batches.selectAll();
  EXPECT_EQ(history.SelectedBatch(), 0U);
  dialogs.answers = {Answer::Yes};
  history.DeleteKey();
  QTest::keyClick(&batches, Qt::Key_Return);
  EXPECT_TRUE(batches.isVisible());
}

}  // namespace tallowbrook
