// The list pane's controls: folder, filter, check pattern, and the buttons around the list.
#pragma once

#include "base/controls.h"

namespace tallowbrook {

// Two buttons, a classic and a styled one, that do one thing; the window shows the styled one.
struct ButtonPair {
  Button classic;
  Button styled;
  ButtonPair(Screen& screen, const ControlFacts& classicFacts, const ControlFacts& styledFacts)
      : classic(screen, classicFacts), styled(screen, styledFacts) {}
  void Does(const std::function<void()>& action) { classic.rule = styled.rule = action; }
};

struct ListPane {
  explicit ListPane(Screen& screen);

  Text FolderTreeview1;  // the selected folder's path
  Text Txt_Address;
  FreeList Combo1;  // completes a folder's name while it is typed
  FreeList Combo_Filter;
  Label Lbl_Filename_Filter;
  ButtonPair Filter;   // Cmd_Filter, PushButton_Filter
  ButtonPair ScanSub;  // Cmd_ScanSub, PushButton_ScanSub
  Option Option1_Files;
  Option Option1_Folders;
  Tick Check_Thumbnails;
  Frame Frame_Progress;
  // Its caption is the percentage; the two numbers below are exact at any time.
  Label ProgressBar;
  std::size_t ProgressMaximum = 0;
  std::size_t ProgressValue = 0;
  Button PushButton_AbortScan;
  Label Label7;  // "Start"
  Text Text_StartCheck;
  Spin VScroll1;
  Label Label8;  // "Step"
  Text Text_Step;
  Spin VScroll2;
  ButtonPair SelectAll;  // Cmd_SelectAll, PushButton_SelectAll
  ButtonPair SelectNone;
  ButtonPair SelectInverse;  // Cmd_Invert, PushButton_SelectInverse
};

}  // namespace tallowbrook
