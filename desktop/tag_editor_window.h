// The window of the tag editor: the two tags side by side.
#pragma once

#include <QDialog>
#include <memory>

#include "desktop/binder.h"
#include "desktop/status_panes.h"
#include "shell/tag_editor.h"

class QGridLayout;

namespace tallowbrook {

class TagEditorWindow : public QDialog {
 public:
  // `model` must outlive the window.
  TagEditorWindow(TagEditor& model, QWidget* over);
  ~TagEditorWindow() override;

 protected:
  // Enter presses the button that has the focus, and no other.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QLayout* MakeFileName();
  QWidget* MakeV1();
  QWidget* MakeV2();
  QLayout* MakeButtons();
  void MakeKeys();

  TagEditor& model_;
  Binder binder_;
  std::unique_ptr<StatusPanes> status_;
};

}  // namespace tallowbrook
