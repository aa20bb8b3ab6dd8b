// Putting a value in for a keyword of a mask.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallowbrook {

// Replaces each occurrence of the keyword. What is put in can bring keywords along, and a few such
// texts would multiply each other without end: a step that would make the text longer than any
// file name has use for is left out.
void FillIn(std::string& text, std::string_view keyword, std::string_view value, bool ignoreCase);

inline constexpr std::size_t mostFilledIn = 64 << 10;  // bytes

// Fills in a mask that is plain text and known keywords alone, in one pass: what replacing one
// keyword after the other gives, at a fraction of the time. `find` gives a pointer to what is known
// of a keyword, null for none; `valueOf` makes the value of that. Nothing where the order may
// matter: where a "<" begins no keyword or comes in with a value, or the text grows too long.
template <class Find, class ValueOf>
std::optional<std::string> FillInAtOnce(std::string_view mask, Find find, ValueOf valueOf) {
  using Known = decltype(find(mask));
  std::vector<std::pair<std::string_view, Known>> pieces;  // text, and the keyword behind it
  for (std::size_t at = 0; at < mask.size();) {
    const std::size_t start = std::min(mask.find('<', at), mask.size());
    const std::size_t end = std::min(mask.find('>', start), mask.size() - 1) + 1;
    Known known = start < mask.size() ? find(mask.substr(start, end - start)) : nullptr;
    if (start < mask.size() && known == nullptr) return std::nullopt;
    pieces.emplace_back(mask.substr(at, start - at), known);
    at = std::max(start, end);
  }
  std::string filled;
  for (const auto& [text, known] : pieces) {
    filled.append(text);
    if (known == nullptr) continue;
    const std::string value = valueOf(*known);
    if (value.find('<') != std::string::npos) return std::nullopt;
    filled.append(value);
    if (filled.size() > mostFilledIn) return std::nullopt;
  }
  return filled;
}

}  // namespace tallowbrook
