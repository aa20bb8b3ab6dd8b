// The values that keep new names apart: letters as numbers, random numbers, and the pool of
// unique ones that a run or a preview draws from.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/decimal.h"
#include "base/dialogs.h"
#include "engine/rename_settings.h"
#include "filelist/file_list.h"
#include "platform/clock.h"
#include "platform/random.h"

namespace tallowbrook {

// Upper-case letters of a number in bijective base 26, where "A" is 1 and "AA" 27. "###" for a
// text of more than 16 characters or with anything but digits in it. Empty for 0; nothing for an
// empty text, which is no number.
std::optional<std::string> ToAlpha(std::string_view number);
// The number of letters; -1 for what is no letters or lies above the limit of 16 digits. The limit
// is compared as text in 12 columns and not as a value: lower case sorts above it, and a longer
// text may sort below it. Nothing beyond the range of an exact decimal.
std::optional<Decimal> ToNumber(std::string_view letters);

// The unique random numbers of one run or preview.
class RandomNumberPool {
 public:
  RandomNumberPool(RenameSettings& settings, FileList& list, Dialogs& dialogs, Clock& clock,
                   RandomSource& random);

  using Pool = std::vector<std::optional<std::int32_t>>;
  // Two empty entries as long as no numbers are drawn.
  Pool RandomPool = EmptyPool();
  // The entry that belongs to the present file; raised just before each file.
  std::int32_t RandomPoolIndex = -1;

  // Makes the pool anew, as the settings ask for one; may ask whether to widen the range.
  // Returns the number of rows.
  std::int32_t PrepareRandomPool();
  // Whether a row counts as not selected because the numbers have run out. Only the tick and the
  // page decide: a tick left over from another direction meets the two empty entries, so that
  // two files go through. That is wanted.
  bool UsedUp() const;
  // Uniform from low to high, both included.
  std::int32_t RandomInRange(std::int32_t high, std::int32_t low);

 private:
  void DrawUnique();
  // Asks whether to raise the upper bound to `needed`.
  bool AskToWiden(std::int64_t possible, std::int64_t needed);
  static Pool EmptyPool() { return Pool(2); }
  // `count` different numbers from low to high, in the order drawn; nothing if there aren't as
  // many.
  std::optional<Pool> RandomNumbers(std::int32_t high, std::int32_t low, std::int64_t count);
  // Uniform from 0 to size - 1.
  std::int64_t Below(std::int64_t size);

  RenameSettings& settings_;
  FileList& list_;
  Dialogs& dialogs_;
  Clock& clock_;
  RandomSource& random_;
};

}  // namespace tallowbrook
