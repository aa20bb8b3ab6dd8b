// Characters of good and bad UTF-8, texts cut and replaced by them, their cases, and the bytes of
// tags that they stand for.
#include "base/text.h"

#include <gtest/gtest.h>

#include "base/code_page.h"
#include "base/letter_case.h"

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
  EXPECT_EQ(ReplaceText("BaNaNa", "an", "-", 9, true), "B--a");
  EXPECT_EQ(ReplaceText("200 \u212Ab kb", "KB", "kilo", 1, true), "200 kilo kb");
  EXPECT_EQ(ReplaceText("é\xa9", "\xa9", "x", 9, false), "éx");
  EXPECT_EQ(ReplaceText("banana", "", "x", 9, true), "banana");
}

TEST(CodePage, EveryByteIsOneCharacterAndComesBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const std::string text = FromCodePage(bytes);
  EXPECT_TRUE(IsValidUtf8(text));
  EXPECT_EQ(CountCharacters(text), 256u);
  EXPECT_EQ(ToCodePage(text), bytes);
  EXPECT_EQ(FromCodePage("\x80\x81\x8E\x9F\xA0\xE9\xFF"), "€\u0081ŽŸ\u00A0éÿ");
}

TEST(CodePage, WhatThePageDoesNotHoldBecomesOneQuestionMark) {
  // clang-format off
  const std::pair<const char*, const char*> rows[] = {
      {"a漢b", "a?b"}, {"\U0001F600", "?"}, {"\u0080\u0099", "??"}, {"Āā", "??"}, {"e\u0301", "e?"},
      {"\xff\xe9 \xc3", "?? ?"}, {"\xed\xa0\x80", "???"}};
  // clang-format on
  for (const auto& [text, bytes] : rows) EXPECT_EQ(ToCodePage(text), bytes) << text;
}

TEST(LetterCase, MapsTextsCharacterByCharacter) {
  // clang-format off
  const char* const rows[][4] = {  // text, upper, lower, proper
      {"the-BIG.one_two x", "THE-BIG.ONE_TWO X", "the-big.one_two x", "The-big.one_two X"},
      {"@[`{ 1st (x", "@[`{ 1ST (X", "@[`{ 1st (x", "@[`{ 1st (x"},
      {"éCOLE ÉTÉ ÿ÷×ʼn", "ÉCOLE ÉTÉ Ÿ÷×ʼN", "école été ÿ÷×ʼn", "École Été Ÿ÷×ʼn"},
      {"straße ẞ ŉ", "STRAßE ẞ ŉ", "straße ß ŉ", "Straße ß ŉ"},
      {"Жук ёж 漢字", "ЖУК ЁЖ 漢字", "жук ёж 漢字", "Жук Ёж 漢字"}, {"ǆ ǅ Ǆ", "Ǆ Ǆ Ǆ", "ǆ ǆ ǆ", "Ǆ Ǆ Ǆ"},
      {"ΟΔΟΣ ς ᾳ", "ΟΔΟΣ Σ ᾼ", "οδοσ ς ᾳ", "Οδοσ Σ ᾼ"}, {"ı İ", "I İ", "ı i", "I I"},
      {"a\xff\xe9z \U00010428", "A\xff\xe9Z \U00010400", "a\xff\xe9z \U00010428", "A\xff\xe9z \U00010400"},
  };
  // clang-format on
  for (const auto& [text, upper, lower, proper] : rows) {
    EXPECT_EQ(ToUpper(text), upper);
    EXPECT_EQ(ToLower(text), lower);
    EXPECT_EQ(ToProper(text), proper);
  }
}

TEST(LetterCase, WordsEndAtNullTabToReturnAndBlankOnly) {
  for (int c = 0; c < 0x80; ++c) {
    const std::string text{'-', static_cast<char>(c), 'b'};
    EXPECT_EQ(ToProper(text).back(), c == 0 || (c >= 9 && c <= 13) || c == 32 ? 'B' : 'b') << c;
  }
  EXPECT_EQ(ToProper("a\u00A0b\u2003c"), "A\u00A0b\u2003c");
}

TEST(LetterCase, ComparesByFoldedCharacters) {
  using Order = std::weak_ordering;
  // clang-format off
  const std::tuple<const char*, const char*, Order> rows[] = {
      {"", "a", Order::less}, {"Readme.TXT\xff", "README.txt\xff", Order::equivalent}, {"_", "A", Order::less},
      {"ÉΟΔΟΣ\u212Aẞ", "éοδοςkß", Order::equivalent}, {"ß", "ss", Order::greater},
      {"ı", "i", Order::greater}, {"İ", "i", Order::greater}, {"\xc3\xa9", "\xc3", Order::less}};
  // clang-format on
  for (const auto& [a, b, order] : rows) {
    EXPECT_EQ(CompareIgnoringCase(a, b), order) << a << " and " << b;
    EXPECT_EQ(CompareIgnoringCase(b, a), 0 <=> order) << b << " and " << a;
    EXPECT_EQ(EqualIgnoringCase(a, b), order == 0) << a << " and " << b;
  }
}

}  // namespace
}  // namespace tallowbrook
