// Every scenario with its n-th call failing, for each n and each error, and killed: nothing of the
// user's is lost, the program's own files stay whole, and it goes on.
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <optional>
#include <random>

#include "tests/faults/disk_state.h"
#include "tests/faults/system_calls.h"

namespace tallowbrook {
namespace {

using std::chrono::nanoseconds;
using system_calls::Ending;

constexpr int fewRows = 6;
constexpr int manyRows = 100;

// A folder on another file system than that for temporary files; empty if there is none.
std::string OtherFileSystem() {
  struct stat here, there;
  const std::string other = "/dev/shm";
  const bool isOther = stat(std::filesystem::temp_directory_path().c_str(), &here) == 0 &&
                       stat(other.c_str(), &there) == 0 && here.st_dev != there.st_dev;
  return isOther && access(other.c_str(), W_OK) == 0 ? other : "";
}

// Shortened, a tenth of the kills and a fifth of the refusals are done.
bool IsFullLength() {
  const char* value = std::getenv("TALLOWBROOK_FULL");
  return value != nullptr && std::string_view(value) == "1";
}

class Faults : public testing::TestWithParam<Scenario> {
 protected:
  // The program's folders lie in memory, where flushing takes no time; files are moved to the disk.
  Faults() {
    const std::string other = OtherFileSystem();
    if (other.empty()) std::cout << "one file system alone: files are moved within it\n";
    if (!other.empty()) inMemory_.emplace(other);
  }
  std::unique_ptr<Stage> Prepared(int rows) const {
    auto stage = std::make_unique<Stage>(rows, target_);
    GetParam().prepare(*stage);
    return stage;
  }
  void Act(Stage& stage, Form1& form, const std::function<void()>& begin) const {
    GetParam().act(stage, form, begin);
  }

  // How many calls were counted; `fault` is set at the beginning and taken back by `end`.
  int FailOnce(const std::string& what, const std::function<void(Stage&)>& fault,
               const std::function<int(Stage&)>& end, Harm harm = Harm::OneCall) const {
    SCOPED_TRACE(what);
    const auto stage = Prepared(fewRows);
    const auto form = stage->Start();
    Act(*stage, *form, [&] { fault(*stage); });
    const int calls = end(*stage);
    CheckStage(*stage, GetParam(), few_, harm);
    CheckGoesOn(*stage, *form, GetParam(), few_);
    return calls;
  }

  // Whether it was killed, not done by then.
  bool Killed(Stage& stage, const std::function<void()>& arm) const {
    const pid_t child = fork();
    if (child == 0) {
      const auto form = stage.Start();
      Act(stage, *form, arm);
      _exit(0);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) == 0);
    return WIFSIGNALED(status);
  }
  bool KillOnce(const std::string& what, int rows, const Reference& reference,
                const std::function<void()>& arm) const {
    SCOPED_TRACE(what);
    const auto stage = Prepared(rows);
    const bool isKilled = Killed(*stage, arm);
    CheckStage(*stage, GetParam(), reference, Harm::Killed);
    CheckGoesOn(*stage, *stage->Start(), GetParam(), reference);
    return isKilled;
  }

  std::string target_ = std::filesystem::temp_directory_path();
  std::optional<TemporaryFilesIn> inMemory_;
  Reference few_{GetParam(), fewRows};
};

TEST_P(Faults, NothingIsLostWhereTheNthCallFails) {
  const auto count = [](Stage& stage) {
    stage.faulty.FailAnyAt(0, FileError::None);
    return stage.faulty.CountAll();
  };
  int first = 0;
  const int last = FailOnce(
      "clean", [&](Stage& stage) { first = count(stage); }, count);
  for (const FileError error :
       {FileError::NoSpace, FileError::Io, FileError::NotFound, FileError::NotPermitted}) {
    for (int n = first + 1; n <= last && !HasFailure(); ++n) {
      FailOnce(
          "call " + std::to_string(n - first) + ", error " + std::to_string(int(error)),
          [&](Stage& stage) { stage.faulty.FailAnyAt(n, error); }, count);
    }
  }
  RecordProperty("calls", last - first);
}

TEST_P(Faults, NothingIsLostWhereTheSystemRefusesTheNthCall) {
  const std::pair<Ending, int> rows[] = {{Ending::OutOfSpaceFromNow, ENOSPC},
                                         {Ending::Refused, ENOSPC},
                                         {Ending::Refused, EIO},
                                         {Ending::Refused, ENOENT},
                                         {Ending::Refused, EACCES}};
  const auto count = [](Stage&) { return system_calls::Counted(); };
  const int last = FailOnce(
      "clean", [](Stage&) { system_calls::Watch(0); }, count);
  // Shortened, each call still fails once, with one error after the other.
  const int step = IsFullLength() ? 1 : static_cast<int>(std::size(rows));
  int first = 1;
  for (const auto& [ending, error] : rows) {
    const Harm harm = ending == Ending::Refused ? Harm::OneCall : Harm::FullDisk;
    for (int n = first; n <= last && !HasFailure(); n += step) {
      FailOnce(
          "call " + std::to_string(n) + ", " + std::strerror(error),
          [&](Stage&) { system_calls::Watch(n, ending, error); }, count, harm);
    }
    if (step > 1) ++first;
  }
  RecordProperty("calls", last);
}

TEST_P(Faults, NothingIsLostWhenKilledBeforeTheNthCall) {
  const int step = IsFullLength() ? 1 : 7;
  int n = 1;
  while (!HasFailure() && KillOnce("before call " + std::to_string(n), fewRows, few_,
                                   [&] { system_calls::Watch(n, Ending::Killed); })) {
    n += step;
  }
  EXPECT_GT(n, 1);
  RecordProperty("calls", n);
}

// The timer runs in the program itself: no other process has to be awake at the moment.
void KillAfter(nanoseconds moment) {
  sigevent event{};
  event.sigev_notify = SIGEV_SIGNAL;
  event.sigev_signo = SIGKILL;
  timer_t timer;
  const long wait = std::max<long>(1, moment.count());
  const itimerspec once{{}, {wait / 1'000'000'000, wait % 1'000'000'000}};
  const bool isSet = timer_create(CLOCK_MONOTONIC, &event, &timer) == 0 &&
                     timer_settime(timer, 0, &once, nullptr) == 0;
  if (!isSet) _exit(1);
}

TEST_P(Faults, NothingIsLostWhenKilledAtRandomMoments) {
  const int kills = IsFullLength() ? 200 : 20;
  const Reference many(GetParam(), manyRows);
  std::mt19937 random(20240229);
  // Drifts to where two of three tries find it at work: so all of it has its moments.
  double length = 1e6;
  int killed = 0;
  for (int tries = 0; killed < kills && tries < 20 * kills && !HasFailure(); ++tries) {
    const nanoseconds moment(static_cast<std::int64_t>(length * random() / random.max()));
    const bool isKilled = KillOnce("after " + std::to_string(moment.count()) + " ns", manyRows,
                                   many, [&] { KillAfter(moment); });
    length *= isKilled ? 1.05 : 0.9;
    killed += isKilled;
  }
  EXPECT_EQ(killed, kills);
  RecordProperty("killed", killed);
  RecordProperty("microseconds", static_cast<int>(length / 1000));
}

INSTANTIATE_TEST_SUITE_P(Of, Faults, testing::ValuesIn(Scenarios()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace tallowbrook
