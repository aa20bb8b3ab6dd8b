// Runs over real files: what the disk, the rows and the log say afterwards.
#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

class RunTest : public EngineTest {
 protected:
  RunTest() { folder.MakeFolder("target"); }
  void Run() { run.RenameFiles(0, {}); }
  void MoveTo(const std::string& path, bool move = true) {
    Set("Check_MoveEnable=1|Txt_MoveTo=" + path +
        (move ? "|Option_Move=True" : "|Option_Copy=True"));
  }
  // What the log got since it was last asked for.
  Lines Log() {
    for (std::string& line : log.lines) line = Short(line);
    return std::exchange(log.lines, {});
  }
  void ScanBelow(std::string_view name) {
    scan.LastScanFolder = folder.Path(name);
    scan.ToggleSubfolderScan();
  }
  const std::string target = folder.Path("target/");
};

TEST_F(RunTest, RenamesTheCheckedRowsAndLogsThem) {
  Run();  // an empty list still leaves a batch
  EXPECT_EQ(Log(), (Lines{"begin", "end", "close"}));
  List({"a.txt", "b.txt", "c.txt"});
  list.SetChecked(2, false);
  Run();
  EXPECT_EQ(folder.Names(), (Lines{"a-0001.txt", "b.txt", "c-0002.txt", "target"}));
  EXPECT_EQ(NewNames(), (Lines{"success", "(Not Selected)", "success"}));
  EXPECT_EQ(Log(), (Lines{"begin", "1 ~/a.txt > ~/a-0001.txt", "1 ~/c.txt > ~/c-0002.txt", "end",
                          "close"}));
  Run();
  EXPECT_EQ(Names(), (Lines{"a-0001-0001.txt", "b.txt", "c-0002-0002.txt"}));
}

TEST_F(RunTest, AFailedRowKeepsItsNumberForTheNext) {
  List({"a.txt", "b.txt", "c.txt", "d.txt"});
  Set("Text_UniqueStart=10|Text_UniqueIncrement=5|Combo_Direction=1");
  folder.Write("b-0005.txt", "in the way");
  disk.Delete(folder.Path("c.txt"));
  Run();
  EXPECT_EQ(NewNames(), (Lines{"success", "error", "error", "success"}));
  EXPECT_EQ(list.Row(1).name + " " + list.Row(4).name, "a-0010.txt d-0005.txt");
  EXPECT_EQ(folder.Read("b-0005.txt") + folder.Read("b.txt"), "in the waybytes of b.txt");
  EXPECT_EQ(Log()[2], "0 ~/b.txt > ~/b-0005.txt");
}

TEST_F(RunTest, NamesThatNoFileCanBearEndAsErrors) {
  List({"a.txt"});
  for (const std::string& name : Lines{"../up.txt", "sub/a.txt", ".", "a?.txt", "a\nb", "<x>.txt",
                                       "<0>Not an MP3 File", std::string(256, 'x')}) {
    run.RenameFiles(1, name);
    EXPECT_EQ(list.Row(1).newName, "error") << name;
    EXPECT_EQ(Log(), (Lines{"begin", "0 ~/a.txt > ~/" + name, "end", "close"}));
  }
  EXPECT_EQ(folder.Names(), (Lines{"a.txt", "target"}));
  EXPECT_FALSE(folder.Exists("../up.txt"));
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

  list.SetAllChecks(3);
  MoveTo(folder.Path("target"));
  Run();
  EXPECT_FALSE(folder.Exists("b-0001.txt"));
  EXPECT_EQ(folder.Read("target/b-0001.txt"), "bytes of b.txt");
  EXPECT_EQ(Log()[1], "1 ~/b.txt > ~/target/b-0001.txt");
  EXPECT_EQ(Names(), Lines{"a-0001.txt"});  // the folder was listed again
}

// "success" stands over the failed move in the row. A manual name needs no check mark.
TEST_F(RunTest, WhatCannotBeMovedStaysAndCountsAsDone) {
  folder.MakeFolder("sub");
  folder.Write("sub/b.txt");
  ScanBelow("sub");
  list.SetAllChecks(2);
  MoveTo(target);
  files.FailAt(FileCall::Copy, 1, FileError::NoSpace);
  run.RenameFiles(1, "typed");
  EXPECT_TRUE(folder.Exists("sub/typed"));
  EXPECT_EQ(Log()[1], "1 ~/sub/b.txt > ~/sub/typed");
  List({"a-0001.txt"});
  files.FailAt(FileCall::Delete, 1, FileError::NotPermitted);
  Run();
  EXPECT_TRUE(folder.Exists("a-0001-0001.txt"));
  EXPECT_EQ(folder.Read("target/a-0001-0001.txt"), "bytes of a-0001.txt");
  EXPECT_EQ(Log()[1], "1 ~/a-0001.txt > ~/target/a-0001-0001.txt");
}

TEST_F(RunTest, RowsThatEndAsOneNameAreAllKept) {
  List({"a.txt", "b.txt"});
  folder.Write("target/same.txt", "older");
  Set("Combo_Original=1|Combo_OriginalName=same|Check_Unique=0|Check_Seperator=0");
  MoveTo(target);
  Run();
  EXPECT_EQ(folder.Read("target/same.txt"), "bytes of a.txt");
  EXPECT_EQ(folder.Read("same.txt"), "bytes of b.txt");
  EXPECT_EQ(Log()[2], "1 ~/b.txt > ~/same.txt");
}

// The listing at the end of a move lets events through: a second press of a button, or of the
// manual rename's, must not begin a run in there.
TEST_F(RunTest, NoRunBeginsInsideARun) {
  Fill(20);
  Scan();
  MoveTo(target);
  AtYield(1, [this] {
    Run();
    run.RenameFiles(5, "typed");
  });
  run.RenameFiles(5, "typed");
  EXPECT_TRUE(folder.Exists("f105"));
  EXPECT_EQ(Log(), (Lines{"begin", "1 ~/f104 > ~/target/typed", "end", "close"}));
}

// Neither a path that isn't absolute nor a missing one is a target. The only copy is never
// deleted, by whatever path the target leads back to the folder.
TEST_F(RunTest, ATargetThatIsNoOtherFolderKeepsTheFile) {
  folder.MakeLink("self", folder.Path());
  List({"a.txt"});
  for (const std::string& path :
       {std::string("target"), folder.Path("missing"), folder.Path("self/"), folder.Path()}) {
    MoveTo(path);
    Run();
    ASSERT_EQ(list.Count(), 1U) << path;
    EXPECT_EQ(folder.Read(list.Row(1).name), "bytes of a.txt") << path;
  }
  // The folder on show as target turns the move off.
  EXPECT_FALSE(settings.Check_MoveEnable.On() || settings.Txt_MoveTo.Enabled());
  EXPECT_EQ(list.Row(1).newName, "success");
}

TEST_F(RunTest, FoldersAreRenamedWithWhatLiesBelowThem) {
  for (const char* path : {"one", "one/sub", "two"}) folder.MakeFolder(path);
  Set("Option1_Folders", "True");
  ScanBelow("");
  ASSERT_EQ(Paths(), (Lines{"~/one", "~/target", "~/two", "~/one/sub"}));
  Run();
  EXPECT_EQ(NewNames(), Lines(4, "success"));
  EXPECT_TRUE(folder.Exists("two-0003") && folder.Exists("one-0001/sub-0004"));
  EXPECT_EQ(Paths()[3], "~/one-0001/sub-0004");
  EXPECT_EQ(Log()[4], "9 ~/one-0001/sub > ~/one-0001/sub-0004");
}

TEST_F(RunTest, DateRowsGoToTheFileDates) {
  FakeFileDates dates;
  dates.answer = "<DateModified,1/1/2001 1:02:03 AM>";
  RenameRun dateRun{{files, clock, status, log, &dates}, settings, pane, list, scan, names, pool};
  List({"a.txt"});
  Set("TabIndex=3|Option_ChangeFileDate=True");
  dateRun.RenameFiles(0, {});
  EXPECT_EQ(dates.asked, Lines{folder.Path("a.txt <DateCreated,9/11/2005 00:01:01>")});
  EXPECT_EQ(Log()[1], "1 ~/a.txt > ~/a.txt|" + dates.answer);
  EXPECT_EQ(Names(), Lines{"a.txt"});
  dates.answer.clear();
  dateRun.RenameFiles(0, {});
  EXPECT_EQ(NewNames(), Lines{"error"});
  EXPECT_EQ(Log()[1], "0 ~/a.txt > ~/<DateCreated,9/11/2005 00:01:01>");
  // In a folders view the rows below get the former date for a folder's name.
  for (const char* path : {"top", "top/below"}) folder.MakeFolder(path);
  Set("Option1_Folders", "True");
  ScanBelow("");
  dates.answer = "<x>";
  list.SetAllChecks(2);
  list.SetChecked(2, true);
  dateRun.RenameFiles(0, {});
  EXPECT_EQ(Log()[1], "9 ~/top > ~/top|<x>");
  EXPECT_EQ(Paths()[2], "~/<x>?/below");
}

}  // namespace
}  // namespace tallowbrook
