// Calendar traps, and dates to text and back.
#include "base/date.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace tallowbrook {
namespace {

Date At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return MakeDate({year, month, day, hour, minute, second}).value();
}

TEST(Date, CountsFromTheLastDaysOf1899) {
  EXPECT_EQ(At(1899, 12, 30).seconds, 0);
  EXPECT_EQ(At(1899, 12, 29, 23, 59, 59).seconds, -1);
  EXPECT_EQ(At(1970, 1, 1).seconds, secondsToPosixEpoch);
  EXPECT_EQ(At(2001, 9, 9, 1, 46, 40).seconds, secondsToPosixEpoch + 1'000'000'000);
}

TEST(Date, EveryDayFollowsTheDayBefore) {
  Date date = At(100, 1, 1, 13, 14, 15);
  for (int year = 100; year <= 9999; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= DaysInMonth(year, month); ++day, date.seconds += 86400) {
        const DateFields f = FieldsOf(date);
        ASSERT_TRUE(f.year == year && f.month == month && f.day == day) << GeneralDateText(date);
        ASSERT_TRUE(f.hour == 13 && f.minute == 14 && f.second == 15) << GeneralDateText(date);
        ASSERT_EQ(At(year, month, day, 13, 14, 15), date);
      }
    }
  }
}

TEST(Date, KnowsLeapYears) {
  for (int year : {2004, 2000, 400}) EXPECT_EQ(DaysInMonth(year, 2), 29) << year;
  for (int year : {2005, 1900, 2100}) EXPECT_EQ(DaysInMonth(year, 2), 28) << year;
}

TEST(Date, RefusesFieldsOutOfRange) {
  const DateFields rows[] = {
      {99, 12, 31, 0, 0, 0},   {10000, 1, 1, 0, 0, 0}, {2005, 0, 1, 0, 0, 0},
      {2005, 13, 1, 0, 0, 0},  {2005, 1, 0, 0, 0, 0},  {2005, 4, 31, 0, 0, 0},
      {2005, 2, 29, 0, 0, 0},  {2005, 1, 1, 24, 0, 0}, {2005, 1, 1, -1, 0, 0},
      {2005, 1, 1, 0, 60, 0},  {2005, 1, 1, 0, -1, 0}, {2005, 1, 1, 0, 0, 60},
      {2005, 1, 1, 0, 0, -1},  {2005, 1, -1, 0, 0, 0}, {INT_MAX, 1, 1, 0, 0, 0},
      {INT_MIN, 1, 1, 0, 0, 0}};
  for (const DateFields& f : rows) {
    EXPECT_FALSE(MakeDate(f)) << f.year << '-' << f.month << '-' << f.day << ' ' << f.hour << ':'
                              << f.minute << ':' << f.second;
  }
}

TEST(Date, FieldsOfADateBeyondTheRangeAreThoseOfItsEnds) {
  EXPECT_EQ(FieldsOf({INT64_MAX}).year, 9999);
  EXPECT_EQ(FieldsOf({INT64_MIN}).year, 100);
}

TEST(Date, AddsIntervals) {
  using enum DateInterval;
  struct {
    const char* from;
    DateInterval interval;
    std::int64_t count;
    const char* to;  // null: beyond the range
  } rows[] = {
      {"2/28/2004", Day, 1, "2/29/2004"},
      {"2/28/2100", Day, 1, "3/1/2100"},
      {"1/1/1900 6:00:00 PM", Day, -3, "12/29/1899 6:00:00 PM"},
      {"12/25/2005", Week, 1, "1/1/2006"},
      {"1/31/2005", Month, 1, "2/28/2005"},
      {"1/31/2004 7:01:01 AM", Month, 1, "2/29/2004 7:01:01 AM"},
      {"3/31/2005", Month, -1, "2/28/2005"},
      {"1/15/2005", Month, -1, "12/15/2004"},
      {"12/15/2005", Month, 13, "1/15/2007"},
      {"1/15/2005", Month, -25, "12/15/2002"},
      {"2/29/2004", Year, 1, "2/28/2005"},
      {"2/29/2004", Year, 4, "2/29/2008"},
      {"2/29/2004", Year, -104, "2/28/1900"},
      {"9/11/2005", Day, 0, "9/11/2005"},
      {"1/1/100", Year, 9899, "1/1/9999"},
      {"1/1/100", Month, 9899 * 12 + 11, "12/1/9999"},
      {"1/1/100", Day, 3'615'899, "12/31/9999"},
      {"1/1/100", Day, 3'615'900, nullptr},
      {"1/1/100", Day, -1, nullptr},
      {"1/31/100", Month, -1, nullptr},
      {"12/31/9999", Day, 1, nullptr},
      {"12/1/9999", Month, 1, nullptr},
      {"9/11/2005", Year, INT32_MAX, nullptr},
      {"9/11/2005", Week, INT64_MAX, nullptr},
      {"9/11/2005", Month, INT64_MIN, nullptr},
      {"9/11/2005", Day, INT64_MIN, nullptr},
  };
  for (const auto& row : rows) {
    const auto sum = AddInterval(ParseDateText(row.from).value(), row.interval, row.count);
    const std::string text = sum ? GeneralDateText(*sum) : "none";
    EXPECT_EQ(text, row.to ? row.to : "none") << row.from << " plus " << row.count;
  }
  EXPECT_FALSE(AddInterval({INT64_MAX}, Day, 1));
}

TEST(Date, FormatsByPattern) {
  const Date morning = At(2005, 9, 1, 7, 4, 8);      // a Thursday
  const Date evening = At(2004, 12, 31, 19, 45, 0);  // a Friday
  const Date old = At(105, 1, 4);                    // a Sunday
  struct {
    Date date;
    const char *pattern, *text;
  } rows[] = {
      {morning, "", ""},
      {morning, "d dd ddd dddd", "1 01 Thu Thursday"},
      {morning, "m mm mmm mmmm", "9 09 Sep September"},
      {morning, "D-DD-M-MM-YY-YYYY", "1-01-9-09-05-2005"},
      {evening, "yyyymmddhhmmss", "20041231194500"},
      {morning, "yyyymmddhhmmss", "20050901070408"},
      {morning, "hh:mm mm", "07:04 09"},
      {morning, "h.m", "7.4"},
      {morning, "h時mm分", "7時04分"},
      {morning, "hx mm", "7x 09"},
      {morning, "h mmm", "7 Sep"},
      {morning, "mm:ss", "04:08"},
      {morning, "mm-ss", "09-08"},
      {morning, "n nn s ss", "4 04 8 08"},
      {evening, "y w ww q", "366 6 53 4"},
      {morning, "y w ww q", "244 5 36 3"},
      {At(2005, 1, 1), "ww", "1"},
      {At(2005, 1, 2), "ww", "2"},
      {old, "yyyy yy dddd", "0105 05 Sunday"},
      {morning, "ddddd", "Thursday1"},
      {morning, "yyyyyy", "200505"},
      {morning, "\"day\" d \\d\\\"", "day 1 d\""},
      {morning, "\"day d", "day d"},
      {morning, "d\\", "1\\"},
      {morning, "\\éd", "é1"},
      {morning, "T_/.:,%", "T_/.:,%"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(FormatDate(row.date, row.pattern, EnglishDateNames()), row.text) << row.pattern;
  }
}

TEST(Date, WeekdaysRunOnBeforeTheZeroDate) {
  EXPECT_EQ(FormatDate(At(1899, 12, 30), "dddd", EnglishDateNames()), "Saturday");
  EXPECT_EQ(FormatDate(At(1899, 12, 29, 1), "dddd", EnglishDateNames()), "Friday");
  EXPECT_EQ(FormatDate(At(1600, 2, 29), "dddd", EnglishDateNames()), "Tuesday");
}

TEST(Date, SystemNamesAreCompleteText) {
  const DateNames& names = SystemDateNames();
  for (const auto& name : names.months) EXPECT_TRUE(!name.empty() && IsValidUtf8(name)) << name;
  for (const auto& name : names.daysShort) EXPECT_TRUE(!name.empty() && IsValidUtf8(name)) << name;
}

TEST(Date, WritesGeneralText) {
  EXPECT_EQ(GeneralDateText(At(2005, 9, 11, 7, 1, 1)), "9/11/2005 7:01:01 AM");
  EXPECT_EQ(GeneralDateText(At(2005, 12, 1, 0, 0, 1)), "12/1/2005 12:00:01 AM");
  EXPECT_EQ(GeneralDateText(At(2005, 12, 1, 12, 0, 0)), "12/1/2005 12:00:00 PM");
  EXPECT_EQ(GeneralDateText(At(2005, 12, 1, 23, 59, 59)), "12/1/2005 11:59:59 PM");
  EXPECT_EQ(GeneralDateText(At(2005, 12, 1)), "12/1/2005");
}

TEST(Date, GeneralTextReadsBackOverTheWholeRange) {
  // A step of a prime number of seconds, so that all fields wander.
  for (Date date = At(100, 1, 1); date < At(9999, 12, 31); date.seconds += 9'999'991) {
    ASSERT_EQ(ParseDateText(GeneralDateText(date)), date) << GeneralDateText(date);
  }
}

TEST(Date, ReadsTypedDates) {
  struct {
    const char *text, *general;  // null: no date
  } rows[] = {
      {"9/11/2005", "9/11/2005"},
      {"  09-11-2005  ", "9/11/2005"},
      {"2005-9-11", "9/11/2005"},
      {"2005/09/11 17:05", "9/11/2005 5:05:00 PM"},
      {"9/11/2005 07:01:01", "9/11/2005 7:01:01 AM"},
      {"9/11/2005   7:01 pm", "9/11/2005 7:01:00 PM"},
      {"9/11/2005 7:01:01pM", "9/11/2005 7:01:01 PM"},
      {"9/11/2005 12:00:00 AM", "9/11/2005"},
      {"9/11/2005 12:00 PM", "9/11/2005 12:00:00 PM"},
      {"1/2/0", "1/2/2000"},
      {"1/2/29", "1/2/2029"},
      {"1/2/30", "1/2/1930"},
      {"1/2/99", "1/2/1999"},
      {"1/2/100", "1/2/100"},
      {"7:01:01 AM", "12/30/1899 7:01:01 AM"},
      {"23:59", "12/30/1899 11:59:00 PM"},
      {"", nullptr},
      {"soon", nullptr},
      {"9/11", nullptr},
      {"9/11/", nullptr},
      {"/9/11/2005", nullptr},
      {"9/11-2005", nullptr},
      {"9.11.2005", nullptr},
      {"31/12/2005", nullptr},
      {"2/29/2005", nullptr},
      {"1/2/099", nullptr},
      {"1/2/10000", nullptr},
      {"200-1-2", nullptr},
      {"9/11/2005 7", nullptr},
      {"9/11/2005x", nullptr},
      {"9/11/2005 24:00", nullptr},
      {"9/11/2005 7:60", nullptr},
      {"9/11/2005 7:00:60", nullptr},
      {"9/11/2005 13:00 PM", nullptr},
      {"9/11/2005 0:30 AM", nullptr},
      {"9/11/2005 7:01:01 AM x", nullptr},
      {"9/11/2005 7:01:01:01", nullptr},
      {"9/11/99999999999999999999", nullptr},
      {"-9/11/2005", nullptr},
  };
  for (const auto& row : rows) {
    const auto date = ParseDateText(row.text);
    EXPECT_EQ(date ? GeneralDateText(*date) : "none", row.general ? row.general : "none")
        << row.text;
  }
}

}  // namespace
}  // namespace tallowbrook
