// Regular expressions of the ECMAScript grammar on characters, by PCRE2.
//
// A pattern is compiled once, with JIT where there is one, and used for many names. Names that
// aren't valid UTF-8 match too: a stray byte is a character that only itself stands for. A
// pattern that explodes ends at a match limit.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tallowbrook {

class Regex {
 public:
  // Nothing for a pattern that isn't one. "." stops at line ends, "$" is the very end, "\d" and
  // "\w" are ASCII; case is ignored beyond ASCII.
  static std::optional<Regex> Compile(std::string_view pattern, bool ignoreCase);
  Regex(Regex&&) noexcept;
  Regex& operator=(Regex&&) noexcept;
  ~Regex();

  // Replaces the first match, or all of them. `replacement` knows $1 to $9 (empty for a group
  // that took no part, literal for one that the pattern lacks), $& and $$. Nothing if the match
  // limit was reached or the result would pass maxResult bytes.
  std::optional<std::string> Replace(std::string_view subject, std::string_view replacement,
                                     bool all) const;

  static constexpr std::size_t maxResult = 1 << 20;

 private:
  struct State;
  explicit Regex(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace tallowbrook
