// Local time in zones given by rule, independent of the machine's zone files.
#include "platform/clock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>
#include <optional>
#include <string>

namespace tallowbrook {
namespace {

class InZone {
 public:
  explicit InZone(const char* zone) {
    if (const char* before = std::getenv("TZ")) before_ = before;
    setenv("TZ", zone, 1);
    tzset();
  }
  ~InZone() {
    before_ ? setenv("TZ", before_->c_str(), 1) : unsetenv("TZ");
    tzset();
  }
  InZone(const InZone&) = delete;
  InZone& operator=(const InZone&) = delete;

 private:
  std::optional<std::string> before_;
};

std::int64_t Posix(const DateFields& fields) {
  return MakeDate(fields)->seconds - secondsToPosixEpoch;
}

std::string Text(Date date) {
  return FormatDate(date, "yyyy-mm-dd hh:nn:ss", EnglishDateNames());
}

TEST(SystemClock, FollowsTheZonesRulesOfEachMoment) {
  const struct {
    const char* zone;
    DateFields universal;
    std::string local;
  } rows[] = {
      {"CET-1CEST,M3.5.0,M10.5.0/3", {2005, 3, 27, 0, 59, 59}, "2005-03-27 01:59:59"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", {2005, 3, 27, 1, 0, 0}, "2005-03-27 03:00:00"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", {2005, 10, 30, 0, 59, 59}, "2005-10-30 02:59:59"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", {2005, 10, 30, 1, 0, 0}, "2005-10-30 02:00:00"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", {1969, 12, 31, 23, 59, 59}, "1970-01-01 00:59:59"},
      {"NPT-5:45", {2005, 1, 1, 18, 15, 0}, "2005-01-02 00:00:00"},
      {"EST5EDT,M3.2.0,M11.1.0", {1960, 1, 1, 0, 0, 0}, "1959-12-31 19:00:00"},
      {"<LMT>-0:19:32", {1930, 1, 1, 0, 0, 0}, "1930-01-01 00:19:32"},
  };
  for (const auto& row : rows) {
    const InZone zone(row.zone);
    EXPECT_EQ(Text(SystemClock().Local(Posix(row.universal))), row.local) << row.zone;
  }
}

// One clock, asked for moments forth and back over the changes.
TEST(SystemClock, ForgetsAnOffsetWhenItEnds) {
  const InZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
  SystemClock clock;
  const std::int64_t change = Posix({2005, 3, 27, 1, 0, 0});
  for (std::int64_t moment : {change - 1, change, change - 1, change + 899, change - 900}) {
    const std::int64_t offset = moment < change ? 3600 : 7200;
    EXPECT_EQ(clock.Local(moment).seconds, UniversalDate(moment).seconds + offset) << moment;
  }
}

TEST(SystemClock, GivesTheNearestDateForTimesThatNoDateHolds) {
  const InZone zone("CET-1");
  constexpr auto first = std::numeric_limits<std::int64_t>::min();
  constexpr auto last = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(Text(UniversalDate(first)), "0100-01-01 00:00:00");
  EXPECT_EQ(Text(UniversalDate(last)), "9999-12-31 23:59:59");
  EXPECT_EQ(Text(SystemClock().Local(first)), "0100-01-01 01:00:00");
  EXPECT_EQ(Text(SystemClock().Local(last)), "9999-12-31 23:59:59");
}

TEST(SystemClock, NowIsTheLocalDateOfThisSecond) {
  const InZone zone("XYZ-7");
  const std::int64_t before = std::time(nullptr);
  const Date now = SystemClock().Now();
  const std::int64_t after = std::time(nullptr);
  EXPECT_GE(now, UniversalDate(before + 7 * 3600));
  EXPECT_LE(now, UniversalDate(after + 7 * 3600));
}

}  // namespace
}  // namespace tallowbrook
