// Reading general date text: month/day/year or year/month/day, a time, or both.
//
// A cursor takes one piece after the other and gives up at the first that doesn't fit; the fields
// are checked together at the end.
#include "base/date.h"
#include "base/letter_case.h"
#include "base/text.h"

namespace tallowbrook {
namespace {

struct WrittenNumber {
  int value;
  std::size_t digits;
};

class Cursor {
 public:
  explicit Cursor(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }

  // From one to `most` digits; nothing if there are more.
  std::optional<WrittenNumber> TakeNumber(std::size_t most) {
    WrittenNumber number{0, 0};
    for (; !rest_.empty() && rest_[0] >= '0' && rest_[0] <= '9'; rest_.remove_prefix(1)) {
      if (++number.digits > most) return std::nullopt;
      number.value = number.value * 10 + (rest_[0] - '0');
    }
    if (number.digits == 0) return std::nullopt;
    return number;
  }

  bool Take(char c) {
    if (rest_.empty() || rest_[0] != c) return false;
    rest_.remove_prefix(1);
    return true;
  }

  bool TakeIgnoringCase(std::string_view word) {
    if (!EqualIgnoringCase(rest_.substr(0, word.size()), word)) return false;
    rest_.remove_prefix(word.size());
    return true;
  }

  // True if there was at least one.
  bool TakeBlanks() {
    const std::size_t before = rest_.size();
    while (Take(' ')) {
    }
    return rest_.size() != before;
  }

 private:
  std::string_view rest_;
};

int YearOf(const WrittenNumber& number) {
  if (number.digits > 2) return number.value;
  return number.value + (number.value <= 29 ? 2000 : 1900);
}

// Behind the first number of a date, whose separator decides the other one.
bool ReadDate(Cursor& cursor, const WrittenNumber& first, char separator, DateFields& fields) {
  const bool yearFirst = first.digits == 4;
  if (first.digits == 3) return false;
  const auto second = cursor.TakeNumber(2);
  if (!second || !cursor.Take(separator)) return false;
  const auto third = cursor.TakeNumber(yearFirst ? 2 : 4);
  if (!third) return false;
  fields.year = YearOf(yearFirst ? first : *third);
  fields.month = (yearFirst ? *second : first).value;
  fields.day = (yearFirst ? *third : *second).value;
  return true;
}

// Turns an hour of the 12-hour clock; false if there is no such hour.
bool ReadHalfOfDay(Cursor& cursor, DateFields& fields) {
  const bool morning = cursor.TakeIgnoringCase("AM");
  if (!morning && !cursor.TakeIgnoringCase("PM")) return cursor.AtEnd();
  if (fields.hour < 1 || fields.hour > 12) return false;
  fields.hour = fields.hour % 12 + (morning ? 0 : 12);
  return cursor.AtEnd();
}

// Behind the hour and its colon.
bool ReadTime(Cursor& cursor, const WrittenNumber& hour, DateFields& fields) {
  const auto minute = cursor.TakeNumber(2);
  if (!minute || hour.digits > 2) return false;
  fields.hour = hour.value;
  fields.minute = minute->value;
  if (cursor.Take(':')) {
    const auto second = cursor.TakeNumber(2);
    if (!second) return false;
    fields.second = second->value;
  }
  cursor.TakeBlanks();
  return ReadHalfOfDay(cursor, fields);
}

bool ReadDateAndTime(Cursor& cursor, DateFields& fields) {
  auto number = cursor.TakeNumber(4);
  if (!number) return false;
  if (cursor.Take(':')) return ReadTime(cursor, *number, fields);
  const char separator = cursor.Take('/') ? '/' : '-';
  if (separator == '-' && !cursor.Take('-')) return false;
  if (!ReadDate(cursor, *number, separator, fields)) return false;
  if (cursor.AtEnd()) return true;
  if (!cursor.TakeBlanks()) return false;
  number = cursor.TakeNumber(2);
  return number && cursor.Take(':') && ReadTime(cursor, *number, fields);
}

}  // namespace

std::optional<Date> ParseDateText(std::string_view text) {
  Cursor cursor(TrimBlanks(text));
  DateFields fields;  // the zero date, which a time alone stands on
  if (!ReadDateAndTime(cursor, fields)) return std::nullopt;
  return MakeDate(fields);
}

}  // namespace tallowbrook
