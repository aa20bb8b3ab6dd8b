// The keyword picker: a list of what a mask may hold, each a click away from the mask. It stays
// open beside the window, so that several keywords can be put in one behind the other.
#pragma once

#include <functional>

#include "base/controls.h"
#include "engine/keywords.h"
#include "engine/rename_settings.h"

namespace tallowbrook {

class KeywordPicker {
 public:
  // `keywordCaret` is where in the mask the next keyword goes, in characters; behind the mask's end
  // it counts as its end. Both outlive the picker.
  KeywordPicker(RenameSettings& settings, std::size_t& keywordCaret);

  Screen screen;
  // Of target 1: the bare keywords, and what their beginnings mean.
  List List1{screen, {.name = "List1"}};
  Label Label1{screen, {.name = "Label1", .caption = "ID3v1 = <v1...>"}};
  Label Label2{screen, {.name = "Label2", .caption = "ID3v2 = <v2...>"}};
  // Of target 2: the keywords, each with its description beside it.
  List ListView1{screen, {.name = "ListView1"}};
  Button Cmd_Insert{screen, {.name = "Cmd_Insert", .caption = "Insert"}};
  Button Cmd_Cancel{screen, {.name = "Cmd_Cancel", .caption = "Done"}};
  static constexpr std::string_view caption = "Insert Keyword";
  // The columns of ListView1.
  static constexpr std::string_view columns[] = {"Keyword", "Description"};
  // Of a row of ListView1, from 0.
  static std::string_view Description(std::size_t row) {
    return AdvancedKeywords()[row].description;
  }

  // Which mask it serves: 1 RTxt_ID3Name, 2 RTxt_Unique_Other; 0 none, while it is closed.
  int KeywordTarget = 0;

  // Fills the list for a target anew, nothing selected, and takes the caret of its mask.
  void Open(int target);
  // The window has closed.
  void Closed() { KeywordTarget = 0; }

  // Puts the selected keyword into the mask, the caret behind it; nothing without one.
  void Insert();

  // Closes the window; set by what shows it.
  std::function<void()> close;

 private:
  bool ForTags() const { return KeywordTarget == 1; }
  MaskText& Mask() { return ForTags() ? settings_.RTxt_ID3Name : settings_.RTxt_Unique_Other; }
  std::span<const Keyword> Table() const { return ForTags() ? TagKeywords() : AdvancedKeywords(); }
  void FollowCaret(MaskText& mask);

  RenameSettings& settings_;
  std::size_t& keywordCaret_;
};

}  // namespace tallowbrook
