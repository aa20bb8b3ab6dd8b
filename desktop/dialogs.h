// Questions and messages as boxes over the window.
#pragma once

#include <QPointer>
#include <QWidget>

#include "base/dialogs.h"

namespace tallowbrook {

class WindowDialogs : public Dialogs {
 public:
  Answer Ask(const MessageBox& box) override;
  // The window that boxes stand over when no dialog is open.
  void SetParent(QWidget* parent) { parent_ = parent; }

 private:
  QPointer<QWidget> parent_;
};

}  // namespace tallowbrook
