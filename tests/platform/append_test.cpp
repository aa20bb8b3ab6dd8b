// Appending: whatever happened to the last line, the next one stands on its own.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "platform/files.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

// No file of this process may grow beyond a size while this is in scope: a disk that fills up in
// the midst of a write.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t size) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{size, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  void (*handler_)(int);
  rlimit before_{};
};

TEST(OpenForAppend, EndsALineThatLacksItsEnd) {
  const struct {
    std::string before, ends, after;
  } rows[] = {
      {"", "\n", "x\r\n"},
      {"old\r\n", "\n", "old\r\nx\r\n"},
      {"killed in the mid", "\n", "killed in the mid\r\nx\r\n"},
      {"killed\r", "\n", "killed\r\nx\r\n"},
      {"old;", "\n;", "old;x\r\n"},
      {std::string("zeros\0", 6), "\n", std::string("zeros\0\r\nx\r\n", 11)},
  };
  for (const auto& row : rows) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("log", row.before);
    const auto file = SystemFiles().OpenForAppend(path, row.ends, nullptr);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->Write("x\r\n"), FileError::None);
    EXPECT_EQ(folder.Read("log"), row.after);
  }
}

TEST(OpenForAppend, MakesAMissingFileAndTellsWhyItCannot) {
  const TemporaryFolder folder;
  EXPECT_NE(SystemFiles().OpenForAppend(folder.Path("new"), "\n", nullptr), nullptr);
  EXPECT_EQ(folder.Read("new"), "");
  FileError error = FileError::None;
  EXPECT_EQ(SystemFiles().OpenForAppend(folder.Path(), "\n", &error), nullptr);
  EXPECT_EQ(error, FileError::IsFolder);
  EXPECT_EQ(SystemFiles().OpenForAppend(folder.Path("no/log"), "\n", &error), nullptr);
  EXPECT_EQ(error, FileError::NotFound);
}

TEST(AppendFile, AppendsBehindWhatOthersAppended) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("log");
  const auto one = SystemFiles().OpenForAppend(path, "\n", nullptr);
  const auto two = SystemFiles().OpenForAppend(path, "\n", nullptr);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(one->Write("1\n"), FileError::None);
    EXPECT_EQ(two->Write("2\n"), FileError::None);
  }
  EXPECT_EQ(folder.Read("log"), "1\n2\n1\n2\n");
}

TEST(AppendFile, BeginsANewLineAfterOneThatWasCut) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("log", "first\r\n");
  const auto file = SystemFiles().OpenForAppend(path, "\n", nullptr);
  FileError cut, refused;
  {
    const SmallDisk disk(10);
    cut = file->Write("second\r\n");
    refused = file->Write("third\r\n");
  }
  EXPECT_EQ(cut, FileError::NoSpace);
  EXPECT_EQ(refused, FileError::NoSpace);
  EXPECT_EQ(file->Write("fourth\r\n"), FileError::None);
  EXPECT_EQ(file->Write("fifth\r\n"), FileError::None);
  EXPECT_EQ(folder.Read("log"), "first\r\nsec\r\nfourth\r\nfifth\r\n");
}

TEST(AppendFile, AddsNoLineEndWhenNothingOfALineWasWritten) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("log", "first\r\n");
  const auto file = SystemFiles().OpenForAppend(path, "\n", nullptr);
  {
    const SmallDisk disk(7);
    EXPECT_EQ(file->Write("second\r\n"), FileError::NoSpace);
  }
  EXPECT_EQ(file->Write("third\r\n"), FileError::None);
  EXPECT_EQ(folder.Read("log"), "first\r\nthird\r\n");
}

}  // namespace
}  // namespace tallowbrook
