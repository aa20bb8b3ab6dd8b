// Every scenario on a file system of memory that is full: mounted for a child process alone, by
// root or within the process's own user namespace, where the machine allows that.
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>

#include "tests/faults/disk_state.h"

namespace tallowbrook {
namespace {

constexpr int rows = 6;
constexpr int noMount = 77;

void Note(const std::string& path, const std::string& text) {
  std::ofstream(path) << text;
}

bool OwnMounts() {
  const std::string user = std::to_string(getuid()), group = std::to_string(getgid());
  if (unshare(CLONE_NEWNS) != 0) {
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    Note("/proc/self/setgroups", "deny");
    Note("/proc/self/uid_map", user + " " + user + " 1");
    Note("/proc/self/gid_map", group + " " + group + " 1");
  }
  return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool MountSmall(const std::string& folder) {
  return OwnMounts() && mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=2m") == 0;
}

// To the last byte.
std::string FilledUp(const std::string& folder) {
  const std::string path = folder + "filler";
  std::ofstream file(path, std::ios::binary);
  while (file << std::string(512, 'x') << std::flush) continue;
  return path;
}

void RunOnFullDisk(const Scenario& scenario, const std::string& full, bool isTarget) {
  const std::string outside = std::filesystem::temp_directory_path();
  const Reference reference(scenario, rows);
  std::optional<TemporaryFilesIn> on;
  if (!isTarget) on.emplace(full);
  Stage stage(rows, isTarget ? full : outside);
  scenario.prepare(stage);
  const auto form = stage.Start();
  const std::string filler = FilledUp(full);
  scenario.act(stage, *form, [] {});
  CheckStage(stage, scenario, reference, Harm::FullDisk);
  const std::string expected = scenario.saysWhenFull;
  EXPECT_TRUE(expected.empty() || stage.said == expected) << stage.said;
  ASSERT_TRUE(std::filesystem::remove(filler));
  CheckGoesOn(stage, *form, scenario, reference);
}

void CheckOnFullDisk(const Scenario& scenario, bool isTarget) {
  const TemporaryFolder folder;
  const pid_t child = fork();
  if (child == 0) {
    if (!MountSmall(folder.Path())) _exit(noMount);
    RunOnFullDisk(scenario, folder.Path(), isTarget);
    std::fflush(nullptr);
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  if (WEXITSTATUS(status) == noMount) GTEST_SKIP() << "this machine lets nobody mount anything";
  EXPECT_EQ(WEXITSTATUS(status), 0) << "told above";
}

class FullDisk : public testing::TestWithParam<Scenario> {};

TEST_P(FullDisk, LosesNothingBesideTheProgramsOwnFiles) {
  CheckOnFullDisk(GetParam(), false);
}

INSTANTIATE_TEST_SUITE_P(Of, FullDisk, testing::ValuesIn(Scenarios()),
                         [](const auto& row) { return row.param.name; });

TEST(FullTarget, LosesNothingThatIsMovedThere) {
  CheckOnFullDisk(*std::ranges::find(Scenarios(), "RunWithMove",
                                     [](const Scenario& s) { return std::string(s.name); }),
                  true);
}

}  // namespace
}  // namespace tallowbrook
