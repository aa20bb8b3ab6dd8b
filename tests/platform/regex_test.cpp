// Regular expressions against the ECMAScript meaning of pattern and replacement.
#include "platform/regex.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

// The result of replacing all matches; why there is none otherwise.
std::string ReplaceAll(std::string_view pattern, std::string_view subject,
                       std::string_view replacement, bool ignoreCase = false) {
  const auto regex = Regex::Compile(pattern, ignoreCase);
  if (!regex) return "no pattern";
  return regex->Replace(subject, replacement, true).value_or("no result");
}

TEST(Regex, FindsWhatTheGrammarMeans) {
  const struct {
    std::string pattern, subject, replacement, result;
  } rows[] = {
      {"a*", "baac", "-", "-b--c-"},
      {"", "ab", "-", "-a-b-"},
      {"", "\xC3\xA4\xE2\x82\xAC", "-", "-\xC3\xA4-\xE2\x82\xAC-"},
      {"", "", "-", "-"},
      {"x*", "\xE4\xF6", "-", "-\xE4-\xF6-"},
      {"^a", "aa", "-", "-a"},
      {"a$", "a\n", "-", "a\n"},
      {".+", "a\rb\nc", "-", "-\r-\n-"},
      {"[]", "a]", "-", "a]"},
      {"[^]", "a\n", "-", "--"},
      {"[]a]", "a]", "-", "a]"},
      {"\\u0041\\x42", "xAB", "-", "x-"},
      {"\\u41", "u41", "-", "-"},
      {"\\d\\w", "1a \xD9\xA1\xC3\xA4", "-", "- \xD9\xA1\xC3\xA4"},
      {".", "\xC3\xA4\xF0\x9F\x98\x80", "-", "--"},
      {"(a)?b\\1c", "bc abac", "-", "- -"},
      {"(?:(a)|(b))\\1", "aab", "-", "--"},
      {"(?=b)", "ab", "-", "a-b"},
      {"(?<y>\\d{4})-\\k<y>", "2005-2005", "-", "-"},
      // What PCRE2 would read differently.
      {"[[:alpha:]]", "[:a]]b", "-", "[:-]b"},
      {"[.,.]", "a.b,c", "-", "a-b-c"},
      {"[:=]", "a:b=c", "-", "a-b-c"},
      {"\\Qa.\\E", "QaxE Qa.E", "-", "- -"},
      {"\\A\\Z\\K", "AZK", "-", "-"},
      {"\\v\\t", "a\v\tb", "-", "a-b"},
      {"\\C",
       "\xC3\xA4"
       "C",
       "-", "\xC3\xA4-"},
      {"\\k", "k", "-", "-"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ReplaceAll(row.pattern, row.subject, row.replacement), row.result)
        << row.pattern << " on " << row.subject;
  }
}

TEST(Regex, InsertsGroupsIntoTheReplacement) {
  const struct {
    std::string pattern, replacement, result;  // on "x=12"
  } rows[] = {
      {"(\\w)=(\\d+)", "$2=$1", "12=x"},
      {"(\\w)=(\\d+)", "$3", "$3"},
      {"(\\w)=(\\d+)", "$10", "x0"},
      {"(\\w)=(\\d+)", "$0", "$0"},
      {"(\\w)=(\\d+)", "[$&]$$1$", "[x=12]$1$"},
      {"(\\w)=(\\d+)", "$`$'$$$", "$`$'$$"},
      {"(y)?=", "<$1>", "x<>12"},
      {"=(\\d+)|(y)", "<$2>", "x<>"},
      {"(x)|(y)", "\\1$2", "\\1=12"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ReplaceAll(row.pattern, "x=12", row.replacement), row.result) << row.replacement;
  }
}

TEST(Regex, MatchesNamesOfAnyBytes) {
  const struct {
    std::string pattern, subject, result;
  } rows[] = {
      {".",
       "a\xE4"
       "b",
       "-\xE4-"},
      {"b",
       "\xE4"
       "b\xF6",
       "\xE4-\xF6"},
      {"^b",
       "\xE4"
       "b",
       "\xE4"
       "b"},
      {"b$", "b\xE4", "b\xE4"},
      {"(?<=a)b",
       "\xFF"
       "ab",
       "\xFF"
       "a-"},
      {"\xC3\xA4", "\xA4\xC3\xA4\xC3", "\xA4-\xC3"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ReplaceAll(row.pattern, row.subject, "-"), row.result) << row.pattern;
  }
}

TEST(Regex, IgnoresCaseBeyondAsciiWhenAsked) {
  EXPECT_EQ(ReplaceAll("\xC3\xA4+x", "\xC3\x84\xC3\xA4X", "-", true), "-");
  EXPECT_EQ(ReplaceAll("a", "Aa", "-", false), "A-");
}

TEST(Regex, RefusesWhatIsNoPattern) {
  for (const char* pattern :
       {"(", "[a", "a)", "*a", "a{2,1}", "\\", "\xE4", "a\xC3", "(*UCP)a", "a(*ACCEPT)", "[b-a]"}) {
    EXPECT_FALSE(Regex::Compile(pattern, false)) << pattern;
  }
}

TEST(Regex, ReplacesTheFirstMatchOnlyWhenAsked) {
  const auto regex = Regex::Compile("a", false);
  EXPECT_EQ(regex->Replace("baab", "x", false), "bxab");
  EXPECT_EQ(regex->Replace("b", "x", false), "b");
  EXPECT_EQ(Regex::Compile("", false)->Replace("", "x", false), "x");
}

// Without the limit these would outlast the test's time by ages.
TEST(Regex, GivesUpOnPatternsThatExplode) {
  const std::string name = std::string(254, 'a') + "!";
  for (const char* pattern : {"(a+)+$", "(a|aa)+$", "(?:a?){200}a{255}"}) {
    EXPECT_EQ(ReplaceAll(pattern, name, "-"), "no result") << pattern;
  }
  EXPECT_EQ(ReplaceAll(".*a.*a.*a$", std::string(255, 'a'), "-"), "-");
}

TEST(Regex, GivesUpOnResultsBeyondTheirLimit) {
  const std::string half(Regex::maxResult / 2, 'x');
  EXPECT_EQ(ReplaceAll("a", "aa", half).size(), Regex::maxResult);
  EXPECT_EQ(ReplaceAll("a", "aab", half), "no result");
  EXPECT_EQ(ReplaceAll("(x+)", half, "$1$1$1"), "no result");
}

}  // namespace
}  // namespace tallowbrook
