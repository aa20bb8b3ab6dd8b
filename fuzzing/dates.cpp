// Dates: any text as one, any pattern for one, any count of intervals behind one, and date
// commands.
//
// Aborts if a date's fields or its text don't lead back to it, if a formatted date is longer than
// its pattern can make it, or if dates don't follow each other as the calendar has them.
#include <cstdint>

#include "engine/file_dates.h"
#include "fuzzing/pieces.h"
#include "fuzzing/require.h"
#include "fuzzing/whole_program.h"

namespace {

using namespace tallowbrook;

void RequireWhole(Date date) {
  Require(MakeDate(FieldsOf(date)) == date &&
          UniversalDate(date.seconds - secondsToPosixEpoch) == date);
  Require(ParseDateText(GeneralDateText(date)) == date);
  Require(ParseDateText(FormatDate(date, "yyyy/m/d h:nn:ss", EnglishDateNames())) == date);
  Require(StartOfDay(date) <= date && DayOf(StartOfDay(date)) == DayOf(date));
}

void RequireFormat(Date date, const std::string& pattern) {
  const std::string text = FormatDate(date, pattern, EnglishDateNames());
  Require(text.size() <= 3 * pattern.size());
  if (pattern.find('"') != std::string::npos) return;
  Require(FormatDate(date, '"' + pattern + '"', EnglishDateNames()) == pattern);
}

void RequireIntervals(Date date, std::int64_t count) {
  for (const DateInterval interval :
       {DateInterval::Day, DateInterval::Week, DateInterval::Month, DateInterval::Year}) {
    const std::optional<Date> there = AddInterval(date, interval, count);
    if (!there) continue;
    RequireWhole(*there);
    Require((*there <=> date) == (count <=> 0));
    const std::optional<Date> back = AddInterval(*there, interval, -count);
    const auto days = back ? DayOf(date) - DayOf(*back) : 0;
    // A month's last days may be none of another month's.
    Require(days >= 0 && days <= (interval < DateInterval::Month ? 0 : 3));
  }
}

// Takes the time that it is given, as a disk does, and gives back another.
struct OneTime : NoFiles {
  FileTimes before;
  std::optional<FileTimes> SetTime(const std::string&, std::optional<FileTime>,
                                   std::int64_t posix) override {
    Require(posix >= firstPosixSecond && posix <= lastPosixSecond);
    return before;
  }
};

}  // namespace

// A text, a pattern, two numbers as their bytes, and a command.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Pieces pieces(data, size);
  const std::optional<Date> read = ParseDateText(pieces.Next());
  const std::string pattern(pieces.Next());
  std::int64_t numbers[2] = {};
  for (std::int64_t& number : numbers) {
    pieces.Next().copy(reinterpret_cast<char*>(&number), sizeof number);
  }
  for (const Date date : {read.value_or(Date{}), UniversalDate(numbers[0])}) {
    RequireWhole(date);
    RequireFormat(date, pattern);
    RequireIntervals(date, numbers[1] == INT64_MIN ? 0 : numbers[1]);
  }
  OneTime disk;
  disk.before = {numbers[0], numbers[1], numbers[0]};
  WholeProgram::StoppedClock clock;
  FileDateCommands commands(disk, clock);
  const std::string former = commands.ProcessAttributes("/f", std::string(pieces.Rest()));
  // What is given back is a command that gives itself back.
  if (!former.starts_with("<Date")) return 0;
  const auto text = GetKeywordArgument(former.substr(0, former.find(',') + 1), former, 1);
  Require(text && ParseDateText(*text));
  Require(commands.ProcessAttributes("/f", former) == former);
  return 0;
}
