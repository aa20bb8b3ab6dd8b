// Decoding and cutting of text by characters.
//
// UTF-8 is read strictly: an overlong form, a surrogate, a value beyond U+10FFFF or a sequence cut
// short is no character but a run of stray bytes. A name that another system wrote badly thus
// passes through every operation with its bytes intact.
#include "base/text.h"

#include <algorithm>
#include <cstring>

#include "base/letter_case.h"

namespace tallowbrook {
namespace {

constexpr char32_t strayBase = 0xDC00;
constexpr char32_t replacementCharacter = 0xFFFD;

constexpr bool IsStrayCode(char32_t code) {
  return code >= strayBase + 0x80 && code <= strayBase + 0xFF;
}

constexpr bool IsScalar(char32_t code) {
  return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

// What a lead byte announces; length 0 if it leads nothing.
struct Lead {
  unsigned length;
  char32_t bits;
  char32_t least;  // a smaller value would have fitted a shorter form
};

constexpr Lead LeadOf(unsigned char byte) {
  if (byte < 0xC2) return {0, 0, 0};
  if (byte < 0xE0) return {2, byte & 0x1Fu, 0x80};
  if (byte < 0xF0) return {3, byte & 0x0Fu, 0x800};
  if (byte < 0xF5) return {4, byte & 0x07u, 0x10000};
  return {0, 0, 0};
}

Character FirstBeyondAscii(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  const Character stray{strayBase + first, 1};
  const Lead lead = LeadOf(first);
  if (lead.length == 0 || text.size() < lead.length) return stray;
  char32_t code = lead.bits;
  for (unsigned i = 1; i < lead.length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0) != 0x80) return stray;
    code = code << 6 | (byte & 0x3Fu);
  }
  if (code < lead.least || !IsScalar(code)) return stray;
  return {code, lead.length};
}

// The length in bytes of the first n characters, at most all.
std::size_t BytesOf(std::string_view text, std::size_t n) {
  std::size_t at = 0;
  for (; n > 0 && at < text.size(); --n) at += FirstCharacter(text.substr(at)).length;
  return at;
}

std::string ReplaceBytes(std::string_view text, std::string_view searched, std::string_view find,
                         std::string_view replacement, std::size_t limit) {
  std::string result;
  std::size_t done = 0;
  for (; limit > 0; --limit) {
    std::size_t match = searched.find(find, done);
    if (match == std::string_view::npos) break;
    result.append(text, done, match - done).append(replacement);
    done = match + find.size();
  }
  return result.append(text, done);
}

// Characters to compare, and where each begins in the text; one offset more than characters.
struct Decoded {
  std::u32string codes;
  std::vector<std::size_t> offsets;
};

Decoded Decode(std::string_view text, bool ignoreCase) {
  Decoded result;
  for (std::size_t at = 0; at < text.size();) {
    Character c = FirstCharacter(text.substr(at));
    result.codes.push_back(ignoreCase ? FoldCase(c.code) : c.code);
    result.offsets.push_back(at);
    at += c.length;
  }
  result.offsets.push_back(text.size());
  return result;
}

std::string ReplaceCharacters(std::string_view text, std::string_view find,
                              std::string_view replacement, std::size_t limit, bool ignoreCase) {
  const Decoded in = Decode(text, ignoreCase);
  const std::u32string sought = Decode(find, ignoreCase).codes;
  std::string result;
  std::size_t done = 0;
  for (; limit > 0; --limit) {
    std::size_t match = in.codes.find(sought, done);
    if (match == std::u32string::npos) break;
    std::size_t from = in.offsets[done];
    result.append(text, from, in.offsets[match] - from).append(replacement);
    done = match + sought.size();
  }
  return result.append(text, in.offsets[done]);
}

std::size_t LastDot(std::string_view name) {
  return name.rfind('.');
}

}  // namespace

Character FirstCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  if (first < 0x80) return {first, 1};
  return FirstBeyondAscii(text);
}

void AppendCharacter(std::string& text, char32_t code) {
  const auto tail = [](char32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
  if (code < 0x80 || IsStrayCode(code)) {
    text += static_cast<char>(code & 0xFF);
  } else if (!IsScalar(code)) {
    AppendCharacter(text, replacementCharacter);
  } else if (code < 0x800) {
    text += {static_cast<char>(0xC0 | code >> 6), tail(code)};
  } else if (code < 0x10000) {
    text += {static_cast<char>(0xE0 | code >> 12), tail(code >> 6), tail(code)};
  } else {
    text += {static_cast<char>(0xF0 | code >> 18), tail(code >> 12), tail(code >> 6), tail(code)};
  }
}

bool IsAscii(std::string_view text) {
  constexpr std::uint64_t highBits = 0x8080808080808080;
  std::size_t at = 0;
  for (; at + 8 <= text.size(); at += 8) {
    std::uint64_t word;
    std::memcpy(&word, text.data() + at, 8);
    if (word & highBits) return false;
  }
  return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool IsValidUtf8(std::string_view text) {
  if (IsAscii(text)) return true;
  while (!text.empty()) {
    Character c = FirstCharacter(text);
    if (IsStrayCode(c.code)) return false;
    text.remove_prefix(c.length);
  }
  return true;
}

std::size_t CountCharacters(std::string_view text) {
  if (IsAscii(text)) return text.size();
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(FirstCharacter(text).length);
  return count;
}

std::optional<std::string_view> LeftCharacters(std::string_view text, std::ptrdiff_t n) {
  if (n < 0) return std::nullopt;
  return text.substr(0, BytesOf(text, static_cast<std::size_t>(n)));
}

std::optional<std::string_view> RightCharacters(std::string_view text, std::ptrdiff_t n) {
  if (n < 0) return std::nullopt;
  const auto wanted = static_cast<std::size_t>(n);
  const std::size_t count = CountCharacters(text);
  if (wanted >= count) return text;
  return text.substr(BytesOf(text, count - wanted));
}

bool IsDigitKey(std::string_view character) {
  return character.size() == 1 && IsDigit(character[0]);
}

bool IsLetterKey(std::string_view character) {
  if (character.size() != 1) return false;
  const char lower = static_cast<char>(character[0] | 0x20);
  return lower >= 'a' && lower <= 'z';
}

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view ExtensionOf(std::string_view name) {
  const std::size_t dot = LastDot(name);
  return dot == std::string_view::npos ? std::string_view{} : name.substr(dot + 1);
}

std::string_view BaseNameOf(std::string_view name) {
  return name.substr(0, LastDot(name));
}

std::size_t FindIgnoringCase(std::string_view text, std::string_view ascii) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; };
  // Keywords begin with "<", which most names don't hold.
  const bool hasCase = !ascii.empty() && IsLetterKey(ascii.substr(0, 1));
  if (!hasCase && text.find(ascii.substr(0, 1)) == std::string_view::npos) {
    return std::string_view::npos;
  }
  const auto found = std::search(text.begin(), text.end(), ascii.begin(), ascii.end(),
                                 [&](char a, char b) { return lower(a) == lower(b); });
  return found == text.end() ? std::string_view::npos
                             : static_cast<std::size_t>(found - text.begin());
}

std::string ReplaceText(std::string_view text, std::string_view find, std::string_view replacement,
                        std::size_t limit, bool ignoreCase) {
  if (find.empty() || limit == 0) return std::string(text);
  // In valid UTF-8 equal bytes are equal characters; case can be ignored by bytes in ASCII only.
  if (ignoreCase ? IsAscii(text) && IsAscii(find) : IsValidUtf8(text) && IsValidUtf8(find)) {
    if (!ignoreCase) return ReplaceBytes(text, text, find, replacement, limit);
    return ReplaceBytes(text, ToLower(text), ToLower(find), replacement, limit);
  }
  return ReplaceCharacters(text, find, replacement, limit, ignoreCase);
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  for (;;) {
    const std::size_t end = text.find(separator);
    pieces.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + 1);
  }
}

}  // namespace tallowbrook
