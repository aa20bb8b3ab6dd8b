// The time of day and the zone.
#pragma once

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
};

// The date of a POSIX time in universal time.
inline Date UniversalDate(std::int64_t posixSeconds) {
  return Date{posixSeconds + secondsToPosixEpoch};
}

// The machine's clock, in the zone of the environment (TZ, else the system's).
class SystemClock : public Clock {
 public:
  SystemClock();
  Date Now() override;
  Date Local(std::int64_t posixSeconds) override;

 private:
  // Zone offsets change at whole quarters of an hour: within one, an offset holds. Files of one
  // folder are mostly of few hours, so that the zone database is seldom asked.
  std::int64_t quarter_;
  std::int64_t offset_ = 0;
};

}  // namespace tallowbrook
