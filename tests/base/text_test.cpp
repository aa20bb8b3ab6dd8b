// Characters of good and bad UTF-8, and texts cut and replaced by them.
#include "base/text.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

TEST(Text, TakesWhatIsNoUtf8ByItsBytes) {
  for (std::string text :
       {"\xc0\x80", "\xc1\xbf", "\xe0\x9f\xbf", "\xf0\x8f\xbf\xbf", "\xed\xa0\x80", "\xed\xbf\xbf",
        "\xf4\x90\x80\x80", "\xf8\x88\x80\x80\x80", "\xfe\xff", "\x80", "\xe2\x82", "\xf0\x9f\x98",
        "\xc3", "0123456789abcd\xff"}) {
    EXPECT_FALSE(IsValidUtf8(text)) << testing::PrintToString(text);
    EXPECT_EQ(CountCharacters(text), text.size()) << testing::PrintToString(text);
    std::string rebuilt;
    for (char& c : text) AppendCharacter(rebuilt, FirstCharacter({&c, 1}).code);
    EXPECT_EQ(rebuilt, text);
  }
  EXPECT_EQ(CountCharacters("\xe2\x82z\xe2\xc3\xa9t\xe9 \xc3\xa9"), 9u);
}

TEST(Text, EveryCodePointSurvivesWritingAndReadingAndNoOtherIsWritten) {
  for (char32_t code = 0; code < 0x110100; ++code) {
    if (code >= 0xDC80 && code <= 0xDCFF) continue;  // stray bytes
    const bool exists = code < 0xD800 || (code > 0xDFFF && code < 0x110000);
    std::string text;
    AppendCharacter(text, code);
    const Character read = FirstCharacter(text);
    ASSERT_EQ(read.code, exists ? code : U'\uFFFD') << std::uint32_t{code};
    ASSERT_TRUE(read.length == text.size() && IsValidUtf8(text)) << std::uint32_t{code};
  }
}

TEST(Text, PiecesOfACutTextJoinToItsBytes) {
  for (std::string_view text : {"plain", "aé漢\U0001F600z", "\xe2\x82\xac\xe2\x82\xff\xc3z"}) {
    const auto count = static_cast<std::ptrdiff_t>(CountCharacters(text));
    for (std::ptrdiff_t n = 0; n <= count; ++n) {
      const std::string left(*LeftCharacters(text, n)), right(*RightCharacters(text, count - n));
      EXPECT_EQ(left + right, text) << n;
      EXPECT_EQ(CountCharacters(left), static_cast<std::size_t>(n));
    }
    EXPECT_EQ(LeftCharacters(text, count + 1), text);
    EXPECT_EQ(RightCharacters(text, PTRDIFF_MAX), text);
    EXPECT_FALSE(LeftCharacters(text, -1) || RightCharacters(text, -1));
  }
}

TEST(Text, IsAsciiSeesAHighByteAtEveryPlace) {
  for (std::size_t place = 0; place < 20; ++place) {
    EXPECT_TRUE(IsAscii(std::string(place, '\x7f')));
    EXPECT_FALSE(IsAscii(std::string(place, 'x') + "\x80" + std::string(7, 'x'))) << place;
  }
}

TEST(Text, IsCutAtDotsBlanksAndSeparators) {
  const char* const names[][3] = {{"archive.tar.gz", "archive.tar", "gz"},
                                  {"README", "README", ""},
                                  {".hidden", "", "hidden"},
                                  {"ends.", "ends", ""}};
  for (const auto& [name, base, extension] : names) {
    EXPECT_EQ(BaseNameOf(name), base);
    EXPECT_EQ(ExtensionOf(name), extension);
  }
  EXPECT_EQ(TrimBlanks(" \ta b\n "), "\ta b\n");
  EXPECT_EQ(Split("", ','), std::vector<std::string_view>{""});
  EXPECT_EQ(Split(",a,,b,", ','), (std::vector<std::string_view>{"", "a", "", "b", ""}));
}

TEST(Text, ReplacesByCharacters) {
  constexpr auto all = static_cast<std::size_t>(-1);
  const std::tuple<const char*, const char*, const char*, std::size_t, bool, const char*> rows[] = {
      {"banana", "a", "o", 2, false, "bonona"},
      {"banana", "", "x", all, true, "banana"},
      {"aaa", "aa", "a", all, true, "aa"},
      {"BaNaNa", "an", "-", all, true, "B--a"},
      {"ÉtÉ", "é", "e", 1, true, "etÉ"},
      {"200 \u212Ab", "KB", "kilo", all, true, "200 kilo"},
      {"kb", "\u212AB", "x", all, true, "x"},
      {"ÉxÉ", "X", "yé", all, true, "ÉyéÉ"},
      {"é", "\xa9", "x", all, true, "é"},
      {"é\xa9", "\xa9", "x", all, false, "éx"},
      {"\xff\xe9T\xff", "t", "s", all, true, "\xff\xe9s\xff"}};
  for (const auto& [text, find, replacement, limit, ignoreCase, result] : rows) {
    EXPECT_EQ(ReplaceText(text, find, replacement, limit, ignoreCase), result) << text << find;
  }
}

}  // namespace
}  // namespace tallowbrook
