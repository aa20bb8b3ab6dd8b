// Runs over real files: what the disk, the rows and the log say afterwards.
#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

using Lines = std::vector<std::string>;

class RunTest : public EngineTest {
 protected:
  RunTest() {
    target = folder.Path() + "target/";
    folder.MakeFolder("target");
  }
  void Run() { run.RenameFiles(0, {}); }
  void MoveTo(const std::string& path, bool move) {
    Set("Check_MoveEnable", "1");
    Set("Txt_MoveTo", path);
    Set(move ? "Option_Move" : "Option_Copy", "True");
  }
  // The log's lines with the folder's path as "~/".
  Lines Log() const {
    Lines lines = log.lines;
    for (std::string& line : lines) {
      for (std::size_t at; (at = line.find(folder.Path())) != std::string::npos;) {
        line.replace(at, folder.Path().size(), "~/");
      }
    }
    return lines;
  }
  std::string target;
};

TEST_F(RunTest, RenamesTheCheckedRowsAndLogsThem) {
  List({"a.txt", "b.txt", "c.txt"});
  list.SetChecked(2, false);
  Run();
  EXPECT_EQ(folder.Names(), (Lines{"a-0001.txt", "b.txt", "c-0002.txt", "target"}));
  EXPECT_EQ(folder.Read("c-0002.txt"), "bytes of c.txt");
  EXPECT_EQ(NewNames(), (Lines{"success", "(Not Selected)", "success"}));
  EXPECT_EQ(list.Row(1).colour, RowColour::Done);
  EXPECT_EQ(list.Row(2).colour, RowColour::Skipped);
  EXPECT_EQ(list.Row(3).name, "c-0002.txt");
  EXPECT_EQ(Log(), (Lines{"begin", "1 ~/a.txt > ~/a-0001.txt", "1 ~/c.txt > ~/c-0002.txt", "end",
                          "close"}));
  EXPECT_EQ(status.Pane(0), "File Renaming has completed");
  Run();
  EXPECT_EQ(list.Row(1).name, "a-0001-0001.txt");
}

TEST_F(RunTest, AFailedRowKeepsItsNumberForTheNext) {
  List({"a.txt", "b.txt", "c.txt", "d.txt"});
  folder.Write("b-0002.txt", "in the way");
  Run();
  EXPECT_EQ(NewNames(), (Lines{"success", "error", "success", "success"}));
  EXPECT_EQ(list.Row(2).colour, RowColour::Failed);
  EXPECT_EQ(list.Row(3).name, "c-0002.txt");
  EXPECT_EQ(folder.Read("b-0002.txt"), "in the way");
  EXPECT_EQ(folder.Read("b.txt"), "bytes of b.txt");
  EXPECT_EQ(Log()[2], "0 ~/b.txt > ~/b-0002.txt");
}

TEST_F(RunTest, OneNameForAllGoesToTheFirst) {
  List({"a.txt", "b.txt", "c.txt"});
  Set("Combo_Original", "1");
  Set("Combo_OriginalName", "same");
  Set("Check_Unique", "0");
  Set("Check_Seperator", "0");
  Run();
  EXPECT_EQ(NewNames(), (Lines{"success", "error", "error"}));
  EXPECT_EQ(folder.Read("same.txt"), "bytes of a.txt");
}

TEST_F(RunTest, CounterStepsByTheIncrement) {
  List({"a", "b", "c"});
  Set("Text_UniqueStart", "10");
  Set("Text_UniqueIncrement", "5");
  Set("Combo_Direction", "1");
  Set("Text_UniqueMask", "");
  Run();
  EXPECT_EQ(folder.Names(), (Lines{"a-10", "b-5", "c-0", "target"}));
}

TEST_F(RunTest, NamesThatNoFileCanBearEndAsErrors) {
  struct Case {
    std::string newName;
    std::string logged;
  };
  List({"a.txt"});
  for (const Case& row : std::vector<Case>{
           {"../up.txt", "0 ~/a.txt > ~/../up.txt"},
           {"sub/a.txt", "0 ~/a.txt > ~/sub/a.txt"},
           {".", "0 ~/a.txt > ~/."},
           {"a?.txt", "0 ~/a.txt > ~/a?.txt"},
           {std::string(256, 'x'), "0 ~/a.txt > ~/" + std::string(256, 'x')},
           {"a\nb", "0 ~/a.txt > ~/a\nb"},
           {"<nobody>.txt", "0 ~/a.txt > ~/<nobody>.txt"},
           {"<0>Not an MP3 File", "0 ~/a.txt > ~/<0>Not an MP3 File"},
       }) {
    log.lines.clear();
    run.RenameFiles(1, row.newName);
    EXPECT_EQ(list.Row(1).newName, "error") << row.newName;
    EXPECT_EQ(Log(), (Lines{"begin", row.logged, "end", "close"})) << row.newName;
  }
  EXPECT_EQ(folder.Names(), (Lines{"a.txt", "target"}));
  EXPECT_FALSE(disk.Exists(folder.Path() + "../up.txt"));
}

TEST_F(RunTest, OddNamesAreRenamedToTheByte) {
  const Lines odd = {" blanks ",         "\"quoted\"",     "new\nline",
                     "six\x06seven\x07", "\xff\xfe stray", "日本語 😀 e\xcc\x81"};
  for (const std::string& name : odd) folder.Write(name, name);
  scan.ScanFolder(folder.Path());
  Set("Check_Prefix", "1");
  Set("Text_Prefix", "p");
  Set("Check_Unique", "0");
  Set("Check_Seperator", "0");
  // A control character stays a refusal of the new name; nothing else does.
  Run();
  for (const std::string& name : odd) {
    const bool control = name.find_first_of("\n\x06") != std::string::npos;
    EXPECT_EQ(folder.Exists(control ? name : "p" + name), true) << name;
  }
  const std::string longest = std::string(251, 'n') + ".txt";
  folder.Write(longest, "x");
  scan.ScanFolder(folder.Path());
  Run();
  EXPECT_TRUE(folder.Exists(longest));
}

TEST_F(RunTest, AVanishedFileFailsAloneAndTheRunGoesOn) {
  List({"a.txt", "b.txt"});
  disk.Delete(folder.Path() + "a.txt");
  Run();
  EXPECT_EQ(NewNames(), (Lines{"error", "success"}));
  EXPECT_EQ(list.Row(2).name, "b-0001.txt");
}

TEST_F(RunTest, CopiesLeaveTheRowAndMovesTakeItAway) {
  List({"a.txt", "b.txt"});
  folder.Write("target/a-0001.txt", "old copy");
  MoveTo(target, false);
  list.SetChecked(2, false);
  Run();
  EXPECT_EQ(folder.Read("target/a-0001.txt"), "bytes of a.txt");
  EXPECT_TRUE(folder.Exists("a-0001.txt"));
  EXPECT_EQ(Log()[1], "1 ~/a.txt > ~/a-0001.txt");

  log.lines.clear();
  list.SetAllChecks(2);
  list.SetChecked(2, true);
  MoveTo(target.substr(0, target.size() - 1), true);
  Run();
  EXPECT_EQ(settings.Txt_MoveTo.Value(), target);
  EXPECT_FALSE(folder.Exists("b-0001.txt"));
  EXPECT_EQ(folder.Read("target/b-0001.txt"), "bytes of b.txt");
  EXPECT_EQ(Log()[1], "1 ~/b.txt > ~/target/b-0001.txt");
  // The folder was listed again.
  EXPECT_EQ(list.Count(), 1U);
  EXPECT_EQ(list.Row(1).name, "a-0001.txt");
}

TEST_F(RunTest, WhatCannotBeMovedStaysAndCountsAsDone) {
  List({"a.txt"});
  MoveTo(target, true);
  files.FailAt(FileCall::Copy, 1, FileError::NoSpace);
  Run();
  EXPECT_TRUE(folder.Exists("a-0001.txt"));
  EXPECT_EQ(Log()[1], "1 ~/a.txt > ~/a-0001.txt");

  log.lines.clear();
  files.FailAt(FileCall::Delete, 1, FileError::NotPermitted);
  Run();
  EXPECT_TRUE(folder.Exists("a-0001-0001.txt"));
  EXPECT_EQ(folder.Read("target/a-0001-0001.txt"), "bytes of a.txt");
  EXPECT_EQ(Log()[1], "1 ~/a-0001.txt > ~/target/a-0001-0001.txt");

  log.lines.clear();
  MoveTo(folder.Path() + "missing", true);
  Run();
  EXPECT_TRUE(folder.Exists("a-0001-0001-0001.txt"));
  EXPECT_EQ(list.Row(1).name, "a-0001-0001-0001.txt");
}

// "success" stands over the failed move in the row, and the log can't be opened either.
TEST_F(RunTest, AFailedMoveIsASuccessInItsRow) {
  struct NoLog : RunLog {
    void BeginBatch(Date) override {}
    void Record(const RunRecord&) override {}
    void EndBatch() override {}
    void Close() override {}
  } none;
  RenameRun quiet{{files, clock, status, none}, settings, pane, list, scan, names, pool};
  folder.MakeFolder("sub");
  folder.Write("sub/b.txt", "b");
  scan.LastScanFolder = folder.Path() + "sub";
  scan.ToggleSubfolderScan();
  MoveTo(target, true);
  files.FailAt(FileCall::Copy, 1, FileError::NoSpace);
  quiet.RenameFiles(1, "typed");
  EXPECT_EQ(list.Row(1).newName, "success");
  EXPECT_TRUE(folder.Exists("sub/typed"));
}

TEST_F(RunTest, RowsThatEndAsOneNameAreAllKept) {
  List({"a.txt", "b.txt"});
  folder.Write("target/same.txt", "older");
  Set("Combo_Original", "1");
  Set("Combo_OriginalName", "same");
  Set("Check_Unique", "0");
  Set("Check_Seperator", "0");
  MoveTo(target, true);
  Run();
  EXPECT_EQ(folder.Read("target/same.txt"), "bytes of a.txt");
  EXPECT_EQ(folder.Read("same.txt"), "bytes of b.txt");
  EXPECT_EQ(Log()[2], "1 ~/b.txt > ~/same.txt");
}

// The listing at the end of a move lets events through: a second press of a button, or of the
// manual rename's, must not begin a run in there.
TEST_F(RunTest, NoRunBeginsInsideARun) {
  for (int i = 10; i < 30; ++i) folder.Write("f" + std::to_string(i), std::to_string(i));
  scan.ScanFolder(folder.Path());
  MoveTo(target, true);
  events.yields = 0;
  events.atYield[1] = [this] {
    run.RenameFiles(0, {});
    run.RenameFiles(5, "typed");
  };
  run.RenameFiles(5, "typed");
  EXPECT_EQ(folder.Read("target/typed"), "14");
  EXPECT_TRUE(folder.Exists("f15"));
  EXPECT_EQ(Log(), (Lines{"begin", "1 ~/f14 > ~/target/typed", "end", "close"}));
}

TEST_F(RunTest, ATargetThatIsNoAbsolutePathIsNone) {
  List({"a.txt"});
  MoveTo("target", true);
  Run();
  EXPECT_TRUE(folder.Exists("a-0001.txt"));
}

// The only copy is never deleted, by whatever path the target leads back to the folder.
TEST_F(RunTest, MovingIntoTheSameFolderByALinkKeepsTheFile) {
  folder.MakeLink("self", folder.Path());
  List({"a.txt"});
  MoveTo(folder.Path() + "self/", true);
  Run();
  EXPECT_EQ(folder.Read("a-0001.txt"), "bytes of a.txt");
}

TEST_F(RunTest, TheFolderOnShowAsTargetTurnsTheMoveOff) {
  List({"a.txt"});
  MoveTo(folder.Path(), true);
  Run();
  EXPECT_FALSE(settings.Check_MoveEnable.On());
  EXPECT_FALSE(settings.Txt_MoveTo.Enabled());
  EXPECT_EQ(list.Row(1).newName, "success");
}

TEST_F(RunTest, FoldersAreRenamedWithWhatLiesBelowThem) {
  for (const char* path : {"one", "one/sub", "two"}) folder.MakeFolder(path);
  Set("Option1_Folders", "True");
  scan.LastScanFolder = folder.Path();
  scan.ToggleSubfolderScan();
  ASSERT_EQ(list.Count(), 4U);  // one, target, two, one/sub
  Run();
  EXPECT_EQ(NewNames(), (Lines(4, "success")));
  EXPECT_EQ(folder.Names(), (Lines{"one-0001", "target-0002", "two-0003"}));
  EXPECT_TRUE(folder.Exists("one-0001/sub-0004"));
  EXPECT_EQ(list.Directory(4), folder.Path() + "one-0001/");
  EXPECT_EQ(Log()[1], "9 ~/one > ~/one-0001");
  EXPECT_EQ(Log()[4], "9 ~/one-0001/sub > ~/one-0001/sub-0004");
}

TEST_F(RunTest, AManualNameIsTakenAsTyped) {
  List({"a.txt", "b.txt"});
  list.SetAllChecks(2);
  MoveTo(target, true);
  run.RenameFiles(2, "typed");
  EXPECT_EQ(folder.Read("target/typed"), "bytes of b.txt");
  EXPECT_TRUE(folder.Exists("a.txt"));
}

TEST_F(RunTest, DateRowsGoToTheFileDates) {
  struct Dates : FileDates {
    std::vector<std::string> asked;
    std::string answer = "<DateModified,1/1/2001 1:02:03 AM>";
    std::string ProcessAttributes(const std::string& path, const std::string& command) override {
      asked.push_back(path + " " + command);
      return answer;
    }
  } dates;
  RenameRun dateRun{{files, clock, status, log, &dates}, settings, pane, list, scan, names, pool};
  List({"a.txt"});
  Set("TabIndex", "3");
  Set("Option_ChangeFileDate", "True");
  dateRun.RenameFiles(0, {});
  EXPECT_EQ(dates.asked, Lines{folder.Path() + "a.txt <DateCreated,9/11/2005 00:01:01>"});
  EXPECT_EQ(Log()[1], "1 ~/a.txt > ~/a.txt|" + dates.answer);
  EXPECT_EQ(list.Row(1).name, "a.txt");
  // In a folders view the rows below get the former date for a folder's name.
  folder.MakeFolder("top");
  folder.MakeFolder("top/below");
  Set("Option1_Folders", "True");
  scan.LastScanFolder = folder.Path();
  scan.ToggleSubfolderScan();
  ASSERT_EQ(list.Row(2).name, "top");
  list.SetAllChecks(2);
  list.SetChecked(2, true);
  log.lines.clear();
  dateRun.RenameFiles(0, {});
  EXPECT_EQ(Log()[1], "9 ~/top > ~/top|" + dates.answer);
  EXPECT_EQ(list.Directory(3), folder.Path() + dates.answer + "?/");
  Set("Option1_Files", "True");
  dates.answer.clear();
  log.lines.clear();
  dateRun.RenameFiles(0, {});
  EXPECT_EQ(list.Row(1).newName, "error");
  EXPECT_EQ(Log()[1], "0 ~/a.txt > ~/<DateCreated,9/11/2005 00:01:01>");
}

TEST_F(RunTest, AnEmptyListStillLeavesABatch) {
  scan.ScanFolder(target);
  Run();
  EXPECT_EQ(log.lines, (Lines{"begin", "end", "close"}));
}

}  // namespace
}  // namespace tallowbrook
