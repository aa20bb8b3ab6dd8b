#include "engine/name_builder.h"

#include <utility>

#include "base/letter_case.h"
#include "base/text.h"

namespace tallowbrook {

namespace {

std::string Formed(std::string_view text, int form) {
  switch (form) {
    case FormUpper:
      return ToUpper(text);
    case FormLower:
      return ToLower(text);
    case FormProper:
      return ToProper(text);
    default:
      return std::string(text);
  }
}

// "7", "07" and " 7 " are all "07"; a text that is no number stays as it is.
std::string TwoDigits(const std::string& text) {
  const std::optional<std::int32_t> whole = WholeNumber(text);
  if (!whole) return text;
  return (*whole >= 0 && *whole < 10 ? "0" : "") + std::to_string(*whole);
}

}  // namespace

std::string ApplyMask(std::string_view mask, int mode, std::string_view value) {
  if (mode != 1 && mode != 2) return {};
  const std::size_t maskLength = CountCharacters(mask);
  const std::size_t valueLength = CountCharacters(value);
  std::string result;
  if (maskLength > valueLength) {
    result = *LeftCharacters(mask, static_cast<std::ptrdiff_t>(maskLength - valueLength));
  }
  result += value;
  return result;
}

std::int32_t NextCounter(std::int32_t counter, const RenameSettings& settings) {
  const std::string& increment = settings.Text_UniqueIncrement.Value();
  if (const auto plain = PlainNumber(increment)) {
    const std::int64_t sum = counter + *plain;
    return std::in_range<std::int32_t>(sum) ? static_cast<std::int32_t>(sum) : counter;
  }
  const std::optional<Decimal> sum = LeadingNumber(increment).Plus(counter);
  return sum ? sum->ToInt32().value_or(counter) : counter;
}

NameBuilder::NameBuilder(RenameSettings& settings, RandomNumberPool& pool, Clock& clock,
                         const DateNames& names, Files& files)
    : settings_(settings),
      pool_(pool),
      clock_(clock),
      names_(names),
      keywordMask_(files, clock),
      tagMask_(files) {}

std::string NameBuilder::BuildNewName(std::string_view fileName, std::int32_t counter,
                                      std::string_view directory) {
  const NameParts parts{fileName, BaseNameOf(fileName), ExtensionOf(fileName), directory};
  switch (settings_.TabIndex.Index()) {
    case PageProperties:
      return ComposeProperties(parts, counter);
    case PageDelete:
      return RemoveCharacters(parts);
    case PageReplace:
      return FindAndReplace(parts);
    case PageAdvanced:
      if (settings_.Option_ChangeFileDate.On()) return DateCommand();
      return keywordMask_.ExpandKeywords(settings_.RTxt_Unique_Other.Value(), parts.base, fileName,
                                         directory, parts.extension);
    case PageTags:
      return FromTags(parts);
    default:
      return {};
  }
}

std::string NameBuilder::ComposeProperties(const NameParts& parts, std::int32_t counter) {
  const RenameSettings& s = settings_;
  std::string base(parts.base);
  std::string extension(parts.extension);
  if (s.Combo_Original.Index() == FormCustom) {
    base = s.Combo_OriginalName.Value();
    AddToComboHistory(settings_.Combo_OriginalName);
  }
  if (s.Combo_Extension.Index() == FormCustom) extension = s.Text_Extension.Value();
  const bool uniqueFirst = s.Check_UniqueFirst.On();
  std::string name;
  if (s.Check_Prefix.On()) name += s.Text_Prefix.Value();
  name += BuildUniqueParameter(uniqueFirst ? UniquePart : NamePart, base, counter);
  if (s.Check_Seperator.On()) name += s.Text_Seperator.Value();
  name += BuildUniqueParameter(uniqueFirst ? NamePart : UniquePart, base, counter);
  if (s.Check_Suffix.On()) name += s.Text_Suffix.Value();
  if (s.Check_Extension.On() && !extension.empty()) {
    name += '.';
    name += Formed(extension, s.Combo_Extension.Index());
  }
  return name;
}

std::string NameBuilder::BuildUniqueParameter(int part, std::string_view baseName,
                                              std::int32_t counter) {
  if (part == UniquePart) return settings_.Check_Unique.On() ? UniqueValue(counter) : std::string();
  if (part != NamePart || !settings_.Check_Original.On()) return {};
  return Formed(baseName, settings_.Combo_Original.Index());
}

std::string NameBuilder::UniqueValue(std::int32_t counter) {
  const std::string& mask = settings_.Text_UniqueMask.Value();
  switch (settings_.Combo_Unique.Index()) {
    case UniqueNumbers:
      return ApplyMask(mask, 1, NumberValue(counter).value_or(""));
    case UniqueLetters: {
      const std::optional<std::string> letters = ToAlpha(LetterValue(counter).value_or(""));
      return letters ? ApplyMask(mask, 1, ToLower(*letters)) : std::string();
    }
    case UniqueDates:
      return DateValue(counter);
    default:
      return {};
  }
}

std::optional<std::string> NameBuilder::NumberValue(std::int32_t counter) {
  const std::string& startText = settings_.Text_UniqueStart.Value();
  const int direction = settings_.Combo_Direction.Index();
  if (direction == DirectionKeep) return startText;
  const std::optional<Decimal> start = Decimal::Parse(startText);
  if (direction == DirectionIncrement || direction == DirectionDecrement) {
    return start ? Stepped(*start, direction, counter) : std::nullopt;
  }
  if (direction != DirectionRandom) return {};
  if (!settings_.Check_UniqueOnly.On()) {
    const std::optional<Decimal> last = Decimal::Parse(settings_.Txt_RandomTo.Value());
    const auto low = start ? start->ToInt32() : std::nullopt;
    const auto high = last ? last->ToInt32() : std::nullopt;
    if (!low || !high) return {};
    return std::to_string(pool_.RandomInRange(*high, *low));
  }
  const auto index = static_cast<std::size_t>(pool_.RandomPoolIndex);
  if (index >= pool_.RandomPool.size() || !pool_.RandomPool[index]) return {};
  return std::to_string(*pool_.RandomPool[index]);
}

std::optional<std::string> NameBuilder::LetterValue(std::int32_t counter) {
  const int direction = settings_.Combo_Direction.Index();
  // A stored profile may ask for random letters: the digits of a random number are no letters.
  if (direction == DirectionRandom) return "-1";
  const std::optional<Decimal> start = ToNumber(settings_.Text_UniqueStart.Value());
  return start ? Stepped(*start, direction, counter) : std::nullopt;
}

std::optional<std::string> NameBuilder::Stepped(const Decimal& start, int direction,
                                                std::int32_t counter) {
  std::optional<Decimal> value = start;
  if (direction == DirectionIncrement) value = start.Plus(counter);
  if (direction == DirectionDecrement) value = start.Minus(counter);
  return value ? std::optional(value->ToText()) : std::nullopt;
}

std::string NameBuilder::DateValue(std::int32_t counter) const {
  const RenameSettings& s = settings_;
  const std::string text = s.Combo_UniqueDateStart0.ItemText() + "/" +
                           s.Combo_UniqueDateStart1.ItemText() + "/" +
                           s.Combo_UniqueDateStart2.Value();
  std::optional<Date> date = ParseDateText(text).value_or(Date{});
  const auto interval = static_cast<DateInterval>(s.Combo_DateInterval.Index());
  switch (s.Combo_Direction.Index()) {
    case DirectionIncrement:
      date = AddInterval(*date, interval, counter);
      break;
    case DirectionDecrement:
      date = AddInterval(*date, interval, -std::int64_t{counter});
      break;
    case DirectionKeep:
      break;
    default:
      return {};
  }
  if (!date) return {};
  return FormatDate(*date,
                    s.Combo_UniqueDate0.ItemText() + s.Text_UniqueDate1.Value() +
                        s.Combo_UniqueDate1.ItemText() + s.Text_UniqueDate2.Value() +
                        s.Combo_UniqueDate2.ItemText(),
                    names_);
}

std::string NameBuilder::DateCommand() const {
  static constexpr std::string_view commands[] = {"<DateCreated,", "<DateModified,",
                                                  "<DateAccessed,"};
  const RenameSettings& s = settings_;
  const auto type = static_cast<std::size_t>(s.Combo_UpdateDateType.Index());
  std::string command(type < std::size(commands) ? commands[type] : "");
  if (s.Check_UseCurrentDateTime.On()) {
    command += GeneralDateText(clock_.Now());
  } else {
    command += GeneralDateText(StartOfDay(s.DTPicker_AdvancedDate.Value()));
    command += " " + TwoDigits(s.Combo_AdvancedDate3.Value());
    command += ":" + s.Combo_AdvancedDate4.Value() + ":" + s.Combo_AdvancedDate5.Value();
  }
  return command + ">";
}

std::string NameBuilder::FromTags(const NameParts& parts) {
  const TagMaskRules rules{.allInfoPresent = settings_.Check_AllInfoPresent.On(),
                           .mp3Extension = settings_.Check_MP3Extension.On()};
  return tagMask_.Compose(settings_.RTxt_ID3Name.Value(), rules, parts.directory, parts.fileName);
}

}  // namespace tallowbrook
