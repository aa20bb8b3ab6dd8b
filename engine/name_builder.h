// BuildNewName: the one place that says what a file is to be called.
//
// Preview, sample name and run all come here, so that what a user sees before is what happens. A
// step that fails is left out and the next one goes on; the call always returns a text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/rename_settings.h"
#include "engine/unique_parameter.h"
#include "platform/regex.h"

namespace tallowbrook {

// At the head of a result: the file gets no new name, and the text behind says why.
inline constexpr std::string_view FailureMarker = "<0>";

class NameBuilder {
 public:
  NameBuilder(RenameSettings& settings, RandomNumberPool& pool, Clock& clock,
              const DateNames& names);

  // `fileName` with extension; `counter` the sum of the increments so far; `directory` with its
  // "/" at the end, empty for the sample. Returns a new name (maybe an empty or an invalid one), a
  // date command ("<DateModified,9/11/2005 07:01:01>"), or FailureMarker and a reason. Feeds the
  // histories of the fields that it used.
  std::string BuildNewName(std::string_view fileName, std::int32_t counter,
                           std::string_view directory);

  // `part` 1 is the name after Combo_Original, 2 the unique parameter; any other is empty.
  std::string BuildUniqueParameter(int part, std::string_view baseName, std::int32_t counter);

 private:
  struct NameParts {
    std::string_view fileName;
    std::string_view base;
    std::string_view extension;
    std::string_view directory;
  };
  std::string ComposeProperties(const NameParts& parts, std::int32_t counter);
  std::string RemoveCharacters(const NameParts& parts) const;
  std::string FindAndReplace(const NameParts& parts);
  std::string ReplaceInText(std::string text);
  std::string ReplaceByPattern(std::string text);
  std::string DateCommand() const;

  std::string UniqueValue(std::int32_t counter);
  std::optional<std::string> NumberValue(std::int32_t counter);
  std::optional<std::string> LetterValue(std::int32_t counter);
  std::string DateValue(std::int32_t counter) const;
  // The start plus or minus the counter, as the direction says.
  static std::optional<std::string> Stepped(const Decimal& start, int direction,
                                            std::int32_t counter);

  RenameSettings& settings_;
  RandomNumberPool& pool_;
  Clock& clock_;
  const DateNames& names_;

  // The pattern compiled last; compiled again when the text or the case rule differs.
  std::optional<Regex> regex_;
  std::string regexPattern_;
  bool regexIgnoresCase_ = false;
  bool regexTried_ = false;
};

// A left-padding template: if `mask` is longer than `value`, its first characters stand before
// the value. Modes 1 and 2 only; empty for any other.
std::string ApplyMask(std::string_view mask, int mode, std::string_view value);

}  // namespace tallowbrook
