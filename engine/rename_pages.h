// The five pages and the copy/move panel: their captions, frames and buttons, and the rules that
// run when a setting changes.
#pragma once

#include <functional>

#include "base/dialogs.h"
#include "engine/preview.h"
#include "engine/rename_settings.h"
#include "engine/unique_panel.h"
#include "filelist/list_pane.h"
#include "platform/clock.h"

namespace tallowbrook {

class RenamePages {
 public:
  RenamePages(Screen& screen, RenameSettings& settings, ListPane& pane, Preview& preview,
              Dialogs& dialogs, Clock& clock);

  Frame Frame1;  // page "File Name Properties"
  // The panels of that page; a text dropped on the filename's clears its history.
  Frame Frame_Prefix;
  Frame Frame_Filename;
  Frame Frame_Separator;
  Frame Frame_Unique;
  Frame Frame_Suffix;
  Frame Frame_Extension;
  Label Label3;  // "Sample File Name:"
  Label Label_SampleFileName;
  Frame Frame_UpdateType;
  Frame Frame_Advanced;      // the mask's panel
  Frame Frame_AdvancedDate;  // the date's panel, in the same place
  Label Label_AdvancedExample;
  Frame Frame_ID3;
  Label Label_ID3Example;
  Frame Frame_CopyMove;
  Label Lbl_MoveTo;         // "Copy To:" or "Move To:"
  ButtonPair BrowseMoveTo;  // Cmd_BrowseMoveTo, PushButton_Browse
  ButtonPair ClearComboBox;
  ButtonPair ClearComboBoxName;
  ButtonPair InsertKeyword;   // Cmd_InsertKeyword, PushButton_InsertKeyword: into the tag mask
  ButtonPair InsertKeyword1;  // Cmd_InsertKeyword1, PushButton_InsertKeyword1: into the other one
  ButtonPair EditID3;         // Cmd_EditID3, PushButton_EditID3
  UniquePanel unique;

  // Where in a mask the next keyword of the picker goes, in characters from 0. A key released in
  // either mask sets it, whichever the picker serves: this is wanted.
  std::size_t KeywordCaret = 0;

  // Lists and most fields as a first start has them. Prefix, suffix, keyword masks, search texts,
  // options, several ticks, the date picker, the move target and all histories stay as they are.
  void ResetSettings();
  void RefreshSampleFileName();
  // Check_MoveEnable decides whether Txt_MoveTo takes typing.
  void UpdateMoveControls();
  void ClearFindReplaceHistory();
  void ClearFilenameHistory();
  // A key released in RTxt_ID3Name: colours, and Enter previews.
  void TagMaskKeyReleased(bool isEnter);
  // The same in RTxt_Unique_Other: colours and brings the sample up to date.
  void MaskKeyReleased();
  // Puts the focus and the panels of a page in place; `index` as of TabIndex.
  void ShowTabPage(int index);

 private:
  void WirePanelRules();
  void WireOptions();
  void WireSampleRefresh();
  void WireMasks();
  // A box that decides whether another field takes input.
  void Governs(Tick& box, Control& field);
  // Shows in `field` what the form does to a name; it takes typing for FormCustom alone.
  void ShowForm(const List& form, Text& field, std::string_view sample);
  void ChooseAdvancedType(bool changeDate);
  void ShowAdvancedPanel();

  Screen& screen_;
  RenameSettings& settings_;
  ListPane& pane_;
  Preview& preview_;
  Clock& clock_;
};

}  // namespace tallowbrook
