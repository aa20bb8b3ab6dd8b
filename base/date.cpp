// Calendar arithmetic in whole numbers.
//
// Days are counted in the Gregorian calendar carried back before its start, as file dates and
// typed dates are. No C library time is involved, so that no zone and no summer time can get in.
#include "base/date.h"

#include <algorithm>

namespace tallowbrook {
namespace {

constexpr std::int64_t secondsPerDay = 86400;
constexpr std::int64_t daysToPosixEpoch = secondsToPosixEpoch / secondsPerDay;
constexpr int firstYear = 100;
constexpr int lastYear = 9999;

constexpr bool IsLeapYear(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor) {
  return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// Eras of 400 years have equal lengths, and years that begin in March put the leap day last:
// Howard Hinnant, "chrono-Compatible Low-Level Date Algorithms". Day 0 is 30 December 1899.
constexpr std::int64_t daysPerEra = 146097;
constexpr std::int64_t daysFromMarchOfYear0ToPosixEpoch = 719468;

constexpr std::int64_t DaysFromCivil(int year, int month, int day) {
  const std::int64_t y = month <= 2 ? year - 1 : year;
  const std::int64_t era = FloorDivide(y, 400);
  const std::int64_t yearOfEra = y - era * 400;
  const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * daysPerEra + dayOfEra - daysFromMarchOfYear0ToPosixEpoch + daysToPosixEpoch;
}

DateFields CivilFromDays(std::int64_t days) {
  const std::int64_t z = days - daysToPosixEpoch + daysFromMarchOfYear0ToPosixEpoch;
  const std::int64_t era = FloorDivide(z, daysPerEra);
  const std::int64_t dayOfEra = z - era * daysPerEra;
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t marchMonth = (5 * dayOfYear + 2) / 153;
  DateFields fields;
  fields.day = static_cast<int>(dayOfYear - (153 * marchMonth + 2) / 5 + 1);
  fields.month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
  fields.year = static_cast<int>(yearOfEra + era * 400 + (fields.month <= 2 ? 1 : 0));
  return fields;
}

constexpr Date earliest{DaysFromCivil(firstYear, 1, 1) * secondsPerDay};
constexpr Date latest{DaysFromCivil(lastYear + 1, 1, 1) * secondsPerDay - 1};
static_assert(DaysFromCivil(1899, 12, 30) == 0 && DaysFromCivil(1970, 1, 1) == daysToPosixEpoch);

constexpr bool IsWithin(std::int64_t value, std::int64_t low, std::int64_t high) {
  return value >= low && value <= high;
}

// More of any interval than lie between the first and the last year leave the range for sure; a
// count within that bound can't overflow the arithmetic.
constexpr std::int64_t mostIntervals = 366LL * (lastYear - firstYear + 1);

std::optional<Date> AddDays(Date date, std::int64_t days) {
  const Date result{date.seconds + days * secondsPerDay};
  if (result < earliest || result > latest) return std::nullopt;
  return result;
}

std::optional<Date> AddMonths(Date date, std::int64_t months) {
  DateFields fields = FieldsOf(date);
  const std::int64_t sum = fields.year * 12LL + fields.month - 1 + months;
  const std::int64_t year = FloorDivide(sum, 12);
  if (!IsWithin(year, firstYear, lastYear)) return std::nullopt;
  fields.year = static_cast<int>(year);
  fields.month = static_cast<int>(sum - year * 12) + 1;
  fields.day = std::min(fields.day, DaysInMonth(fields.year, fields.month));
  return MakeDate(fields);
}

}  // namespace

std::optional<Date> MakeDate(const DateFields& fields) {
  if (!IsWithin(fields.year, firstYear, lastYear) || !IsWithin(fields.month, 1, 12) ||
      !IsWithin(fields.day, 1, DaysInMonth(fields.year, fields.month)) ||
      !IsWithin(fields.hour, 0, 23) || !IsWithin(fields.minute, 0, 59) ||
      !IsWithin(fields.second, 0, 59)) {
    return std::nullopt;
  }
  const std::int64_t days = DaysFromCivil(fields.year, fields.month, fields.day);
  return Date{days * secondsPerDay + fields.hour * 3600 + fields.minute * 60 + fields.second};
}

std::int64_t DayOf(Date date) {
  return FloorDivide(date.seconds, secondsPerDay);
}

Date StartOfDay(Date date) {
  return Date{DayOf(date) * secondsPerDay};
}

DateFields FieldsOf(Date date) {
  const std::int64_t seconds = std::clamp(date, earliest, latest).seconds;
  const std::int64_t days = FloorDivide(seconds, secondsPerDay);
  const int ofDay = static_cast<int>(seconds - days * secondsPerDay);
  DateFields fields = CivilFromDays(days);
  fields.hour = ofDay / 3600;
  fields.minute = ofDay / 60 % 60;
  fields.second = ofDay % 60;
  return fields;
}

int DaysInMonth(int year, int month) {
  static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (!IsWithin(month, 1, 12)) return 0;
  return month == 2 && IsLeapYear(year) ? 29 : days[month - 1];
}

std::optional<Date> AddInterval(Date date, DateInterval interval, std::int64_t count) {
  if (!IsWithin(count, -mostIntervals, mostIntervals)) return std::nullopt;
  if (date < earliest || date > latest) return std::nullopt;
  switch (interval) {
    case DateInterval::Day:
      return AddDays(date, count);
    case DateInterval::Week:
      return AddDays(date, count * 7);
    case DateInterval::Month:
      return AddMonths(date, count);
    case DateInterval::Year:
      return AddMonths(date, count * 12);
  }
  return std::nullopt;
}

}  // namespace tallowbrook
