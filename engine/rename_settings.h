// The settings: what the five pages and the copy/move panel hold.
//
// This is the one table of the settings: a line gives a field's name, caption, initial value,
// items, profile key, and what a profile without that key stands for. The names keep their
// spelling, since most are keys of stored profiles. The engine reads this record and nothing of
// the window; the rules that keep it consistent are in rename_pages.h.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/controls.h"

namespace tallowbrook {

inline constexpr std::string_view SampleBaseName = "filename";
inline constexpr std::string_view SampleExtension = "abc";

enum Page { PageProperties, PageDelete, PageReplace, PageAdvanced, PageTags };

enum UniqueKind { UniqueNumbers, UniqueLetters, UniqueDates };
enum Direction { DirectionIncrement, DirectionDecrement, DirectionKeep, DirectionRandom };
// Combo_Original and Combo_Extension.
enum NameForm { FormUnchanged, FormCustom, FormUpper, FormLower, FormProper };

struct RenameSettings {
  // Registers the fields with `screen`; the lists are empty until FillDefaults.
  explicit RenameSettings(Screen& screen);

  // Fills the item lists and sets the fields that a reset sets. A second call appends to
  // Combo_RemoveStarting, Combo_Occurances and Combo_UpdateDateType what they already hold. That
  // is wanted: stored indices point into the first copy either way.
  void FillDefaults(Date today);

  List TabIndex;

  // Page "File Name Properties"
  Tick Check_Prefix;
  Text Text_Prefix;
  Tick Check_Original;
  History Combo_OriginalName;
  List Combo_Original;
  Tick Check_UniqueFirst;
  Tick Check_Seperator;
  Text Text_Seperator;
  Tick Check_Unique;
  List Combo_Unique;
  List Combo_Direction;
  Text Text_UniqueMask;
  Text Text_UniqueStart;
  // Has no key: it keeps its value when a profile is loaded.
  Text Text_UniqueIncrement;
  Text Txt_RandomTo;
  Tick Check_UniqueOnly;
  List Combo_DateInterval;
  // Month, day, and the year, which alone is free text over its items. A profile holds all
  // three as list indices.
  List Combo_UniqueDateStart0;
  List Combo_UniqueDateStart1;
  FreeList Combo_UniqueDateStart2;
  List Combo_UniqueDate0;
  List Combo_UniqueDate1;
  List Combo_UniqueDate2;
  Text Text_UniqueDate1;
  Text Text_UniqueDate2;
  Tick Check_Suffix;
  Text Text_Suffix;
  Tick Check_Extension;
  Text Text_Extension;
  List Combo_Extension;

  // Page "Delete / Remove"
  List Combo_RemoveChars;
  List Combo_RemoveStarting;
  Tick Check_StartFromLast;

  // Page "Find / Replace"
  History Combo_Find;
  History Combo_Replace;
  List Combo_Occurances;
  Tick Check_RegExp;
  Tick Check_CaseSensitive;
  Option Option_Search1;
  Option Option_Search2;
  Option Option_Search3;

  // Page "Advanced"
  Option Option_ChangeFileName;
  Option Option_ChangeFileDate;
  // 1 while Option_ChangeFileDate is chosen: what a profile stores of the two options.
  Number AdvancedType;
  Text RTxt_Unique_Other;
  List Combo_UpdateDateType;
  DateField DTPicker_AdvancedDate;
  // Hour, minute, second: numbered 3 to 5, and the minutes and seconds run from "01" to "60".
  // Both are as wanted; "00" can be typed.
  FreeList Combo_AdvancedDate3;
  FreeList Combo_AdvancedDate4;
  FreeList Combo_AdvancedDate5;
  Tick Check_UseCurrentDateTime;

  // Page "ID3v1 / ID3v2"
  Text RTxt_ID3Name;
  Tick Check_AllInfoPresent;
  Tick Check_MP3Extension;

  // Copy/move panel
  Number TransferMethod;  // 0 copies, 1 moves
  Tick Check_MoveEnable;
  Text Txt_MoveTo;
  Option Option_Copy;
  Option Option_Move;
};

// Enters the field's text into its history: the newest text stands first. A text among the
// first 21 items, case ignored, changes nothing; one that has fallen below them is entered again.
void AddToComboHistory(History& field);

}  // namespace tallowbrook
