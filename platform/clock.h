// The time of day and the zone.
#pragma once

#include <algorithm>
#include <cstdint>

#include "base/date.h"

namespace tallowbrook {

class Clock {
 public:
  virtual ~Clock() = default;
  // Local time, to the second.
  virtual Date Now() = 0;
  // The local date of a POSIX time, by the zone's rules of that moment.
  virtual Date Local(std::int64_t posixSeconds) = 0;
  // The POSIX time of a local date, by the zone's rules of that date. Of an hour that comes twice
  // the first is meant; one that a change leaves out counts as if the change came behind it.
  virtual std::int64_t Posix(Date local) = 0;
};

// The first second of the year 100 and the last one of the year 9999, in POSIX seconds.
inline constexpr std::int64_t firstPosixSecond = -59011459200;
inline constexpr std::int64_t lastPosixSecond = 253402300799;

// The date of a POSIX time in universal time. File systems hold times that no date can; they
// give the nearest one.
inline Date UniversalDate(std::int64_t posixSeconds) {
  return Date{std::clamp(posixSeconds, firstPosixSecond, lastPosixSecond) + secondsToPosixEpoch};
}

// The machine's clock, in the zone of the environment (TZ, else the system's).
class SystemClock : public Clock {
 public:
  SystemClock();
  Date Now() override;
  Date Local(std::int64_t posixSeconds) override;
  std::int64_t Posix(Date local) override;

 private:
  // Zone offsets change at whole quarters of an hour, at least since 1973: within one, an offset
  // holds. Files of one folder are mostly of few hours, so that the zone database is seldom asked.
  std::int64_t quarter_;
  std::int64_t offset_ = 0;
};

}  // namespace tallowbrook
