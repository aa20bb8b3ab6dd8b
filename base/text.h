// Text by characters.
//
// Text is UTF-8 in std::string, and may be a file name of any bytes. A character is one code
// point; a byte that belongs to no valid UTF-8 sequence is a character of its own, so that every
// text can be cut and put together again without a byte changing. Plain ASCII takes a fast path.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallowbrook {

struct Character {
  // The code point; for a stray byte 0xDC00 plus the byte, a value that valid UTF-8 never holds.
  char32_t code;
  unsigned length;  // in bytes, 1 to 4
};

// The character at the start of `text`, which must not be empty.
Character FirstCharacter(std::string_view text);
// The inverse: a stray byte's code appends that byte.
void AppendCharacter(std::string& text, char32_t code);

bool IsAscii(std::string_view text);
bool IsValidUtf8(std::string_view text);

std::size_t CountCharacters(std::string_view text);
// The first or last n characters, all of the text if it has no more. Nothing if n is negative:
// the step that asked fails.
std::optional<std::string_view> LeftCharacters(std::string_view text, std::ptrdiff_t n);
std::optional<std::string_view> RightCharacters(std::string_view text, std::ptrdiff_t n);

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
// Whether a typed character is one of "0" to "9", or of "A" to "Z" and "a" to "z".
bool IsDigitKey(std::string_view character);
bool IsLetterKey(std::string_view character);

// Without the blanks (byte 32 only) at both ends.
std::string_view TrimBlanks(std::string_view text);

// Behind the last dot; empty without one.
std::string_view ExtensionOf(std::string_view name);
// Before the last dot; the whole name without one.
std::string_view BaseNameOf(std::string_view name);

// Where an ASCII text stands first, its letters in whatever case; npos if nowhere.
std::size_t FindIgnoringCase(std::string_view text, std::string_view ascii);

// Replaces up to `limit` occurrences from the left; what was put in is not searched again. An
// empty `find` finds nothing. Matches begin and end between characters.
std::string ReplaceText(std::string_view text, std::string_view find, std::string_view replacement,
                        std::size_t limit, bool ignoreCase);

// At "separator"; n separators give n + 1 pieces, an empty text one empty piece.
std::vector<std::string_view> Split(std::string_view text, char separator);

}  // namespace tallowbrook
