// Time, chance and places: local time in zones given by rule, independent of the machine's zone
// files; draws under reseeding; where the program writes, decided by trying.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <set>

#include "platform/clock.h"
#include "platform/program_folders.h"
#include "platform/random.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

class SystemClockTest : public testing::Test {
 protected:
  static void SetZone(const char* zone) {
    zone != nullptr ? setenv("TZ", zone, 1) : unsetenv("TZ");
    tzset();
  }
  ~SystemClockTest() override { SetZone(wasSet_ ? before_.c_str() : nullptr); }

  const bool wasSet_ = std::getenv("TZ") != nullptr;
  const std::string before_ = wasSet_ ? std::getenv("TZ") : "";
};

std::int64_t Posix(const char* date) {
  return ParseDateText(date)->seconds - secondsToPosixEpoch;
}

std::string Text(Date date) {
  return FormatDate(date, "yyyy-mm-dd hh:nn:ss", EnglishDateNames());
}

TEST_F(SystemClockTest, FollowsTheZonesRulesOfEachMoment) {
  const char* const rows[][3] = {
      {"CET-1CEST,M3.5.0,M10.5.0/3", "3/27/2005 0:59:59", "2005-03-27 01:59:59"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", "3/27/2005 1:00", "2005-03-27 03:00:00"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", "10/30/2005 0:59:59", "2005-10-30 02:59:59"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", "10/30/2005 1:00", "2005-10-30 02:00:00"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", "12/31/1969 23:59:59", "1970-01-01 00:59:59"},
      {"NPT-5:45", "1/1/2005 18:15", "2005-01-02 00:00:00"},
      {"<LMT>-0:19:32", "1/1/1930", "1930-01-01 00:19:32"},
  };
  for (const auto& [zone, universal, local] : rows) {
    SetZone(zone);
    EXPECT_EQ(Text(SystemClock().Local(Posix(universal))), local) << zone;
    EXPECT_EQ(Text(SystemClock().Local(SystemClock().Posix(*ParseDateText(local)))), local) << zone;
  }
  // Of an hour that comes twice the first one; one that doesn't come is counted by the rule before.
  SetZone("CET-1CEST,M3.5.0,M10.5.0/3");
  EXPECT_EQ(SystemClock().Posix(*ParseDateText("10/30/2005 2:30")), Posix("10/30/2005 0:30"));
  EXPECT_EQ(SystemClock().Posix(*ParseDateText("3/27/2005 2:30")), Posix("3/27/2005 1:30"));
}

// One clock, asked for moments forth and back over the changes.
TEST_F(SystemClockTest, ForgetsAnOffsetWhenItEnds) {
  SetZone("CET-1CEST,M3.5.0,M10.5.0/3");
  SystemClock clock;
  const std::int64_t change = Posix("3/27/2005 1:00");
  for (std::int64_t moment : {change - 1, change, change - 1, change + 899, change - 900}) {
    const std::int64_t offset = moment < change ? 3600 : 7200;
    EXPECT_EQ(clock.Local(moment).seconds, UniversalDate(moment).seconds + offset) << moment;
  }
}

TEST_F(SystemClockTest, NowIsOfThisSecondAndTimesThatNoDateHoldsGiveTheNearestOne) {
  SetZone("CET-1");
  EXPECT_EQ(Text(SystemClock().Local(INT64_MIN)), "0100-01-01 01:00:00");
  EXPECT_EQ(Text(SystemClock().Local(INT64_MAX)), "9999-12-31 23:59:59");
  const Date before = UniversalDate(std::time(nullptr) + 3600), now = SystemClock().Now();
  EXPECT_TRUE(before <= now && now <= UniversalDate(std::time(nullptr) + 3600));
}

TEST(SystemRandom, DrawsOfOneSecondDifferAndFillTheUnitInterval) {
  SystemRandom random;
  std::set<double> drawn;
  while (drawn.size() < 20000) {
    random.Reseed(43200.0);
    const double value = random.Next();
    ASSERT_TRUE(value >= 0.0 && value < 1.0 && drawn.insert(value).second) << value;
  }
  EXPECT_TRUE(*drawn.begin() < 0.01 && *drawn.rbegin() > 0.99);
}

// Beside the program where it can, and no trace of trying; else in the data home, which is made.
// Nobody can write in /proc/self/, root as little as anyone; but root may write beside an installed
// program, which stays as it is all the same.
TEST(ProgramFolders, AreWhereTheProgramMayWrite) {
  const TemporaryFolder folder;
  const std::string home = folder.Path(), installed = folder.MakeFolder("lib/tallowbrook/");
  const std::string alone = folder.MakeFolder("alone/");
  folder.Write("lib/tallowbrook/installed");
  const std::string rows[][3] = {{alone, home + "xdg", alone},
                                 {"/proc/self", home + "xdg/", home + "xdg/tallowbrook/"},
                                 {"/proc/self", "relative", home + ".local/share/tallowbrook/"},
                                 {installed, home + "xdg2", home + "xdg2/tallowbrook/"}};
  for (const auto& [program, xdgDataHome, data] : rows) {
    EXPECT_EQ(ChooseFolders(program, xdgDataHome, home).data, data);
    EXPECT_TRUE(std::filesystem::is_directory(data)) << data;
  }
  EXPECT_EQ(folder.Names("alone").size() + folder.Names("lib/tallowbrook").size(), 1U);
}

TEST(HomeFolder, IsThatOfTheEnvironmentElseOfThePasswordDatabase) {
  const char* before = std::getenv("HOME");
  const std::string home = before ? before : "";
  setenv("HOME", "/some/where", 1);
  EXPECT_EQ(HomeFolder(), "/some/where/");
  unsetenv("HOME");
  EXPECT_TRUE(HomeFolder().starts_with('/') && HomeFolder().ends_with('/'));
  if (before) setenv("HOME", home.c_str(), 1);
}

}  // namespace
}  // namespace tallowbrook
