// A text of several lines in a box of several lines.
//
// The box knows one kind of line end, texts from files know three and mix them. As long as the user
// doesn't edit the text, the control keeps it as it came.
#pragma once

#include "desktop/binding.h"

class QPlainTextEdit;

namespace tallowbrook {

class LinesBinding : public TypedBinding {
 public:
  LinesBinding(TextLines& text, QPlainTextEdit& edit);

 protected:
  void ShowValue() override;

 private:
  void Hear();

  TextLines& text_;
  QPlainTextEdit& edit_;
};

}  // namespace tallowbrook
