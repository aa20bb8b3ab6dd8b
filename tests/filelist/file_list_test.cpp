// The list by itself: folders, check patterns, sorting, sizes.
#include "filelist/file_list.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

static_assert(sizeof(FileEntry) <= 300, "a row costs at most 300 bytes beside its name");

TEST(FolderTable, KeepsPathsToTheByte) {
  FolderTable table;
  for (const char* path : {"", "/", "/a/", "/a//b/", "//", "/\xff/", "/a/b/c/"}) {
    EXPECT_EQ(table.Path(table.Intern(path)), path);
    EXPECT_EQ(table.Intern(path), table.Intern(path));
  }
}

TEST(FolderTable, RenamingAFolderMovesAllPathsBelowIt) {
  FolderTable table;
  const FolderId a = table.Intern("/d/a/");
  const FolderId below = table.Intern("/d/a/x/y/");
  const FolderId alike = table.Intern("/d/ab/");
  const FolderId stale = table.Intern("/d/c/");
  table.Rename("/d/a/", "c");
  EXPECT_EQ(table.Path(a), "/d/c/");
  EXPECT_EQ(table.Path(below), "/d/c/x/y/");
  EXPECT_EQ(table.Path(alike), "/d/ab/");
  // Both folders of that path go on together.
  table.Rename("/d/c/", "e");
  EXPECT_EQ(table.Path(below), "/d/e/x/y/");
  EXPECT_EQ(table.Path(stale), "/d/e/");
  table.Rename("/nowhere/", "else");
  EXPECT_EQ(table.Path(a), "/d/e/");
}

class FileListTest : public testing::Test {
 protected:
  void Add(const std::string& name, std::int64_t size = 0, std::int64_t seconds = 0) {
    FileEntry row;
    row.name = name;
    row.size = size;
    row.sortDate = row.shownDate = Date{seconds};
    row.hasFacts = true;
    list.Add(row);
  }
  std::string Checks() const {
    std::string marks;
    for (std::size_t i = 1; i <= list.Count(); ++i) marks += list.Row(i).Checked ? 'x' : '.';
    return marks;
  }
  std::string Names() const {
    std::string names;
    for (std::size_t i = 1; i <= list.Count(); ++i) names += list.Row(i).name;
    return names;
  }
  FileList list;
};

TEST_F(FileListTest, ChecksByStartAndStep) {
  for (int i = 0; i < 8; ++i) Add("n");
  const std::vector<std::tuple<int, int, std::string>> cases = {
      {0, 1, "xxxxxxxx"}, {1, 1, "xxxxxxxx"}, {3, 2, "..x.x.x."}, {0, 3, "x..x..x."},
      {9, 1, "........"}, {1, 0, "........"}, {8, 5, ".......x"},
  };
  for (const auto& [start, step, marks] : cases) {
    list.ApplyPattern(start, step);
    EXPECT_EQ(Checks(), marks) << start << "/" << step;
  }
}

// The pattern skips rows that still stand as it left them, and no others.
TEST_F(FileListTest, ThePatternReachesEveryRowThatHasChanged) {
  for (int i = 0; i < 6; ++i) Add("n");
  list.ApplyPattern(1, 2);
  list.SetChecked(4, true);
  list.SetChecked(5, false);
  list.ApplyPattern(1, 2);
  EXPECT_EQ(Checks(), "x.x.x.");
  list.SetAllChecks(3);
  EXPECT_EQ(Checks(), ".x.x.x");
  Add("n");
  list.ApplyPattern(1, 2);
  EXPECT_EQ(Checks(), "x.x.x.x");
  list.SortByColumn(Column::FileName);
  list.SetChecked(7, false);
  list.ApplyPattern(1, 2);
  EXPECT_EQ(Checks(), "x.x.x.x");
  list.SetAllChecks(2);
  EXPECT_EQ(list.CountCheckedFiles(), 0U);
  list.SetAllChecks(1);
  EXPECT_EQ(list.CountCheckedFiles(), 7U);
}

TEST_F(FileListTest, SortsByHiddenKeysAndFlipsWithEveryClick) {
  const auto day = [](int year, int month) { return MakeDate({year, month, 3, 0, 0, 0})->seconds; };
  Add("b", 9'000'000'000'000, day(2005, 9));
  Add("C", 10'000'000'000, day(2004, 10));
  Add("a", 5, day(2006, 2));
  list.SortByColumn(Column::FileName);
  EXPECT_EQ(Names(), "Cba");  // the first click turns the order downwards
  list.SortByColumn(Column::FileName);
  EXPECT_EQ(Names(), "abC");
  list.SortByColumn(Column::Size);
  EXPECT_EQ(Names(), "bCa");
  list.SortByColumn(Column::Date);
  EXPECT_EQ(Names(), "Cba");
}

TEST_F(FileListTest, ABulkChangeIsSortedOnceAndOnlyIfASortWasChosen) {
  Add("b");
  Add("a");
  list.ToggleListSort();
  list.ToggleListSort();
  EXPECT_EQ(Names(), "ba");
  list.SortByColumn(Column::FileName);
  list.SortByColumn(Column::FileName);
  list.ToggleListSort();
  list.Clear();
  Add("z");
  Add("y");
  EXPECT_EQ(Names(), "zy");
  list.ToggleListSort();
  EXPECT_EQ(Names(), "yz");
}

TEST(SizeText, IsThousandsOfBytesRounded) {
  const std::vector<std::pair<std::int64_t, std::string>> cases = {
      {0, "0"},
      {499, "0"},
      {500, "1"},
      {1400, "1"},
      {1500, "2"},
      {999'499, "999"},
      {999'500, "1,000"},
      {1'234'567'890, "1,234,568"},
      {5'000'000'000'000, "5,000,000,000"},
  };
  for (const auto& [bytes, text] : cases) EXPECT_EQ(SizeText(bytes), text) << bytes;
}

}  // namespace
}  // namespace tallowbrook
