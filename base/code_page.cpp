#include "base/code_page.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"

namespace tallowbrook {
namespace {

// The characters of 0x80 to 0x9F; all other bytes are the code points of the same number.
constexpr unsigned firstSpecial = 0x80;
constexpr char32_t specials[] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned behindSpecials = firstSpecial + std::size(specials);

char ByteOf(char32_t code) {
  const bool isSame = code < firstSpecial || (code >= behindSpecials && code <= 0xFF);
  if (isSame) return static_cast<char>(code);
  const auto* found = std::find(std::begin(specials), std::end(specials), code);
  if (found == std::end(specials)) return '?';
  return static_cast<char>(firstSpecial + static_cast<unsigned>(found - std::begin(specials)));
}

}  // namespace

std::string FromCodePage(std::string_view bytes) {
  if (IsAscii(bytes)) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool isSpecial = byte >= firstSpecial && byte < behindSpecials;
    AppendCharacter(text, isSpecial ? specials[byte - firstSpecial] : byte);
  }
  return text;
}

std::string ToCodePage(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    bytes += ByteOf(character.code);
    text.remove_prefix(character.length);
  }
  return bytes;
}

}  // namespace tallowbrook
