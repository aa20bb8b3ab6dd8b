// The list by itself: folders, check patterns, sorting, sizes.
#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

static_assert(sizeof(FileEntry) <= 300, "a row costs at most 300 bytes beside its name");

TEST(FolderTable, KeepsPathsToTheByte) {
  FolderTable table;
  for (const char* path : {"", "/", "/a/", "/a//b/", "//", "/\xff/", "/a/b/c/"}) {
    EXPECT_EQ(table.Path(table.Intern(path)), path);
  }
}

TEST(FolderTable, RenamingAFolderMovesAllPathsBelowIt) {
  FolderTable table;
  const FolderId a = table.Intern("/d/a/");
  const FolderId below = table.Intern("/d/a/x/y/");
  const FolderId alike = table.Intern("/d/ab/");
  const FolderId stale = table.Intern("/d/c/");
  table.Rename("/d/a/", "c");
  EXPECT_EQ(table.Path(a) + table.Path(below) + table.Path(alike), "/d/c//d/c/x/y//d/ab/");
  // Both folders of that path go on together.
  table.Rename("/d/c/", "e");
  EXPECT_EQ(table.Path(below) + table.Path(stale), "/d/e/x/y//d/e/");
}

class FileListTest : public EngineTest {
 protected:
  void Add(const std::string& name, std::int64_t size = 0, std::int64_t seconds = 0,
           const char* directory = "/") {
    FileEntry row;
    row.name = name;
    row.folder = list.Folders().Intern(directory);
    row.size = size;
    row.sortDate = row.shownDate = Date{seconds};
    row.hasFacts = true;
    list.Add(row);
  }
};

TEST_F(FileListTest, ThePatternReachesEveryRowThatHasChanged) {
  for (int i = 0; i < 8; ++i) Add("n");
  // The pattern skips rows that still stand as it left them, and no others.
  const auto applied = [this] {
    list.ApplyPattern(1, 2);
    return Marks();
  };
  applied();
  list.SetChecked(4, true);
  list.SetChecked(5, false);
  EXPECT_EQ(applied(), "x.x.x.x.");
  list.SetAllChecks(3);
  EXPECT_EQ(Marks(), ".x.x.x.x");
  Add("n");
  EXPECT_EQ(applied(), "x.x.x.x.x");
  list.SortByColumn(Column::FileName);
  list.SetChecked(9, false);
  EXPECT_EQ(applied(), "x.x.x.x.x");
}

TEST_F(FileListTest, SortsByHiddenKeysAndFlipsWithEveryClick) {
  const auto day = [](int year, int month) { return MakeDate({year, month, 3, 0, 0, 0})->seconds; };
  Add("b", 9'000'000'000'000, day(2005, 9), "/n/");
  Add("C", 10'000'000'000, day(2004, 10), "/m/z/");
  Add("a", 5, day(2006, 2), "/m/");
  // The first click turns the order downwards.
  const auto sorted = [this](Column column) {
    list.SortByColumn(column);
    return Names();
  };
  EXPECT_EQ(sorted(Column::FileName), (Lines{"C", "b", "a"}));
  EXPECT_EQ(sorted(Column::FileName), (Lines{"a", "b", "C"}));
  EXPECT_EQ(sorted(Column::Size), (Lines{"b", "C", "a"}));
  EXPECT_EQ(sorted(Column::Date), (Lines{"C", "b", "a"}));
  EXPECT_EQ(sorted(Column::Directory), (Lines{"b", "C", "a"}));
  EXPECT_EQ(sorted(Column::Directory), (Lines{"a", "C", "b"}));
}

TEST_F(FileListTest, ABulkChangeIsSortedOnceAndOnlyIfASortWasChosen) {
  const auto fill = [this] {
    list.ToggleListSort();
    list.Clear();
    for (const char* name : {"z", "y"}) Add(name);
    EXPECT_EQ(Names(), (Lines{"z", "y"}));
    list.ToggleListSort();
    return Names();
  };
  EXPECT_EQ(fill(), (Lines{"z", "y"}));
  for (int click = 0; click < 2; ++click) list.SortByColumn(Column::FileName);
  EXPECT_EQ(fill(), (Lines{"y", "z"}));
}

TEST(SizeText, IsThousandsOfBytesRounded) {
  // clang-format off
  const std::vector<std::pair<std::int64_t, std::string>> cases = {
      {0, "0"}, {499, "0"}, {500, "1"}, {1500, "2"}, {999'499, "999"}, {999'500, "1,000"},
      {1'234'567'890, "1,234,568"}, {5'000'000'000'000, "5,000,000,000"},
  };
  // clang-format on
  for (const auto& [bytes, text] : cases) EXPECT_EQ(SizeText(bytes), text) << bytes;
}

}  // namespace
}  // namespace tallowbrook
