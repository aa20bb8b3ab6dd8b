#include "engine/mask_highlighting.h"

#include <algorithm>

#include "base/text.h"

namespace tallowbrook {

namespace {

// The keywords hold nothing but ASCII.
std::string LowerAscii(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

// In bytes; empty if the keyword isn't there.
std::string_view FindKeyword(std::string_view lowerMask, std::string_view keyword) {
  const std::size_t comma = keyword.find(',');
  const bool isFunction = comma != std::string_view::npos;
  const std::string name = LowerAscii(isFunction ? keyword.substr(0, comma + 1) : keyword);
  const std::size_t start = lowerMask.find(name);
  if (start == std::string_view::npos) return {};
  if (!isFunction) return lowerMask.substr(start, name.size());
  const std::size_t bracket = lowerMask.find('>', start);
  if (bracket == std::string_view::npos) return {};
  return lowerMask.substr(start, bracket - start + 1);
}

}  // namespace

std::vector<ColourSpan> FindKeywords(std::string_view mask, std::span<const Keyword> table) {
  const std::string lower = LowerAscii(mask);
  std::vector<ColourSpan> spans;
  for (const Keyword& row : table) {
    const std::string_view found = FindKeyword(lower, row.keyword);
    if (found.empty()) continue;
    const auto start = static_cast<std::size_t>(found.data() - lower.data());
    const ColourSpan span{CountCharacters(std::string_view(lower).substr(0, start)),
                          CountCharacters(found)};
    if (std::ranges::find(spans, span) == spans.end()) spans.push_back(span);
  }
  return spans;
}

void SyntaxHighlighting(MaskText& field, std::span<const Keyword> table, std::size_t& caret) {
  caret = field.SelStart();
  if (field.SelLength() > 0) return;
  field.SetKeywords(FindKeywords(field.Value(), table));
}

}  // namespace tallowbrook
