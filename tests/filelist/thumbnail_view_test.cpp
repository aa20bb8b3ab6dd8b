// The thumbnail view without a window: the generator, the scan in that mode, and the way in and
// out.
#include <gmock/gmock.h>

#include "filelist/thumbnail_generator.h"
#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

class ThumbnailTest : public EngineTest {
 protected:
  ThumbnailTest() {
    for (const char* name : {"a.txt", "photo 1", "photo 2", "z.txt"}) folder.Write(name);
    Scan();
    status.changed = [this](std::size_t changed) {
      if (changed == 0) messages.push_back(status.Pane(0));
    };
  }
  // As the user: the box turns first.
  void Click() {
    pane.Check_Thumbnails.Set(pane.Check_Thumbnails.On() ? 0 : 1);
    scan.ThumbnailsClicked();
  }
  // What the messages since the last call said, and where the box, the mode and the view stand.
  std::string Outcome() {
    std::string outcome;
    for (const MessageBox& box : dialogs.asked) outcome += box.text.substr(0, 10) + "|";
    dialogs.asked.clear();
    EXPECT_EQ(scan.ThumbnailMode, pane.Check_Thumbnails.On());
    EXPECT_EQ(scan.ThumbnailMode, list.IconView());
    return outcome + (scan.ThumbnailMode ? "on" : "off");
  }
  Lines RowTexts() {
    return Rows([this](std::size_t i) { return list.Cell(i, Column::Row); });
  }
  // What the picture of each row was made from; the fake tells the path.
  Lines Pictures() {
    return Rows([this](std::size_t i) {
      const PackedBitmap* image = list.Image(i);
      return image ? Short(image->bytes) : "-";
    });
  }
  Lines messages;
};

TEST_F(ThumbnailTest, TheGeneratorAsksForRegularFilesInTheDesiredSize) {
  cThumbnailGenerator generator(pictures, files);
  folder.MakeFolder("photos");
  folder.MakeLink("photo link", "photo 1");
  for (const auto& [name, size] : {std::pair{"photo 1", 100},
                                   {"photo link", 40},
                                   {"photos", 0},
                                   {"photo gone", 0},
                                   {"a.txt", 0}}) {
    generator.Filename = folder.Path(name);
    if (size) generator.DesiredWidth = size;
    const std::optional<PackedBitmap> picture = generator.GetThumbnail();
    EXPECT_EQ(picture ? picture->width : 0, size) << name;
  }
}

// A fill in this mode tells each file, shows only pictures, counts all, and lets events through at
// every file.
TEST_F(ThumbnailTest, FilesWithoutAPictureCountButGetNoRow) {
  scan.SetThumbnailMode(true);
  EXPECT_EQ(messages, Lines());
  AtYield(2, [this] { EXPECT_FALSE(list.Visible()); });
  Scan();
  EXPECT_EQ(Outcome(), "on");
  EXPECT_EQ(events.yields, 4);
  EXPECT_EQ(RowTexts(), (Lines{"photo 1", "photo 2"}));
  EXPECT_EQ(Pictures(), (Lines{"~/photo 1", "~/photo 2"}));
  EXPECT_EQ(Marks(), "xx");
  EXPECT_TRUE(list.Visible());
  EXPECT_THAT(messages, testing::Contains("Scanning for thumbnail: z.txt"));
  EXPECT_EQ(status.Pane(0), "Scan Complete, 4 file(s) found of which 2 contained a thumbnail.");
  // Rows keep their pictures through a sort. A dropped file and a tree join in.
  while (Names().front() != "photo 2") list.SortByColumn(Column::FileName);
  folder.MakeFolder("sub");
  folder.Write("sub/photo 3");
  scan.AddDropped({folder.Path("sub/"), folder.Path("a.txt")});
  EXPECT_EQ(Pictures(), (Lines{"~/photo 2", "~/photo 1", "~/sub/photo 3"}));
  scan.ToggleSubfolderScan();
  EXPECT_EQ(Pictures(), (Lines{"~/photo 1", "~/photo 2", "~/sub/photo 3"}));
  EXPECT_TRUE(list.Visible());
  // A stop is seen at the next file, and leaves nothing hidden.
  AtYield(2, [this] { scan.AbortRequested = true; });
  scan.ToggleSubfolderScan();
  EXPECT_EQ(Pictures(), (Lines{"~/photo 1", "~/sub/photo 3"}));
  EXPECT_TRUE(list.Visible());
}

TEST_F(ThumbnailTest, AClickWarnsOnceAndListsAnew) {
  dialogs.answers = {Answer::Ok};
  Click();
  EXPECT_EQ(dialogs.asked.at(0).text,
            "Only files which contain thumbnails will be shown.\r\n\r\n"
            "(this message will not be displayed again)");
  EXPECT_EQ(Outcome(), "Only files|on");
  EXPECT_EQ(ThumbnailWarning, 0);
  EXPECT_EQ(Names().size(), 2U);
  // What a row says goes before the table comes back, and the table has all files.
  scan.ApplyListViewMode();
  EXPECT_EQ(RowTexts().front(), "photo 1");
  scan.SetThumbnailMode(false);
  EXPECT_EQ(RowTexts(), (Lines{"", ""}));
  scan.SetThumbnailMode(true);
  Click();
  EXPECT_EQ(Outcome(), "off");
  EXPECT_EQ(Pictures(), (Lines{"-", "-", "-", "-"}));
  // Code that sets the box, as a profile does, says and lists nothing.
  Set("Check_Thumbnails", "1");
  EXPECT_EQ(Names().size(), 4U);
}

// During a scan the box goes back; during a subfolder scan it doesn't.
TEST_F(ThumbnailTest, FoldersAndRunningScansRefuseIt) {
  ThumbnailWarning = 0;
  dialogs.answers = {Answer::Ok, Answer::Ok, Answer::Ok};
  Fill(20);
  AtYield(1, [this] { Click(); });
  Scan();
  EXPECT_EQ(Outcome(), "You cannot|off");
  AtYield(1, [this] { Click(); });
  scan.ToggleSubfolderScan();
  EXPECT_EQ(Outcome(), "on");
  AtYield(2, [this] { Click(); });
  Scan();
  EXPECT_EQ(Outcome(), "You cannot|on");
  events.atYield.clear();
  Set("Option1_Folders", "True");
  EXPECT_EQ(Outcome(), "off");
  Click();
  EXPECT_EQ(Outcome(), "Thumbnail |off");
  scan.SetThumbnailMode(true);
  EXPECT_EQ(Outcome(), "off");
}

// The click that leaves the view may come at a file's own events: its row is one of the table then.
TEST_F(ThumbnailTest, AFileGoesByTheModeBehindItsEvents) {
  scan.SetThumbnailMode(true);
  AtYield(3, [this] { Set("Option1_Folders", "True"); });
  scan.AddDropped({folder.Path("photo 1"), folder.Path("a.txt"), folder.Path("photo 2")});
  EXPECT_EQ(scan.ThumbnailMode, false);
  EXPECT_EQ(Pictures(), Lines{"-"});
  EXPECT_EQ(RowTexts(), Lines{""});
  // What was hidden for the pictures comes back without them.
  scan.SetThumbnailMode(false);
  Set("Option1_Files", "True");
  scan.SetThumbnailMode(true);
  AtYield(2, [this] { Set("Option1_Folders", "True"); });
  scan.ToggleSubfolderScan();
  EXPECT_EQ(scan.ThumbnailMode, false);
  EXPECT_TRUE(list.Visible());
}

}  // namespace
}  // namespace tallowbrook
