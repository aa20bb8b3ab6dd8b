// Local time by the C library's zone rules.
#include "platform/clock.h"

#include <algorithm>
#include <ctime>
#include <limits>

namespace tallowbrook {
namespace {

constexpr std::int64_t quarterSeconds = 15 * 60;
// Before it, some zones changed from their cities' mean time at odd seconds.
constexpr std::int64_t evenChangesBegin = 94694400;  // 1 January 1973

std::int64_t QuarterOf(std::int64_t posixSeconds) {
  const std::int64_t quarter = posixSeconds / quarterSeconds;
  return posixSeconds % quarterSeconds < 0 ? quarter - 1 : quarter;
}

// Seconds east of Greenwich at that moment.
std::int64_t OffsetAt(std::int64_t posixSeconds) {
  const std::time_t time = posixSeconds;
  std::tm fields;
  return localtime_r(&time, &fields) != nullptr ? fields.tm_gmtoff : 0;
}

}  // namespace

SystemClock::SystemClock() : quarter_(std::numeric_limits<std::int64_t>::min()) {
  tzset();
}

Date SystemClock::Now() {
  return Local(std::time(nullptr));
}

Date SystemClock::Local(std::int64_t posixSeconds) {
  posixSeconds = std::clamp(posixSeconds, firstPosixSecond, lastPosixSecond);
  const std::int64_t quarter = QuarterOf(posixSeconds);
  if (quarter != quarter_ || posixSeconds < evenChangesBegin) {
    offset_ = OffsetAt(posixSeconds);
    quarter_ = quarter;
  }
  return UniversalDate(posixSeconds + offset_);
}

std::int64_t SystemClock::Posix(Date local) {
  constexpr std::int64_t day = 86400;  // two changes are never as near
  const std::int64_t wall = local.seconds - secondsToPosixEpoch;
  const std::int64_t byRuleBefore = wall - OffsetAt(wall - day);
  if (byRuleBefore + OffsetAt(byRuleBefore) == wall) return byRuleBefore;
  const std::int64_t byRuleBehind = wall - OffsetAt(wall + day);
  return byRuleBehind + OffsetAt(byRuleBehind) == wall ? byRuleBehind : byRuleBefore;
}

}  // namespace tallowbrook
