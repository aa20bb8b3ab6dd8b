// Regular expressions of the ECMAScript grammar on characters, by PCRE2.
//
// A pattern is compiled once, with JIT where there is one, and used for many names. The grammar
// is the one that the web reads, without the flag for Unicode; but a character is a code point,
// or a byte of a name that belongs to no valid UTF-8 sequence. Two things PCRE2 can't do: a
// lookbehind whose length varies is refused, and a group within a repeat keeps what it held in
// an earlier pass where a later one leaves it out. A pattern that explodes ends at a limit of
// steps, within a fraction of a second for each name.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tallowbrook {

class Regex {
 public:
  // Nothing for a pattern that isn't one. "." stops at line ends, "$" is the very end, "\d" and
  // "\w" are ASCII, "\s" knows the blanks and line ends of Unicode; case is ignored beyond ASCII.
  static std::optional<Regex> Compile(std::string_view pattern, bool ignoreCase);
  Regex(Regex&&) noexcept;
  Regex& operator=(Regex&&) noexcept;
  ~Regex();

  // Replaces the first match, or all of them. `replacement` knows $1 to $9 (empty for a group
  // that took no part, literal for one that the pattern lacks), $& and $$. Nothing if a limit of
  // steps was reached, if the result would pass maxResult bytes, or if stray bytes meet the
  // private characters that stand for them inside (U+10FF80 to U+10FFFF). An object is for one
  // thread at a time.
  std::optional<std::string> Replace(std::string_view subject, std::string_view replacement,
                                     bool all) const;
  // Replaces the first match, so many times, each time in what the time before gave. One limit of
  // steps holds for all; what fails later than the first time leaves what came out so far.
  std::optional<std::string> ReplaceInTurn(std::string_view subject, std::string_view replacement,
                                           int times) const;

  static constexpr std::size_t maxResult = 4096;

 private:
  struct State;
  explicit Regex(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace tallowbrook
