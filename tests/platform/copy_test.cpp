// Copying on a real folder: the whole file or no change, and never a file onto itself.
#include "tests/platform/disk_fixture.h"

namespace tallowbrook {
namespace {

class Copy : public DiskTest {
 protected:
  FileError Run(const std::string& source, const std::string& target) {
    return files_.Copy(folder_.Path(source), folder_.Path(target));
  }
};

TEST_F(Copy, KeepsBytesPermissionsAndTheTimeToTheNanosecondAndSparesAHardLinkOfTheTarget) {
  const std::string bytes("some\0bytes\n", 11), target(255, 't');
  chmod(folder_.Write("source", bytes).c_str(), 0640);
  folder_.SetTime("source", 1126422061, 123456789);
  std::filesystem::create_hard_link(folder_.Write(target, "old one"), folder_.Path("backup"));
  ASSERT_EQ(Run("source", target), FileError::None);
  EXPECT_EQ(folder_.Read(target), bytes);
  EXPECT_EQ(folder_.Read("backup"), "old one");
  EXPECT_EQ(StatOf(target).st_mode & 07777, 0640u);
  EXPECT_EQ(StatOf(target).st_mtim.tv_sec, 1126422061);
  EXPECT_EQ(StatOf(target).st_mtim.tv_nsec, 123456789);
  EXPECT_EQ(folder_.Names().size(), 3u);
}

TEST_F(Copy, RefusesWithoutATrace) {
  std::filesystem::create_hard_link(folder_.Write("source", "S"), folder_.Path("hard"));
  folder_.MakeFolder("folder");
  folder_.MakeLink("link", "source");
  folder_.MakeLink("up", ".");
  ASSERT_EQ(mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
  const NameList before = folder_.Names();
  const std::tuple<std::string, std::string, FileError> rows[] = {
      {"source", "source", FileError::SameFile},
      {"source", "link", FileError::SameFile},
      {"source", "hard", FileError::SameFile},
      {"source", "up/source", FileError::SameFile},
      {"source", "folder", FileError::IsFolder},
      {"folder", "target", FileError::IsFolder},
      {"source", std::string(256, 't'), FileError::NameTooLong},
      {"pipe", "target", FileError::Other},
      {"source", "pipe", FileError::Other},
  };
  for (const auto& [source, target, error] : rows) {
    EXPECT_EQ(Run(source, target), error) << source << " to " << target;
    EXPECT_EQ(folder_.Names(), before) << source << " to " << target;
    EXPECT_EQ(folder_.Read("source"), "S") << source << " to " << target;
  }
}

// By kernels that copy everything or nothing, or say that they have; the source has holes.
TEST_F(Copy, KeepsBytesAndHolesWhereTheKernelCannotCopy) {
  const std::string path = folder_.Write("source", "begin");
  std::filesystem::resize_file(path, 1 << 19);
  files_.OpenForAppend(path, "\n", nullptr)->Write(std::string(300'000, 'x'));
  std::filesystem::resize_file(path, 1 << 20);
  folder_.Write("empty");
  const auto hasHoles = [&](const char* name) { return StatOf(name).st_blocks * 512 < 1 << 20; };
  for (const RefusedCall& refused :
       std::initializer_list<RefusedCall>{{SYS_fchmod, EPERM},
                                          {SYS_copy_file_range, EXDEV},
                                          {SYS_copy_file_range, ENOSYS},
                                          {SYS_copy_file_range, EINVAL},
                                          {SYS_copy_file_range, EOPNOTSUPP},
                                          {SYS_copy_file_range, 0}}) {
    for (const char* name : {"empty", "source"}) {
      const auto outcome = RunRefusing({refused}, [&] { return Run(name, "copy"); });
      if (!outcome) GTEST_SKIP() << "no filter for system calls here";
      EXPECT_EQ(*outcome, FileError::None) << name << refused.error;
      EXPECT_TRUE(folder_.Read("copy") == folder_.Read(name)) << name << refused.error;
    }
    EXPECT_EQ(hasHoles("copy"), hasHoles("source")) << refused.error;
  }
  ASSERT_EQ(files_.Copy("/proc/version", folder_.Path("made up")), FileError::None);
  EXPECT_NE(folder_.Read("made up"), "");
}

TEST_F(Copy, LeavesTheOldTargetAndNoLitterWhenAStepFails) {
  folder_.Write("source", "new");
  folder_.Write("target", "old");
  const std::pair<std::vector<RefusedCall>, FileError> rows[] = {
      {{{SYS_copy_file_range, ENOSPC}}, FileError::NoSpace},
      {{{SYS_copy_file_range, EXDEV}, {SYS_pwrite64, ENOSPC}}, FileError::NoSpace},
      {{{SYS_copy_file_range, EXDEV}, {SYS_pread64, EIO}}, FileError::Io},
      {{{SYS_utimensat, EIO}}, FileError::Io},
#ifdef SYS_rename
      {{{SYS_rename, EACCES}}, FileError::NotPermitted},
#endif
  };
  for (const auto& [calls, error] : rows) {
    const auto outcome = RunRefusing(calls, [&] { return Run("source", "target"); });
    if (!outcome) GTEST_SKIP() << "no filter for system calls here";
    EXPECT_EQ(*outcome, error) << calls.back().number;
    EXPECT_EQ(folder_.Names(), (NameList{"source", "target"})) << calls.back().number;
    EXPECT_EQ(folder_.Read("target"), "old") << calls.back().number;
  }
}

}  // namespace
}  // namespace tallowbrook
