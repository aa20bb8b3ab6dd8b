// Appending: whatever happened to the last line, the next one stands on its own. Rewriting: whole
// or not at all, and with others appending all the while.
#include <atomic>
#include <sstream>
#include <thread>

#include "platform/file_handover.h"
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

std::string Same(std::string_view bytes) {
  return std::string(bytes);
}

std::string Doubled(std::string_view bytes) {
  return std::string(bytes).append(bytes);
}

class Rewrite : public DiskTest {
 protected:
  FileError Run(const std::string& name, const FileEdit& edit) {
    return files_.Rewrite(folder_.Path(name), edit);
  }
  std::unique_ptr<AppendFile> Append(const std::string& name = "log") {
    return files_.OpenForAppend(folder_.Path(name), "\n", nullptr);
  }
};

TEST_F(Rewrite, KeepsPermissionsOwnerAndLinksAndMakesAMissingFile) {
  const std::string path = folder_.Write("log", std::string("a\0", 2));
  chmod(path.c_str(), 0604);
  [[maybe_unused]] const bool isOthers = chown(path.c_str(), 1234, 5678) == 0;  // root may
  const struct stat before = StatOf("log");
  folder_.MakeLink("link", "log");
  folder_.MakeLink("dangling", "made");
  for (const char* name : {"link", "log", "missing"}) {
    EXPECT_EQ(Run(name, Doubled), FileError::None) << name;
  }
  EXPECT_EQ(Run("dangling", [](std::string_view) { return "new"; }), FileError::None);
  EXPECT_EQ(folder_.Read("log"), std::string("a\0a\0a\0a\0", 8));
  EXPECT_EQ(folder_.Read("missing") + folder_.Read("made"), "new");
  const struct stat after = StatOf("log");
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_TRUE(after.st_uid == before.st_uid && after.st_gid == before.st_gid);
  EXPECT_TRUE(S_ISLNK(StatOf("link").st_mode));
  EXPECT_EQ(folder_.Names(), (NameList{"dangling", "link", "log", "made", "missing"}));
}

// Locks and changes of owner aren't known to every file system, and only help.
TEST_F(Rewrite, LeavesWhatItCannotRewriteAndNeedsNeitherLocksNorOwners) {
  folder_.Write("log", "old");
  folder_.MakeFolder("folder");
  mkfifo(folder_.Path("pipe").c_str(), 0600);
  const NameList before = folder_.Names();
  EXPECT_EQ(Run("missing/log", Same), FileError::NotFound);
  EXPECT_EQ(Run("folder", Same), FileError::IsFolder);
  EXPECT_EQ(Run("pipe", Same), FileError::Other);
  const FileEdit failing = [](std::string_view) -> std::string { throw std::bad_alloc(); };
  EXPECT_THROW(Run("log", failing), std::bad_alloc);
  {
    const system_calls::Refusing refusing({{"fsync", EIO}});
    EXPECT_EQ(Run("log", Doubled), FileError::Io);
  }
  EXPECT_EQ(folder_.Read("log"), "old");
  const system_calls::Refusing refusing(
      {{"flock", EOPNOTSUPP}, {"fchown", EPERM}, {"fchmod", EPERM}});
  EXPECT_EQ(Run("log", Doubled), FileError::None);
  EXPECT_EQ(folder_.Read("log"), "oldold");
  EXPECT_EQ(folder_.Names(), before);
}

// The writers have the file open before it is rewritten, so that they write to the old one; a hard
// link keeps it in the folder.
TEST_F(Rewrite, BringsWhatIsAppendedMeanwhileOverOnce) {
  for (const bool isLinked : {false, true}) {
    folder_.Write("log", "0\n");
    const auto early = Append();
    if (isLinked) std::filesystem::create_hard_link(folder_.Path("log"), folder_.Path("backup"));
    const auto one = Append(), two = Append();
    const auto edit = [&](std::string_view bytes) {
      for (AppendFile* file : {one.get(), early.get()}) file->Write("during\n");
      return Doubled(bytes);
    };
    EXPECT_EQ(Run("log", edit), FileError::None);
    for (AppendFile* file : {two.get(), one.get(), early.get(), two.get()}) {
      EXPECT_EQ(file->Write("after\n"), FileError::None);
    }
    EXPECT_EQ(folder_.Read("log"), "0\n0\nduring\nduring\nafter\nafter\nafter\nafter\n");
  }
}

TEST_F(Rewrite, TellsAWriterThatItsFileIsGoneAndThenBeginsANewOne) {
  // Deleted; deleted after a rewrite; and replaced by something that isn't a rewrite of it.
  for (const char* way : {"D", "RD", "M"}) {
    folder_.Write("log", "old\n");
    const auto file = Append(), other = Append();
    EXPECT_EQ(file->Write("1\n"), FileError::None);
    FileError error = FileError::None;
    for (const char* step = way; *step != '\0' && error == FileError::None; ++step) {
      if (*step == 'R') error = Run("log", Same);
      if (*step == 'D') error = files_.Delete(folder_.Path("log"));
      if (*step == 'M') std::filesystem::rename(folder_.Write("other", "cut"), folder_.Path("log"));
    }
    ASSERT_EQ(error, FileError::None) << way;
    WaitForUnasked();
    const NameList before = folder_.Names();
    EXPECT_EQ(file->Write("2\n"), FileError::NotFound) << way;
    EXPECT_EQ(folder_.Names(), before) << way;
    EXPECT_EQ(file->Write("3\n"), FileError::None) << way;
    EXPECT_EQ(other->Write("4\n"), FileError::NotFound) << way;
    EXPECT_EQ(other->Write("5\n"), FileError::None) << way;
    EXPECT_EQ(folder_.Read("log"), *way == 'M' ? "cut\r\n3\n5\n" : "3\n5\n") << way;
  }
}

// Full from the second write on, from the third ...: of what came while the text was made, of what
// came behind that, and of the mark that says so. The last two leave what a killed rewriter leaves.
TEST_F(Rewrite, TellsAWriterWhatBecameOfItsLineWhereverTheDiskIsFull) {
  int fitting = 0;
  for (const auto& [told, text] : std::initializer_list<std::pair<FileError, std::string>>{
           {FileError::None, "old\nduring\nlate\n"},
           {FileError::NotFound, "new\nduring\n"},
           {FileError::NotFound, "new\nduring\nlate\n"},
           {FileError::None, "new\nduring\nlate\n"}}) {
    ++fitting;
    folder_.Write("log", "old\n");
    const auto writer = Append();
    std::thread late;
    const auto edit = [&, &told = told](std::string_view) {
      writer->Write("during\n");
      system_calls::guard = [&, size = StatOf("log").st_size, count = 0](auto& call) mutable {
        if (call.name != "write") return 0;
        if (++count == 2) late = std::thread([&] { EXPECT_EQ(writer->Write("late\n"), told); });
        while (count == 2 && StatOf("log").st_size == size) std::this_thread::yield();
        return count > fitting ? ENOSPC : 0;
      };
      return "new\n";
    };
    EXPECT_EQ(Run("log", edit), fitting == 1 ? FileError::NoSpace : FileError::None);
    system_calls::guard = nullptr;
    late.join();
    EXPECT_EQ(folder_.Read("log"), text);
    EXPECT_EQ(folder_.Names(), NameList{"log"});
  }
}

// Writers append numbered lines while one rewriter leaves the log as it is and another takes
// everything out of it, which keeps it short; what it took and what is left is all there was.
TEST_F(Rewrite, LosesAndDoublesNothingOfManyWritersAndKeepsTheOrderOfEach) {
  constexpr int writers = 4, rewrites = 100;
  std::string taken;
  const FileEdit edits[] = {Same, [&](std::string_view bytes) {
                              taken += bytes;
                              return std::string();
                            }};
  std::atomic<int> running = 2;
  std::vector<std::thread> threads;
  std::vector<int> counts(writers, 0), seen(writers, 0);
  for (int writer = 0; writer < writers; ++writer) {
    threads.emplace_back([&, writer] {
      const auto file = Append();
      for (int& n = counts[writer]; running > 0; ++n) {
        const std::string line = std::to_string(writer) + " " + std::to_string(n) + "\n";
        ASSERT_EQ(file->Write(line), FileError::None);
      }
    });
  }
  for (const FileEdit& edit : edits) {
    threads.emplace_back([&] {
      for (int n = 0; n < rewrites; ++n) EXPECT_EQ(Run("log", edit), FileError::None);
      --running;
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::istringstream lines(taken + folder_.Read("log"));
  int writer = 0, number = 0, faults = 0;
  while (lines >> writer >> number) faults += number != seen.at(writer)++;
  EXPECT_EQ(faults, 0);
  EXPECT_TRUE(lines.eof());
  EXPECT_EQ(seen, counts);
  EXPECT_EQ(folder_.Names(), NameList{"log"});
}

}  // namespace
}  // namespace tallowbrook
