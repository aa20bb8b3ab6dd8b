// Case mappings by binary search in tables of ranges.
//
// The C library's routines follow the process's locale; these tables don't, so that a batch gives
// the same names on every machine. ASCII never reaches the tables.
#include "base/letter_case.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>

#include "base/text.h"

namespace tallowbrook {
namespace {

// Every step-th code point from first to last maps to itself plus delta.
struct CaseRange {
  char32_t first, last;
  std::uint32_t step;
  std::int32_t delta;
};

#include "base/case_table.inc"

char32_t Map(char32_t code, std::span<const CaseRange> ranges) {
  auto behind = std::upper_bound(ranges.begin(), ranges.end(), code,
                                 [](char32_t c, const CaseRange& r) { return c < r.first; });
  if (behind == ranges.begin()) return code;
  const CaseRange& range = *std::prev(behind);
  if (code > range.last || (code - range.first) % range.step != 0) return code;
  return code + static_cast<char32_t>(range.delta);
}

constexpr bool IsAsciiUpper(char32_t code) {
  return code >= 'A' && code <= 'Z';
}
constexpr bool IsAsciiLower(char32_t code) {
  return code >= 'a' && code <= 'z';
}
constexpr char32_t asciiCaseGap = 'a' - 'A';

constexpr bool EndsWord(char32_t code) {
  return code == 0 || (code >= 9 && code <= 13) || code == 32;
}

// The mapped characters of a text; `map` is asked for each in turn.
template <typename Mapping>
std::string MapText(std::string_view text, Mapping map) {
  if (IsAscii(text)) {
    std::string result(text);
    for (char& c : result) c = static_cast<char>(map(static_cast<char32_t>(c)));
    return result;
  }
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    Character c = FirstCharacter(text);
    AppendCharacter(result, map(c.code));
    text.remove_prefix(c.length);
  }
  return result;
}

char32_t TakeFolded(std::string_view& text) {
  Character c = FirstCharacter(text);
  text.remove_prefix(c.length);
  return FoldCase(c.code);
}

}  // namespace

char32_t ToUpper(char32_t code) {
  if (code < 0x80) return IsAsciiLower(code) ? code - asciiCaseGap : code;
  return Map(code, upperRanges);
}

char32_t ToLower(char32_t code) {
  if (code < 0x80) return IsAsciiUpper(code) ? code + asciiCaseGap : code;
  return Map(code, lowerRanges);
}

char32_t FoldCase(char32_t code) {
  if (code < 0x80) return IsAsciiUpper(code) ? code + asciiCaseGap : code;
  return Map(code, foldRanges);
}

std::string ToUpper(std::string_view text) {
  return MapText(text, [](char32_t code) { return ToUpper(code); });
}

std::string ToLower(std::string_view text) {
  return MapText(text, [](char32_t code) { return ToLower(code); });
}

std::string ToProper(std::string_view text) {
  bool atStart = true;
  return MapText(text, [&atStart](char32_t code) {
    char32_t mapped = atStart ? ToUpper(ToLower(code)) : ToLower(code);
    atStart = EndsWord(code);
    return mapped;
  });
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return CompareIgnoringCase(a, b) == 0;
}

std::weak_ordering CompareIgnoringCase(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    char32_t fromA = TakeFolded(a);
    char32_t fromB = TakeFolded(b);
    if (fromA != fromB) return fromA <=> fromB;
  }
  return b.empty() <=> a.empty();
}

}  // namespace tallowbrook
