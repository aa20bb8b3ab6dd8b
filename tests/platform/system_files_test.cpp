// The short operations on real files.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/files.h"
#include "tests/support/faulty_files.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

class SystemFilesTest : public testing::Test {
 protected:
  SystemFilesTest() {
    folder_.Write("file", std::string("a\0b\r\n", 5));
    folder_.MakeFolder("folder");
    folder_.MakeLink("link", "file");
    folder_.MakeLink("dangling", "nowhere");
    mkfifo(folder_.Path("pipe").c_str(), 0600);
  }

  TemporaryFolder folder_;
  SystemFiles files_;
};

TEST_F(SystemFilesTest, FactsFollowLinksAndExistsDoesNot) {
  folder_.SetTime("file", 1000000000);
  for (const char* name : {"file", "link"}) {
    const auto facts = files_.Facts(folder_.Path(name));
    ASSERT_TRUE(facts) << name;
    EXPECT_EQ(facts->kind, EntryKind::File);
    EXPECT_EQ(facts->size, 5);
    EXPECT_EQ(facts->modified, 1000000000);
    EXPECT_NE(facts->created, 0);
  }
  EXPECT_EQ(files_.Facts(folder_.Path())->kind, EntryKind::Folder);
  EXPECT_FALSE(files_.Facts(folder_.Path("dangling")));
  EXPECT_TRUE(files_.Exists(folder_.Path("dangling")));
  EXPECT_FALSE(files_.Exists(folder_.Path("missing")));
}

TEST_F(SystemFilesTest, DeleteTakesFilesAndLinksButNoFolder) {
  EXPECT_EQ(files_.Delete(folder_.Path("folder")), FileError::IsFolder);
  EXPECT_EQ(files_.Delete(folder_.Path("missing")), FileError::NotFound);
  EXPECT_EQ(files_.Delete(folder_.Path("link")), FileError::None);
  EXPECT_EQ(files_.Delete(folder_.Path("dangling")), FileError::None);
  EXPECT_EQ(folder_.Names(), (std::vector<std::string>{"file", "folder", "pipe"}));
}

TEST_F(SystemFilesTest, ReadWholeGivesEveryByteOfFilesOnly) {
  const std::string big(300'001, 'x');
  folder_.Write("big", big);
  folder_.Write("empty");
  EXPECT_EQ(files_.ReadWhole(folder_.Path("link")), std::string("a\0b\r\n", 5));
  EXPECT_TRUE(files_.ReadWhole(folder_.Path("big")) == big);
  EXPECT_EQ(files_.ReadWhole(folder_.Path("empty")), "");
  EXPECT_NE(files_.ReadWhole("/proc/version").value_or(""), "");  // its size reads as 0
  for (const char* name : {"folder", "missing", "dangling", "pipe"}) {
    EXPECT_FALSE(files_.ReadWhole(folder_.Path(name))) << name;
  }
}

// The other floors lean on these switches.
TEST_F(SystemFilesTest, FaultyFilesFailTheChosenCallsAndPassOnTheRest) {
  FaultyFiles faulty(files_);
  faulty.FailAt(FileCall::Rename, 2, FileError::Io);
  faulty.FailPath(FileCall::Read, folder_.Path("file"), FileError::Io);
  faulty.FailFrom(FileCall::Write, 2, FileError::NoSpace);
  EXPECT_EQ(faulty.Rename(folder_.Path(), "file", "1"), FileError::None);
  EXPECT_EQ(faulty.Rename(folder_.Path(), "1", "2"), FileError::Io);
  EXPECT_EQ(faulty.Rename(folder_.Path(), "1", "file"), FileError::None);
  EXPECT_EQ(faulty.Count(FileCall::Rename), 3);
  EXPECT_FALSE(faulty.ReadWhole(folder_.Path("file")));
  EXPECT_TRUE(faulty.ReadWhole(folder_.Path("link")));
  const auto log = faulty.OpenForAppend(folder_.Path("log"), "\n", nullptr);
  EXPECT_EQ(log->Write("1"), FileError::None);
  EXPECT_EQ(log->Write("2"), FileError::NoSpace);
  EXPECT_EQ(log->Write("3"), FileError::NoSpace);
  EXPECT_EQ(folder_.Read("log"), "1");
}

}  // namespace
}  // namespace tallowbrook
