#include "engine/mask_highlighting.h"

#include <algorithm>

#include "base/text.h"

namespace tallowbrook {

namespace {

// Part of the mask; empty if the keyword isn't there. A function is found by its beginning and goes
// up to the next ">".
std::string_view FindKeyword(std::string_view mask, std::string_view keyword) {
  const std::size_t comma = keyword.find(',');
  const bool isFunction = comma != std::string_view::npos;
  if (isFunction) keyword = keyword.substr(0, comma + 1);
  const std::size_t start = FindIgnoringCase(mask, keyword);
  if (start == std::string_view::npos) return {};
  if (!isFunction) return mask.substr(start, keyword.size());
  const std::size_t bracket = mask.find('>', start);
  if (bracket == std::string_view::npos) return {};
  return mask.substr(start, bracket - start + 1);
}

}  // namespace

std::vector<ColourSpan> FindKeywords(std::string_view mask, std::span<const Keyword> table) {
  std::vector<ColourSpan> spans;
  for (const Keyword& row : table) {
    const std::string_view found = FindKeyword(mask, row.keyword);
    if (found.empty()) continue;
    const auto start = static_cast<std::size_t>(found.data() - mask.data());
    const ColourSpan span{CountCharacters(mask.substr(0, start)), CountCharacters(found)};
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
