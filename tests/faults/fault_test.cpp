// Every scenario with its n-th call failing, for each n and each error, and killed: nothing of the
// user's is lost, the program's own files stay whole, and it goes on.
#include <signal.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>
#include <random>

#include "tests/faults/disk_state.h"
#include "tests/support/system_calls.h"

namespace tallowbrook {
namespace {

constexpr int fewRows = 6;
constexpr int manyRows = 100;

// Shortened, a tenth of the kills and a fifth of the refusals are done.
bool IsFullLength() {
  const char* value = std::getenv("TALLOWBROOK_FULL");
  return value != nullptr && std::string_view(value) == "1";
}

// One way to let the n-th call from now on fail, none where n is 0. `end` takes it back and tells
// how many calls there were.
struct Fault {
  std::string name;
  Harm harm;
  std::function<void(Stage&, int n)> begin;
  std::function<int(Stage&)> end;
};

std::vector<Fault> FaultsOfFiles() {
  std::vector<Fault> faults;
  for (const FileError error :
       {FileError::NoSpace, FileError::Io, FileError::NotFound, FileError::NotPermitted}) {
    const auto begin = [error](Stage& stage, int n) {
      stage.callsBefore = stage.faulty.CountAll();
      stage.faulty.FailAnyAt(stage.callsBefore + n, error);
    };
    const auto end = [](Stage& stage) {
      stage.faulty.FailAnyAt(0, FileError::None);
      return stage.faulty.CountAll() - stage.callsBefore;
    };
    faults.push_back({"files, " + std::to_string(int(error)), Harm::OneCall, begin, end});
  }
  return faults;
}

int callsOfTheSystem = 0;

// Counts the system's calls from 1 anew. The n-th fails with the error and does nothing; or from
// the n-th on whatever needs room does so, and of that one a half is done.
void WatchTheSystem(int n, int error, bool fromNowOn) {
  callsOfTheSystem = 0;
  system_calls::guard = [=](const system_calls::Call& call) {
    const bool isMeant = ++callsOfTheSystem == n;
    if (!fromNowOn) return isMeant ? error : 0;
    if (n == 0 || callsOfTheSystem < n || !call.needsRoom) return 0;
    if (!isMeant || !call.size || *call.size < 2) return error;
    *call.size /= 2;
    return 0;
  };
}

// The disk that is full comes first, and so its first call is never left out.
std::vector<Fault> FaultsOfTheSystem() {
  std::vector<Fault> faults;
  const auto end = [](Stage&) {
    system_calls::guard = nullptr;
    return callsOfTheSystem;
  };
  for (const int error : {0, ENOSPC, EIO, ENOENT, EACCES}) {
    const bool isFull = error == 0;
    const auto begin = [=](Stage&, int n) { WatchTheSystem(n, isFull ? ENOSPC : error, isFull); };
    const Harm harm = isFull ? Harm::FullDisk : Harm::OneCall;
    faults.push_back({"system, " + std::to_string(error), harm, begin, end});
  }
  return faults;
}

class Faults : public testing::TestWithParam<Scenario> {
 protected:
  // The program's folders lie in memory, where flushing takes no time; files are moved to the disk.
  Faults() {
    const std::string other = OtherFileSystem(target_);
    if (other.empty()) std::cout << "one file system alone: files are moved within it\n";
    if (!other.empty()) inMemory_.emplace(other);
  }
  std::unique_ptr<Stage> Prepared(int rows) const {
    auto stage = std::make_unique<Stage>(rows, target_);
    GetParam().prepare(*stage);
    return stage;
  }

  // How many calls were counted.
  int FailOnce(const Fault& fault, int n) const {
    SCOPED_TRACE(fault.name + ", call " + std::to_string(n));
    const auto stage = Prepared(fewRows);
    const auto form = stage->Start();
    GetParam().act(*stage, *form, [&] { fault.begin(*stage, n); });
    const int calls = fault.end(*stage);
    CheckStage(*stage, GetParam(), few_, fault.harm);
    const std::string expected = GetParam().saysWhenFull;
    const bool isFull = fault.harm == Harm::FullDisk && n == 1;
    EXPECT_TRUE(!isFull || expected.empty() || stage->said == expected) << stage->said;
    CheckGoesOn(*stage, *form, GetParam(), few_);
    return calls;
  }
  // With a step, each n still has one of the faults, one after the other.
  void FailEach(const std::vector<Fault>& faults, int step) const {
    const int last = FailOnce(faults.front(), 0);
    EXPECT_GT(last, 0);
    int first = 0;
    for (const Fault& fault : faults) {
      for (int n = 1 + first++ % step; n <= last && !HasFailure(); n += step) FailOnce(fault, n);
    }
  }

  // Whether it was killed, not done by then. `arm` is called in the program that dies.
  bool KillOnce(const std::string& when, int rows, const Reference& reference,
                const std::function<void()>& arm) const {
    SCOPED_TRACE(when);
    const auto stage = Prepared(rows);
    const pid_t child = fork();
    if (child == 0) {
      GetParam().act(*stage, *stage->Start(), arm);
      _exit(0);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    const int end = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    EXPECT_TRUE(end == SIGKILL || end == SIGALRM || status == 0) << status;
    CheckStage(*stage, GetParam(), reference, Harm::Killed);
    CheckGoesOn(*stage, *stage->Start(), GetParam(), reference);
    return WIFSIGNALED(status);
  }

  std::string target_ = std::filesystem::temp_directory_path();
  std::optional<TemporaryFilesIn> inMemory_;
  Reference few_{GetParam(), fewRows};
};

TEST_P(Faults, NothingIsLostWhereTheNthCallFails) {
  FailEach(FaultsOfFiles(), 1);
}

TEST_P(Faults, NothingIsLostWhereTheSystemRefusesTheNthCall) {
  FailEach(FaultsOfTheSystem(), IsFullLength() ? 1 : 5);
}

TEST_P(Faults, NothingIsLostWhenKilledBeforeTheNthCall) {
  int n = 1;
  const auto arm = [&] {
    system_calls::guard = [left = n](auto&) mutable { return --left == 0 ? raise(SIGKILL) : 0; };
  };
  while (!HasFailure() && KillOnce("before call " + std::to_string(n), fewRows, few_, arm)) {
    n += IsFullLength() ? 1 : 7;
  }
  EXPECT_GT(n, 1);
}

// The timer runs in the program itself: no other process has to be awake at the moment.
void KillAfter(std::chrono::microseconds moment) {
  const itimerval once{{}, {0, std::max<long>(1, moment.count())}};
  if (setitimer(ITIMER_REAL, &once, nullptr) != 0) _exit(1);
}

TEST_P(Faults, NothingIsLostWhenKilledAtRandomMoments) {
  const int kills = IsFullLength() ? 200 : 20;
  const Reference many(GetParam(), manyRows);
  std::mt19937 random(20240229);
  // Drifts to where two of three tries find it at work: so all of it has its moments.
  double length = 1000;
  int killed = 0;
  for (int tries = 0; killed < kills && tries < 20 * kills && !HasFailure(); ++tries) {
    const std::chrono::microseconds moment(static_cast<long>(length * random() / random.max()));
    const bool isKilled = KillOnce("after " + std::to_string(moment.count()) + " us", manyRows,
                                   many, [&] { KillAfter(moment); });
    length *= isKilled ? 1.05 : 0.9;
    killed += isKilled;
  }
  EXPECT_EQ(killed, kills);
}

INSTANTIATE_TEST_SUITE_P(Of, Faults, testing::ValuesIn(Scenarios()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace tallowbrook
