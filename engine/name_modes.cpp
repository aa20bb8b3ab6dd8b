// The two pages that change the name that is there: cutting characters out of it, and replacing
// text in it.
#include <algorithm>
#include <charconv>

#include "base/text.h"
#include "engine/name_builder.h"

namespace tallowbrook {

namespace {

// The number that the selected item shows. Nothing for an item that shows none.
std::optional<int> NumberOf(const List& list) {
  const std::string& text = list.ItemText();
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() ? std::optional(number) : std::nullopt;
}

// Appends what a step gave; a step that failed gave nothing.
void Append(std::string& result, std::optional<std::string_view> piece) {
  if (piece) result += *piece;
}

}  // namespace

// What stays is a left and a right piece of the base name. A negative length is a failed step: that
// piece is missing then, whatever becomes of the other one.
std::string NameBuilder::RemoveCharacters(const NameParts& parts) const {
  const std::ptrdiff_t start = NumberOf(settings_.Combo_RemoveStarting).value_or(1);
  const std::ptrdiff_t count = NumberOf(settings_.Combo_RemoveChars).value_or(0);
  const auto length = static_cast<std::ptrdiff_t>(CountCharacters(parts.base));
  const std::ptrdiff_t charsToRemove = start == 1 ? std::min(count, length) : count;
  std::string name;
  if (settings_.Check_StartFromLast.On()) {
    Append(name, LeftCharacters(parts.base, length - (start + charsToRemove) + 1));
    if (start > 1) Append(name, RightCharacters(parts.base, start - 1));
  } else {
    if (start > 1) Append(name, LeftCharacters(parts.base, start - 1));
    Append(name, RightCharacters(parts.base, length - (start + charsToRemove - 1)));
  }
  name += '.';
  name += parts.extension;
  return name;
}

std::string NameBuilder::FindAndReplace(const NameParts& parts) {
  const bool inBase = settings_.Option_Search2.On();
  const bool inExtension = settings_.Option_Search3.On();
  const std::string_view searched = inBase        ? parts.base
                                    : inExtension ? parts.extension
                                                  : parts.fileName;
  std::string found;
  // Without a text to find, the part to be searched is left out of the name. That is wanted.
  if (!settings_.Combo_Find.Value().empty()) {
    AddToComboHistory(settings_.Combo_Find);
    if (!settings_.Combo_Replace.Value().empty()) AddToComboHistory(settings_.Combo_Replace);
    found = ReplaceInText(searched);
  }
  if (inBase) return found.append(".").append(parts.extension);
  if (inExtension) return std::string(parts.base).append(".").append(found);
  return found;
}

std::string NameBuilder::ReplaceInText(std::string_view text) {
  if (settings_.Check_RegExp.On()) return ReplaceByPattern(text);
  const bool all = settings_.Combo_Occurances.Index() == 0;
  const std::optional<int> limit = all ? std::nullopt : NumberOf(settings_.Combo_Occurances);
  if (!all && !limit) return std::string(text);
  return ReplaceText(text, settings_.Combo_Find.Value(), settings_.Combo_Replace.Value(),
                     all ? std::string::npos : static_cast<std::size_t>(*limit),
                     !settings_.Check_CaseSensitive.On());
}

// With a limit, each pass searches the whole outcome of the pass before it: what was put in can
// match once more.
std::string NameBuilder::ReplaceByPattern(std::string_view text) {
  const std::string& pattern = settings_.Combo_Find.Value();
  const bool ignoreCase = !settings_.Check_CaseSensitive.On();
  if (!regexTried_ || pattern != regexPattern_ || ignoreCase != regexIgnoresCase_) {
    regex_ = Regex::Compile(pattern, ignoreCase);
    regexPattern_ = pattern;
    regexIgnoresCase_ = ignoreCase;
    regexTried_ = true;
  }
  if (!regex_) return std::string(text);
  const std::string& replacement = settings_.Combo_Replace.Value();
  if (settings_.Combo_Occurances.Index() == 0) {
    if (auto replaced = regex_->Replace(text, replacement, true)) return *std::move(replaced);
  } else if (const std::optional<int> times = NumberOf(settings_.Combo_Occurances)) {
    if (auto replaced = regex_->ReplaceInTurn(text, replacement, *times)) {
      return *std::move(replaced);
    }
  }
  return std::string(text);
}

}  // namespace tallowbrook
