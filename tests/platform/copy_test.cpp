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
  using enum FileError;
  // clang-format off
  const std::tuple<std::string, std::string, FileError> rows[] = {
      {"source", "source", SameFile}, {"source", "link", SameFile}, {"source", "hard", SameFile},
      {"source", "up/source", SameFile}, {"source", "folder", IsFolder}, {"folder", "target", IsFolder},
      {"source", std::string(256, 't'), NameTooLong}, {"pipe", "target", Other}, {"source", "pipe", Other}};
  // clang-format on
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
  // Of 0 bytes it says that it has copied them.
  // clang-format off
  const std::pair<std::string_view, int> rows[] = {
      {"fchmod", EPERM}, {"copy_file_range", EXDEV}, {"copy_file_range", ENOSYS}, {"copy_file_range", EINVAL},
      {"copy_file_range", EOPNOTSUPP}, {"copy_file_range", 0}};
  // clang-format on
  for (const auto& [call, error] : rows) {
    for (const char* name : {"empty", "source"}) {
      system_calls::guard = [&](const system_calls::Call& made) {
        if (made.name == call && error == 0) *made.size = 0;
        return made.name == call ? error : 0;
      };
      EXPECT_EQ(Run(name, "copy"), FileError::None) << name << error;
      system_calls::guard = nullptr;
      EXPECT_TRUE(folder_.Read("copy") == folder_.Read(name)) << name << error;
    }
    EXPECT_EQ(hasHoles("copy"), hasHoles("source")) << error;
  }
  {
    folder_.Write("copy", "older");
    const system_calls::Refusing full({{"copy_file_range", EXDEV}, {"pwrite", ENOSPC}});
    EXPECT_EQ(Run("source", "copy"), FileError::NoSpace);
    EXPECT_EQ(folder_.Read("copy"), "older") << "a failed copy takes nobody's place";
    EXPECT_EQ(Run("empty", "copy"), FileError::None);
    EXPECT_EQ(folder_.Names(), (NameList{"copy", "empty", "source"}));
  }
  ASSERT_EQ(files_.Copy("/proc/version", folder_.Path("made up")), FileError::None);
  EXPECT_NE(folder_.Read("made up"), "");
}

}  // namespace
}  // namespace tallowbrook
