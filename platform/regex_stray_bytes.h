// Texts that aren't valid UTF-8, for a matcher that takes valid UTF-8 only: each stray byte is
// written as one private code point, its stand-in, so that it is one character there too.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tallowbrook {

// True for a text with one of the code points that stand for bytes, U+10FF80 to U+10FFFF.
bool HoldsStandIns(std::string_view text);
// Valid UTF-8. Nothing if the text holds stand-ins already: the way back would be lost.
std::optional<std::string> WithStandIns(std::string_view text);
// The inverse.
std::string WithoutStandIns(std::string_view text);

}  // namespace tallowbrook
