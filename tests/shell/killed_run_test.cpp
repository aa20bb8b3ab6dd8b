// A run that is killed in its middle: the log must know of every file that was renamed.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <set>
#include <thread>

#include "store/batch_rows.h"
#include "store/log_format.h"
#include "tests/support/test_world.h"

namespace tallowbrook {
namespace {

constexpr int fileCount = 100'000;

// In the child: a run over the whole folder.
[[noreturn]] void RunAndExit(TestWorld& world) {
  FakeEvents events;
  Form1 form{world.With(events)};
  form.Load();
  form.run.RenameFiles(0, {});
  _exit(0);
}

void KillWhenTheLogHas(pid_t child, TestWorld& world, std::int64_t bytes) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(2);
  while (std::chrono::steady_clock::now() < deadline) {
    const auto facts = world.files.Facts(world.data.Path("Logfile.txt"));
    if (facts && facts->size > bytes) break;
    std::this_thread::sleep_for(std::chrono::microseconds(100));
  }
  kill(child, SIGKILL);
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status)) << "the run ended before it could be killed";
}

TEST(KilledRun, EveryRenamedFileButAtMostOneHasItsRecord) {
  TestWorld world;
  const TemporaryFolder& folder = world.home;
  for (int i = 0; i < fileCount; ++i) folder.Write("file" + std::to_string(100'000 + i));
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) RunAndExit(world);
  KillWhenTheLogHas(child, world, 40'000 * 60);

  // The batch has no end: it gets one here, to be read as a batch.
  const std::string log = world.data.Read("Logfile.txt") + "\x07";
  std::set<std::string> recorded;
  BatchRows rows;
  rows.Load(log_format::SplitBatches(log).front());
  for (std::size_t row = 1; row <= rows.Count(); ++row) recorded.insert(rows.NewPath(row));
  int renamed = 0;
  int unrecorded = 0;
  for (const std::string& name : folder.Names()) {
    if (name.find('-') == std::string::npos) continue;
    ++renamed;
    if (!recorded.contains(folder.Path(name))) ++unrecorded;
  }
  EXPECT_GT(renamed, 1000);
  EXPECT_LT(renamed, fileCount);
  EXPECT_LE(unrecorded, 1);
  EXPECT_EQ(static_cast<int>(recorded.size()) + unrecorded, renamed);
}

}  // namespace
}  // namespace tallowbrook
