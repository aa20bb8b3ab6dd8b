// The names of months and weekdays, in English and in the language of the environment.
#include <ctime>
#include <exception>
#include <iterator>
#include <locale>
#include <sstream>

#include "base/date.h"
#include "base/text.h"

namespace tallowbrook {
namespace {

// One name, as strftime's conversion `format` gives it.
std::string NameOf(const std::locale& locale, const std::tm& time, char format) {
  std::ostringstream stream;
  stream.imbue(locale);
  const auto& writer = std::use_facet<std::time_put<char>>(locale);
  writer.put(std::ostreambuf_iterator<char>(stream), stream, ' ', &time, format);
  return stream.str();
}

template <typename Names>
bool AreUsable(const Names& names) {
  for (const std::string& name : names) {
    if (name.empty() || !IsValidUtf8(name)) return false;
  }
  return true;
}

DateNames NamesOf(const std::locale& locale) {
  DateNames names;
  std::tm time{};
  time.tm_mday = 1;
  for (std::size_t i = 0; i < names.months.size(); ++i) {
    time.tm_mon = static_cast<int>(i);
    names.months[i] = NameOf(locale, time, 'B');
    names.monthsShort[i] = NameOf(locale, time, 'b');
  }
  for (std::size_t i = 0; i < names.days.size(); ++i) {
    time.tm_wday = static_cast<int>(i);
    names.days[i] = NameOf(locale, time, 'A');
    names.daysShort[i] = NameOf(locale, time, 'a');
  }
  return names;
}

DateNames LoadSystemNames() {
  try {
    DateNames names = NamesOf(std::locale(""));
    if (AreUsable(names.months) && AreUsable(names.monthsShort) && AreUsable(names.days) &&
        AreUsable(names.daysShort)) {
      return names;
    }
  } catch (const std::exception&) {
    // The environment names a locale that isn't installed.
  }
  return EnglishDateNames();
}

}  // namespace

const DateNames& EnglishDateNames() {
  static const DateNames names{
      {"January", "February", "March", "April", "May", "June", "July", "August", "September",
       "October", "November", "December"},
      {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
      {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
      {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"}};
  return names;
}

const DateNames& SystemDateNames() {
  static const DateNames names = LoadSystemNames();
  return names;
}

}  // namespace tallowbrook
