// The left side: a line that completes a folder's path while it is typed, over the folder tree.
#pragma once

#include <QWidget>

#include "desktop/binder.h"
#include "desktop/folder_tree.h"
#include "shell/form1.h"

namespace tallowbrook {

class FolderArea : public QWidget {
 public:
  FolderArea(Form1& form, Files& files, const std::string& home, Binder& binder, QWidget* parent);

 private:
  void SetUpCompletion(QuietCombo& box);
  void ShowSelected();

  Form1& form_;
  FolderTree& tree_;
};

}  // namespace tallowbrook
