// The folder dialog: chooses where files are copied or moved to.
#pragma once

#include <functional>
#include <string_view>

#include "base/controls.h"
#include "base/status_bar.h"
#include "platform/files.h"

namespace tallowbrook {

// frmBrowse.
struct Browse {
  // `target` is the field that takes the folder; its folder is selected at first, or, where there
  // is no such folder, `folder`.
  Browse(Files& files, Text& target, std::string_view folder);

  Screen screen;
  StatusBar statusBar;   // pane 0: the selected folder
  Text FolderTreeview1;  // the selected folder's path
  Frame Frame1;
  Button Command_Save;
  Button Command_Done;
  static constexpr std::string_view caption = "Browse";

  // Closes the window; set by what shows it.
  std::function<void()> close;
};

}  // namespace tallowbrook
