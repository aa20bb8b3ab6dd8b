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
  struct {
    const char *text, *result;
  } rows[] = {
      {"12", "12"},
      {"-0.50", "-0.5"},
      {" 7 ", "7"},
      {"+3.", "3"},
      {".25", "0.25"},
      {"-0", "0"},
      {"000100.00", "100"},
      {"0.05", "0.05"},
      {largest, largest},
      {"-79228162514264337593543950335", "-79228162514264337593543950335"},
      {"79228162514264337593543950336", "none"},
      {"79228162514264337593543950335.5", "none"},
      {"79228162514264337593543950334.5", "79228162514264337593543950334"},
      {"79228162514264337593543950334.5000000000000001", largest},
      {"7.9228162514264337593543950336", "7.922816251426433759354395034"},
      {"0.00000000000000000000000000005", "0"},
      {"0.00000000000000000000000000015", "0.0000000000000000000000000002"},
      {"0.0000000000000000000000000000500000000000000000000000000000000001",
       "0.0000000000000000000000000001"},
      {"0.0000000000000000000000000000000000000000000000000000000000000000000000000001", "0"},
      {"100000000000000000000000000000000000000000000000000000", "none"},
      {"", "none"},
      {" ", "none"},
      {"-", "none"},
      {".", "none"},
      {"1 2", "none"},
      {"1.2.3", "none"},
      {"--1", "none"},
      {"- 1", "none"},
      {"1e3", "none"},
      {"1,000", "none"},
      {"12abc", "none"},
      {"\t1", "none"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(TextOf(Decimal::Parse(row.text)), row.result) << row.text;
    EXPECT_TRUE(IsNumeric(row.text) || !Decimal::Parse(row.text)) << row.text;
  }
}

TEST(Decimal, ALargeNumberIsStillNumeric) {
  EXPECT_TRUE(IsNumeric(std::string(40, '9')));
  EXPECT_FALSE(Decimal::Parse(std::string(40, '9')));
  for (const char* text : {"", " ", "-", ".", "1e3", "1,000", "1 2", "x"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
}

TEST(Decimal, ReadsTheNumberAtTheStartOfAText) {
  struct {
    const char *text, *result;
  } rows[] = {{"12abc", "12"},  {" -3.5x", "-3.5"}, {"", "0"},    {"abc", "0"}, {"-", "0"},
              {"1.2.3", "1.2"}, {".5kg", "0.5"},    {"7-2", "7"}, {"   ", "0"}, {"+4)", "4"}};
  for (const auto& row : rows) EXPECT_EQ(LeadingNumber(row.text).ToText(), row.result) << row.text;
}

TEST(Decimal, Computes) {
  struct {
    const char *a, *b, *sum, *difference, *product;
  } rows[] = {
      {"7", "-2", "5", "9", "-14"},
      {"0.1", "0.2", "0.3", "-0.1", "0.02"},
      {"1.50", "0.5", "2", "1", "0.75"},
      {"9999999999999999", "26", "10000000000000025", "9999999999999973", "259999999999999974"},
      {largest, "1", "none", "79228162514264337593543950334", largest},
      {largest, "0.4", largest, largest, "31691265005705735037417580134"},
      {largest, "-1", "79228162514264337593543950334", "none", "-79228162514264337593543950335"},
      {largest, largest, "none", "0", "none"},
      {largest, "0", largest, largest, "0"},
      {"0.0000000000000000000000000001", "0.1", "0.1000000000000000000000000001",
       "-0.0999999999999999999999999999", "0"},
      {largest, "0.0000000000000000000000000001", largest, largest,
       "7.9228162514264337593543950335"},
      {"7922816251426433759354395033.5", "0.05", "7922816251426433759354395034",
       "7922816251426433759354395033.4", "396140812571321687967719751.68"},
      {"123456789.0123456789012345678", "-9876543.210987654321098765432",
       "113580245.80135802458013580237", "133333332.22333333322233333323",
       "-1219326311370217.9522618503264"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.a) + " and " + row.b);
    EXPECT_EQ(TextOf(Read(row.a).Plus(Read(row.b))), row.sum);
    EXPECT_EQ(TextOf(Read(row.a).Minus(Read(row.b))), row.difference);
    EXPECT_EQ(TextOf(Read(row.a).Times(Read(row.b))), row.product);
    EXPECT_EQ(TextOf(Read(row.b).Times(Read(row.a))), row.product);
  }
}

TEST(Decimal, RoundsHalvesToTheEvenWholeNumber) {
  struct {
    const char* text;
    std::optional<std::int32_t> number;
  } rows[] = {
      {"0.5", 0},
      {"1.5", 2},
      {"2.5", 2},
      {"2.51", 3},
      {"-0.5", 0},
      {"-1.5", -2},
      {"2147483647.5", std::nullopt},
      {"2147483647.4", 2147483647},
      {"-2147483648.5", INT32_MIN},
      {"-2147483649", std::nullopt},
      {largest, std::nullopt},
  };
  for (const auto& row : rows) EXPECT_EQ(Read(row.text).ToInt32(), row.number) << row.text;
}

TEST(Decimal, ComparesByValueNotByDigits) {
  EXPECT_EQ(Read("1.50"), Read("1.5"));
  EXPECT_EQ(Read("0.00"), Read("-0"));
  EXPECT_EQ(Decimal(INT64_MIN), Read("-9223372036854775808"));
  EXPECT_LT(Read("-1"), Read("0.0000000000000000000000000001"));
  EXPECT_LT(Read("7.9228162514264337593543950335"), Read(largest));
  EXPECT_FALSE(Read(largest) < Read(largest));
  EXPECT_FALSE(Read("0.0000000000000000000000000001") == Read("0"));
}

}  // namespace
}  // namespace tallowbrook
