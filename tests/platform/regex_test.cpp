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
      {"(?<a>x)\\k<a>|(y)\\2", "xxyyxy", "-", "--xy"},
      {"(?=a)*b", "ab", "-", "a-"},
      {"a]b}", "a]b}", "-", "-"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ReplaceAll(row.pattern, row.subject, row.replacement), row.result)
        << row.pattern << " on " << row.subject;
  }
}

TEST(Regex, KnowsBlanksAndLineEndsBeyondAscii) {
  for (const char* blank : {" ", "\t", "\n", "\v", "\f", "\r", "\u00A0", "\u1680", "\u2000",
                            "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000", "\uFEFF"}) {
    const std::string subject = std::string("a") + blank + "b";
    for (const char* pattern : {"\\s", "[\\s]", "[^\\S]", "[^\\Sab]", "[^a\\S\\w]"}) {
      EXPECT_EQ(ReplaceAll(pattern, subject, "-"), "a-b") << pattern << " on " << subject;
    }
    for (const char* pattern : {"\\S", "[\\S]", "[\\Sx]", "[^\\s]", "[\\d\\S]"}) {
      EXPECT_EQ(ReplaceAll(pattern, subject, "-"), std::string("-") + blank + "-")
          << pattern << " on " << subject;
    }
    for (const char* pattern : {"[\\s\\S]", "[\\W\\S]", "[\\S\\0-\\uFFFF]"}) {
      EXPECT_EQ(ReplaceAll(pattern, subject, "-"), "---") << pattern << " on " << subject;
    }
  }
  for (const char* none : {"\u0085", "\u180E", "\u200B"}) {
    EXPECT_EQ(ReplaceAll("\\s", none, "-"), none);
  }
  for (const char* lineEnd : {"\n", "\r", "\u2028", "\u2029"}) {
    EXPECT_EQ(ReplaceAll(".", lineEnd, "-"), lineEnd);
  }
  EXPECT_EQ(ReplaceAll(".", "\v\u0085", "-"), "--");
  EXPECT_EQ(ReplaceAll("[^\\r]", "\r\n", "-"), "\r-");
  EXPECT_EQ(ReplaceAll("(?<=\\r)\\n|(?<=\\n)", "\r\n", "-"), "\r--");
}

// Forms that newer grammars refuse, and that the web's still reads.
TEST(Regex, ReadsLooseFormsAsTheWebDoes) {
  const struct {
    std::string pattern, subject, result;
  } rows[] = {
      {"[\\w-a]", "b-!", "--!"},
      {"[\\d-z]", "1-z5y", "----y"},
      {"[a-\\d]", "a-1b", "---b"},
      {"[\\w-.]+", "a.b-c d", "- -"},
      {"[a-\\S]", "- a", "- -"},
      {"[-a]|[b-]", "-ab", "---"},
      {"\\1", "1\x01", "1-"},
      {"(a)\\2", "aaa\x02", "aa-"},
      {"\\8\\9", "89", "-"},
      {"\\101\\60\\477", "A0'7", "-"},
      {"[\\101\\1]", "A\x01", "--"},
      {"\\2(a)(b)", "ab", "-"},
      {"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)\\10", "abcdefghijj", "-"},
      {"[\\B]", "B\\", "-\\"},
      {"[\\b]", "b\b", "b-"},
      {"a\\c", "a\\c", "-"},
      {"[\\c]", "\\cd", "--d"},
      {"\\c1", "\\c1", "-"},
      {"[\\c1]", "\x11\\c1", "-\\c1"},
      {"\\cJ", "\n", "-"},
      {"\\k<n>", "k<n>", "-"},
      {"\\uD83D\\uDE00", "\U0001F600", "-"},
      {"[\\uD83D\\uDE00]", "\U0001F600", "-"},
      {"\\uD83D|[\\uD800-\\uDFFF]", "\U0001F600", "\U0001F600"},
      {"[\\uD800-\\uFFFF]", "\uFF01z", "-z"},
      {"a{,3}", "a{,3}aaa", "-aaa"},
      {"a{|b{1|{x}|{1,2", "a{b{1{x}{1,2", "----"},
      {"a{2}|b{2,}|c{1,2}", "aaabbbccc", "-a---"},
      {"a{2,9999999}?|b{9999999}", "aaab", "-ab"},
      {"a{0}b??", "ab", "-a-b-"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ReplaceAll(row.pattern, row.subject, "-"), row.result) << row.pattern;
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
       "---"},
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
      {"\xE4", "\xE4\xC3\xA4", "-\xC3\xA4"},
      {"[\xE4\xFF]+x", "\xE4\xFFx\x80", "-\x80"},
      {"[^x]", "x\xE4\x80", "x--"},
      {"\\W", "\xE4", "-"},
      {"\\S", "\xA0", "-"},
      {".*", "\xE4\xF6", "--"},
      {"b",
       "\xF4\x8F\xBE\x80"
       "b",
       "\xF4\x8F\xBE\x80-"},
      // What stands for stray bytes inside, beside stray bytes.
      {"b",
       "\xF4\x8F\xBE\x80"
       "b\xE4",
       "no result"},
      {"\xE4", "\xF4\x8F\xBF\xA4", "no result"},
      {"\xF4\x8F\xBF\xA4", "\xE4", "no result"},
      {"\xF4\x8F\xBF\xA4\xE4", "", "no pattern"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ReplaceAll(row.pattern, row.subject, "-"), row.result) << row.pattern;
  }
}

TEST(Regex, PutsBytesOfAnyKindIntoNamesOfAnyBytes) {
  EXPECT_EQ(ReplaceAll("(.)b",
                       "\xE4"
                       "b",
                       "$1\xF6$&"),
            "\xE4\xF6\xE4"
            "b");
  EXPECT_EQ(ReplaceAll("b", "b\u20AC", "\xF6"), "\xF6\u20AC");
}

TEST(Regex, IgnoresCaseBeyondAsciiWhenAsked) {
  EXPECT_EQ(ReplaceAll("\xC3\xA4+x", "\xC3\x84\xC3\xA4X", "-", true), "-");
  EXPECT_EQ(ReplaceAll("a", "Aa", "-", false), "A-");
}

TEST(Regex, RefusesWhatIsNoPattern) {
  for (const char* pattern : {
           "(",          "[a",
           "[a-",        "a)",
           "*a",         "a{2,1}",
           "{2}",        "\\",
           "[\\",        "(*UCP)a",
           "a(*ACCEPT)", "[b-a]",
           "a++",        "a*+",
           "a?+",        "a{2}+",
           "a+??",       "^*",
           "\\b+",       "(?<=a)*",
           "(|*)",       "(?",
           "(?>a)",      "(?|a)",
           "(?i)a",      "(?i:a)",
           "(?#a)",      "(?P<n>a)",
           "(?'n'a)",    "(?R)",
           "(?1)",       "(?(1)a)",
           "(?<>a)",     "(?<1>a)",
           "(?<a",       "(?<n>a)(?<n>b)",
           "(?<n>a)\\k", "(?<n>a)\\k<m>",
       }) {
    EXPECT_FALSE(Regex::Compile(pattern, false)) << pattern;
  }
}

TEST(Regex, ReplacesTheFirstMatchOnlyWhenAsked) {
  const auto regex = Regex::Compile("a", false);
  EXPECT_EQ(regex->Replace("baab", "x", false), "bxab");
  EXPECT_EQ(regex->Replace("b", "x", false), "b");
  EXPECT_EQ(Regex::Compile("", false)->Replace("", "x", false), "x");
}

// Without a limit, or with one for each place, these would outlast the test's time by ages.
TEST(Regex, GivesUpOnPatternsThatExplode) {
  const std::string name = std::string(254, 'a') + "!";
  for (const char* pattern : {"(a+)+$", "(a|aa)+$", "(?:a?){200}a{255}",
                              "(?=.{0,180}.{0,180}.{0,20}(?![^z]*$))q|$", "(?=.*.*.*.*z)q|a"}) {
    EXPECT_EQ(ReplaceAll(pattern, name, "-"), "no result") << pattern;
  }
}

TEST(Regex, FindsWhatTakesManySteps) {
  const std::string as(60, 'a');
  EXPECT_EQ(ReplaceAll(".*a.*a.*a$", std::string(255, 'a'), "-"), "-");
  EXPECT_EQ(ReplaceAll("(.*)_(.*)", std::string(255, 'a'), "$2"), std::string(255, 'a'));
  EXPECT_EQ(ReplaceAll("(.*)[_-](.*)", std::string(255, 'a'), "$2"), std::string(255, 'a'));
  EXPECT_EQ(ReplaceAll("(?=.*.*[yz])q|(a)$", as, "<$1>"), as.substr(1) + "<a>");
  EXPECT_EQ(ReplaceAll("x|(?=.*.*[yz])q|(?<=x)(a)|$", "x" + as, "<$1>"),
            "<><a>" + as.substr(1) + "<>");
}

// All turns share one limit: they end when it is used up, with what they have reached.
TEST(Regex, LimitsWhatRepeatedReplacingTakes) {
  const auto regex = Regex::Compile("(?=.*.*z)q|a", false);
  const std::string name(240, 'a');
  for (int again = 0; again < 2; ++again) {
    const std::optional<std::string> text = regex->ReplaceInTurn(name, "ab", 30);
    ASSERT_TRUE(text);
    EXPECT_GE(text->size(), name.size() + 2);
    EXPECT_LT(text->size(), name.size() + 30);
  }
  EXPECT_EQ(regex->ReplaceInTurn("xa", "aa", 3), "xaaaa");
  EXPECT_EQ(Regex::Compile("(a+)+$", false)->ReplaceInTurn(name + "!", "", 3), std::nullopt);
}

TEST(Regex, GivesUpOnResultsBeyondTheirLimit) {
  const std::string half(Regex::maxResult / 2, 'x');
  EXPECT_EQ(ReplaceAll("a", "aa", half).size(), Regex::maxResult);
  EXPECT_EQ(ReplaceAll("a", "aab", half), "no result");
  EXPECT_EQ(ReplaceAll("(x+)", half, "$1$1$1"), "no result");
}

}  // namespace
}  // namespace tallowbrook
