// The settings: what the five pages and the copy/move panel hold.
//
// rename_settings.cpp has the one table of them: a line gives a field's name, caption, initial
// value, profile key, and what a profile without that key stands for (nothing, for the picker, is
// the present date). The order is that of a profile's lines. The names keep their spelling, since
// most are keys of stored profiles. The engine reads this record and nothing of the window; the
// rules that keep it consistent are in rename_pages.h.
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

  // The first step of a reset: the lists of positions and counts, and the first page.
  void FillPositions();
  // Fills the other item lists and sets the fields that a reset sets. A second call appends to
  // Combo_UpdateDateType, as FillPositions does to Combo_RemoveStarting and Combo_Occurances, what
  // they already hold. That is wanted: stored indices point into the first copy either way.
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
  // Has no key: no profile changes it.
  Text Text_UniqueIncrement;
  Text Txt_RandomTo;
  Tick Check_UniqueOnly;
  List Combo_DateInterval;
  // Month, day and year; a year can be typed too.
  List Combo_UniqueDateStart0;
  List Combo_UniqueDateStart1;
  FreeList Combo_UniqueDateStart2;
  List Combo_UniqueDate0;
  List Combo_UniqueDate1;
  List Combo_UniqueDate2;
  // Page "Advanced": the new date. The times are hour, minute and second. They are numbered 3 to
  // 5, and minutes and seconds begin at "01" and end at "60". Both are wanted; "00" is typed.
  List Combo_UpdateDateType;
  DateField DTPicker_AdvancedDate;
  FreeList Combo_AdvancedDate3;
  FreeList Combo_AdvancedDate4;
  FreeList Combo_AdvancedDate5;
  Tick Check_UseCurrentDateTime;
  // The texts between the parts of a running date.
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

  // Page "ID3v1 / ID3v2"
  MaskText RTxt_ID3Name;
  Tick Check_AllInfoPresent;
  Tick Check_MP3Extension;

  // Copy/move panel
  Number TransferMethod;  // 0 copies, 1 moves
  Tick Check_MoveEnable;
  Text Txt_MoveTo;
  // Page "Advanced": the mask
  MaskText RTxt_Unique_Other;
  Option Option_ChangeFileName;
  Option Option_ChangeFileDate;
  // 1 while Option_ChangeFileDate is chosen: what a profile stores of the two options.
  Number AdvancedType;
  // Copy/move panel
  Option Option_Copy;
  Option Option_Move;
};

// Puts the field's text at the top of its history, unless it is empty or stands, in whatever case,
// among the first 21 items; what stands further down is not looked at.
void AddToComboHistory(History& field);

}  // namespace tallowbrook
