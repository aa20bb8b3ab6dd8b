// Upper, lower and proper case by Unicode's simple mappings, whatever the locale.
//
// One code point maps to one code point, so that lengths in characters stay. Stray bytes map to
// themselves.
#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace tallowbrook {

char32_t ToUpper(char32_t code);
char32_t ToLower(char32_t code);
// For comparisons that ignore case: Unicode's simple case folding.
char32_t FoldCase(char32_t code);

std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);
// "the-BIG one" becomes "The-big One": only blank, tab, the line and page breaks and NUL part
// words, so that a hyphen, a dot or an underscore begins none.
std::string ToProper(std::string_view text);

bool EqualIgnoringCase(std::string_view a, std::string_view b);
// By folded code points; texts that are alike but for case are equal here.
std::weak_ordering CompareIgnoringCase(std::string_view a, std::string_view b);

}  // namespace tallowbrook
