// The history over real runs and their real log, and over logs that nobody wrote well.
#include "store/log_history.h"

#include <stdexcept>

#include "store/log_file.h"
#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

class HistoryTest : public EngineTest {
 protected:
  HistoryTest() {
    logFile.SetPath(logPath);
    // Numbers alone make the names: "f100" becomes "f100-1".
    Set("Text_UniqueMask=|Check_Extension=0");
  }
  void Run() { realRun.RenameFiles(0, {}); }
  // Opens the history and undoes the latest batch.
  void UndoLatest() {
    history.Open();
    Undo();
  }
  void Undo() {
    dialogs.answers = {Answer::Yes};
    history.Cmd_Undo.Press();
    EXPECT_TRUE(dialogs.answers.empty());
  }
  // "date time files errors"
  Lines Summary() const {
    Lines lines;
    for (std::size_t i = 1; i <= history.CountBatches(); ++i) {
      const auto& [date, time, count, errors] = history.Batch(i);
      lines.push_back(date + " " + time + " " + std::to_string(count) + " " +
                      std::to_string(errors));
    }
    return lines;
  }
  // "Result|Old Filename|New Filename|Detail" with short paths.
  Lines Detail() const {
    Lines lines;
    const BatchRows& rows = history.Files;
    for (std::size_t i = 1; i <= rows.Count(); ++i) {
      lines.push_back(
          Short(std::string(rows.Result(i)) + "|" + rows.OldPath(i) + "|" + rows.NewPath(i)) + "|" +
          rows.Detail(i));
    }
    return lines;
  }
  Lines Outcomes() const {
    Lines lines = Detail();
    for (std::string& line : lines) line = line.substr(line.rfind('|') + 1);
    return lines;
  }
  std::string Log() const { return data.Read("Logfile.txt"); }
  // The statuses of all records in the log.
  std::string Statuses() const {
    std::string statuses;
    const std::string text = Log();
    for (std::size_t at = 0; (at = text.find("\x06 ", at)) != std::string::npos; ++at) {
      const std::size_t line = text.rfind('\n', at) + 1;
      statuses.append(text, line, at - line) += ' ';
    }
    return statuses;
  }

  TemporaryFolder data;
  std::string logPath = data.Path("Logfile.txt");
  LogFile logFile{files};
  RenameRun realRun{{files, clock, status, logFile}, settings, pane, list, scan, names, pool};
  FakeFileDates dates;
  int filtered = 0;
  LogHistory history{{files, dialogs, events, &dates,
                      [this] {
                        ++filtered;
                        scan.RefillList();
                      }},
                     logPath};
};

TEST_F(HistoryTest, ARunIsShownAndUndone) {
  List({"a", "b", "c"});
  Run();
  Set("Combo_Unique=1");
  Run();
  history.Open();
  EXPECT_EQ(Summary(), Lines(2, "02/29/24 13:05 3 0"));
  EXPECT_EQ(history.statusBar.Pane(1), "Log Entries: 2");
  EXPECT_EQ(history.SelectedBatch(), 2U);
  history.Cmd_Switch.Press();
  EXPECT_TRUE(history.ListView2.Visible() && !history.ListView1.Visible());
  EXPECT_EQ(history.statusBar.Pane(1), "Files renamed this batch: 3");
  history.FileDoubleClicked(2);
  dialogs.answers = {Answer::No, Answer::Yes};
  history.Cmd_Undo.Press();
  EXPECT_EQ(folder.Names(), (Lines{"a-1-a", "b-2-b", "c-3-c"}));
  history.Cmd_Undo.Press();
  EXPECT_EQ(dialogs.asked.back().title + ": " + dialogs.asked.back().text,
            "Confirm Undo: Number of files to Undo Rename: 2");
  EXPECT_EQ(folder.Names(), (Lines{"a-1", "b-2-b", "c-3"}));
  EXPECT_EQ(Names(), folder.Names());
  EXPECT_EQ(Detail()[0], "Success|~/a-1|~/a-1-a|Undo Successful");
  EXPECT_EQ(Detail()[1], "Success|~/b-2|~/b-2-b|");
  EXPECT_EQ(Statuses(), "1 1 1 3 1 3 ");
  // The ticks stay, and what is undone can't be undone again; the row in between can.
  history.FileDoubleClicked(2);
  Undo();
  EXPECT_EQ(folder.Names(), (Lines{"a-1", "b-2", "c-3"}));
  EXPECT_EQ(Outcomes(), (Lines{"Could Not Undo", "Undo Successful", "Could Not Undo"}));
  EXPECT_EQ(Statuses(), "1 1 1 3 3 3 ");
  // Loaded again, the results tell; the first batch is undone from the names that it left.
  history.Cmd_Close.Press();
  history.BatchDoubleClicked();
  EXPECT_EQ(Detail()[1], "Undone|~/b-2|~/b-2-b|");
  history.Cmd_Switch.Press();
  history.SelectBatches({1}, 1);
  Undo();
  EXPECT_EQ(folder.Names(), (Lines{"a", "b", "c"}));
  EXPECT_EQ(folder.Read("b"), "bytes of b");
}

// A row that can't go back fails alone. What stands at a name that a run didn't get, or gave back,
// is somebody else's, even if the old name is free now.
TEST_F(HistoryTest, ARowThatCannotGoBackFailsAloneAndAFailedOrUndoneOneIsLeft) {
  List({"a", "b", "c", "d"});
  folder.Write("d-4", "in the way of d");
  Run();
  folder.Write("a", "has come since");
  disk.Delete(folder.Path("b-2"));
  UndoLatest();
  EXPECT_EQ(Summary(), Lines{"02/29/24 13:05 4 1"});
  EXPECT_EQ(Detail(),
            (Lines{"Success|~/a|~/a-1|Could Not Undo", "Success|~/b|~/b-2|Could Not Undo",
                   "Success|~/c|~/c-3|Undo Successful", "Error|~/d|~/d-4|Could Not Undo"}));
  EXPECT_EQ(folder.Names(), (Lines{"a", "a-1", "c", "d", "d-4"}));
  EXPECT_EQ(folder.Read("a") + folder.Read("d-4"), "has come sincein the way of d");
  EXPECT_EQ(Statuses(), "1 1 3 0 ");
  EXPECT_EQ(filtered, 1);
  folder.Write("c-3", "somebody else's");
  for (const char* name : {"c", "d"}) disk.Rename(folder.Path(), name, std::string(name) + " away");
  for (int i = 0; i < 2; ++i) {
    Undo();
    EXPECT_EQ(Outcomes(), Lines(4, "Could Not Undo"));
    history.LoadLogDetail();
  }
  EXPECT_EQ(folder.Names(), (Lines{"a", "a-1", "c away", "c-3", "d away", "d-4"}));
  EXPECT_EQ(Statuses(), "1 1 3 0 ");
}

// Files are undone from first to last: in a chain the first one's old name is free only once the
// last has gone back.
TEST_F(HistoryTest, AChainIsUndoneAsFarAsItsOrderAllows) {
  List({"b", "c"});
  realRun.RenameFiles(2, "d");
  realRun.RenameFiles(1, "c");
  std::string text = Log();
  // As one batch, which is what a run that was killed leaves of the two.
  const std::size_t end = text.find('\x07');
  text.erase(end, text.find('\n', end + 3) + 1 - end);
  data.Write("Logfile.txt", text);
  UndoLatest();
  EXPECT_EQ(Outcomes(), (Lines{"Could Not Undo", "Undo Successful"}));
  Undo();
  EXPECT_EQ(folder.Names(), (Lines{"b", "c"}));
  EXPECT_EQ(folder.Read("b") + folder.Read("c"), "bytes of bbytes of c");
}

// A folder's old name comes back first; the rows below it, logged under the new one, follow.
TEST_F(HistoryTest, ATreeOfFoldersGoesBack) {
  for (const char* path : {"x/one/deep/deeper/", "x/two/", "y/one/"}) folder.MakeFolder(path);
  folder.Write("x/one/deep/deeper/file", "kept");
  Set("Option1_Folders", "True");
  Scan();
  scan.ToggleSubfolderScan();
  const Lines before = Paths();
  ASSERT_EQ(before.size(), 7U);
  Run();
  EXPECT_TRUE(folder.Exists("x-1/one-3/deep-6/deeper-7/file")) << testing::PrintToString(Paths());
  UndoLatest();
  EXPECT_EQ(Outcomes(), Lines(7, "Undo Successful"));
  for (const std::string& path : before) EXPECT_TRUE(folder.Exists(path.substr(2))) << path;
  EXPECT_EQ(folder.Read("x/one/deep/deeper/file"), "kept");
  EXPECT_EQ(Statuses(), "10 10 10 10 10 10 10 ");
  EXPECT_EQ(Detail()[6], "Success|~/x/one/deep/deeper|~/x/one/deep/deeper-7|Undo Successful");
}

TEST(BatchRows, AFolderMovesJustTheRowsBelowIt) {
  std::string batch = "@\r\n";
  for (const char* paths :
       {"/p/N/a?/p/N/b", "/p/Nx/a?/p/Nx/b", "/p/N/a?/q/b", "/q/a?/p/N/s/b", "/p/n/a?/p/n/b"}) {
    batch += std::string("1\x06 ") + paths + "?\x06\x05\r\n";
  }
  BatchRows rows;
  rows.Load(batch);
  rows.UpdateRowsUnderFolder("N", "Old", "/p/");
  rows.UpdateRowsUnderFolder("Old", "Older", "/p/");
  std::string paths;
  for (std::size_t i = 1; i <= rows.Count(); ++i) {
    paths += rows.OldPath(i) + ">" + rows.NewPath(i) + " ";
  }
  EXPECT_EQ(paths,
            "/p/Older/a>/p/Older/b /p/Nx/a>/p/Nx/b /p/N/a>/q/b /q/a>/p/Older/s/b /p/n/a>/p/n/b ");
  EXPECT_EQ(rows.Text(), batch);
}

TEST_F(HistoryTest, DatesGoBackThroughTheirCommands) {
  folder.Write("f", "");
  folder.MakeFolder("d");
  const std::string f = folder.Path("f"), d = folder.Path("d");
  data.Write("Logfile.txt",
             "@-- 1 [2] -@\r\n1\x06 " + f + "?" + f + "?<DateModified,1>?\x06\x05\r\n9\x06 " + d +
                 "?" + d + "?<DateCreated,2>?\x06\x05\r\n1\x06 " + f + "?" + f +
                 "?<fails>?\x06\x05\r\n1\x06 /gone/x?/gone/x?<DateModified,3>?\x06\x05\r\n\x07");
  UndoLatest();
  EXPECT_EQ(dates.asked, (Lines{f + " <DateModified,1>", d + " <DateCreated,2>", f + " <fails>"}));
  EXPECT_EQ(Outcomes(),
            (Lines{"Undo Successful", "Undo Successful", "Could Not Undo", "Could Not Undo"}));
  EXPECT_EQ(Statuses(), "3 10 1 1 ");
}

// What others have appended meanwhile, and a run that was killed or still goes on, is kept.
TEST_F(HistoryTest, BatchesAreDeletedAndOthersStay) {
  const auto batch = [](const std::string& day, const std::string& end = "\x07\r\n") {
    return "@-- " + day + " [10:00] -@\r\n1\x06 /a?/b?\x06\x05\r\n" + end;
  };
  data.Write("Logfile.txt", batch("1") + batch("2", "\x07") + batch("3"));
  history.Open();
  EXPECT_EQ(Summary(), (Lines{"1 10:00 1 0", "2 10:00 1 0", "3 10:00 1 0"}));
  data.Write("Logfile.txt", Log() + batch("4") + batch("unfinished", ""));
  history.SelectBatches({1, 3}, 3);
  dialogs.answers = {Answer::No, Answer::Yes};
  history.DeleteKey();
  EXPECT_EQ(dialogs.asked.back().title, "Delete Selected Log Entries");
  history.DeleteKey();
  EXPECT_EQ(Log(), "\r\n" + batch("2") + batch("4") + batch("unfinished", ""));
  EXPECT_EQ(Summary(), (Lines{"2 10:00 1 0", "4 10:00 1 0"}));
  EXPECT_FALSE(history.Cmd_Undo.Enabled());
  history.Cmd_Undo.Press();
  EXPECT_EQ(dialogs.asked.size(), 2U) << "a disabled button asks nothing";
}

// The listing at the end of a move lets events through while the run's batch is still open.
TEST_F(HistoryTest, ARunThatIsStillOpenLosesNothing) {
  Fill(12);
  Scan();
  Run();
  Run();
  TemporaryFolder other;
  Set("Check_MoveEnable=1|Option_Move=True|Txt_MoveTo=" + other.Path());
  for (int i = 0; i < 12; ++i) folder.Write("left" + std::to_string(i));
  AtYield(1, [&] {
    history.Open();
    EXPECT_EQ(history.CountBatches(), 2U);
    dialogs.answers = {Answer::Yes};
    history.SelectBatches({1}, 1);
    history.DeleteKey();
  });
  Run();
  EXPECT_EQ(other.Names().size(), 12U);
  history.Open();
  EXPECT_EQ(Summary(), Lines(2, "02/29/24 13:05 12 0"));
  Undo();
  EXPECT_TRUE(other.Names().empty());
}

TEST_F(HistoryTest, AnUndoOfNoRowsLeavesTheLogAndOneThatCannotBeWrittenIsToldOf) {
  List({"a"});
  Run();
  const std::string whole = Log();
  history.Open();
  history.Cmd_Switch.Press();
  history.FileDoubleClicked(1);
  Undo();
  const std::string text = Log();
  EXPECT_EQ(text + "\r\n", whole);
  history.FileDoubleClicked(1);
  files.FailAt(FileCall::Rewrite, files.Count(FileCall::Rewrite) + 1, FileError::NoSpace);
  Undo();
  EXPECT_EQ(history.statusBar.Pane(0), "The log file could not be written");
  EXPECT_EQ(folder.Names(), Lines{"a"});
  EXPECT_EQ(Log(), text);
  // The window knows, and the next rewrite tells the file.
  for (int i = 0; i < 2; ++i) history.Cmd_Switch.Press();
  EXPECT_EQ(Detail()[0].substr(0, 7), "Undone|");
  Undo();
  EXPECT_EQ(Statuses(), "3 ");
}

// Of batches that read alike, as when a name goes to and fro within a minute, the right one
// changes; one that another window has changed stays as that left it.
TEST_F(HistoryTest, TheBatchThatWasUndoneIsTheOneThatChanges) {
  List({"a"});
  for (int i = 0; i < 4; ++i) realRun.RenameFiles(1, i % 2 ? "a" : "x");
  UndoLatest();
  EXPECT_EQ(Statuses(), "1 1 1 3 ");
  const std::string first = Log().substr(0, Log().find('\x07') + 1);
  for (const std::size_t batch : {3U, 2U}) {
    history.Cmd_Switch.Press();
    history.SelectBatches({batch}, batch);
    if (batch == 2) data.Write("Logfile.txt", first);
    Undo();
    EXPECT_EQ(Outcomes(), Lines{"Undo Successful"});
    EXPECT_TRUE(batch == 2 || Statuses() == "1 1 3 3 ") << Statuses();
  }
  EXPECT_EQ(history.statusBar.Pane(0),
            "Another window has changed this log entry; its results are not kept");
  EXPECT_EQ(Log(), first);
}

// At a yield the user may press anything; the work under way isn't disturbed.
TEST_F(HistoryTest, PressesDuringAnUndoWait) {
  Fill(25);
  Scan();
  Run();
  history.Open();
  int closed = 0;
  history.close = [&] { ++closed; };
  AtYield(1, [&] {
    EXPECT_FALSE(history.CanClose());
    history.Cmd_Undo.Press();
    history.Cmd_Close.Press();
    history.Cmd_Switch.Press();
    history.DeleteKey();
    history.BatchDoubleClicked();
    history.FileDoubleClicked(25);
    throw std::runtime_error("a handler fails");
  });
  Undo();
  EXPECT_EQ(Outcomes(), Lines(25, "Undo Successful"));
  EXPECT_EQ(closed, 0);
  EXPECT_EQ(dialogs.asked.size(), 1U);
  EXPECT_EQ(folder.Names().front(), "f100");
}

// The outcome of each log is a list or a question, and an undo touches no file that a record
// doesn't name in full.
TEST_F(HistoryTest, MalformedLogsAreListedAsFarAsTheyGo) {
  const std::string h = "@-- 1 [2] -@\r\n";
  const std::string r = "1\x06 /no/a?/no/b?\x06\x05\r\n";
  // clang-format off
  // The log, how many batches are listed, whether it offers to clear the log, and the latest
  // batch's rows as "old>new".
  const std::vector<std::tuple<std::string, std::size_t, bool, Lines>> cases = {
      {"", 0, false, {}}, {"\r\n", 0, false, {}}, {h + r, 0, false, {}}, {h + "\x07", 1, false, {}},
      {"\r\n" + h + r + "\x07\r\n", 1, false, {"/no/a>/no/b"}},
      {"\x07", 0, true, {}}, {"@-- 1 2\x07", 0, true, {}},
      {h + r + "\x07junk\x07" + h + "\x07", 1, true, {"/no/a>/no/b"}},
      {"a b c d\x07", 0, true, {}}, {"a b [] d\x07", 1, false, {}},
      // A killed run's records and the next batch count as one, without its header.
      {h + r + h + r + "\x07", 1, false, {"/no/a>/no/b", "/no/a>/no/b"}},
      // Cut or joined records, and paths that aren't whole.
      {h + "1\x06 /no/a?/no\r\n" + r + "\x07", 1, false, {"/no/a>/no/b"}},
      {h + "1\x06?\x06\r\n1\x06??\x06\r\n\x06??\x06\r\n\r\n" + r + "\x07", 1, false, {">", ">", "/no/a>/no/b"}},
      {h + "x\x06 a?b?c?d?e?\x06\r\n\x07", 1, false, {"a>b"}},
      {h + "1\x06 rel?../rel?\x06\x05\r\n1\x06 /a" + std::string(1, '\0') + "x?/b?\x06\x05\r\n\x07", 1, false,
       {"rel>../rel", std::string("/a\0x", 4) + ">/b"}},
  };
  // clang-format on
  for (const auto& [text, batches, asks, rows] : cases) {
    data.Write("Logfile.txt", text);
    dialogs.asked.clear();
    dialogs.answers.assign(asks ? 1 : 0, Answer::No);
    history.Open();
    EXPECT_EQ(history.CountBatches(), batches) << text;
    EXPECT_EQ(dialogs.asked.size(), asks ? 1U : 0U) << text;
    EXPECT_EQ(Log(), text);
    if (!batches) continue;
    history.BatchDoubleClicked();
    Lines listed;
    for (std::size_t i = 1; i <= history.Files.Count(); ++i) {
      listed.push_back(history.Files.OldPath(i) + ">" + history.Files.NewPath(i));
    }
    EXPECT_EQ(listed, rows) << text;
    Undo();
    EXPECT_EQ(Outcomes(), Lines(rows.size(), "Could Not Undo")) << text;
    history.Cmd_Close.Press();
  }
}

TEST_F(HistoryTest, ALogThatCannotBeReadMayBeCleared) {
  data.Write("Logfile.txt", "junk\x07");
  dialogs.answers = {Answer::Yes};
  history.Open();
  EXPECT_EQ(dialogs.asked.back().title + ": " + dialogs.asked.back().text,
            "Error loading undo file: "
            "There was an error loading the undo file. Click 'Yes' to fix the error\r\n\r\n"
            "NOTE: Clicking 'Yes' will clear the undo file");
  EXPECT_FALSE(data.Exists("Logfile.txt"));
  data.MakeFolder("Logfile.txt");
  dialogs.answers = {Answer::Yes};
  history.Open();
  EXPECT_EQ(history.statusBar.Pane(0), "The log file could not be deleted");
}

}  // namespace
}  // namespace tallowbrook
