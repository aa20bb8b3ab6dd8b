// Appending: whatever happened to the last line, the next one stands on its own.
#include <sys/resource.h>

#include <csignal>

#include "tests/platform/disk_fixture.h"

namespace tallowbrook {
namespace {

class Append : public DiskTest {
 protected:
  std::unique_ptr<AppendFile> Open() {
    return files_.OpenForAppend(folder_.Path("log"), "\n", nullptr);
  }
};

TEST_F(Append, EndsALineThatLacksItsEnd) {
  // clang-format off
  const std::string rows[][3] = {  // before, ends, after
      {"old\r\n", "\n", "old\r\nx\r\n"}, {"killed in the mid", "\n", "killed in the mid\r\nx\r\n"},
      {"killed\r", "\n", "killed\r\nx\r\n"}, {"old;", "\n;", "old;x\r\n"},
      {{"zeros\0", 6}, "\n", {"zeros\0\r\nx\r\n", 11}}};
  // clang-format on
  for (const auto& [before, ends, after] : rows) {
    files_.OpenForAppend(folder_.Write("log", before), ends, nullptr)->Write("x\r\n");
    EXPECT_EQ(folder_.Read("log"), after);
  }
}

TEST_F(Append, MakesAMissingFileAndTellsWhyItCannot) {
  EXPECT_NE(Open(), nullptr);
  EXPECT_EQ(folder_.Read("log"), "");
  FileError error = FileError::None;
  EXPECT_EQ(files_.OpenForAppend(folder_.Path("no/log"), "\n", &error), nullptr);
  EXPECT_EQ(error, FileError::NotFound);
}

TEST_F(Append, OnlyOneIsAloneThoughItHasNotWrittenSinceTheFileWasReplacedOrDeleted) {
  auto one = Open();
  EXPECT_TRUE(one->IsAlone());
  files_.Rewrite(folder_.Path("log"), [](auto) { return "new\n"; });
  EXPECT_FALSE(Open()->IsAlone());
  files_.Delete(folder_.Path("log"));
  const auto two = Open();
  EXPECT_TRUE(!two->IsAlone() && one->IsAlone());
  one.reset();
  EXPECT_TRUE(two->IsAlone());
}

// What the disk takes before it is full: a part of the line, or nothing, which needs no line end.
TEST_F(Append, BeginsANewLineAfterOneThatWasCut) {
  const std::pair<rlim_t, std::string> rows[] = {{10, "first\r\nsec\r\n"}, {7, "first\r\n"}};
  for (const auto& [size, left] : rows) {
    folder_.Write("log", "first\r\n");
    const auto file = Open();
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
    EXPECT_EQ(folder_.Read("log"), left + "fourth\r\nfifth\r\n");
  }
}

}  // namespace
}  // namespace tallowbrook
