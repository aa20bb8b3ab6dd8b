// Copying on a real folder: the whole file or no change, and never a file onto itself.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
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

class Copy : public testing::Test {
 protected:
  FileError Run(const std::string& source, const std::string& target) {
    return files_.Copy(folder_.Path(source), folder_.Path(target));
  }
  struct stat StatOf(const std::string& name) {
    struct stat facts {};
    EXPECT_EQ(stat(folder_.Path(name).c_str(), &facts), 0) << name;
    return facts;
  }
  // 1 MiB with data in one block at its start and one in the middle, else a hole.
  void WriteSparse(const std::string& name) {
    const int file = open(folder_.Write(name).c_str(), O_WRONLY);
    EXPECT_EQ(pwrite(file, "begin", 5, 0), 5);
    EXPECT_EQ(pwrite(file, "middle", 6, 1 << 19), 6);
    EXPECT_EQ(ftruncate(file, 1 << 20), 0);
    close(file);
  }

  TemporaryFolder folder_;
  SystemFiles files_;
};

TEST_F(Copy, KeepsBytesPermissionsAndTheTimeToTheNanosecond) {
  const std::string bytes("some\0bytes\n", 11);
  chmod(folder_.Write("source", bytes).c_str(), 0640);
  folder_.SetTime("source", 1126422061, 123456789);
  const std::string target(255, 't');
  ASSERT_EQ(Run("source", target), FileError::None);
  EXPECT_EQ(folder_.Read(target), bytes);
  EXPECT_EQ(StatOf(target).st_mode & 07777, 0640u);
  EXPECT_EQ(StatOf(target).st_mtim.tv_sec, 1126422061);
  EXPECT_EQ(StatOf(target).st_mtim.tv_nsec, 123456789);
  EXPECT_EQ(folder_.Names().size(), 2u);
}

TEST_F(Copy, ReplacesTheTargetButNotWhatIsLinkedToIt) {
  folder_.Write("source", "new");
  folder_.Write("target", "old and longer");
  std::filesystem::create_hard_link(folder_.Path("target"), folder_.Path("backup"));
  EXPECT_EQ(Run("source", "target"), FileError::None);
  EXPECT_EQ(folder_.Read("target"), "new");
  EXPECT_EQ(folder_.Read("backup"), "old and longer");
}

TEST_F(Copy, RefusesWithoutATrace) {
  folder_.Write("source", "S");
  folder_.MakeFolder("folder");
  folder_.MakeLink("link", "source");
  folder_.MakeLink("folder/up", "..");
  std::filesystem::create_hard_link(folder_.Path("source"), folder_.Path("hard"));
  ASSERT_EQ(mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
  const NameList before = folder_.Names();
  const struct {
    std::string source, target;
    FileError error;
  } rows[] = {
      {"source", "source", FileError::SameFile},
      {"source", "./source", FileError::SameFile},
      {"source", "link", FileError::SameFile},
      {"link", "source", FileError::SameFile},
      {"source", "hard", FileError::SameFile},
      {"source", "folder/up/source", FileError::SameFile},
      {"source", "folder", FileError::IsFolder},
      {"folder", "target", FileError::IsFolder},
      {"missing", "target", FileError::NotFound},
      {"source", "missing/target", FileError::NotFound},
      {"source", "hard/target", FileError::NotFolder},
      {"source", std::string(256, 't'), FileError::NameTooLong},
      {"pipe", "target", FileError::Other},
      {"source", "pipe", FileError::Other},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.source + " to " + row.target);
    EXPECT_EQ(Run(row.source, row.target), row.error);
    EXPECT_EQ(folder_.Names(), before);
    EXPECT_EQ(folder_.Names("folder"), NameList{"up"});
    EXPECT_EQ(folder_.Read("source"), "S");
  }
}

TEST_F(Copy, KeepsHoles) {
  WriteSparse("source");
  if (StatOf("source").st_blocks * 512 >= 1 << 20) GTEST_SKIP() << "no holes on this disk";
  ASSERT_EQ(Run("source", "copy"), FileError::None);
  EXPECT_TRUE(folder_.Read("copy") == folder_.Read("source"));
  EXPECT_EQ(StatOf("copy").st_blocks, StatOf("source").st_blocks);
}

TEST_F(Copy, ReadsAndWritesWhereTheKernelCannotCopy) {
  WriteSparse("sparse");
  folder_.Write("long", std::string(700'000, 'x') + "end");
  folder_.Write("empty");
  for (int lacking : {EXDEV, EINVAL, ENOSYS, EOPNOTSUPP, 0}) {
    for (const char* name : {"sparse", "long", "empty"}) {
      const auto outcome = RunRefusing({{SYS_copy_file_range, lacking}, {SYS_fchmod, EPERM}},
                                       [&] { return Run(name, "copy"); });
      if (!outcome) GTEST_SKIP() << "no filter for system calls here";
      EXPECT_EQ(*outcome, FileError::None) << name << lacking;
      EXPECT_TRUE(folder_.Read("copy") == folder_.Read(name)) << name << lacking;
    }
  }
}

TEST_F(Copy, CopiesWhatTheKernelMakesUpAsItIsRead) {
  ASSERT_EQ(files_.Copy("/proc/version", folder_.Path("copy")), FileError::None);
  EXPECT_NE(folder_.Read("copy"), "");
}

TEST_F(Copy, LeavesTheOldTargetAndNoLitterWhenAStepFails) {
  folder_.Write("source", "new");
  folder_.Write("target", "old");
  const struct {
    std::vector<RefusedCall> calls;
    FileError error;
  } rows[] = {
      {{{SYS_copy_file_range, ENOSPC}}, FileError::NoSpace},
      {{{SYS_copy_file_range, EXDEV}, {SYS_pwrite64, ENOSPC}}, FileError::NoSpace},
      {{{SYS_copy_file_range, EXDEV}, {SYS_pread64, EIO}}, FileError::Io},
      {{{SYS_utimensat, EIO}}, FileError::Io},
#ifdef SYS_rename
      {{{SYS_rename, EACCES}}, FileError::NotPermitted},
#endif
  };
  for (const auto& row : rows) {
    const auto outcome = RunRefusing(row.calls, [&] { return Run("source", "target"); });
    if (!outcome) GTEST_SKIP() << "no filter for system calls here";
    EXPECT_EQ(*outcome, row.error) << row.calls.back().number;
    EXPECT_EQ(folder_.Names(), (NameList{"source", "target"})) << row.calls.back().number;
    EXPECT_EQ(folder_.Read("target"), "old") << row.calls.back().number;
  }
}

}  // namespace
}  // namespace tallowbrook
