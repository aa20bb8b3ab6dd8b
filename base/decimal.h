// Exact decimals: 96 bits of digits and up to 28 of them behind the point, for start values,
// increments and letters counted as numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tallowbrook {

// All operations give nothing where the result leaves the range: a step that fails.
class Decimal {
 public:
  Decimal() = default;
  Decimal(std::int64_t value) : digits_(value) {}  // NOLINT: a whole number is a decimal

  // Blanks around, a sign, digits, one point: "12", "-0.50", " 7". Nothing for any other text,
  // an empty one included.
  static std::optional<Decimal> Parse(std::string_view text);

  std::optional<Decimal> Plus(const Decimal& other) const;
  std::optional<Decimal> Minus(const Decimal& other) const;
  std::optional<Decimal> Times(const Decimal& other) const;

  // Without trailing zeros behind the point: "12", "-0.5".
  std::string ToText() const;
  // Rounded to a whole number, halves to the even one. Nothing beyond 32 bits.
  std::optional<std::int32_t> ToInt32() const;

  bool operator==(const Decimal& other) const;
  bool operator<(const Decimal& other) const;

 private:
  __extension__ typedef __int128 Wide;
  Decimal(Wide digits, int scale) : digits_(digits), scale_(scale) {}
  static std::optional<Decimal> Checked(Wide digits, int scale);
  static void Align(Decimal& a, Decimal& b);

  Wide digits_ = 0;  // the value times 10 to the power of scale_
  int scale_ = 0;
};

// Whether the text has the form of a number, however large: Parse may still give nothing.
bool IsNumeric(std::string_view text);
// The number that a text is, rounded to a whole one, halves to the even one. Nothing for a text
// that is none, or one beyond the integer's range, which is at most 32 bits.
template <typename Integer = std::int32_t>
std::optional<Integer> WholeNumber(std::string_view text) {
  const std::optional<Decimal> number = Decimal::Parse(text);
  const std::optional<std::int32_t> whole = number ? number->ToInt32() : std::nullopt;
  if (!whole || !std::in_range<Integer>(*whole)) return std::nullopt;
  return static_cast<Integer>(*whole);
}
// A text of digits alone, 18 of them at most: nearly every start and every step of a counter is
// one, and each row of a run asks. Nothing for any other text.
std::optional<std::int64_t> PlainNumber(std::string_view text);
// The number at the start of a text, 0 if there is none: "12abc" is 12.
Decimal LeadingNumber(std::string_view text);

}  // namespace tallowbrook
