// Case beyond ASCII, and what must not change.
#include "base/letter_case.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

TEST(LetterCase, MapsTextsCharacterByCharacter) {
  struct {
    const char *text, *upper, *lower, *proper;
  } rows[] = {
      {"", "", "", ""},
      {"the-BIG.one_two x", "THE-BIG.ONE_TWO X", "the-big.one_two x", "The-big.one_two X"},
      {"@[`{ 1st (x", "@[`{ 1ST (X", "@[`{ 1st (x", "@[`{ 1st (x"},
      {"éCOLE ÉTÉ", "ÉCOLE ÉTÉ", "école été", "École Été"},
      {"straße", "STRAßE", "straße", "Straße"},
      {"ẞ", "ẞ", "ß", "ß"},
      {"Жук ёж", "ЖУК ЁЖ", "жук ёж", "Жук Ёж"},
      {"ǆ ǅ Ǆ", "Ǆ Ǆ Ǆ", "ǆ ǆ ǆ", "Ǆ Ǆ Ǆ"},
      {"ΟΔΟΣ ς", "ΟΔΟΣ Σ", "οδοσ ς", "Οδοσ Σ"},
      {"ᾳ", "ᾼ", "ᾳ", "ᾼ"},
      {"ı İ", "I İ", "ı i", "I I"},
      {"ÿ÷×ʼn", "Ÿ÷×ʼN", "ÿ÷×ʼn", "Ÿ÷×ʼn"},
      {"ŉ", "ŉ", "ŉ", "ŉ"},
      {"\U00010428", "\U00010400", "\U00010428", "\U00010400"},
      {"a\xff\xe9z", "A\xff\xe9Z", "a\xff\xe9z", "A\xff\xe9z"},
      {"漢字 \U0001F600", "漢字 \U0001F600", "漢字 \U0001F600", "漢字 \U0001F600"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(ToUpper(row.text), row.upper);
    EXPECT_EQ(ToLower(row.text), row.lower);
    EXPECT_EQ(ToProper(row.text), row.proper);
  }
}

TEST(LetterCase, WordsEndAtNullTabToReturnAndBlankOnly) {
  for (int c = 0; c < 0x80; ++c) {
    const std::string between(1, static_cast<char>(c));
    const bool ends = c == 0 || (c >= 9 && c <= 13) || c == 32;
    EXPECT_EQ(ToProper("-" + between + "b").back(), ends ? 'B' : 'b') << c;
  }
  EXPECT_EQ(ToProper("a\u00A0b\u2003c"), "A\u00A0b\u2003c");
}

TEST(LetterCase, NoMappingLeavesTheCodePoints) {
  for (char32_t code = 0; code < 0x110000; ++code) {
    for (char32_t mapped : {ToUpper(code), ToLower(code), FoldCase(code)}) {
      const bool surrogate = mapped >= 0xD800 && mapped <= 0xDFFF;
      ASSERT_TRUE(mapped == code || (mapped < 0x110000 && !surrogate)) << std::uint32_t{code};
    }
    ASSERT_EQ(FoldCase(FoldCase(code)), FoldCase(code)) << std::uint32_t{code};
  }
}

TEST(LetterCase, ComparesByFoldedCharacters) {
  struct {
    const char *a, *b;
    std::weak_ordering order;
  } rows[] = {
      {"", "", std::weak_ordering::equivalent},
      {"", "a", std::weak_ordering::less},
      {"Readme.TXT", "README.txt", std::weak_ordering::equivalent},
      {"a", "B", std::weak_ordering::less},
      {"A", "b", std::weak_ordering::less},
      {"ab", "A", std::weak_ordering::greater},
      {"_", "A", std::weak_ordering::less},
      {"É", "é", std::weak_ordering::equivalent},
      {"ΟΔΟΣ", "οδος", std::weak_ordering::equivalent},
      {"\u212A", "k", std::weak_ordering::equivalent},
      {"ẞ", "ß", std::weak_ordering::equivalent},
      {"ß", "ss", std::weak_ordering::greater},
      {"ı", "i", std::weak_ordering::greater},
      {"İ", "i", std::weak_ordering::greater},
      {"\xff", "\xff", std::weak_ordering::equivalent},
      {"\xc3\xa9", "\xc3", std::weak_ordering::less},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(CompareIgnoringCase(row.a, row.b), row.order) << row.a << " and " << row.b;
    EXPECT_EQ(CompareIgnoringCase(row.b, row.a), 0 <=> row.order) << row.b << " and " << row.a;
    EXPECT_EQ(EqualIgnoringCase(row.a, row.b), row.order == 0) << row.a << " and " << row.b;
  }
}

}  // namespace
}  // namespace tallowbrook
