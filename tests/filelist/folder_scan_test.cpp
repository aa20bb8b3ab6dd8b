// Scans of real folders: rows, messages, stops, and what happens in the middle of a fill.
#include <gmock/gmock.h>

#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

using Lines = std::vector<std::string>;

class ScanTest : public EngineTest {
 protected:
  Lines Names() {
    Lines found;
    for (std::size_t i = 1; i <= list.Count(); ++i) found.push_back(list.Row(i).name);
    return found;
  }
  // Full paths, with the folder's own as "~/".
  Lines Paths() {
    Lines paths;
    for (std::size_t i = 1; i <= list.Count(); ++i) {
      paths.push_back("~/" + list.FullPath(i).substr(folder.Path().size()));
    }
    return paths;
  }
  void Fill(int count) {
    for (int i = 0; i < count; ++i) folder.Write("f" + std::to_string(100 + i), "");
  }
  void SetFolders() { Set("Option1_Folders", "True"); }
};

TEST_F(ScanTest, ListsTheFilesOfOneFolder) {
  folder.MakeFolder("sub");
  folder.Write(".hidden", "");
  folder.MakeLink("link.txt", "b.TXT");
  folder.MakeLink("dangling", "nowhere");
  folder.MakeLink("linked folder", "sub");
  folder.Write("b.TXT", std::string(1500, 'x'));
  folder.Write("A", std::string(499, 'x'));
  folder.Write("c.profile", "");
  scan.ScanFolder(folder.Path());
  EXPECT_EQ(Names(), (Lines{"A", "b.TXT", "c.profile", "link.txt"}));
  EXPECT_EQ(list.Cell(2, Column::Size), "2");
  EXPECT_EQ(list.Cell(1, Column::Size), "0");
  EXPECT_EQ(list.Cell(2, Column::BaseSize), "0000001500");
  EXPECT_EQ(list.Cell(2, Column::Ext), "TXT");
  EXPECT_EQ(list.Cell(1, Column::Ext), "");
  EXPECT_EQ(list.Cell(3, Column::Ext), "PROFILE");
  EXPECT_EQ(list.Cell(1, Column::Directory), folder.Path());
  EXPECT_EQ(status.Pane(0), "Scan Complete");
  EXPECT_EQ(status.Pane(1), "Files in list: 4");
  EXPECT_TRUE(list.Row(4).Checked);
  EXPECT_TRUE(list.Visible());
  EXPECT_FALSE(pane.Frame_Progress.Visible());
  EXPECT_EQ(pane.Txt_Address.Value(), folder.Path());
}

TEST_F(ScanTest, DatesFollowTheColumnsMode) {
  folder.Write("a", "");
  folder.SetTime("a", 1126422061);  // 11 September 2005, 07:01:01
  clock.offset = 7200;
  scan.ScanFolder(folder.Path());
  EXPECT_EQ(list.Cell(1, Column::Date), "9/11/2005 9:01:01 AM");
  EXPECT_EQ(list.Cell(1, Column::BaseDate), "20050911090101");
  EXPECT_EQ(scan.GetListDate(folder.Path() + "a"), "9/11/2005 9:01:01 AM");
  EXPECT_EQ(scan.GetListDate(folder.Path() + "gone"), "");
  scan.DateColumnMode = 1;  // the birth time, in universal time
  scan.ScanFolder(folder.Path());
  const std::int64_t created = disk.Facts(folder.Path() + "a")->created;
  EXPECT_EQ(list.Cell(1, Column::Date), GeneralDateText(UniversalDate(created)));
}

TEST_F(ScanTest, PhotosShowTheirOwnDate) {
  struct Exif : ExifTags {
    std::string ReadExifTag(const std::string& path, int tag) override {
      EXPECT_EQ(tag, 36867);
      return path.ends_with("a.jpg")    ? "2011:07:08 09:10:11"
             : path.ends_with("b.JPEG") ? "junk"
                                        : "";
    }
  } exif;
  FolderScan photos{{files, clock, events, status, "/", &exif}, list, pane};
  for (const char* name : {"a.jpg", "b.JPEG", "c.jpg", "d.txt"}) folder.Write(name, "");
  photos.ScanFolder(folder.Path());
  EXPECT_EQ(list.Cell(1, Column::Date), "7/8/2011 9:10:11 AM");
  // An exposure date that can't be read is the zero date, not the file's.
  EXPECT_EQ(list.Row(2).shownDate, Date{});
  EXPECT_EQ(list.Cell(3, Column::Date), photos.GetListDate(folder.Path() + "c.jpg"));
  photos.ShowEXIFDateCreated = 0;
  photos.ScanFolder(folder.Path());
  EXPECT_EQ(list.Cell(1, Column::Date), photos.GetListDate(folder.Path() + "a.jpg"));
}

TEST(ExifDates, AreReadOrAreZero) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"2011:07:08 09:10:11", "7/8/2011 9:10:11 AM"},
      {std::string("2011:07:08 09:10:11\0", 20), "7/8/2011 9:10:11 AM"},
      {"2011:07:08", "7/8/2011"},
      {"2011:13:08 09:10:11", ""},
      {"0000:00:00 00:00:00", ""},
      {"    :  :     :  :  ", ""},
      {"99999:01:01 00:00:00", ""},
      {"2011:07:08 25:00:00", ""},
      {"", ""},
  };
  for (const auto& [text, expected] : cases) {
    const Date date = ParseExifDate(text);
    EXPECT_EQ(date == Date{} ? "" : GeneralDateText(date), expected) << text;
  }
}

TEST_F(ScanTest, TheFilterChoosesFilesButNotFolders) {
  for (const char* name : {"a.mp3", "B.MP3", "c.html", "d"}) folder.Write(name, "");
  folder.MakeFolder("sub");
  Set("Combo_Filter", "*.mp3");
  scan.ScanFolder(folder.Path());
  EXPECT_EQ(Names(), (Lines{"a.mp3", "B.MP3"}));
  Set("Combo_Filter", "");
  screen.Find("Cmd_Filter")->rule();
  EXPECT_EQ(Names().size(), 4U);
  EXPECT_EQ(pane.Combo_Filter.Value(), "*.*");
  Set("Combo_Filter", "*.mp3");
  Set("Combo_Filter", "sub/*");
  scan.FilterList();
  EXPECT_EQ(status.Pane(0), "Could not load directory");
  Set("Combo_Filter", "*.mp3");
  SetFolders();
  EXPECT_EQ(Names(), Lines{"sub"});
  EXPECT_EQ(list.Caption(Column::NewFileName), "New Folder Name");
  EXPECT_EQ(list.Cell(1, Column::Size), "");
  EXPECT_EQ(list.Cell(1, Column::BaseDate), "");
  Set("Option1_Files", "True");
  EXPECT_EQ(list.Caption(Column::FileName), "File Name");
  EXPECT_EQ(Names().size(), 2U);
}

TEST_F(ScanTest, AFileThatVanishesStaysAsARow) {
  Fill(11);
  // The last row's file goes while events are let through at the tenth.
  events.atYield[1] = [this] { disk.Delete(folder.Path() + "f110"); };
  scan.ScanFolder(folder.Path());
  ASSERT_EQ(list.Count(), 11U);
  EXPECT_EQ(list.Cell(11, Column::FileName), "f110");
  EXPECT_EQ(list.Cell(11, Column::Size), "");
  EXPECT_EQ(list.Cell(11, Column::Date), "");
  EXPECT_EQ(list.Cell(11, Column::BaseSize), "");
}

TEST_F(ScanTest, FoldersThatCannotBeRead) {
  scan.ScanFolder(folder.Path() + "missing");
  EXPECT_EQ(status.Pane(0), "Could not load directory");
  EXPECT_EQ(list.Count(), 0U);
  EXPECT_TRUE(list.Visible());
  // An empty path leaves the list hidden and the frame on show.
  scan.ScanFolder("");
  EXPECT_FALSE(list.Visible());
  EXPECT_TRUE(pane.Frame_Progress.Visible());
}

// The fallback asks for a scan, and a scan is running: so it only stops that one, at the first of
// the rows that are still known.
TEST_F(ScanTest, AFolderViewThatCannotBeReadStopsAtItsFirstRow) {
  folder.MakeFolder("one");
  folder.MakeFolder("two");
  scan.ScanFolder(folder.Path());
  SetFolders();
  ASSERT_EQ(Names(), (Lines{"one", "two"}));
  scan.ScanFolder(folder.Path() + "missing");
  EXPECT_EQ(Names(), Lines{"one"});
  EXPECT_EQ(status.Pane(0), "Scan Aborted...");
}

// During a fill the list is out of sight and unsorted; behind it the chosen sort is back.
TEST_F(ScanTest, AFillHidesTheListShowsProgressAndSortsOnce) {
  Fill(12);
  scan.ScanFolder(folder.Path());
  list.SortByColumn(Column::FileName);
  events.yields = 0;
  events.atYield[1] = [this] {
    EXPECT_FALSE(list.Visible());
    EXPECT_TRUE(pane.Frame_Progress.Visible());
    EXPECT_EQ(pane.ProgressValue, 10U);
    EXPECT_EQ(pane.ProgressMaximum, 12U);
    EXPECT_EQ(pane.ProgressBar.Caption(), "83");
    EXPECT_EQ(Names().front(), "f100");
  };
  scan.ScanFolder(folder.Path());
  EXPECT_EQ(Names().front(), "f111");
  folder.MakeFolder("empty");
  scan.ThumbnailMode = true;
  scan.ScanFolder(folder.Path() + "empty");
  EXPECT_EQ(pane.ProgressMaximum, 0U);
  EXPECT_EQ(status.Pane(0), "Scan Complete, 0 file(s) found of which 0 contained a thumbnail.");
  EXPECT_EQ(status.Pane(1), "Files in list: 0");
}

TEST_F(ScanTest, TheCheckBoxesFollowTheirFieldsAndButtons) {
  Fill(5);
  scan.ScanFolder(folder.Path());
  const auto marks = [this] {
    std::string text;
    for (std::size_t i = 1; i <= list.Count(); ++i) text += list.Row(i).Checked ? 'x' : '.';
    return text;
  };
  const std::vector<std::tuple<std::string, std::string, std::string>> fields = {
      {"Text_Step", "2", "x.x.x"}, {"Text_StartCheck", "2", ".x.x."},
      {"Text_Step", "", "....."},  {"Text_StartCheck", "", "....."},
      {"Text_Step", "1", "xxxxx"}, {"Text_StartCheck", "99999999999999999999", "....."},
  };
  for (const auto& [name, value, expected] : fields) {
    Set(name, value);
    EXPECT_EQ(marks(), expected) << name << "=" << value;
  }
  for (const auto& [name, expected] :
       std::vector<std::pair<std::string, std::string>>{{"PushButton_SelectAll", "xxxxx"},
                                                        {"Cmd_SelectNone", "....."},
                                                        {"PushButton_SelectInverse", "xxxxx"},
                                                        {"Cmd_Invert", "....."}}) {
    screen.Find(name)->rule();
    EXPECT_EQ(marks(), expected) << name;
  }
}

TEST_F(ScanTest, StopsBetweenFiles) {
  Fill(35);
  struct Case {
    const char* how;
    std::function<void()> stop;
  };
  for (const Case& row : std::vector<Case>{
           {"button", [this] { pane.PushButton_AbortScan.Press(); }},
           {"a key in the address", [this] { scan.AddressKey(); }},
           {"another folder", [this] { scan.SelectFolder("/"); }},
           {"a folder that is none", [this] { scan.SelectFolder("/nowhere"); }},
           {"Enter in the address", [this] { scan.AddressEnter(); }},
       }) {
    events.yields = 0;
    events.atYield = {{2, row.stop}};
    scan.ScanFolder(folder.Path());
    EXPECT_EQ(list.Count(), 20U) << row.how;
    EXPECT_EQ(status.Pane(0), "Scan Aborted...") << row.how;
    EXPECT_FALSE(scan.AbortRequested) << row.how;
    EXPECT_FALSE(list.Row(1).Checked) << row.how;  // the pattern waits for a whole listing
    EXPECT_TRUE(list.Visible()) << row.how;
    EXPECT_EQ(scan.LastScanFolder, folder.Path()) << row.how;
  }
  // A stop that was asked for while nothing ran cuts the next fill to one file.
  events.atYield.clear();
  scan.AbortRequested = true;
  scan.ScanFolder(folder.Path());
  EXPECT_EQ(list.Count(), 1U);
}

TEST_F(ScanTest, TheEndOfTheProgramWaitsForTheFill) {
  Fill(12);
  int ended = 0;
  scan.exitProgram = [&] { ++ended; };
  events.atYield[1] = [&] {
    scan.AbortRequested = scan.ExitAfterScan = true;
    EXPECT_EQ(ended, 0);
  };
  scan.ScanFolder(folder.Path());
  EXPECT_EQ(ended, 1);
}

class TreeTest : public ScanTest {
 protected:
  TreeTest() {
    for (const char* path : {"a", "a/deep", "b", "b/deep"}) {
      folder.MakeFolder(path);
      folder.Write(std::string(path) + "/f", "");
    }
    folder.Write("top", "");
    folder.MakeLink("a/loop", folder.Path());
    scan.ScanFolder(folder.Path());
  }
};

TEST_F(TreeTest, WalksALevelBeforeWhatLiesBelowIt) {
  std::vector<std::string> messages;
  status.changed = [&](std::size_t changed) {
    if (changed == 0) messages.push_back(status.Pane(0));
  };
  pane.ScanSub.styled.Press();
  EXPECT_EQ(Paths(), (Lines{"~/top", "~/a/f", "~/b/f", "~/a/deep/f", "~/b/deep/f"}));
  EXPECT_EQ(messages[1], "scanning " + folder.Path() + "a");
  EXPECT_EQ(messages.back(), "");
  EXPECT_EQ(pane.ScanSub.styled.Caption(), "Start Scan");
  EXPECT_TRUE(list.Row(5).Checked);
  EXPECT_TRUE(scan.LastScanWasRecursive);
  // The filter repeats the kind of scan and adds to what is there.
  scan.FilterList();
  EXPECT_EQ(list.Count(), 10U);
  // A plain scan in between makes it a plain one again.
  scan.ScanFolder(folder.Path());
  scan.FilterList();
  EXPECT_EQ(list.Count(), 1U);
}

TEST_F(TreeTest, LongPathsShowTheirLast70Characters) {
  if (folder.Path().size() > 60) GTEST_SKIP() << "the temporary folder's own path is too long";
  Lines messages;
  status.changed = [&](std::size_t) { messages.push_back(status.Pane(0)); };
  const std::string whole = folder.Path() + std::string(70 - folder.Path().size(), 'y');
  const std::string cut = folder.Path() + std::string(71 - folder.Path().size(), 'z');
  for (const std::string& path : {whole, cut}) folder.MakeFolder(path.substr(folder.Path().size()));
  scan.ToggleSubfolderScan();
  EXPECT_THAT(messages, testing::Contains("scanning " + whole));
  EXPECT_THAT(messages, testing::Contains("scanning ..." + cut.substr(1)));
}

TEST_F(TreeTest, StopsAtTheNextFolder) {
  for (int i = 0; i < 15; ++i) folder.Write("a/g" + std::to_string(i), "");
  events.yields = 0;
  events.atYield[1] = [this] { scan.ToggleSubfolderScan(); };
  scan.ToggleSubfolderScan();
  EXPECT_EQ(list.Count(), 17U);  // all of "a", nothing of "b"
  EXPECT_FALSE(scan.StopSubfolderScan);
  EXPECT_EQ(pane.ScanSub.classic.Caption(), "Start Scan");
}

// An Escape during the walk cuts each later folder to its first file, until a scan clears it.
TEST_F(TreeTest, AnEscapeCutsEachLaterFolder) {
  for (int i = 0; i < 15; ++i) {
    folder.Write("a/g" + std::to_string(i), "");
    folder.Write("b/g" + std::to_string(i), "");
  }
  events.yields = 0;
  events.atYield[1] = [this] { scan.AbortRequested = true; };
  scan.ToggleSubfolderScan();
  EXPECT_EQ(list.Count(), 10U + 1 + 1 + 1);
  EXPECT_TRUE(scan.AbortRequested);
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

TEST_F(TreeTest, StopsOnTheWayDownToo) {
  for (int i = 0; i < 15; ++i) folder.Write("a/deep/g" + std::to_string(i), "");
  events.yields = 0;
  events.atYield[1] = [this] {
    scan.ToggleSubfolderScan();
    EXPECT_EQ(status.Pane(0), "Scan aborted by User");
  };
  scan.ToggleSubfolderScan();
  EXPECT_EQ(list.Count(), 3U + 16);
}

TEST_F(TreeTest, FoldersAndTheirLinksAreRowsOfAFoldersView) {
  SetFolders();
  scan.ToggleSubfolderScan();
  EXPECT_EQ(Paths(), (Lines{"~/a", "~/b", "~/a/deep", "~/a/loop", "~/b/deep"}));
  EXPECT_EQ(events.yields, 0);
}

// A subfolder scan may be started in the middle of a fill; the fill then goes on behind it.
TEST_F(TreeTest, AWalkInsideAFillLeavesEveryRowWhole) {
  Fill(15);
  events.yields = 0;
  events.atYield[1] = [this] { scan.ToggleSubfolderScan(); };
  scan.ScanFolder(folder.Path());
  for (std::size_t i = 1; i <= list.Count(); ++i) {
    EXPECT_TRUE(disk.Exists(list.FullPath(i))) << list.FullPath(i);
  }
}

TEST_F(TreeTest, DropsAreAddedToWhatIsThere) {
  scan.AddDropped({folder.Path() + "a", folder.Path() + "b/f", folder.Path() + "top"});
  EXPECT_EQ(Paths(), (Lines{"~/top", "~/a/f", "~/b/f", "~/top"}));
  EXPECT_EQ(scan.LastScanFolder, folder.Path());
  EXPECT_TRUE(list.Row(4).Checked);
  // In a folders view a dropped file stays in one piece, and such a row can't be renamed.
  SetFolders();
  scan.AddDropped({folder.Path() + "b/f"});
  const std::size_t last = list.Count();
  EXPECT_EQ(list.Row(last).name, folder.Path() + "b/f");
  run.RenameFiles(last, "x");
  EXPECT_EQ(list.Row(last).newName, "error");
}

TEST_F(TreeTest, AddressAndCompletionSelectFolders) {
  Set("Txt_Address", " " + folder.Path() + "a ");
  scan.AddressEnter();
  EXPECT_EQ(pane.FolderTreeview1.Value(), folder.Path() + "a");
  EXPECT_EQ(Paths(), Lines{"~/a/f"});
  for (const std::string& text : {folder.Path() + "a/f", std::string("relative"), std::string()}) {
    Set("Txt_Address", text);
    scan.AddressEnter();
    EXPECT_EQ(status.Pane(0), "Could not load directory") << text;
    EXPECT_EQ(Paths(), Lines{"~/a/f"}) << text;
  }
  Set("Txt_Address", "~");
  scan.AddressEnter();
  EXPECT_EQ(status.Pane(0), "Could not load directory");  // the fixture's home isn't there
  // A blank at a file's end doesn't turn it into the folder of that name.
  folder.Write("b ", "");
  scan.AddDropped({folder.Path() + "b "});
  EXPECT_EQ(Paths().back(), "~/b ");
  folder.MakeFolder("Aside");
  Set("Combo1", folder.Path());
  EXPECT_TRUE(pane.Combo1.Items().empty());
  EXPECT_EQ(pane.FolderTreeview1.Value() + "/", folder.Path());
  Set("Combo1", folder.Path() + "A");
  EXPECT_EQ(pane.Combo1.Items(), (Lines{folder.Path() + "a", folder.Path() + "Aside"}));
  Set("Combo1", folder.Path() + "b");
  EXPECT_EQ(pane.Combo1.Items(), Lines{folder.Path() + "b"});
}

}  // namespace
}  // namespace tallowbrook
