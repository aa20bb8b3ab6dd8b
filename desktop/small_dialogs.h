// The small dialogs on the screen: manual rename, options, folder browse, about. Each stands over
// its window until it is closed.
#pragma once

#include "desktop/model_dialog.h"
#include "shell/about.h"
#include "shell/browse.h"
#include "shell/manual_rename.h"
#include "shell/options.h"

namespace tallowbrook {

class ManualRenameDialog : public ModelDialog {
 public:
  ManualRenameDialog(ManualRename& model, QWidget* over);
};

class OptionsDialog : public ModelDialog {
 public:
  OptionsDialog(Options& model, QWidget* over);
};

class BrowseDialog : public ModelDialog {
 public:
  // `files` and `home` are what the tree shows.
  BrowseDialog(Browse& model, Files& files, const std::string& home, QWidget* over);
  ~BrowseDialog() override;

 private:
  Browse& model_;
};

class AboutDialog : public ModelDialog {
 public:
  AboutDialog(About& model, QWidget* over);
};

}  // namespace tallowbrook
