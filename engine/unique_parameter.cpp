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

bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

void SwapIfBackward(Text& first, Text& last) {
  const std::optional<Decimal> low = Decimal::Parse(first.Value());
  const std::optional<Decimal> high = Decimal::Parse(last.Value());
  if (!low || !high || !(*high < *low)) return;
  const std::string former = first.Value();
  first.Set(last.Value());
  last.Set(former);
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
  return static_cast<std::int32_t>(Below(std::int64_t{high} - low + 1) + low);
}

// For a size below 1, as of a backward range, it lies between the size and 0.
std::int64_t RandomNumberPool::Below(std::int64_t size) {
  constexpr std::int64_t secondsPerDay = 86400;
  random_.Reseed(static_cast<double>(clock_.Now().seconds % secondsPerDay));
  return static_cast<std::int64_t>(std::floor(random_.Next() * static_cast<double>(size)));
}

// The draws go through all numbers of the range, in ascending order, of which only the entries that
// a draw has moved are held: a drawn entry's place is taken by the last one.
std::optional<RandomNumberPool::Pool> RandomNumberPool::RandomNumbers(std::int32_t high,
                                                                      std::int32_t low,
                                                                      std::int64_t count) {
  std::int64_t size = std::int64_t{high} - low + 1;
  // The bound is one above what there is; drawing that many fails at the last.
  if (count < 1 || count > size + 1) return {};
  Pool drawn;
  drawn.reserve(static_cast<std::size_t>(count));
  std::unordered_map<std::int64_t, std::int32_t> moved;
  const auto entry = [&](std::int64_t at) {
    const auto found = moved.find(at);
    return found == moved.end() ? static_cast<std::int32_t>(low + at) : found->second;
  };
  while (static_cast<std::int64_t>(drawn.size()) < count) {
    if (size < 1) return {};
    const std::int64_t at = Below(size);
    drawn.push_back(entry(at));
    --size;
    moved[at] = entry(size);
    moved.erase(size);
  }
  return drawn;
}

std::int32_t RandomNumberPool::PrepareRandomPool() {
  const RenameSettings& s = settings_;
  if (s.Combo_Unique.Index() == UniqueNumbers && !IsNumeric(s.Text_UniqueStart.Value())) {
    settings_.Text_UniqueStart.Set("1");
  }
  RandomPool = EmptyPool();
  if (s.Combo_Unique.Index() == UniqueNumbers && s.Combo_Direction.Index() == DirectionRandom &&
      s.Check_UniqueOnly.On()) {
    DrawUnique();
  }
  return static_cast<std::int32_t>(list_.Count());
}

// A text that is no number, or none of 32 bits, leaves the empty pool as it is.
void RandomNumberPool::DrawUnique() {
  Text& startText = settings_.Text_UniqueStart;
  Text& lastText = settings_.Txt_RandomTo;
  const auto rows = static_cast<std::int64_t>(list_.Count());
  if (!IsNumeric(lastText.Value())) {
    const auto start = Decimal::Parse(startText.Value());
    const auto end = start ? start->Plus(rows) : std::nullopt;
    if (!end) return;
    lastText.Set(end->ToText());
  }
  SwapIfBackward(startText, lastText);
  const std::optional<std::int32_t> start = WholeNumber(startText.Value());
  std::optional<std::int32_t> last = WholeNumber(lastText.Value());
  if (!start || !last) return;
  const auto files = static_cast<std::int64_t>(list_.CountCheckedFiles());
  const std::int64_t needed = *start + files - 1;
  std::int64_t possible = std::int64_t{*last} - *start + 1;
  if (files > possible && AskToWiden(possible, needed)) {
    lastText.Set(std::to_string(needed));
    last = WholeNumber(lastText.Value());
    if (!last) return;
    possible = std::int64_t{*last} - *start + 1;
  }
  if (auto drawn = RandomNumbers(*last, *start, rows > possible ? possible : files)) {
    RandomPool = std::move(*drawn);
  }
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
