// Names, filters and paths as text.
#include <gtest/gtest.h>

#include "platform/files.h"

namespace tallowbrook {
namespace {

TEST(IsValidName, TakesWhatCanBeANewNameAndNothingElse) {
  for (const std::string& name :
       {std::string("a"), std::string("..."), std::string(".hidden"), std::string(" "),
        std::string("a:b*c\\d|\"<>"), std::string("\xC3\xA4\xFF\x80"), std::string(255, 'x')}) {
    EXPECT_TRUE(IsValidName(name)) << name;
  }
  for (const std::string& name :
       {std::string(), std::string("."), std::string(".."), std::string("a/b"), std::string("/"),
        std::string("a?"), std::string("a\n"), std::string("\x1F"), std::string("\x7F"),
        std::string("a\0b", 3), std::string(256, 'x')}) {
    EXPECT_FALSE(IsValidName(name)) << name;
  }
}

TEST(MatchesPattern, KnowsWildcardsByCharactersIgnoringCase) {
  const struct {
    std::string name, pattern;
    bool matches;
  } rows[] = {
      {"readme", "*.*", true},
      {"", "*.*", true},
      {"readme", "*", true},
      {"abc", "a*.*", true},
      {"bac", "a*.*", false},
      {"a.b.c", "*.b.*.*", true},
      {"readme", "readme.*", true},
      {"readme", "*.*.*", true},
      {"readme", "*.", true},
      {"a.txt", "*.", false},
      {"a.", "*.", true},
      {"readme", "readme.t*", false},
      {"a.JPG", "*.jpg", true},
      {"a.jpg.bak", "*.jpg", false},
      {"a.jpeg", "*.jp?g", true},
      {"a.jpg", "*.jp?g", false},
      {"\xC3\x84.txt", "?.txt", true},
      {"\xC3\x84.txt", "\xC3\xA4.TXT", true},
      {"\xC3\x84.txt", "??.txt", false},
      {"\xFF.txt", "?.txt", true},
      {"x\xC3\xA4y", "*\xA4y", false},  // a stray byte is no part of a character
      {"abcbcd", "a*bcd", true},
      {"aab", "*a?b", true},
      {"ab", "*a?b", false},
      {"", "", true},
      {"a", "", false},
      {"", "?", false},
      {"", "**", true},
      {"a*", "a\\*", false},
      {"a[b]", "a[b]", true},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(MatchesPattern(row.name, row.pattern), row.matches) << row.name << " " << row.pattern;
  }
}

// Trying all ways of the stars would outlast the test's time limit by ages.
TEST(MatchesPattern, EndsWithManyStars) {
  std::string pattern;
  for (int i = 0; i < 100; ++i) pattern += "*a";
  EXPECT_FALSE(MatchesPattern(std::string(255, 'a'), pattern + "*b"));
}

TEST(Paths, AreJoinedByOneSlash) {
  EXPECT_EQ(JoinPath("/x/", "a"), "/x/a");
  EXPECT_EQ(JoinPath("/x", "a"), "/x/a");
  EXPECT_EQ(JoinPath("/", "a"), "/a");
  EXPECT_EQ(JoinPath("", "a"), "a");
  EXPECT_EQ(WithSlash("/x"), "/x/");
  EXPECT_EQ(WithSlash("/x/"), "/x/");
  EXPECT_EQ(WithSlash(""), "");
}

}  // namespace
}  // namespace tallowbrook
