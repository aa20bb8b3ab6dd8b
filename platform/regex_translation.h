// Patterns of the ECMAScript grammar, written in the language of PCRE2.
//
// PCRE2 reads a larger language, and gives other meanings to some of what both know. So nothing
// of a pattern is handed on as it stands: each term is read by the rules of ECMAScript (those of
// the web, without the flag for Unicode) and written in a form that PCRE2 can read in one way
// only.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tallowbrook {

struct RegexTranslation {
  std::string pattern;
  std::size_t backReferences = 0;
};

// `pattern` is valid UTF-8; nothing if it is none of the grammar, as far as PCRE2 wouldn't see
// that itself. The result wants PCRE2_UTF, PCRE2_DOLLAR_ENDONLY, PCRE2_ALLOW_EMPTY_CLASS and
// PCRE2_MATCH_UNSET_BACKREF. A count above `longest` characters is taken for any count.
std::optional<RegexTranslation> TranslateRegex(std::string_view pattern, unsigned longest);

}  // namespace tallowbrook
