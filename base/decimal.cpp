// Decimal arithmetic on 128-bit whole numbers.
//
// A value has at most 29 digits; working values have up to 38. Digits that a working value can't
// hold are cut off, but leave a trace in its last digit, so that the one rounding at the end
// still sees on which side of a half it stands.
#include "base/decimal.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "base/text.h"

namespace tallowbrook {
namespace {

__extension__ typedef __int128 Wide;

constexpr int mostScale = 28;
constexpr int mostWorkingDigits = 38;
constexpr Wide largest = (static_cast<Wide>(1) << 96) - 1;

constexpr auto powersOfTen = [] {
  std::array<Wide, mostWorkingDigits + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

constexpr Wide PowerOfTen(int exponent) {
  return powersOfTen[static_cast<std::size_t>(exponent)];
}
constexpr Wide Magnitude(Wide value) {
  return value < 0 ? -value : value;
}
int CountDigits(Wide value) {
  int count = 0;
  for (Wide rest = Magnitude(value); rest != 0; rest /= 10) ++count;
  return count;
}

// Marks in the last digit that something other than zeros was cut off behind it: a 0 or a 5,
// which could pass for an exact value or an exact half, moves away from zero by one.
Wide WithTrace(Wide value, bool cutOff, bool negative) {
  if (!cutOff || value % 5 != 0) return value;
  return negative ? value - 1 : value + 1;
}

Wide CutDigits(Wide value, int count) {
  const Wide divisor = PowerOfTen(count);
  return WithTrace(value / divisor, value % divisor != 0, value < 0);
}

// Halves go to the even neighbour.
Wide RoundDigits(Wide value, int count) {
  if (count == 0) return value;
  const Wide divisor = PowerOfTen(count);
  const Wide quotient = value / divisor;
  const Wide rest = Magnitude(value % divisor);
  const bool up = rest > divisor - rest || (rest == divisor - rest && quotient % 2 != 0);
  if (!up) return quotient;
  return value < 0 ? quotient - 1 : quotient + 1;
}

// The sign, digits and point at the start of a text; empty without a digit.
std::string_view NumberAtStart(std::string_view text) {
  std::size_t at = 0, digits = 0;
  const auto takeDigits = [&] {
    for (; at < text.size() && IsDigit(text[at]); ++at) ++digits;
  };
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  takeDigits();
  if (at < text.size() && text[at] == '.') {
    ++at;
    takeDigits();
  }
  return digits == 0 ? std::string_view{} : text.substr(0, at);
}

}  // namespace

std::optional<std::int64_t> PlainNumber(std::string_view text) {
  if (text.empty() || text.size() > std::numeric_limits<std::int64_t>::digits10) return {};
  std::int64_t number = 0;
  for (const char c : text) {
    if (!IsDigit(c)) return {};
    number = number * 10 + (c - '0');
  }
  return number;
}

std::optional<Decimal> Decimal::Checked(Wide digits, int scale) {
  if (scale <= mostScale && Magnitude(digits) <= largest) return Decimal(digits, scale);
  int excess = std::max(0, scale - mostScale);
  if (excess > mostWorkingDigits) return Decimal();
  for (; excess <= scale; ++excess) {
    const Wide rounded = RoundDigits(digits, excess);
    if (Magnitude(rounded) <= largest) return Decimal(rounded, scale - excess);
  }
  return std::nullopt;
}

// Brings both to one scale. Where that takes more than the working digits, the operand with the
// finer scale loses what is far below the last digit of any result.
void Decimal::Align(Decimal& a, Decimal& b) {
  if (a.scale_ == b.scale_) return;
  Decimal& coarse = a.scale_ < b.scale_ ? a : b;
  Decimal& fine = a.scale_ < b.scale_ ? b : a;
  const int gap = fine.scale_ - coarse.scale_;
  const int room = mostWorkingDigits - 1 - CountDigits(coarse.digits_);
  const int widened = coarse.digits_ == 0 ? gap : std::min(gap, room);
  coarse.digits_ *= PowerOfTen(widened);
  coarse.scale_ += widened;
  fine.digits_ = CutDigits(fine.digits_, gap - widened);
  fine.scale_ -= gap - widened;
}

std::optional<Decimal> Decimal::Parse(std::string_view text) {
  if (const auto plain = PlainNumber(text)) return Decimal(*plain);
  if (!IsNumeric(text)) return std::nullopt;
  text = TrimBlanks(text);
  const bool negative = text[0] == '-';
  Wide digits = 0;
  int scale = 0;
  bool behindPoint = false, cutOff = false;
  for (char c : text) {
    if (c == '.') behindPoint = true;
    if (!IsDigit(c)) continue;
    if (digits < PowerOfTen(mostWorkingDigits - 2)) {
      digits = digits * 10 + (c - '0');
      if (behindPoint) ++scale;
    } else if (!behindPoint) {
      return std::nullopt;
    } else {
      cutOff = cutOff || c != '0';
    }
  }
  digits = WithTrace(digits, cutOff, false);
  return Checked(negative ? -digits : digits, scale);
}

std::optional<Decimal> Decimal::Plus(const Decimal& other) const {
  Decimal a = *this, b = other;
  Align(a, b);
  return Checked(a.digits_ + b.digits_, a.scale_);
}

std::optional<Decimal> Decimal::Minus(const Decimal& other) const {
  return Plus(Decimal(-other.digits_, other.scale_));
}

std::optional<Decimal> Decimal::Times(const Decimal& other) const {
  // Long multiplication with two halves of 15 digits; the product is high * 10^30 + low.
  constexpr int half = 15;
  const Wide base = PowerOfTen(half);
  const Wide aHigh = Magnitude(digits_) / base, aLow = Magnitude(digits_) % base;
  const Wide bHigh = Magnitude(other.digits_) / base, bLow = Magnitude(other.digits_) % base;
  const Wide middle = aHigh * bLow + aLow * bHigh + aLow * bLow / base;
  const Wide low = middle % base * base + aLow * bLow % base;
  const Wide high = aHigh * bHigh + middle / base;

  const int cut = std::max(0, CountDigits(high) + 2 * half - mostWorkingDigits);
  Wide product = high * PowerOfTen(2 * half - cut) + low / PowerOfTen(cut);
  product = WithTrace(product, low % PowerOfTen(cut) != 0, false);
  const bool negative = (digits_ < 0) != (other.digits_ < 0);
  return Checked(negative ? -product : product, scale_ + other.scale_ - cut);
}

std::string Decimal::ToText() const {
  // Every row of a run comes here with a whole number.
  if (const auto whole = static_cast<std::int64_t>(digits_); scale_ == 0 && whole == digits_) {
    return std::to_string(whole);
  }
  Wide rest = Magnitude(digits_);
  int scale = scale_;
  for (; scale > 0 && rest % 10 == 0; --scale) rest /= 10;
  std::string text;  // from the last character to the first
  for (int place = 0; rest != 0 || place <= scale; ++place, rest /= 10) {
    if (place == scale && scale > 0) text += '.';
    text += static_cast<char>('0' + static_cast<int>(rest % 10));
  }
  if (digits_ < 0) text += '-';
  return {text.rbegin(), text.rend()};
}

std::optional<std::int32_t> Decimal::ToInt32() const {
  using Limits = std::numeric_limits<std::int32_t>;
  const Wide whole = RoundDigits(digits_, scale_);
  if (whole < Limits::min() || whole > Limits::max()) return std::nullopt;
  return static_cast<std::int32_t>(whole);
}

bool Decimal::operator==(const Decimal& other) const {
  Decimal a = *this, b = other;
  Align(a, b);
  return a.digits_ == b.digits_;
}

bool Decimal::operator<(const Decimal& other) const {
  Decimal a = *this, b = other;
  Align(a, b);
  return a.digits_ < b.digits_;
}

bool IsNumeric(std::string_view text) {
  text = TrimBlanks(text);
  return !text.empty() && NumberAtStart(text).size() == text.size();
}

Decimal LeadingNumber(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return Decimal::Parse(NumberAtStart(text.substr(first))).value_or(Decimal());
}

}  // namespace tallowbrook
