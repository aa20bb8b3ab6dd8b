// The dialog that renames one row to a name that the user types.
#pragma once

#include <functional>

#include "base/controls.h"
#include "base/dialogs.h"

namespace tallowbrook {

struct ManualRename {
  // `rename` is handed the typed name; it renames the row that the dialog was opened for.
  ManualRename(std::string_view oldName, Dialogs& dialogs,
               std::function<void(const std::string&)> rename);

  Screen screen;
  Label Label1{screen, {.name = "Label1", .caption = "Old Filename:"}};
  Text Txt_OldName;
  Label Label2{screen, {.name = "Label2", .caption = "Enter new filename:"}};
  Text Txt_NewFileName;
  Button Cmd_Rename{screen, {.name = "Cmd_Rename", .caption = "Rename Now"}};
  Button Cmd_Cancel{screen, {.name = "Cmd_Cancel", .caption = "Cancel"}};
  static constexpr std::string_view caption = "Manual File Rename";

  // Closes the window; set by what shows it.
  std::function<void()> close;
};

}  // namespace tallowbrook
