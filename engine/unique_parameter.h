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

// Bijective base 26, "A" is 1: upper-case letters for a text of up to 16 digits, "###" for a
// longer one or one that holds anything but digits; 0 is an empty text. An empty text is none:
// nothing.
std::optional<std::string> ToAlpha(std::string_view number);
// The inverse; -1 for a text that is no letters or that is too large. "Too large" goes by the
// character codes of the text in 12 columns, so that a text of 12 letters that begins in lower
// case is always refused, and a text of 13 letters that compares low passes. Nothing beyond the
// range of an exact decimal.
std::optional<Decimal> ToNumber(std::string_view letters);

// The unique random numbers of one run or preview.
class RandomNumberPool {
 public:
  RandomNumberPool(RenameSettings& settings, FileList& list, Dialogs& dialogs, Clock& clock,
                   RandomSource& random);

  // Entries are empty until a pool of numbers is drawn.
  std::vector<std::optional<std::int32_t>> RandomPool;
  // The entry that belongs to the present file; raised just before each file.
  std::int32_t RandomPoolIndex = -1;

  // Makes the pool anew, as the settings ask for one; may ask whether to widen the range.
  // Returns the number of rows.
  std::int32_t PrepareRandomPool();
  // Whether the numbers are used up: then a row counts as not selected. It looks at
  // Check_UniqueOnly and the page alone; with another direction chosen the pool is the empty one
  // of two entries and just two files pass, which is how it must be.
  bool UsedUp() const;
  // Uniform from low to high, both included.
  std::int32_t RandomInRange(std::int32_t high, std::int32_t low);

 private:
  void DrawUnique();
  // Asks whether to raise the upper bound to `needed`.
  bool AskToWiden(std::int64_t possible, std::int64_t needed);
  std::optional<std::vector<std::optional<std::int32_t>>> RandomNumbers(std::int32_t high,
                                                                        std::int32_t low,
                                                                        std::int64_t count,
                                                                        bool unique);

  RenameSettings& settings_;
  FileList& list_;
  Dialogs& dialogs_;
  Clock& clock_;
  RandomSource& random_;
};

}  // namespace tallowbrook
