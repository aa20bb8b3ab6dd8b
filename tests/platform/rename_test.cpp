// Renaming on a real folder: nothing is ever lost to a name that is taken.
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/files.h"
#include "tests/platform/refused_calls.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

using NameList = std::vector<std::string>;

// The folder holds a (text "A"), b (text "B"), hard (a's second name), folder/, and dangling, a
// link to nothing.
class Rename : public testing::Test {
 protected:
  Rename() {
    folder_.Write("a", "A");
    folder_.Write("b", "B");
    std::filesystem::create_hard_link(folder_.Path("a"), folder_.Path("hard"));
    folder_.MakeFolder("folder");
    folder_.MakeLink("dangling", "nowhere");
  }
  FileError Run(const std::string& name, const std::string& newName) {
    return files_.Rename(folder_.Path(), name, newName);
  }

  TemporaryFolder folder_;
  SystemFiles files_;
};

TEST_F(Rename, RefusesWhatItMustNotDoAndLeavesTheFolderAlone) {
  const NameList before = folder_.Names();
  const struct {
    std::string name, newName;
    FileError error;
  } rows[] = {
      {"a", "b", FileError::AlreadyExists},
      {"a", "hard", FileError::AlreadyExists},
      {"a", "folder", FileError::AlreadyExists},
      {"a", "dangling", FileError::AlreadyExists},
      {"folder", "a", FileError::AlreadyExists},
      {"missing", "new", FileError::NotFound},
      {"missing", "missing", FileError::NotFound},
      {"missing", "b", FileError::NotFound},
      {"a", "", FileError::InvalidName},
      {"a", "..", FileError::InvalidName},
      {"a", "folder/a", FileError::InvalidName},
      {"a", "../a", FileError::InvalidName},
      {"a", "new\nline", FileError::InvalidName},
      {"a", "why?", FileError::InvalidName},
      {"a", std::string("n\0", 2), FileError::InvalidName},
      {"a", std::string(256, 'n'), FileError::InvalidName},
      {std::string("a\0b", 3), "new", FileError::InvalidName},
      {"folder/../a", "new", FileError::InvalidName},
      {"", "new", FileError::InvalidName},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name + " to " + row.newName);
    if (row.name == "missing" && row.newName == "b") {
      EXPECT_NE(Run(row.name, row.newName), FileError::None);  // which one comes first is open
    } else {
      EXPECT_EQ(Run(row.name, row.newName), row.error);
    }
    EXPECT_EQ(folder_.Names(), before);
    EXPECT_EQ(folder_.Read("b"), "B");
  }
}

TEST_F(Rename, MovesFilesFoldersAndTheLinksThemselves) {
  folder_.Write("\xFF\xFE.txt", "stray");
  folder_.Write("line\nend?", "odd");
  const std::string longest(255, 'n');
  const struct {
    std::string name, newName;
  } rows[] = {
      {"b", "a"},  // a is gone by then
      {"folder", "Folder"},
      {"dangling", "dangling 2"},
      {"\xFF\xFE.txt", "\xFE\xFF.txt"},
      {"line\nend?", longest},
  };
  ASSERT_EQ(files_.Delete(folder_.Path("a")), FileError::None);
  for (const auto& row : rows) EXPECT_EQ(Run(row.name, row.newName), FileError::None) << row.name;
  EXPECT_EQ(folder_.Names(),
            (NameList{"Folder", "a", "dangling 2", "hard", longest, "\xFE\xFF.txt"}));
  EXPECT_EQ(folder_.Read("a"), "B");
  EXPECT_EQ(std::filesystem::read_symlink(folder_.Path("dangling 2")), "nowhere");
}

TEST_F(Rename, ToTheOwnNameSucceedsAndChangesNothing) {
  const NameList before = folder_.Names();
  for (const char* name : {"a", "folder", "dangling"}) {
    EXPECT_EQ(Run(name, name), FileError::None) << name;
  }
  EXPECT_EQ(folder_.Names(), before);
}

TEST_F(Rename, TakesAnOtherCaseOfAHardLinkForACollision) {
  std::filesystem::create_hard_link(folder_.Path("a"), folder_.Path("A"));
  EXPECT_EQ(Run("a", "A"), FileError::AlreadyExists);
  EXPECT_TRUE(folder_.Exists("a"));
  EXPECT_EQ(Run("b", "B"), FileError::None);
  EXPECT_EQ(folder_.Read("B"), "B");
}

TEST_F(Rename, KeepsItsWordWhereTheSystemCannotRefuseToReplace) {
  const struct {
    std::string name, newName;
    FileError error;
  } rows[] = {
      {"a", "b", FileError::AlreadyExists},    {"a", "dangling", FileError::AlreadyExists},
      {"a", "hard", FileError::AlreadyExists}, {"a", "a", FileError::None},
      {"missing", "new", FileError::NotFound}, {"missing", "missing", FileError::NotFound},
      {"folder", "folder 2", FileError::None}, {"b", "c", FileError::None},
  };
  for (int lacking : {ENOSYS, EINVAL}) {
    for (const auto& row : rows) {
      const auto outcome =
          RunRefusing({{SYS_renameat2, lacking}}, [&] { return Run(row.name, row.newName); });
      if (!outcome) GTEST_SKIP() << "no filter for system calls here";
      EXPECT_EQ(*outcome, row.error) << row.name << " to " << row.newName;
    }
    EXPECT_EQ(folder_.Names(), (NameList{"a", "c", "dangling", "folder 2", "hard"}));
    EXPECT_EQ(Run("c", "b"), FileError::None);
    EXPECT_EQ(Run("folder 2", "folder"), FileError::None);
  }
}

}  // namespace
}  // namespace tallowbrook
