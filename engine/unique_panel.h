// The panel "Unique Parameter": which of its frames and fields show, and how a start value
// follows from numbers to letters and back.
#pragma once

#include <functional>

#include "base/dialogs.h"
#include "engine/rename_settings.h"

namespace tallowbrook {

class UniquePanel {
 public:
  UniquePanel(Screen& screen, RenameSettings& settings, Dialogs& dialogs,
              std::function<void()> refreshSample);

  Frame Frame_Numbers;
  Frame Frame_Date;
  Frame Frame_Unique_Other;  // no kind of unique parameter shows it
  Label Lbl_RandomTo;

  // The rules of Check_Unique, Combo_Unique and Combo_Direction; start-up runs the second.
  void UniqueTicked();
  void UniqueClicked();
  void DirectionClicked();

 private:
  void ShowStart();

  RenameSettings& settings_;
  Dialogs& dialogs_;
  std::function<void()> refreshSample_;
};

}  // namespace tallowbrook
