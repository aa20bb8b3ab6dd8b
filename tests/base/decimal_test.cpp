// Numbers at the edges of 96 bits, and texts that are none.
#include "base/decimal.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

const char* const largest = "79228162514264337593543950335";

std::string TextOf(const std::optional<Decimal>& number) {
  return number ? number->ToText() : "none";
}

Decimal Read(const char* text) {
  return Decimal::Parse(text).value();
}

TEST(Decimal, ReadsAndWrites) {
  // clang-format off
  const char* const rows[][2] = {
      {"-0.50", "-0.5"}, {" +3. ", "3"}, {".05", "0.05"}, {"-0", "0"},
      {"-79228162514264337593543950335", "-79228162514264337593543950335"},
      {"79228162514264337593543950334.5", "79228162514264337593543950334"},
      {"79228162514264337593543950334.5000000000000001", largest},
      {"7.9228162514264337593543950336", "7.922816251426433759354395034"},
      {"0.00000000000000000000000000005", "0"},
      {"0.00000000000000000000000000015", "0.0000000000000000000000000002"},
      {"0.00000000000000000000000000005000000000000000000000000000000001", "0.0000000000000000000000000001"},
      {"0.0000000000000000000000000000000000000000000000000000000000000000000000000001", "0"},
      {"100000000000000000000000000000000000000000000000000000", "none"},
  };
  // clang-format on
  for (const auto& [text, result] : rows) {
    EXPECT_EQ(TextOf(Decimal::Parse(text)), result) << text;
    EXPECT_TRUE(IsNumeric(text)) << text;
  }
  for (const char* text :
       {"", " ", "-", ".", "1 2", "1.2.3", "--1", "- 1", "1e3", "1,000", "\t1"}) {
    EXPECT_FALSE(IsNumeric(text) || Decimal::Parse(text)) << text;
  }
}

TEST(Decimal, ReadsTheNumberAtTheStartOfAText) {
  const char* const rows[][2] = {{" -3.5x", "-3.5"}, {"1.2.3", "1.2"}, {".5kg", "0.5"},
                                 {"7-2", "7"},       {"+4)", "4"},     {"-", "0"},
                                 {"abc", "0"},       {"  ", "0"}};
  for (const auto& [text, number] : rows) EXPECT_EQ(LeadingNumber(text).ToText(), number) << text;
}

TEST(Decimal, Computes) {
  // clang-format off
  const char* const rows[][5] = {  // a, b, their sum, difference and product
      {"0.1", "0.2", "0.3", "-0.1", "0.02"}, {largest, "1", "none", "79228162514264337593543950334", largest},
      {largest, "0.4", largest, largest, "31691265005705735037417580134"},
      {largest, largest, "none", "0", "none"},
      {largest, "0.0000000000000000000000000001", largest, largest, "7.9228162514264337593543950335"},
      {"123456789.0123456789012345678", "-9876543.210987654321098765432",
       "113580245.80135802458013580237", "133333332.22333333322233333323", "-1219326311370217.9522618503264"},
  };
  // clang-format on
  for (const auto& [a, b, sum, difference, product] : rows) {
    EXPECT_EQ(TextOf(Read(a).Plus(Read(b))), sum) << a << " " << b;
    EXPECT_EQ(TextOf(Read(a).Minus(Read(b))), difference) << a << " " << b;
    EXPECT_EQ(TextOf(Read(a).Times(Read(b))), product) << a << " " << b;
    EXPECT_EQ(TextOf(Read(b).Times(Read(a))), product) << a << " " << b;
  }
}

TEST(Decimal, RoundsHalvesToTheEvenWholeNumberAndComparesByValue) {
  for (const auto& [text, number] :
       {std::pair{"0.5", 0}, {"1.5", 2}, {"-1.5", -2}, {"-2147483648.5", INT32_MIN}}) {
    EXPECT_EQ(Read(text).ToInt32(), number) << text;
  }
  EXPECT_FALSE(Read("2147483647.5").ToInt32());
  EXPECT_EQ(Read("1.50"), Read("1.5"));
  EXPECT_EQ(Decimal(INT64_MIN), Read("-9223372036854775808"));
  EXPECT_LT(Read("7.9228162514264337593543950335"), Read(largest));
  EXPECT_LT(Read("0"), Read("0.0000000000000000000000000001"));
}

}  // namespace
}  // namespace tallowbrook
