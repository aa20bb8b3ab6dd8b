// New names: one file's name and the settings in, its new name out.
//
// The sample, the preview and the run share this code, which is what makes a preview worth
// looking at. Nothing here fails to its caller: a name lacks what a failed step would have added.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/keyword_mask.h"
#include "engine/rename_settings.h"
#include "engine/tag_mask.h"
#include "engine/unique_parameter.h"
#include "platform/regex.h"

namespace tallowbrook {

// At the head of a result that is no name; why there is none stands behind it.
inline constexpr std::string_view FailureMarker = "<0>";

class NameBuilder {
 public:
  NameBuilder(RenameSettings& settings, RandomNumberPool& pool, Clock& clock,
              const DateNames& names, Files& files);

  // `fileName` with extension; `counter` the sum of the increments so far; `directory` with its
  // "/" at the end, empty for the sample. Returns a new name (maybe an empty or an invalid one), a
  // date command ("<DateModified,9/11/2005 07:01:01>"), or FailureMarker and a reason. Feeds the
  // histories of the fields that it used.
  std::string BuildNewName(std::string_view fileName, std::int32_t counter,
                           std::string_view directory);

  // One of the two parts around the separator, NamePart or UniquePart; empty for any other.
  static constexpr int NamePart = 1;
  static constexpr int UniquePart = 2;
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
  std::string ReplaceInText(std::string_view text);
  std::string ReplaceByPattern(std::string_view text);
  std::string DateCommand() const;
  std::string FromTags(const NameParts& parts);

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
  KeywordMask keywordMask_;
  TagMask tagMask_;

  // The pattern compiled last; compiled again when the text or the case rule differs.
  std::optional<Regex> regex_;
  std::string regexPattern_;
  bool regexIgnoresCase_ = false;
  bool regexTried_ = false;
};

// Fills up a value that is shorter than the mask with the mask's first characters: "0012" for
// "0000" and "12". A longer value stays whole. Empty for a mode other than 1 and 2.
std::string ApplyMask(std::string_view mask, int mode, std::string_view value);

// The counter after a file: plus the increment's number, rounded to a whole one. A sum beyond 32
// bits leaves the counter as it was.
std::int32_t NextCounter(std::int32_t counter, const RenameSettings& settings);

}  // namespace tallowbrook
