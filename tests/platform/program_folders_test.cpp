// Where the program writes, decided by trying.
#include "platform/program_folders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

TEST(ProgramFolders, WritesBesideTheProgramWhereItCanAndLeavesNoTraceOfTrying) {
  const TemporaryFolder folder;
  const ProgramFolders folders = ChooseFolders(folder.Path(), folder.Path("xdg"), folder.Path());
  EXPECT_EQ(folders.program, folder.Path());
  EXPECT_EQ(folders.data, folder.Path());
  EXPECT_EQ(folder.Names(), std::vector<std::string>{});
}

// Nobody can write in /proc/self/, root as little as anyone.
TEST(ProgramFolders, ElseWritesInTheDataHomeAndMakesIt) {
  const TemporaryFolder folder;
  const std::string home = folder.Path();
  const struct {
    std::string xdgDataHome, data;
  } rows[] = {
      {home + "xdg/", home + "xdg/tallowbrook/"},
      {home + "xdg2", home + "xdg2/tallowbrook/"},
      {"", home + ".local/share/tallowbrook/"},
      {"relative", home + ".local/share/tallowbrook/"},
  };
  for (const auto& row : rows) {
    const ProgramFolders folders = ChooseFolders("/proc/self", row.xdgDataHome, home);
    EXPECT_EQ(folders.program, "/proc/self/");
    EXPECT_EQ(folders.data, row.data);
    EXPECT_TRUE(std::filesystem::is_directory(row.data)) << row.data;
  }
}

TEST(ProgramFolders, FindsTheRunningProgram) {
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(FindProgramFolders().program, program.parent_path().string() + "/");
}

TEST(HomeFolder, IsThatOfTheEnvironmentElseOfThePasswordDatabase) {
  const char* before = std::getenv("HOME");
  const std::string home = before != nullptr ? before : "";
  setenv("HOME", "/some/where", 1);
  EXPECT_EQ(HomeFolder(), "/some/where/");
  unsetenv("HOME");
  EXPECT_TRUE(HomeFolder().starts_with('/') && HomeFolder().ends_with('/'));
  if (before != nullptr) setenv("HOME", home.c_str(), 1);
}

}  // namespace
}  // namespace tallowbrook
