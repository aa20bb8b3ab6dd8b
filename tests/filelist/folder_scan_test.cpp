// Scans of real folders: rows, messages, stops, and what happens in the middle of a fill.
#include <gmock/gmock.h>

#include "tests/support/engine_fixture.h"
#include "tests/support/jpeg_bytes.h"

namespace tallowbrook {
namespace {

using ScanTest = EngineTest;

TEST_F(ScanTest, ListsTheFilesOfOneFolder) {
  folder.MakeFolder("sub");
  folder.MakeLink("link.txt", "b.TXT");
  folder.MakeLink("dangling", "nowhere");
  folder.MakeLink("linked folder", "sub");
  folder.Write("b.TXT", std::string(1500, 'x'));
  folder.Write("A", std::string(499, 'x'));
  for (const char* name : {".hidden", "c.profile"}) folder.Write(name);
  Scan();
  EXPECT_EQ(Names(), (Lines{"A", "b.TXT", "c.profile", "link.txt"}));
  const auto cells = [this](Column c) {
    return Rows([&](std::size_t i) { return list.Cell(i, c); });
  };
  EXPECT_EQ(cells(Column::Size), (Lines{"0", "2", "0", "2"}));
  EXPECT_EQ(cells(Column::Ext), (Lines{"", "TXT", "PROFILE", "TXT"}));
  EXPECT_EQ(list.Cell(2, Column::BaseSize), "0000001500");
  EXPECT_EQ(list.Cell(1, Column::Directory), folder.Path());
  EXPECT_EQ(status.Pane(0) + ", " + status.Pane(1), "Scan Complete, Files in list: 4");
  EXPECT_EQ(Marks(), "xxxx");
  EXPECT_TRUE(list.Visible() && !pane.Frame_Progress.Visible());
  EXPECT_EQ(pane.Txt_Address.Value(), folder.Path());
}

TEST_F(ScanTest, DatesFollowTheColumnsMode) {
  folder.Write("a");
  folder.SetTime("a", 1126422061);  // 11 September 2005, 07:01:01
  clock.offset = 7200;
  Scan();
  EXPECT_EQ(list.Cell(1, Column::BaseDate), "20050911090101");
  EXPECT_EQ(scan.GetListDate(folder.Path("a")), list.Cell(1, Column::Date));
  EXPECT_EQ(list.Cell(1, Column::Date), "9/11/2005 9:01:01 AM");
  EXPECT_EQ(scan.GetListDate(folder.Path("gone")), "");
  scan.DateColumnMode = 1;  // the birth time, in universal time
  Scan();
  const std::int64_t created = disk.Facts(folder.Path("a"))->created;
  EXPECT_EQ(list.Cell(1, Column::Date), GeneralDateText(UniversalDate(created)));
}

TEST_F(ScanTest, PhotosShowTheirOwnDate) {
  folder.Write("a.jpg", PhotoTakenAt("2011:07:08 09:10:11"));
  folder.Write("b.JPEG", PhotoTakenAt("junk"));
  folder.Write("c.jpg", "junk");
  folder.Write("d.txt", PhotoTakenAt("2011:07:08 09:10:11"));
  Scan();
  EXPECT_EQ(files.Count(FileCall::Open), 3);
  EXPECT_EQ(list.Cell(1, Column::Date), "7/8/2011 9:10:11 AM");
  // An exposure date that can't be read is the zero date, not the file's.
  EXPECT_EQ(list.Row(2).shownDate, Date{});
  for (const std::size_t row : {3U, 4U}) {
    EXPECT_EQ(list.Cell(row, Column::Date), scan.GetListDate(list.FullPath(row)));
  }
  scan.ShowEXIFDateCreated = 0;
  Scan();
  EXPECT_EQ(list.Cell(1, Column::Date), scan.GetListDate(folder.Path("a.jpg")));
}

TEST_F(ScanTest, TheFilterChoosesFilesButNotFolders) {
  for (const char* name : {"a.mp3", "B.MP3", "c.html", "d"}) folder.Write(name);
  folder.MakeFolder("sub");
  Set("Combo_Filter", "*.mp3");
  Scan();
  EXPECT_EQ(Names(), (Lines{"a.mp3", "B.MP3"}));
  Set("Combo_Filter", "");
  screen.Find("Cmd_Filter")->rule();
  EXPECT_EQ(Names().size(), 4U);
  EXPECT_EQ(pane.Combo_Filter.Value(), "*.*");
  Set("Combo_Filter", "sub/*");
  scan.FilterList();
  EXPECT_EQ(status.Pane(0), "Could not load directory");
  Set("Combo_Filter", "*.mp3");
  Set("Option1_Folders", "True");
  EXPECT_EQ(Names(), Lines{"sub"});
  EXPECT_EQ(list.Caption(Column::NewFileName), "New Folder Name");
  EXPECT_EQ(list.Cell(1, Column::Size) + list.Cell(1, Column::BaseDate), "");
}

// Of files; then of folders, where the fallback asks for a scan, and a scan is running: so it only
// stops that one, at the first of the rows that are still known.
TEST_F(ScanTest, FoldersThatCannotBeRead) {
  for (const char* name : {"one", "two"}) folder.MakeFolder(name);
  Scan();
  Scan("missing");
  EXPECT_EQ(status.Pane(0), "Could not load directory");
  EXPECT_TRUE(list.Visible());
  Scan();
  Set("Option1_Folders", "True");
  ASSERT_EQ(Names(), (Lines{"one", "two"}));
  Scan("missing");
  EXPECT_EQ(Names(), Lines{"one"});
  EXPECT_EQ(status.Pane(0), "Scan Aborted...");
  // An empty path leaves the list hidden and the frame on show.
  scan.ScanFolder("");
  EXPECT_TRUE(!list.Visible() && pane.Frame_Progress.Visible());
}

// During a fill the list is out of sight and unsorted; behind it the chosen sort is back. A file
// that vanishes in its middle stays as a row.
TEST_F(ScanTest, AFillHidesTheListShowsProgressAndSortsOnce) {
  Fill(12);
  Scan();
  list.SortByColumn(Column::FileName);
  AtYield(1, [this] {
    EXPECT_TRUE(!list.Visible() && pane.Frame_Progress.Visible());
    EXPECT_EQ(pane.ProgressBar.Caption(), "83");
    EXPECT_EQ(Names().front(), "f100");
    disk.Delete(folder.Path("f111"));
  });
  Scan();
  EXPECT_EQ(Names().front(), "f111");
  for (const Column c : {Column::Size, Column::Date, Column::BaseSize})
    EXPECT_EQ(list.Cell(1, c), "");
  folder.MakeFolder("empty");
  scan.ThumbnailMode = true;
  Scan("empty");
  EXPECT_EQ(status.Pane(0), "Scan Complete, 0 file(s) found of which 0 contained a thumbnail.");
}

TEST_F(ScanTest, TheCheckBoxesFollowTheirFieldsAndButtons) {
  Fill(5);
  Scan();
  // clang-format off
  for (const auto& [fields, marks] : Pairs{
           {"Text_Step=2", "x.x.x"}, {"Text_StartCheck=2", ".x.x."}, {"Text_Step=", "....."},
           {"Text_StartCheck=", "....."}, {"Text_Step=1", "xxxxx"},
           {"Text_StartCheck=0|Text_Step=3", "x..x."}, {"Text_StartCheck=5", "....x"},
           {"Text_Step=1|Text_StartCheck=99999999999999999999", "....."}}) {
    Set(fields);
    EXPECT_EQ(Marks(), marks) << fields;
  }
  for (const auto& [button, marks] : Pairs{{"PushButton_SelectAll", "xxxxx"}, {"Cmd_SelectNone", "....."},
                                           {"PushButton_SelectInverse", "xxxxx"}, {"Cmd_Invert", "....."}}) {
    screen.Find(button)->rule();
    EXPECT_EQ(Marks(), marks) << button;
  }
  // clang-format on
}

TEST_F(ScanTest, StopsBetweenFiles) {
  Fill(2500);  // so many that their facts are asked for ahead
  int ended = 0;
  scan.exitProgram = [&] { ++ended; };
  const std::vector<std::pair<const char*, std::function<void()>>> stops = {
      {"button", [this] { pane.PushButton_AbortScan.Press(); }},
      {"a key in the address", [this] { scan.AddressKey(); }},
      {"another folder", [this] { scan.SelectFolder("/"); }},
      {"a folder that is none", [this] { scan.SelectFolder("/nowhere"); }},
      {"Enter in the address", [this] { scan.AddressEnter(); }},
      {"the end of the program", [this] { scan.AbortRequested = scan.ExitAfterScan = true; }},
  };
  for (const auto& [how, stop] : stops) {
    AtYield(2, stop);
    EXPECT_EQ(ended, 0);
    Scan();
    EXPECT_EQ(Marks(), std::string(20, '.')) << how;  // the pattern waits for a whole listing
    EXPECT_EQ(status.Pane(0), "Scan Aborted...") << how;
    EXPECT_TRUE(list.Visible() && !scan.AbortRequested) << how;
    EXPECT_EQ(scan.LastScanFolder, folder.Path()) << how;
  }
  EXPECT_EQ(ended, 1);
  // A stop that was asked for while nothing ran cuts the next fill to one file.
  events.atYield.clear();
  scan.AbortRequested = true;
  Scan();
  EXPECT_EQ(list.Count(), 1U);
}

class TreeTest : public ScanTest {
 protected:
  TreeTest() {
    for (const char* path : {"a", "a/deep", "b", "b/deep"}) {
      folder.MakeFolder(path);
      folder.Write(std::string(path) + "/f");
    }
    folder.Write("top");
    folder.MakeLink("a/loop", folder.Path());
    Scan();
    status.changed = [this](std::size_t changed) {
      if (changed == 0) messages.push_back(Short(status.Pane(0)));
    };
  }
  Lines messages;
};

TEST_F(TreeTest, WalksALevelOfFilesOrFoldersBeforeWhatLiesBelowIt) {
  Set("Option1_Folders", "True");
  scan.ToggleSubfolderScan();
  EXPECT_EQ(Paths(), (Lines{"~/a", "~/b", "~/a/deep", "~/a/loop", "~/b/deep"}));
  EXPECT_EQ(events.yields, 0);
  Set("Option1_Files", "True");
  messages.clear();
  pane.ScanSub.styled.Press();
  EXPECT_EQ(Paths(), (Lines{"~/top", "~/a/f", "~/b/f", "~/a/deep/f", "~/b/deep/f"}));
  EXPECT_EQ(messages[1], "scanning ~/a");
  EXPECT_EQ(messages.back(), "");
  EXPECT_EQ(pane.ScanSub.styled.Caption(), "Start Scan");
  EXPECT_EQ(Marks(), "xxxxx");
  // The filter repeats the kind of scan and adds to what is there; a delete lists the tree anew.
  scan.FilterList();
  EXPECT_EQ(list.Count(), 10U);
  list.Row(1).Selected = true;
  dialogs.answers = {Answer::Yes};
  operations.DeleteHighlighted();
  EXPECT_EQ(Paths(), (Lines{"~/a/f", "~/b/f", "~/a/deep/f", "~/b/deep/f"}));
  // A plain scan in between makes it a plain one again.
  Scan();
  scan.FilterList();
  EXPECT_EQ(list.Count(), 0U);
}

// The button ends the walk behind the folder, on the way down too. An Escape cuts it and each later
// folder to its first file, until a scan clears it.
TEST_F(TreeTest, StopsAtTheNextFolder) {
  for (const char* prefix : {"a/g", "b/g", "a/deep/g"}) Fill(15, prefix);
  const auto press = [this] { scan.ToggleSubfolderScan(); };
  const auto escape = [this] { scan.AbortRequested = true; };
  const std::tuple<int, std::function<void()>, std::size_t> rows[] = {
      {1, press, 1 + 16}, {4, press, 1 + 16 + 16 + 16}, {1, escape, 10 + 1 + 1 + 1}};
  for (const auto& [yield, stop, count] : rows) {
    AtYield(yield, stop);
    scan.ToggleSubfolderScan();
    EXPECT_EQ(list.Count(), count);
    EXPECT_FALSE(scan.StopSubfolderScan);
    EXPECT_EQ(pane.ScanSub.classic.Caption(), "Start Scan");
  }
  EXPECT_TRUE(scan.AbortRequested);
  EXPECT_THAT(messages, testing::Contains("Scan aborted by User"));
}

TEST_F(TreeTest, AnUnreadableFolderEndsItsLevelOnly) {
  files.FailPath(FileCall::List, folder.Path() + "a/deep/", FileError::NotPermitted);
  scan.ToggleSubfolderScan();
  EXPECT_EQ(Paths(), (Lines{"~/top", "~/a/f", "~/b/f", "~/b/deep/f"}));
  // Neither its neighbours nor what lies below them are listed.
  files.FailPath(FileCall::List, folder.Path() + "a/", FileError::NotPermitted);
  scan.ToggleSubfolderScan();
  EXPECT_EQ(Paths(), Lines{"~/top"});
}

// A subfolder scan may be started in the middle of a fill; the fill then goes on behind it.
TEST_F(TreeTest, AWalkInsideAFillLeavesEveryRowWhole) {
  Fill(15);
  AtYield(1, [this] { scan.ToggleSubfolderScan(); });
  Scan();
  for (const std::string& path : Paths()) EXPECT_TRUE(folder.Exists(path.substr(2))) << path;
}

TEST_F(TreeTest, DropsAreAddedToWhatIsThere) {
  // A blank at a file's end doesn't turn it into the folder of that name.
  folder.Write("b ");
  scan.AddDropped({folder.Path("a"), folder.Path("b/f"), folder.Path("top"), folder.Path("b ")});
  EXPECT_EQ(Paths(), (Lines{"~/top", "~/a/f", "~/b/f", "~/top", "~/b "}));
  EXPECT_EQ(scan.LastScanFolder, folder.Path());
  EXPECT_EQ(Marks(), "xxxxx");
  // In a folders view a dropped file stays in one piece, and such a row can't be renamed.
  Set("Option1_Folders", "True");
  scan.AddDropped({folder.Path("b/f")});
  const std::size_t last = list.Count();
  EXPECT_EQ(list.Row(last).name, folder.Path("b/f"));
  run.RenameFiles(last, "x");
  EXPECT_EQ(list.Row(last).newName, "error");
}

TEST_F(TreeTest, AddressAndCompletionSelectFolders) {
  const auto enter = [this](const std::string& text) {
    Set("Txt_Address", text);
    scan.AddressEnter();
    return Paths();
  };
  EXPECT_EQ(enter(" " + folder.Path("a") + " "), Lines{"~/a/f"});
  EXPECT_EQ(pane.FolderTreeview1.Value(), folder.Path("a"));
  // The fixture's home isn't there.
  for (const std::string& text : {folder.Path("a/f"), std::string("relative"), std::string("~")}) {
    EXPECT_EQ(enter(text), Lines{"~/a/f"}) << text;
    EXPECT_EQ(status.Pane(0), "Could not load directory") << text;
  }
  folder.MakeFolder("Aside");
  const auto complete = [this](std::string_view name) {
    Set("Combo1", folder.Path(name));
    return pane.Combo1.Items();
  };
  EXPECT_EQ(complete(""), Lines{});
  EXPECT_EQ(pane.FolderTreeview1.Value() + "/", folder.Path());
  EXPECT_EQ(complete("A"), (Lines{folder.Path("a"), folder.Path("Aside")}));
  EXPECT_EQ(complete("b"), Lines{folder.Path("b")});
}

}  // namespace
}  // namespace tallowbrook
