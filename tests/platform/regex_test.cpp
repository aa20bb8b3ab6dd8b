// Regular expressions against the ECMAScript meaning of pattern and replacement.
#include "platform/regex.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

// The result of replacing all matches; why there is none otherwise.
std::string ReplaceAll(std::string_view pattern, std::string_view subject,
                       std::string_view replacement = "-", bool ignoreCase = false) {
  const auto regex = Regex::Compile(pattern, ignoreCase);
  if (!regex) return "no pattern";
  return regex->Replace(subject, replacement, true).value_or("no result");
}

TEST(Regex, FindsWhatTheGrammarMeans) {
  // clang-format off
  const std::string rows[][3] = {
      {"a*", "baac", "-b--c-"}, {"", "\xC3\xA4\xE2\x82\xAC", "-\xC3\xA4-\xE2\x82\xAC-"}, {"a$", "a\n", "a\n"},
      {".+", "a\rb\nc", "-\r-\n-"}, {"\\u0041\\x42|\\u41", "xABu41", "x--"},
      {"\\d\\w", "1a \xD9\xA1\xC3\xA4", "- \xD9\xA1\xC3\xA4"}, {"(?:(a)|(b))\\1", "aab", "--"},
      {"(?<a>x)\\k<a>|(y)\\2", "xxyyxy", "--xy"},
      // What PCRE2 would read differently.
      {"[[:alpha:]]", "[:a]]b", "[:-]b"}, {"[.,.]|[:=]", "a.b,c:d", "a-b-c-d"},
      {"\\Qa.\\E", "QaxE Qa.E", "- -"}, {"\\A\\Z\\K\\v\\t", "AZK\v\t", "-"},
      {"\\C\\k", "\xC3\xA4" "Ck", "\xC3\xA4-"}, {"(?=a)*b", "ab", "a-"},
      // Forms that newer grammars refuse, and that the web's still reads.
      {"[\\w-a]", "b-!", "--!"}, {"[a-\\d]", "a-1b", "---b"}, {"[a-\\S]", "- a", "- -"},
      {"(a)\\2", "aaa\x02", "aa-"}, {"\\101\\60\\477", "A0'7", "-"},
      {"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)\\10", "abcdefghijj", "-"}, {"[\\B]|[\\b]", "B\\\b", "-\\-"},
      {"a\\c|\\c1|\\cJ|\\k<n>", "a\\c\\c1\nk<n>", "----"}, {"[\\c]", "\\cd", "--d"},
      {"[\\c1]", "\x11\\c1", "-\\c1"}, {"[\\uD83D\\uDE00]|\\uD83D\\uDE01", "\U0001F600\U0001F601", "--"},
      {"\\uD83D|[\\uD800-\\uDFFF]", "\U0001F600", "\U0001F600"}, {"[\\uD800-\\uFFFF]", "\uFF01z", "-z"},
      {"a{,3}|a{|b{1|{x}|{1,2", "a{,3}a{b{1{x}{1,2", "-----"}, {"a{2,9999999}?|b{9999999}", "aaab", "-ab"},
      // Names of any bytes.
      {"^b|b$", "\xE4" "b\xF6", "\xE4" "b\xF6"}, {"[^x]", "x\xE4\x80", "x--"},
      {"(?<=a)b", "\xFF" "ab", "\xFF" "a-"}, {"\xC3\xA4", "\xA4\xC3\xA4\xC3", "\xA4-\xC3"},
      {"\xE4", "\xE4\xC3\xA4", "-\xC3\xA4"}, {"[\xE4\xFF]+x", "\xE4\xFFx\x80", "-\x80"},
      {"\\W\\S", "\xE4\xA0", "-"}, {"b", "\xF4\x8F\xBE\x80" "b", "\xF4\x8F\xBE\x80-"},
      // What stands for stray bytes inside, beside stray bytes.
      {"b", "\xF4\x8F\xBE\x80" "b\xE4", "no result"}, {"\xE4", "\xF4\x8F\xBF\xA4", "no result"},
      {"\xF4\x8F\xBF\xA4", "\xE4", "no result"}, {"\xF4\x8F\xBF\xA4\xE4", "", "no pattern"},
  };
  // clang-format on
  for (const auto& [pattern, subject, result] : rows) {
    EXPECT_EQ(ReplaceAll(pattern, subject), result) << pattern << " on " << subject;
  }
  EXPECT_EQ(ReplaceAll("\xC3\xA4+x", "\xC3\x84\xC3\xA4X", "-", true), "-");
}

TEST(Regex, KnowsBlanksAndLineEndsBeyondAscii) {
  for (const std::string blank : {"\t", "\v", "\f", "\r", "\u00A0", "\u1680", "\u2000", "\u200A",
                                  "\u2028", "\u2029", "\u202F", "\u205F", "\u3000", "\uFEFF"}) {
    for (const char* pattern : {"\\s", "[\\s]", "[^\\S]", "[^\\Sab]", "[^a\\S\\w]"}) {
      EXPECT_EQ(ReplaceAll(pattern, "a" + blank + "b"), "a-b") << pattern << blank;
    }
    for (const char* pattern : {"\\S", "[\\S]", "[\\Sx]", "[^\\s]", "[\\d\\S]"}) {
      EXPECT_EQ(ReplaceAll(pattern, "a" + blank + "b"), "-" + blank + "-") << pattern << blank;
    }
    EXPECT_EQ(ReplaceAll("[\\s\\S][\\W\\S][\\S\\0-\\uFFFF]", "a" + blank + "b"), "-") << blank;
  }
  EXPECT_EQ(ReplaceAll("\\s", "\u0085\u180E\u200B"), "\u0085\u180E\u200B");
  EXPECT_EQ(ReplaceAll(".", "\n\r\u2028\u2029\v\u0085"), "\n\r\u2028\u2029--");
  EXPECT_EQ(ReplaceAll("(?<=\\r)\\n|(?<=\\n)", "\r\n"), "\r--");
}

TEST(Regex, InsertsGroupsIntoTheReplacement) {
  // clang-format off
  const std::string rows[][4] = {
      {"x=12", "(\\w)=(\\d+)", "$2=$1$3$10$0", "12=x$3x0$0"},
      {"x=12", "(\\w)=(\\d+)", "[$&]$$1$`$'$", "[x=12]$1$`$'$"}, {"x=12", "=(\\d+)|(y)", "<$2>\\1", "x<>\\1"},
      {"\xE4" "b\u20AC", "(.)b", "$1\xF6$&", "\xE4\xF6\xE4" "b\u20AC"},
  };
  // clang-format on
  for (const auto& [subject, pattern, replacement, result] : rows) {
    EXPECT_EQ(ReplaceAll(pattern, subject, replacement), result) << replacement;
  }
}

TEST(Regex, RefusesWhatIsNoPattern) {
  // clang-format off
  for (const char* pattern :
       {"(", "[a", "[a-", "a)", "*a", "a{2,1}", "{2}", "\\", "[\\", "(*UCP)a", "a(*ACCEPT)", "[b-a]", "a++",
        "a*+", "a?+", "a{2}+", "a+??", "^*", "\\b+", "(?<=a)*", "(|*)", "(?", "(?>a)", "(?|a)", "(?i)a",
        "(?i:a)", "(?#a)", "(?P<n>a)", "(?'n'a)", "(?R)", "(?1)", "(?(1)a)", "(?<>a)", "(?<1>a)", "(?<a",
        "(?<n>a)(?<n>b)", "(?<n>a)\\k", "(?<n>a)\\k<m>"}) {
    EXPECT_FALSE(Regex::Compile(pattern, false)) << pattern;
  }
  // clang-format on
}

TEST(Regex, ReplacesTheFirstMatchOnlyWhenAskedAndGivesUpOnResultsBeyondTheirLimit) {
  EXPECT_EQ(Regex::Compile("a", false)->Replace("baab", "x", false), "bxab");
  EXPECT_EQ(Regex::Compile("", false)->Replace("", "x", false), "x");
  const std::string half(Regex::maxResult / 2, 'x');
  EXPECT_EQ(ReplaceAll("a", "aab", half), "no result");
  EXPECT_EQ(ReplaceAll("(x+)", half, "$1$1$1"), "no result");
}

// Without a limit, or with one for each place, these would outlast the test's time by ages.
TEST(Regex, GivesUpOnPatternsThatExplode) {
  for (const char* pattern : {"(a+)+$", "(a|aa)+$", "(?:a?){200}a{255}",
                              "(?=.{0,180}.{0,180}.{0,20}(?![^z]*$))q|$", "(?=.*.*.*.*z)q|a"}) {
    EXPECT_EQ(ReplaceAll(pattern, std::string(254, 'a') + "!"), "no result") << pattern;
  }
}

TEST(Regex, FindsWhatTakesManySteps) {
  const std::string as(60, 'a'), name(255, 'a');
  EXPECT_EQ(ReplaceAll(".*a.*a.*a$", name), "-");
  EXPECT_EQ(ReplaceAll("(.*)[_-](.*)", name, "$2"), name);
  EXPECT_EQ(ReplaceAll("x|(?=.*.*[yz])q|(?<=x)(a)|$", "x" + as, "<$1>"),
            "<><a>" + as.substr(1) + "<>");
}

// All turns share one limit: they end when it is used up, with what they have reached.
TEST(Regex, LimitsWhatRepeatedReplacingTakes) {
  const auto regex = Regex::Compile("(?=.*.*z)q|a", false);
  const std::string name(240, 'a');
  for (int again = 0; again < 2; ++again) {
    const std::size_t length = regex->ReplaceInTurn(name, "ab", 30).value().size();
    EXPECT_TRUE(length >= name.size() + 2 && length < name.size() + 30) << length;
  }
  EXPECT_EQ(regex->ReplaceInTurn("xa", "aa", 3), "xaaaa");
  EXPECT_EQ(Regex::Compile("(a+)+$", false)->ReplaceInTurn(name + "!", "", 3), std::nullopt);
}

}  // namespace
}  // namespace tallowbrook
