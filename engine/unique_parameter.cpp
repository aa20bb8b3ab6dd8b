#include "engine/unique_parameter.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "base/text.h"

namespace tallowbrook {

namespace {

constexpr std::size_t longestAlphaNumber = 16;
// The letters of 9999999999999999, the largest number of 16 digits.
constexpr std::string_view largestLetters = "BRUTMHYHIIZO";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::optional<std::int32_t> WholeNumber(std::string_view text) {
  const std::optional<Decimal> number = Decimal::Parse(text);
  return number ? number->ToInt32() : std::nullopt;
}

}  // namespace

std::optional<std::string> ToAlpha(std::string_view number) {
  const bool tooLong = CountCharacters(number) > longestAlphaNumber;
  if (tooLong || !std::all_of(number.begin(), number.end(), IsDigit)) return "###";
  if (number.empty()) return {};
  std::uint64_t rest = std::stoull(std::string(number));
  std::string letters;
  while (rest > 0) {
    // There is no digit zero: a remainder of 0 is a Z and takes one from the next place.
    const std::uint64_t digit = rest % 26;
    letters.insert(letters.begin(), digit == 0 ? 'Z' : static_cast<char>('A' + digit - 1));
    rest = rest / 26 - (digit == 0 ? 1 : 0);
  }
  return letters;
}

std::optional<Decimal> ToNumber(std::string_view letters) {
  std::string columns(letters);
  const std::size_t length = CountCharacters(letters);
  if (length < largestLetters.size()) columns.insert(0, largestLetters.size() - length, ' ');
  if (columns > largestLetters) return Decimal(-1);
  if (!std::all_of(letters.begin(), letters.end(), IsLetter)) return Decimal(-1);
  std::optional<Decimal> sum = Decimal(0);
  for (const char letter : letters) {
    sum = sum->Times(26);
    if (sum) sum = sum->Plus((letter & ~0x20) - 'A' + 1);
    if (!sum) return {};
  }
  return sum;
}

RandomNumberPool::RandomNumberPool(RenameSettings& settings, FileList& list, Dialogs& dialogs,
                                   Clock& clock, RandomSource& random)
    : settings_(settings), list_(list), dialogs_(dialogs), clock_(clock), random_(random) {}

std::int32_t RandomNumberPool::RandomInRange(std::int32_t high, std::int32_t low) {
  constexpr std::int64_t secondsPerDay = 86400;
  random_.Reseed(static_cast<double>(clock_.Now().seconds % secondsPerDay));
  const double span = static_cast<double>(high) - low + 1;
  return static_cast<std::int32_t>(std::floor(random_.Next() * span) + low);
}

// Draws without repeats go through the list of all integers from low to high, of which only the
// entries that a draw has moved are held: a drawn entry's place is taken by the last one.
std::optional<std::vector<std::optional<std::int32_t>>> RandomNumberPool::RandomNumbers(
    std::int32_t high, std::int32_t low, std::int64_t count, bool unique) {
  // One more than there are distinct values; drawing that many then fails.
  if (count > std::int64_t{high} - low + 2 || count < 1) return {};
  std::vector<std::optional<std::int32_t>> drawn;
  drawn.reserve(static_cast<std::size_t>(count));
  std::unordered_map<std::int64_t, std::int32_t> moved;
  std::int64_t size = std::int64_t{high} - low + 1;
  const auto entry = [&](std::int64_t at) {
    const auto found = moved.find(at);
    return found == moved.end() ? static_cast<std::int32_t>(low + at - 1) : found->second;
  };
  while (static_cast<std::int64_t>(drawn.size()) < count) {
    if (size < 1 || size > INT32_MAX) return {};
    const std::int64_t at = RandomInRange(static_cast<std::int32_t>(size), 1);
    drawn.push_back(entry(at));
    if (!unique) continue;
    moved[at] = entry(size);
    moved.erase(size);
    --size;
  }
  return drawn;
}

std::int32_t RandomNumberPool::PrepareRandomPool() {
  const RenameSettings& s = settings_;
  if (s.Combo_Unique.Index() == UniqueNumbers && !IsNumeric(s.Text_UniqueStart.Value())) {
    settings_.Text_UniqueStart.Set("1");
  }
  RandomPool.assign(2, std::nullopt);
  if (s.Combo_Unique.Index() == UniqueNumbers && s.Combo_Direction.Index() == DirectionRandom &&
      s.Check_UniqueOnly.On()) {
    DrawUnique();
  }
  return static_cast<std::int32_t>(list_.Count());
}

// A text that is no number of 32 bits leaves the empty pool as it is.
void RandomNumberPool::DrawUnique() {
  Text& startText = settings_.Text_UniqueStart;
  Text& randomTo = settings_.Txt_RandomTo;
  const auto rows = static_cast<std::int64_t>(list_.Count());
  std::optional<std::int32_t> start = WholeNumber(startText.Value());
  if (!start) return;
  if (!IsNumeric(randomTo.Value())) randomTo.Set(std::to_string(*start + rows));
  std::optional<std::int32_t> last = WholeNumber(randomTo.Value());
  if (!last) return;
  if (*start > *last) {
    std::swap(start, last);
    const std::string former = startText.Value();
    startText.Set(randomTo.Value());
    randomTo.Set(former);
  }
  const auto files = static_cast<std::int64_t>(list_.CountCheckedFiles());
  std::int64_t possible = std::int64_t{*last} - *start + 1;
  if (files > possible && AskToWiden(possible, *start + files - 1)) {
    randomTo.Set(std::to_string(*start + files - 1));
    last = WholeNumber(randomTo.Value());
    if (!last) return;
    possible = std::int64_t{*last} - *start + 1;
  }
  const std::int64_t count = rows > possible ? possible : files;
  // No numbers at all, as when no row is checked: an empty pool, which lets no row pass.
  RandomPool = RandomNumbers(*last, *start, count, true)
                   .value_or(std::vector<std::optional<std::int32_t>>{});
}

bool RandomNumberPool::AskToWiden(std::int64_t possible, std::int64_t needed) {
  std::string text =
      "There are more files to rename than you have specified with random numbers.\r\n\r\n";
  text += "Your unique random numbers are from " + settings_.Text_UniqueStart.Value() + " and " +
          settings_.Txt_RandomTo.Value() + " which only gives ";
  text += std::to_string(possible) + " possible combinations\r\n\r\n";
  text += "Click 'Yes' to change the 'Random To' value to " + std::to_string(needed) + "\r\n\r\n";
  text += "Click 'No' to stop renaming files once all the current unique random numbers are used";
  return dialogs_.Ask({"Question", text, Buttons::YesNo}) == Answer::Yes;
}

bool RandomNumberPool::UsedUp() const {
  return settings_.Check_UniqueOnly.On() && settings_.TabIndex.Index() == PageProperties &&
         std::int64_t{RandomPoolIndex} >= static_cast<std::int64_t>(RandomPool.size()) - 1;
}

}  // namespace tallowbrook
