// Filters of file names: any pattern for any name. Aborts where the answer isn't that of the slow
// way, which tries everything that a star can stand for.
#include <cstdint>
#include <vector>

#include "base/letter_case.h"
#include "base/text.h"
#include "fuzzing/pieces.h"
#include "fuzzing/require.h"
#include "platform/files.h"

namespace {

using namespace tallowbrook;

// Folded.
std::vector<char32_t> Codes(std::string_view text) {
  std::vector<char32_t> codes;
  while (!text.empty()) {
    const Character first = FirstCharacter(text);
    codes.push_back(FoldCase(first.code));
    text.remove_prefix(first.length);
  }
  return codes;
}

bool SlowlyMatches(std::string_view nameText, std::string_view patternText) {
  if (patternText.ends_with('.') && !nameText.ends_with('.') &&
      nameText.find('.') != std::string_view::npos) {
    return false;
  }
  const std::vector<char32_t> name = Codes(nameText), pattern = Codes(patternText);
  // Whether the rest of the name from a place on matches that of the pattern; from the ends back.
  std::vector<std::vector<bool>> rest(name.size() + 1, std::vector<bool>(pattern.size() + 1));
  for (std::size_t n = name.size() + 1; n-- > 0;) {
    for (std::size_t p = pattern.size() + 1; p-- > 0;) {
      const bool atEnd = n == name.size();
      if (p == pattern.size()) {
        rest[n][p] = atEnd;
      } else if (pattern[p] == U'*') {
        rest[n][p] = rest[n][p + 1] || (!atEnd && rest[n + 1][p]);
      } else if (atEnd) {
        rest[n][p] = pattern[p] == U'.' && rest[n][p + 1];
      } else {
        rest[n][p] = (pattern[p] == U'?' || pattern[p] == name[n]) && rest[n + 1][p + 1];
      }
    }
  }
  return rest[0][0];
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Pieces pieces(data, size);
  const std::string_view pattern = pieces.Next().substr(0, 300);
  const std::string_view name = pieces.Rest().substr(0, 255);
  Require(MatchesPattern(name, pattern) == SlowlyMatches(name, pattern));
  Require(MatchesPattern(name, "*.*") && MatchesPattern(name, "*"));
  return 0;
}
