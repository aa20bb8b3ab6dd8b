// Dates: seconds that count from 30 December 1899, their calendar fields, and their texts.
//
// One value type serves file times, typed dates, running dates and the log. It knows no zone: a
// date is what a calendar and a clock on some wall show. The years 100 to 9999 can be held.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tallowbrook {

struct Date {
  // Since 30 December 1899, 00:00:00; may be negative.
  std::int64_t seconds = 0;
  auto operator<=>(const Date&) const = default;
};

struct DateFields {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Seconds between 30 December 1899 and 1 January 1970, the origin of POSIX times.
inline constexpr std::int64_t secondsToPosixEpoch = 25569LL * 86400;

// Nothing if a field is out of its range; a year below 100 or above 9999 is.
std::optional<Date> MakeDate(const DateFields& fields);
DateFields FieldsOf(Date date);

// Whole days since 30 December 1899: midnights lie between two dates of different days.
std::int64_t DayOf(Date date);
// The midnight with which the date's day begins.
Date StartOfDay(Date date);

int DaysInMonth(int year, int month);

enum class DateInterval { Day, Week, Month, Year };
// A day that the target month lacks becomes that month's last day. Nothing if the result leaves
// the years that a date can hold.
std::optional<Date> AddInterval(Date date, DateInterval interval, std::int64_t count);

// Month and weekday names, from January and from Sunday.
struct DateNames {
  std::array<std::string, 12> months, monthsShort;
  std::array<std::string, 7> days, daysShort;
};
const DateNames& EnglishDateNames();
// The names of the environment's locale; English where it can't be loaded or isn't UTF-8.
const DateNames& SystemDateNames();

// Formats by a pattern of letters, upper or lower case alike:
//   d dd ddd dddd   day, two digits, short and full weekday name
//   m mm mmm mmmm   month likewise; directly behind an h or before an s: minutes
//   yy yyyy         year by two and four digits; y: day of the year
//   h hh  n nn  s ss   hour (24), minutes, seconds
//   w ww q          weekday from 1 for Sunday, week of the year, quarter
// Every other character stands for itself; "quoted" text and \c are taken as they are.
std::string FormatDate(Date date, std::string_view pattern, const DateNames& names);

// "9/11/2005 7:01:01 AM", without the time at midnight.
std::string GeneralDateText(Date date);
// Reads general date text, and also a 24-hour time, a time without seconds, and years of two
// digits (0 to 29 are of the years 2000). Nothing if it isn't such a text.
std::optional<Date> ParseDateText(std::string_view text);

}  // namespace tallowbrook
