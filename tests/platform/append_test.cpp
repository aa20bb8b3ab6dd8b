// Appending: whatever happened to the last line, the next one stands on its own.
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
  for (const std::size_t fitting : {3U, 0U}) {
    folder_.Write("log", "first\r\n");
    const auto file = Open();
    system_calls::guard = [room = fitting](const system_calls::Call& call) mutable {
      if (call.name != "write") return 0;
      if (room == 0) return ENOSPC;
      *call.size = std::exchange(room, 0);
      return 0;
    };
    for (const char* line : {"second\r\n", "third\r\n"}) {
      EXPECT_EQ(file->Write(line), FileError::NoSpace);
    }
    system_calls::guard = nullptr;
    for (const char* line : {"fourth\r\n", "fifth\r\n"})
      EXPECT_EQ(file->Write(line), FileError::None);
    const std::string cut = fitting > 0 ? "sec\r\n" : "";
    EXPECT_EQ(folder_.Read("log"), "first\r\n" + cut + "fourth\r\nfifth\r\n");
  }
}

}  // namespace
}  // namespace tallowbrook
