// Characters of good and bad UTF-8, and texts cut and replaced by them.
#include "base/text.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

std::u32string Codes(std::string_view text) {
  std::u32string codes;
  for (; !text.empty(); text.remove_prefix(FirstCharacter(text).length)) {
    codes += FirstCharacter(text).code;
  }
  return codes;
}

std::u32string Strays(std::string_view bytes) {
  std::u32string codes;
  for (char byte : bytes) codes += static_cast<char32_t>(0xDC00 + static_cast<unsigned char>(byte));
  return codes;
}

TEST(Text, ReadsUtf8Strictly) {
  struct {
    std::string text;
    std::u32string codes;
    bool valid;
  } rows[] = {
      {"", U"", true},
      {std::string("a\0b", 3), std::u32string(U"a\0b", 3), true},
      {"\x7f\xc2\x80\xdf\xbf", U"\x7f\x80\x7ff", true},
      {"\xe0\xa0\x80\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbf", U"\x800\xd7ff\xe000\xffff", true},
      {"\xf0\x90\x80\x80\xf4\x8f\xbf\xbf", U"\x10000\x10ffff", true},
      {"\xc0\x80", Strays("\xc0\x80"), false},
      {"\xc1\xbf", Strays("\xc1\xbf"), false},
      {"\xe0\x9f\xbf", Strays("\xe0\x9f\xbf"), false},
      {"\xf0\x8f\xbf\xbf", Strays("\xf0\x8f\xbf\xbf"), false},
      {"\xed\xa0\x80", Strays("\xed\xa0\x80"), false},
      {"\xed\xbf\xbf", Strays("\xed\xbf\xbf"), false},
      {"\xf4\x90\x80\x80", Strays("\xf4\x90\x80\x80"), false},
      {"\xf8\x88\x80\x80\x80", Strays("\xf8\x88\x80\x80\x80"), false},
      {"\xfe\xff", Strays("\xfe\xff"), false},
      {"\x80", Strays("\x80"), false},
      {"\xe2\x82", Strays("\xe2\x82"), false},
      {"\xf0\x9f\x98", Strays("\xf0\x9f\x98"), false},
      {"\xc3", Strays("\xc3"), false},
      {"\xe2\x82z", Strays("\xe2\x82") + U"z", false},
      {"\xe2\xc3\xa9", Strays("\xe2") + U"é", false},
      {"\xe9t\xe9 \xc3\xa9", Strays("\xe9") + U"t" + Strays("\xe9") + U" é", false},
      {"0123456789abcd\xff", U"0123456789abcd" + Strays("\xff"), false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    EXPECT_EQ(Codes(row.text), row.codes);
    EXPECT_EQ(CountCharacters(row.text), row.codes.size());
    EXPECT_EQ(IsValidUtf8(row.text), row.valid);
    std::string rebuilt;
    for (char32_t code : row.codes) AppendCharacter(rebuilt, code);
    EXPECT_EQ(rebuilt, row.text);
  }
}

TEST(Text, EveryCodePointSurvivesWritingAndReading) {
  for (char32_t code = 0; code < 0x110000; ++code) {
    if (code >= 0xD800 && code <= 0xDFFF) continue;
    std::string text;
    AppendCharacter(text, code);
    const Character read = FirstCharacter(text);
    ASSERT_TRUE(read.code == code && read.length == text.size()) << std::uint32_t{code};
  }
}

TEST(Text, WritesTheReplacementCharacterForNoCharacter) {
  for (char32_t code : {0xD800u, 0xDC7Fu, 0xDD00u, 0x110000u, 0xFFFFFFFFu}) {
    std::string text;
    AppendCharacter(text, code);
    EXPECT_EQ(text, "\uFFFD") << std::uint32_t{code};
  }
}

TEST(Text, PiecesOfACutTextJoinToItsBytes) {
  for (std::string_view text : {"plain", "aé漢\U0001F600z", "\xe2\x82\xac\xe2\x82\xff\xc3z",
                                "\xf0\x9f\x98\xf0\x9f\x98\x80\x80"}) {
    const auto count = static_cast<std::ptrdiff_t>(CountCharacters(text));
    for (std::ptrdiff_t n = 0; n <= count; ++n) {
      const std::string left(*LeftCharacters(text, n)), right(*RightCharacters(text, count - n));
      EXPECT_EQ(left + right, text) << n;
      EXPECT_EQ(CountCharacters(left), static_cast<std::size_t>(n));
    }
    EXPECT_EQ(LeftCharacters(text, count + 1), text);
    EXPECT_EQ(RightCharacters(text, PTRDIFF_MAX), text);
    EXPECT_EQ(LeftCharacters(text, -1), std::nullopt);
    EXPECT_EQ(RightCharacters(text, -1), std::nullopt);
  }
}

TEST(Text, IsAsciiSeesAHighByteAtEveryPlace) {
  for (std::size_t size = 0; size < 20; ++size) {
    std::string text(size, '\x7f');
    EXPECT_TRUE(IsAscii(text));
    for (char& c : text) {
      c = '\x80';
      EXPECT_FALSE(IsAscii(text)) << size;
      c = 'x';
    }
  }
}

TEST(Text, CutsNamesAtTheLastDot) {
  struct {
    const char *name, *base, *extension;
  } rows[] = {
      {"archive.tar.gz", "archive.tar", "gz"},
      {"README", "README", ""},
      {".hidden", "", "hidden"},
      {"ends.", "ends", ""},
      {"", "", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(BaseNameOf(row.name), row.base) << row.name;
    EXPECT_EQ(ExtensionOf(row.name), row.extension) << row.name;
  }
}

TEST(Text, TrimsBlanksAlone) {
  EXPECT_EQ(TrimBlanks("  a b "), "a b");
  EXPECT_EQ(TrimBlanks(" \ta\n "), "\ta\n");
  EXPECT_EQ(TrimBlanks("   "), "");
  EXPECT_EQ(TrimBlanks(""), "");
}

TEST(Text, ReplacesByCharacters) {
  constexpr auto all = static_cast<std::size_t>(-1);
  struct {
    const char *text, *find, *replacement;
    std::size_t limit;
    bool ignoreCase;
    const char* result;
  } rows[] = {
      {"banana", "a", "o", 2, false, "bonona"},
      {"banana", "a", "o", 0, false, "banana"},
      {"banana", "a", "o", all, false, "bonono"},
      {"banana", "ana", "x", all, false, "bxna"},
      {"banana", "", "x", all, false, "banana"},
      {"banana", "", "x", all, true, "banana"},
      {"", "a", "x", all, false, ""},
      {"banana", "bananas", "x", all, true, "banana"},
      {"aaa", "a", "aa", all, false, "aaaaaa"},
      {"aaa", "aa", "a", all, true, "aa"},
      {"a.b.c", ".", "", all, false, "abc"},
      {"BaNaNa", "an", "-", all, false, "BaNaNa"},
      {"BaNaNa", "an", "-", all, true, "B--a"},
      {"ÉtÉ", "é", "e", all, false, "ÉtÉ"},
      {"ÉtÉ", "é", "e", all, true, "ete"},
      {"ÉtÉ", "é", "e", 1, true, "etÉ"},
      {"200 \u212Ab", "KB", "kilo", all, true, "200 kilo"},
      {"kb", "\u212AB", "x", all, true, "x"},
      {"ÉxÉ", "X", "yé", all, true, "ÉyéÉ"},
      {"é", "\xc3", "x", all, false, "é"},
      {"é", "\xa9", "x", all, true, "é"},
      {"é\xa9", "\xa9", "x", all, false, "éx"},
      {"\xc3\xc3\xa9", "\xc3", "x", all, false, "xé"},
      {"\xff\xe9T\xff", "t", "s", all, true, "\xff\xe9s\xff"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ReplaceText(row.text, row.find, row.replacement, row.limit, row.ignoreCase),
              row.result)
        << row.text << ": " << row.find << " -> " << row.replacement << ", " << row.limit;
  }
}

TEST(Text, SplitsIntoOnePieceMoreThanSeparators) {
  using Pieces = std::vector<std::string_view>;
  EXPECT_EQ(Split("", ','), Pieces{""});
  EXPECT_EQ(Split("abc", ','), Pieces{"abc"});
  EXPECT_EQ(Split(",a,,b,", ','), (Pieces{"", "a", "", "b", ""}));
}

}  // namespace
}  // namespace tallowbrook
