// The window of the keyword picker: the list of its mask, beside the main window.
#pragma once

#include <QDialog>

#include "desktop/binder.h"
#include "shell/keyword_picker.h"

namespace tallowbrook {

class KeywordPickerWindow : public QDialog {
 public:
  // `model` must outlive the window.
  KeywordPickerWindow(KeywordPicker& model, QWidget* over);
  ~KeywordPickerWindow() override;

  // Shows what the model was opened for and comes back at once. A window that is open already
  // stays where it is.
  void Open();

 private:
  QLayout* MakeLists();

  KeywordPicker& model_;
  Binder binder_;
};

}  // namespace tallowbrook
