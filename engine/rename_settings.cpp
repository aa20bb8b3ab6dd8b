#include "engine/rename_settings.h"

#include <algorithm>

#include "base/letter_case.h"

namespace tallowbrook {

namespace {

using Items = std::vector<std::string>;

// Decimal numbers, at least `digits` long.
Items Numbers(int from, int to, std::size_t digits = 1) {
  Items numbers;
  const int step = from <= to ? 1 : -1;
  for (int value = from; value != to + step; value += step) {
    std::string text = std::to_string(value);
    if (text.size() < digits) text.insert(0, digits - text.size(), '0');
    numbers.push_back(std::move(text));
  }
  return numbers;
}

Items NameForms(const std::string& noun) {
  return {"Leave Unchanged", "Custom " + noun, "Upper Case", "Lower Case", "Proper Case"};
}

const Items& DateParts() {
  static const Items parts{"M", "MM", "MMM", "MMMM", "D", "DD", "YY", "YYYY"};
  return parts;
}

void Refill(List& list, Items items, int index) {
  list.SetItems(std::move(items));
  list.Select(index);
}

void Refill(FreeList& list, Items items) {
  list.SetItems(std::move(items));
  list.SelectItem(0);
}

constexpr int yearsEachSide = 100;

}  // namespace

// One line a setting.
// clang-format off
RenameSettings::RenameSettings(Screen& s)
    : TabIndex(s, {.name = "TabIndex", .key = "TabIndex=", .keyDefault = "0"},
               {"File Name Properties", "Delete / Remove", "Find / Replace", "Advanced", "ID3v1 / ID3v2"}, 0),

      Check_Prefix(s, {.name = "Check_Prefix", .caption = "Include", .key = "Check_Prefix=", .keyDefault = "0"}, 0),
      Text_Prefix(s, {.name = "Text_Prefix", .key = "Text_Prefix="}),
      Check_Original(s, {.name = "Check_Original", .caption = "Include", .key = "Check_Original=", .keyDefault = "1"}, 1),
      Combo_OriginalName(s, {.name = "Combo_OriginalName", .key = "Text_Original=", .keyDefault = "filename", .itemsKey = "Combo_OriginalName="}, SampleBaseName),
      Combo_Original(s, {.name = "Combo_Original", .key = "Combo_Original=", .keyDefault = "0"}),
      Check_UniqueFirst(s, {.name = "Check_UniqueFirst", .caption = "Place Unique Parameter before Filename", .key = "Check_UniqueFirst=", .keyDefault = "0"}, 0),
      Check_Seperator(s, {.name = "Check_Seperator", .caption = "Include", .key = "Check_Seperator=", .keyDefault = "1"}, 1),
      Text_Seperator(s, {.name = "Text_Seperator", .key = "Text_Seperator=", .keyDefault = "-"}, "-"),
      Check_Unique(s, {.name = "Check_Unique", .caption = "Include", .key = "Check_Unique=", .keyDefault = "1"}, 1),
      Combo_Unique(s, {.name = "Combo_Unique", .key = "Combo_Unique=", .keyDefault = "0"}),
      Combo_Direction(s, {.name = "Combo_Direction", .key = "Combo_Direction=", .keyDefault = "0"}),
      Text_UniqueMask(s, {.name = "Text_UniqueMask", .caption = "Mask", .key = "Text_UniqueMask=", .keyDefault = "0000", .tip = "Stands before a number or letter that is shorter"}, "0000"),
      Text_UniqueStart(s, {.name = "Text_UniqueStart", .caption = "Start From:", .key = "Text_UniqueStart=", .keyDefault = "1"}, "1"),
      Text_UniqueIncrement(s, {.name = "Text_UniqueIncrement", .tip = "How far from one file to the next"}, "1"),
      Txt_RandomTo(s, {.name = "Txt_RandomTo", .caption = "Random to:", .key = "Txt_RandomTo=", .keyDefault = "0"}, "1"),
      Check_UniqueOnly(s, {.name = "Check_UniqueOnly", .caption = "Unique Random No.", .key = "Check_UniqueOnly=", .keyDefault = "0", .tip = "No number twice"}, 0),
      Combo_DateInterval(s, {.name = "Combo_DateInterval", .key = "Combo_DateInterval=", .keyDefault = "0"}),
      Combo_UniqueDateStart0(s, {.name = "Combo_UniqueDateStart0", .caption = "Start Date:", .key = "Combo_UniqueDateStart0=", .keyDefault = "0", .tip = "Month"}),
      Combo_UniqueDateStart1(s, {.name = "Combo_UniqueDateStart1", .key = "Combo_UniqueDateStart1=", .keyDefault = "0", .tip = "Day"}),
      Combo_UniqueDateStart2(s, {.name = "Combo_UniqueDateStart2", .key = "Combo_UniqueDateStart2=", .keyDefault = "0", .tip = "Year"}),
      Combo_UniqueDate0(s, {.name = "Combo_UniqueDate0", .key = "Combo_UniqueDate0=", .keyDefault = "1"}),
      Combo_UniqueDate1(s, {.name = "Combo_UniqueDate1", .key = "Combo_UniqueDate1=", .keyDefault = "5"}),
      Combo_UniqueDate2(s, {.name = "Combo_UniqueDate2", .key = "Combo_UniqueDate2=", .keyDefault = "7"}),
      Combo_UpdateDateType(s, {.name = "Combo_UpdateDateType", .caption = "Update Date Type", .key = "Combo_UpdateDateType=", .keyDefault = "0"}),
      DTPicker_AdvancedDate(s, {.name = "DTPicker_AdvancedDate", .caption = "With Date", .key = "DTPicker_AdvancedDate="}, *MakeDate({2005, 9, 11, 0, 0, 0})),
      Combo_AdvancedDate3(s, {.name = "Combo_AdvancedDate3", .caption = "Time", .key = "Combo_AdvancedDate3=", .keyDefault = "0", .tip = "Hour"}),
      Combo_AdvancedDate4(s, {.name = "Combo_AdvancedDate4", .key = "Combo_AdvancedDate4=", .keyDefault = "0", .tip = "Minute"}),
      Combo_AdvancedDate5(s, {.name = "Combo_AdvancedDate5", .key = "Combo_AdvancedDate5=", .keyDefault = "0", .tip = "Second"}),
      Check_UseCurrentDateTime(s, {.name = "Check_UseCurrentDateTime", .caption = "Use Current Date / Time", .key = "Check_UseCurrentDateTime=", .keyDefault = "0"}, 0),
      Text_UniqueDate1(s, {.name = "Text_UniqueDate1", .key = "Text_UniqueDate1=", .keyDefault = "-", .tip = "Stands between the parts of the date"}, "-"),
      Text_UniqueDate2(s, {.name = "Text_UniqueDate2", .key = "Text_UniqueDate2=", .keyDefault = "-", .tip = "Stands between the parts of the date"}, "-"),
      Check_Suffix(s, {.name = "Check_Suffix", .caption = "Include", .key = "Check_Suffix=", .keyDefault = "0"}, 0),
      Text_Suffix(s, {.name = "Text_Suffix", .key = "Text_Suffix="}),
      Check_Extension(s, {.name = "Check_Extension", .caption = "Include", .key = "Check_Extension=", .keyDefault = "1"}, 1),
      Text_Extension(s, {.name = "Text_Extension", .key = "Text_Extension=", .keyDefault = ".abc"}, SampleExtension),
      Combo_Extension(s, {.name = "Combo_Extension", .key = "Combo_Extension=", .keyDefault = "0"}),

      Combo_RemoveChars(s, {.name = "Combo_RemoveChars", .caption = "Remove", .key = "Combo_RemoveChars=", .keyDefault = "0", .tip = "How many characters go"}),
      Combo_RemoveStarting(s, {.name = "Combo_RemoveStarting", .caption = "character(s) starting from position", .key = "Combo_RemoveStarting=", .keyDefault = "0", .tip = "The first character that goes, counted from 1"}),
      Check_StartFromLast(s, {.name = "Check_StartFromLast", .caption = "Start from the end of the filename", .key = "Check_StartFromLast=", .keyDefault = "0"}, 0),

      Combo_Find(s, {.name = "Combo_Find", .caption = "Find", .itemsKey = "Combo_Find="}),
      Combo_Replace(s, {.name = "Combo_Replace", .caption = "Replace", .itemsKey = "Combo_Replace="}),
      Combo_Occurances(s, {.name = "Combo_Occurances", .caption = "Number of Occurrences:", .key = "Combo_Occurances=", .keyDefault = "0"}),
      Check_RegExp(s, {.name = "Check_RegExp", .caption = "Find using Regular Expressions", .key = "Check_RegExp=", .keyDefault = "0", .tip = "Replace knows $1 to $9 for groups, $& for the match and $$ for a dollar"}, 0),
      Check_CaseSensitive(s, {.name = "Check_CaseSensitive", .caption = "Case Sensitive Search", .key = "Check_CaseSensitive=", .keyDefault = "0"}, 0),
      Option_Search1(s, {.name = "Option_Search1", .caption = "Search full filename", .key = "Option_Search1=", .keyDefault = "1"}, "Search"),
      Option_Search2(s, {.name = "Option_Search2", .caption = "Search filename without extension", .key = "Option_Search2=", .keyDefault = "0"}, "Search"),
      Option_Search3(s, {.name = "Option_Search3", .caption = "Search extension", .key = "Option_Search3=", .keyDefault = "0"}, "Search"),


      RTxt_ID3Name(s, {.name = "RTxt_ID3Name", .key = "RTxt_ID3Name=", .tip = "Keywords in angle brackets become the tag's texts"}),
      Check_AllInfoPresent(s, {.name = "Check_AllInfoPresent", .caption = "Don't Rename a file unless all tag information used is available", .key = "Check_AllInfoPresent=", .keyDefault = "0"}, 1),
      Check_MP3Extension(s, {.name = "Check_MP3Extension", .caption = "Include the .mp3 at the end of the filename", .key = "Check_MP3Extension=", .keyDefault = "0"}, 1),

      TransferMethod(s, {.name = "TransferMethod", .key = "TransferMethod=", .keyDefault = "0"}),
      Check_MoveEnable(s, {.name = "Check_MoveEnable", .caption = "Enable", .key = "Check_MoveEnable=", .keyDefault = "0", .tip = "Copy or move each file once it has its new name"}, 0),
      Txt_MoveTo(s, {.name = "Txt_MoveTo", .key = "Txt_MoveTo=", .tip = "An existing folder; a file of the same name in it is replaced"}),
      RTxt_Unique_Other(s, {.name = "RTxt_Unique_Other", .key = "RTxt_Unique_Other=", .tip = "Keywords in angle brackets become facts of the file"}),
      Option_ChangeFileName(s, {.name = "Option_ChangeFileName", .caption = "File Name"}, "AdvancedType"),
      Option_ChangeFileDate(s, {.name = "Option_ChangeFileDate", .caption = "File Date/Time"}, "AdvancedType"),
      AdvancedType(s, {.name = "AdvancedType", .key = "AdvancedType=", .keyDefault = "0"}),
      Option_Copy(s, {.name = "Option_Copy", .caption = "Copy"}, "TransferMethod"),
      Option_Move(s, {.name = "Option_Move", .caption = "Move"}, "TransferMethod") {}
// clang-format on

void RenameSettings::FillPositions() {
  Refill(Combo_RemoveChars, Numbers(0, 30), 0);
  Combo_Occurances.AddItem("All");
  for (const std::string& number : Numbers(1, 30)) {
    Combo_RemoveStarting.AddItem(number);
    Combo_Occurances.AddItem(number);
  }
  Combo_RemoveStarting.Select(0);
  Combo_Occurances.Select(0);
  TabIndex.Select(PageProperties);
}

void RenameSettings::FillDefaults(Date today) {
  Refill(Combo_Original, NameForms("Filename"), 0);
  Refill(Combo_Extension, NameForms("Extension"), 0);
  Refill(Combo_Unique, {"Numbers", "Letters", "Dates"}, 0);
  Refill(Combo_Direction, {"Increment", "Decrement", "Don't Change", "Random"}, 0);
  for (Tick* box : {&Check_Original, &Check_Seperator, &Check_Unique, &Check_Extension}) {
    box->Set(1);
  }
  for (const char* type : {"Date Created", "Date Modified", "Date Last Accessed"}) {
    Combo_UpdateDateType.AddItem(type);
  }
  Combo_UpdateDateType.Select(0);
  Refill(Combo_AdvancedDate3, Numbers(0, 23));
  Refill(Combo_AdvancedDate4, Numbers(1, 60, 2));
  Refill(Combo_AdvancedDate5, Numbers(1, 60, 2));

  Combo_OriginalName.Set(SampleBaseName);
  Text_Extension.Set(SampleExtension);
  Text_Seperator.Set("-");
  Text_UniqueMask.Set("0000");
  Text_UniqueStart.Set("1");
  Txt_RandomTo.Set("1");

  const DateFields day = FieldsOf(today);
  // The day last: with another year and month it might be none of theirs.
  Combo_UniqueDateStart2.SetItems(Numbers(day.year + yearsEachSide, day.year - yearsEachSide));
  Combo_UniqueDateStart2.SelectItem(yearsEachSide);
  Refill(Combo_UniqueDateStart0, Numbers(1, 12), day.month - 1);
  Refill(Combo_UniqueDateStart1, Numbers(1, 31), day.day - 1);
  Refill(Combo_UniqueDate0, DateParts(), 1);
  Refill(Combo_UniqueDate1, DateParts(), 5);
  Refill(Combo_UniqueDate2, DateParts(), 7);
  Refill(Combo_DateInterval, {"Day", "Week", "Month", "Year"}, 0);
  Check_AllInfoPresent.Set(1);
  Check_MP3Extension.Set(1);
}

void AddToComboHistory(History& field) {
  constexpr std::size_t searched = 21;
  const std::string& text = field.Value();
  if (text.empty()) return;
  const std::vector<std::string>& known = field.Items();
  const auto end = known.begin() + static_cast<std::ptrdiff_t>(std::min(searched, known.size()));
  // Every row of a run comes here, mostly with a text that stands in the list as it is.
  if (std::find(known.begin(), end, text) != end) return;
  const std::string lower = ToLower(text);
  const auto isKnown = [&](const std::string& item) { return ToLower(item) == lower; };
  if (std::any_of(known.begin(), end, isKnown)) return;
  std::vector<std::string> items = known;
  items.insert(items.begin(), text);
  field.SetItems(std::move(items));
}

}  // namespace tallowbrook
