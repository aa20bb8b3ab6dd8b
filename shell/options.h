// The options: what belongs to the installation and is switched by hand.
#pragma once

#include <functional>

#include "base/controls.h"
#include "filelist/list_operations.h"

namespace tallowbrook {

// What the boxes stand for. All must outlive the dialog.
struct OptionValues {
  bool& LoadSavedSettings;
  bool& AutoUpdate;
  int& DisplayStartupTipsNew;
  int& ShowEXIFDateCreated;  // counts for rows that are listed from then on
  const int& DateColumnMode;
  ListOperations& operations;
};

// frmOptions. Save takes the boxes over, Close leaves everything as it was.
struct Options {
  explicit Options(const OptionValues& values);

  Screen screen;
  Frame Frame3;
  Tick Check_StartupTips;
  Tick Check_AutoUpdate;
  Tick Check_LoadSavedSettings;
  Frame Frame1;
  Option Option_DateCreated;
  Option Option_DateModified;
  Tick Check_ShowEXIFDateCreated;
  Button Command_Save;
  Button Command_Done;
  static constexpr std::string_view caption = "Options";

  // Closes the window; set by what shows it.
  std::function<void()> close;

 private:
  void Save(const OptionValues& values);
};

}  // namespace tallowbrook
