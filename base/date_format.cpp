// Dates as text: by a pattern, and in the general form.
//
// A pattern is read in one pass. A run of one letter is cut into the longest tokens that the
// letter knows; each token appends one field. Lists sort by formatted dates, so nothing is
// allocated but the result.
#include <algorithm>
#include <utility>

#include "base/date.h"

namespace tallowbrook {
namespace {

constexpr char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr bool IsAsciiLetter(char c) {
  return LowerAscii(c) >= 'a' && LowerAscii(c) <= 'z';
}

void AppendNumber(std::string& text, int value, std::size_t width) {
  const std::string digits = std::to_string(value);
  if (digits.size() < width) text.append(width - digits.size(), '0');
  text += digits;
}

// From 0 for Sunday.
int WeekdayOf(Date date) {
  constexpr std::int64_t secondsPerWeek = 7 * 86400;
  constexpr std::int64_t fromSunday = 6 * 86400;  // day 0 is a Saturday
  const std::int64_t inWeek = date.seconds % secondsPerWeek + secondsPerWeek + fromSunday;
  return static_cast<int>(inWeek % secondsPerWeek / 86400);
}

// From 0 for 1 January.
int DayOfYear(const DateFields& fields) {
  int days = fields.day - 1;
  for (int month = 1; month < fields.month; ++month) days += DaysInMonth(fields.year, month);
  return days;
}

// Week 1 holds 1 January; weeks begin on Sunday.
int WeekOfYear(const DateFields& fields, int weekday) {
  const int dayOfYear = DayOfYear(fields);
  const int weekdayOfFirst = (weekday - dayOfYear % 7 + 7) % 7;
  return (dayOfYear + weekdayOfFirst) / 7 + 1;
}

// The length of the longest token at the start of a run of `run` equal letters; 0 for a letter
// that stands for itself.
std::size_t TokenLength(char letter, std::size_t run) {
  switch (letter) {
    case 'd':
    case 'm':
      return std::min<std::size_t>(run, 4);
    case 'y':
      return run >= 4 ? 4 : std::min<std::size_t>(run, 2);
    case 'h':
    case 'n':
    case 's':
    case 'w':
      return std::min<std::size_t>(run, 2);
    case 'q':
      return 1;
    default:
      return 0;
  }
}

class Formatter {
 public:
  Formatter(Date date, std::string_view pattern, const DateNames& names)
      : pattern_(pattern), names_(names), fields_(FieldsOf(date)), weekday_(WeekdayOf(date)) {}

  std::string Run() {
    while (at_ < pattern_.size()) {
      const char letter = LowerAscii(pattern_[at_]);
      const std::size_t length = TokenLength(letter, RunLength());
      if (length == 0) {
        TakeLiteral();
        continue;
      }
      at_ += length;
      AppendField(letter, length);
      behindHours_ = letter == 'h';
    }
    return std::move(result_);
  }

 private:
  std::size_t RunLength() const {
    const char letter = LowerAscii(pattern_[at_]);
    std::size_t end = at_;
    while (end < pattern_.size() && LowerAscii(pattern_[end]) == letter) ++end;
    return end - at_;
  }

  void TakeLiteral() {
    const char c = pattern_[at_++];
    if (c == '"') {
      const std::size_t end = std::min(pattern_.find('"', at_), pattern_.size());
      result_.append(pattern_, at_, end - at_);
      at_ = std::min(end + 1, pattern_.size());
    } else if (c == '\\' && at_ < pattern_.size()) {
      result_ += pattern_[at_++];
    } else {
      result_ += c;
      if (IsAsciiLetter(c)) behindHours_ = false;
    }
  }

  // Whether seconds follow, at once or behind a colon.
  bool BeforeSeconds() const {
    const std::string_view rest = pattern_.substr(at_);
    const std::size_t next = rest.find_first_not_of(':');
    return next != std::string_view::npos && LowerAscii(rest[next]) == 's';
  }

  void AppendField(char letter, std::size_t length) {
    switch (letter) {
      case 'd':
        return AppendDay(length);
      case 'm':
        return AppendMonthOrMinute(length);
      case 'y':
        return AppendYear(length);
      case 'h':
        return AppendNumber(result_, fields_.hour, length);
      case 'n':
        return AppendNumber(result_, fields_.minute, length);
      case 's':
        return AppendNumber(result_, fields_.second, length);
      case 'w':
        return AppendNumber(result_, length == 1 ? weekday_ + 1 : WeekOfYear(fields_, weekday_), 1);
      default:
        return AppendNumber(result_, (fields_.month + 2) / 3, 1);
    }
  }

  void AppendDay(std::size_t length) {
    const auto weekday = static_cast<std::size_t>(weekday_);
    if (length <= 2) return AppendNumber(result_, fields_.day, length);
    result_ += length == 3 ? names_.daysShort[weekday] : names_.days[weekday];
  }

  void AppendMonthOrMinute(std::size_t length) {
    const auto month = static_cast<std::size_t>(fields_.month - 1);
    if (length > 2) {
      result_ += length == 3 ? names_.monthsShort[month] : names_.months[month];
    } else {
      const bool minutes = behindHours_ || BeforeSeconds();
      AppendNumber(result_, minutes ? fields_.minute : fields_.month, length);
    }
  }

  void AppendYear(std::size_t length) {
    if (length == 1) return AppendNumber(result_, DayOfYear(fields_) + 1, 1);
    AppendNumber(result_, length == 2 ? fields_.year % 100 : fields_.year, length);
  }

  std::string_view pattern_;
  const DateNames& names_;
  DateFields fields_;
  int weekday_;
  std::size_t at_ = 0;
  bool behindHours_ = false;  // only what is no letter has come since an h
  std::string result_;
};

}  // namespace

std::string FormatDate(Date date, std::string_view pattern, const DateNames& names) {
  return Formatter(date, pattern, names).Run();
}

std::string GeneralDateText(Date date) {
  const DateFields f = FieldsOf(date);
  std::string text = std::to_string(f.month) + '/' + std::to_string(f.day) + '/';
  text += std::to_string(f.year);
  if (f.hour == 0 && f.minute == 0 && f.second == 0) return text;
  text += ' ' + std::to_string((f.hour + 11) % 12 + 1) + ':';
  AppendNumber(text, f.minute, 2);
  text += ':';
  AppendNumber(text, f.second, 2);
  return text + (f.hour < 12 ? " AM" : " PM");
}

}  // namespace tallowbrook
