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

// A mask that is plain text and known keywords alone, in pieces. It is filled in at one pass: what
// replacing one keyword after the other gives, at a fraction of the time. `Known` is what is known
// of a keyword.
template <class Known>
class PlainMask {
 public:
  // Takes the mask apart, unless it is the one that was taken apart last: a run asks with one mask
  // for all files. `find` gives a pointer to what is known of a keyword, null for none; `valueOf`
  // makes the value of that. Nothing where the order of keywords may matter: where a "<" begins no
  // keyword or comes in with a value, or the text grows too long.
  template <class Find, class ValueOf>
  std::optional<std::string> FillInAtOnce(std::string_view mask, Find find, ValueOf valueOf) {
    if (mask_ != mask) TakeApart(mask, find);
    if (!isPlain_) return std::nullopt;
    std::string filled;
    for (const auto& [text, known] : pieces_) {
      filled.append(text);
      if (known == nullptr) continue;
      const std::string value = valueOf(*known);
      if (value.find('<') != std::string::npos) return std::nullopt;
      filled.append(value);
      if (filled.size() > mostFilledIn) return std::nullopt;
    }
    return filled;
  }

 private:
  template <class Find>
  void TakeApart(std::string_view mask, Find find) {
    mask_.reset();
    isPlain_ = true;
    pieces_.clear();
    for (std::size_t at = 0; at < mask.size() && isPlain_;) {
      const std::size_t start = std::min(mask.find('<', at), mask.size());
      const std::size_t end = std::min(mask.find('>', start), mask.size() - 1) + 1;
      const Known* known = start < mask.size() ? find(mask.substr(start, end - start)) : nullptr;
      isPlain_ = start == mask.size() || known != nullptr;
      pieces_.emplace_back(mask.substr(at, start - at), known);
      at = std::max(start, end);
    }
    mask_ = mask;
  }

  std::optional<std::string> mask_;
  bool isPlain_ = false;
  std::vector<std::pair<std::string, const Known*>> pieces_;  // text, and the keyword behind it
};

}  // namespace tallowbrook
