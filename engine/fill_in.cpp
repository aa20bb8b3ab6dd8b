#include "engine/fill_in.h"

#include "base/text.h"

namespace tallowbrook {

void FillIn(std::string& text, std::string_view keyword, std::string_view value, bool ignoreCase) {
  std::size_t first = ignoreCase ? FindIgnoringCase(text, keyword) : text.find(keyword);
  if (first == std::string::npos) return;
  std::size_t count = 0;
  for (std::string_view rest = text; first != std::string::npos; ++count) {
    rest.remove_prefix(first + keyword.size());
    first = ignoreCase ? FindIgnoringCase(rest, keyword) : rest.find(keyword);
  }
  if (text.size() + count * value.size() - count * keyword.size() > mostFilledIn &&
      value.size() > keyword.size()) {
    return;
  }
  text = ReplaceText(text, keyword, value, std::string::npos, ignoreCase);
}

}  // namespace tallowbrook
