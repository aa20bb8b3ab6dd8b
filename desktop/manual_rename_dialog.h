// The box that renames one row to a typed name.
#pragma once

#include <QDialog>

#include "desktop/binder.h"
#include "shell/manual_rename.h"

namespace tallowbrook {

class ManualRenameDialog : public QDialog {
 public:
  // Stands to the right of and below the corner of `over`.
  ManualRenameDialog(ManualRename& model, QWidget* over);
  ~ManualRenameDialog() override;

 private:
  ManualRename& model_;
  Binder binder_;
};

}  // namespace tallowbrook
