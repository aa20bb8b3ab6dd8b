// Case beyond ASCII, and what must not change.
#include "base/letter_case.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

TEST(LetterCase, MapsTextsCharacterByCharacter) {
  // clang-format off
  const char* const rows[][4] = {  // text, upper, lower, proper
      {"the-BIG.one_two x", "THE-BIG.ONE_TWO X", "the-big.one_two x", "The-big.one_two X"},
      {"@[`{ 1st (x", "@[`{ 1ST (X", "@[`{ 1st (x", "@[`{ 1st (x"},
      {"éCOLE ÉTÉ ÿ÷×ʼn", "ÉCOLE ÉTÉ Ÿ÷×ʼN", "école été ÿ÷×ʼn", "École Été Ÿ÷×ʼn"},
      {"straße ẞ ŉ", "STRAßE ẞ ŉ", "straße ß ŉ", "Straße ß ŉ"},
      {"Жук ёж 漢字", "ЖУК ЁЖ 漢字", "жук ёж 漢字", "Жук Ёж 漢字"},
      {"ǆ ǅ Ǆ", "Ǆ Ǆ Ǆ", "ǆ ǆ ǆ", "Ǆ Ǆ Ǆ"},
      {"ΟΔΟΣ ς ᾳ", "ΟΔΟΣ Σ ᾼ", "οδοσ ς ᾳ", "Οδοσ Σ ᾼ"},
      {"ı İ", "I İ", "ı i", "I I"},
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
  const std::tuple<const char*, const char*, Order> rows[] = {
      {"", "a", Order::less},      {"Readme.TXT\xff", "README.txt\xff", Order::equivalent},
      {"_", "A", Order::less},     {"ÉΟΔΟΣ\u212Aẞ", "éοδοςkß", Order::equivalent},
      {"ß", "ss", Order::greater}, {"ı", "i", Order::greater},
      {"İ", "i", Order::greater},  {"\xc3\xa9", "\xc3", Order::less}};
  for (const auto& [a, b, order] : rows) {
    EXPECT_EQ(CompareIgnoringCase(a, b), order) << a << " and " << b;
    EXPECT_EQ(CompareIgnoringCase(b, a), 0 <=> order) << b << " and " << a;
    EXPECT_EQ(EqualIgnoringCase(a, b), order == 0) << a << " and " << b;
  }
}

}  // namespace
}  // namespace tallowbrook
