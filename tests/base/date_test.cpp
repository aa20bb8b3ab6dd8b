// Calendar traps, and dates to text and back.
#include "base/date.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

Date At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return MakeDate({year, month, day, hour, minute, second}).value();
}

std::string TextOf(const std::optional<Date>& date) {
  return date ? GeneralDateText(*date) : "none";
}

TEST(Date, EveryDayFollowsTheDayBeforeAndReadsBackAsText) {
  EXPECT_EQ(At(2001, 9, 9, 1, 46, 40).seconds, secondsToPosixEpoch + 1'000'000'000);
  DateFields f{100, 1, 0, 13, 14, 15};
  for (Date date = At(100, 1, 1, 13, 14, 15); date < At(9999, 12, 31); date.seconds += 86400) {
    if (++f.day > DaysInMonth(f.year, f.month)) f.day = 1, ++f.month;
    if (f.month > 12) f.month = 1, ++f.year;
    ASSERT_EQ(MakeDate(f), date) << GeneralDateText(date);
    ASSERT_EQ(MakeDate(FieldsOf(date)), date) << GeneralDateText(date);
  }
}

TEST(Date, RefusesFieldsOutOfRangeAndReadsDatesOutOfRangeAsItsEnds) {
  // clang-format off
  const DateFields rows[] = {
      {99, 12, 31}, {10000, 1, 1}, {2005, 0, 1}, {2005, 13, 1}, {2005, 1, 0}, {2005, 2, 29}, {2005, 1, 1, 24},
      {2005, 1, 1, -1}, {INT_MAX, 1, 1}, {2005, 1, 1, 0, 60}, {2005, 1, 1, 0, -1}, {2005, 1, 1, 0, 0, 60}};
  // clang-format on
  for (const DateFields& f : rows) EXPECT_FALSE(MakeDate(f)) << f.year << '-' << f.month;
  EXPECT_EQ(FieldsOf({INT64_MAX}).year, 9999);
  EXPECT_EQ(FieldsOf({INT64_MIN}).year, 100);
}

TEST(Date, AddsIntervals) {
  using enum DateInterval;
  // clang-format off
  const std::tuple<const char*, DateInterval, std::int64_t, const char*> rows[] = {
      {"2/28/2100", Day, 1, "3/1/2100"}, {"1/1/1900 6:00:00 PM", Day, -3, "12/29/1899 6:00:00 PM"},
      {"12/25/2005", Week, 1, "1/1/2006"}, {"1/31/2004 7:01:01 AM", Month, 1, "2/29/2004 7:01:01 AM"},
      {"2/29/2004", Year, -104, "2/28/1900"}, {"1/1/100", Day, -1, "none"}, {"12/1/9999", Month, 1, "none"},
      {"9/11/2005", Week, INT64_MAX, "none"}, {"9/11/2005", Month, INT64_MIN, "none"}};
  // clang-format on
  for (const auto& [from, interval, count, to] : rows) {
    const Date date = ParseDateText(from).value();
    EXPECT_EQ(TextOf(AddInterval(date, interval, count)), to) << from << " plus " << count;
  }
  EXPECT_FALSE(AddInterval({INT64_MAX}, Day, 1));
}

TEST(Date, FormatsByPattern) {
  const Date morning = At(2005, 9, 1, 7, 4, 8);      // a Thursday
  const Date evening = At(2004, 12, 31, 19, 45, 0);  // a Friday
  // clang-format off
  const std::tuple<Date, const char*, const char*> rows[] = {
      {morning, "d dd ddd dddd m mm mmm mmmm", "1 01 Thu Thursday 9 09 Sep September"},
      {morning, "D-DD-M-MM-YY-YYYY ddddd yyyyyy", "1-01-9-09-05-2005 Thursday1 200505"},
      {evening, "yyyymmddhhmmss", "20041231194500"}, {morning, "mm:ss mm-ss n nn s ss", "04:08 09-08 4 04 8 08"},
      {morning, "hh:mm mm h時mm分 hx mm h mmm", "07:04 09 7時04分 7x 09 7 Sep"},
      {evening, "y w ww q", "366 6 53 4"}, {At(2005, 1, 2), "y w ww q", "2 1 2 1"},
      {At(105, 1, 4), "yyyy yy dddd", "0105 05 Sunday"}, {At(1899, 12, 29, 1), "dddd", "Friday"},
      {morning, "\"day\" d \\d\\\" \\é T_/.:,%", "day 1 d\" é T_/.:,%"},
      {morning, "\"day d", "day d"}, {morning, "d\\", "1\\"}};
  // clang-format on
  for (const auto& [date, pattern, text] : rows) {
    EXPECT_EQ(FormatDate(date, pattern, EnglishDateNames()), text) << pattern;
  }
}

TEST(Date, ReadsTypedDates) {
  // clang-format off
  const char* const rows[][2] = {
      {"  09-11-2005  ", "9/11/2005"}, {"2005/09/11 17:05", "9/11/2005 5:05:00 PM"},
      {"9/11/2005   7:01:01pM", "9/11/2005 7:01:01 PM"}, {"9/11/2005 12:00:00 AM", "9/11/2005"},
      {"9/11/2005 0:00:01", "9/11/2005 12:00:01 AM"}, {"9/11/2005 12:00 PM", "9/11/2005 12:00:00 PM"},
      {"1/2/29", "1/2/2029"}, {"1/2/30", "1/2/1930"}, {"1/2/100", "1/2/100"},
      {"7:01:01 AM", "12/30/1899 7:01:01 AM"}};
  // clang-format on
  for (const auto& [text, general] : rows) EXPECT_EQ(TextOf(ParseDateText(text)), general) << text;
  for (const char* text :
       {"", "soon", "9/11/", "/9/11/2005", "9/11-2005", "9.11.2005", "31/12/2005", "1/2/10000",
        "200-1-2", "9/11/2005 7", "9/11/2005x", "9/11/2005 24:00", "9/11/2005 13:00 PM",
        "9/11/2005 0:30 AM", "9/11/2005 7:01:01 AM x", "9/11/2005 7:01:01:01"}) {
    EXPECT_EQ(TextOf(ParseDateText(text)), "none") << text;
  }
}

}  // namespace
}  // namespace tallowbrook
