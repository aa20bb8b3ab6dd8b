#include "shell/manual_rename.h"

namespace tallowbrook {

ManualRename::ManualRename(std::string_view oldName, Dialogs& dialogs,
                           std::function<void(const std::string&)> rename)
    : Txt_OldName(screen, {.name = "Txt_OldName"}, oldName),
      Txt_NewFileName(screen, {.name = "Txt_NewFileName"}, oldName) {
  Txt_OldName.SetReadOnly(true);
  Cmd_Rename.rule = [this, &dialogs, rename = std::move(rename)] {
    // A second press can arrive while the first one's work lets events through.
    if (!Cmd_Rename.Enabled()) return;
    const std::string newName = Txt_NewFileName.Value();
    if (newName.empty()) {
      dialogs.Ask({std::string(caption), "You must specify a new filename", Buttons::Ok});
      return;
    }
    Cmd_Rename.SetEnabled(false);
    rename(newName);
    if (close) close();
  };
  Cmd_Cancel.rule = [this] {
    if (close) close();
  };
}

}  // namespace tallowbrook
