// Appending: whatever happened to the last line, the next one stands on its own.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "platform/files.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

TEST(OpenForAppend, EndsALineThatLacksItsEnd) {
  const std::string rows[][3] = {
      // before, ends, after
      {"old\r\n", "\n", "old\r\nx\r\n"},
      {"killed in the mid", "\n", "killed in the mid\r\nx\r\n"},
      {"killed\r", "\n", "killed\r\nx\r\n"},
      {"old;", "\n;", "old;x\r\n"},
      {std::string("zeros\0", 6), "\n", std::string("zeros\0\r\nx\r\n", 11)},
  };
  const TemporaryFolder folder;
  for (const auto& [before, ends, after] : rows) {
    const std::string path = folder.Write("log", before);
    SystemFiles().OpenForAppend(path, ends, nullptr)->Write("x\r\n");
    EXPECT_EQ(folder.Read("log"), after);
  }
}

TEST(OpenForAppend, MakesAMissingFileAndTellsWhyItCannot) {
  const TemporaryFolder folder;
  EXPECT_NE(SystemFiles().OpenForAppend(folder.Path("new"), "\n", nullptr), nullptr);
  EXPECT_EQ(folder.Read("new"), "");
  FileError error = FileError::None;
  EXPECT_EQ(SystemFiles().OpenForAppend(folder.Path("no/log"), "\n", &error), nullptr);
  EXPECT_EQ(error, FileError::NotFound);
}

TEST(AppendFile, AppendsBehindWhatOthersAppended) {
  const TemporaryFolder folder;
  const auto one = SystemFiles().OpenForAppend(folder.Path("log"), "\n", nullptr);
  const auto two = SystemFiles().OpenForAppend(folder.Path("log"), "\n", nullptr);
  for (AppendFile* file : {one.get(), two.get(), one.get()}) file->Write("1\n");
  EXPECT_EQ(folder.Read("log"), "1\n1\n1\n");
}

TEST(AppendFile, OnlyOneIsAloneThoughItHasNotWrittenSinceTheFileWasReplacedOrDeleted) {
  const TemporaryFolder folder;
  SystemFiles files;
  const auto open = [&] { return files.OpenForAppend(folder.Path("log"), "\n", nullptr); };
  auto one = open();
  EXPECT_TRUE(one->IsAlone());
  files.Rewrite(folder.Path("log"), [](auto) { return "new\n"; });
  EXPECT_FALSE(open()->IsAlone());
  files.Delete(folder.Path("log"));
  const auto two = open();
  EXPECT_TRUE(!two->IsAlone() && one->IsAlone());
  one.reset();
  EXPECT_TRUE(two->IsAlone());
}

// What the disk takes before it is full: a part of the line, or nothing, which needs no line end.
TEST(AppendFile, BeginsANewLineAfterOneThatWasCut) {
  const std::pair<rlim_t, std::string> rows[] = {{10, "first\r\nsec\r\n"}, {7, "first\r\n"}};
  for (const auto& [size, left] : rows) {
    const TemporaryFolder folder;
    const auto file = SystemFiles().OpenForAppend(folder.Write("log", "first\r\n"), "\n", nullptr);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before;
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{size, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const FileError cut = file->Write("second\r\n"), refused = file->Write("third\r\n");
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_TRUE(cut == FileError::NoSpace && refused == FileError::NoSpace);
    EXPECT_EQ(file->Write("fourth\r\n"), FileError::None);
    EXPECT_EQ(file->Write("fifth\r\n"), FileError::None);
    EXPECT_EQ(folder.Read("log"), left + "fourth\r\nfifth\r\n");
  }
}

}  // namespace
}  // namespace tallowbrook
