// A dialog over a screen model: what all small dialogs have in common.
#pragma once

#include <QDialog>
#include <functional>
#include <initializer_list>
#include <string_view>

#include "desktop/binder.h"

class QBoxLayout;

namespace tallowbrook {

class ModelDialog : public QDialog {
 public:
  // `close` is the model's, set here until the dialog ends. `offset` is that of its corner from the
  // window's that it stands over.
  ModelDialog(Screen& screen, std::function<void()>& close, const char* name,
              std::string_view caption, QWidget* over, QPoint offset);
  ~ModelDialog() override;

 protected:
  Binder& Bind() { return binder_; }
  // Where the dialog's own widgets go, from top to bottom.
  QBoxLayout* Body() const { return body_; }
  // Below them a row of buttons at the right. Enter presses the one that has the keyboard, and
  // elsewhere `enters`, counted from 0.
  void AddButtons(std::initializer_list<std::pair<Button*, char>> buttons, int enters = 0);

 private:
  Binder binder_;
  std::function<void()>& close_;
  QBoxLayout* body_;
};

}  // namespace tallowbrook
