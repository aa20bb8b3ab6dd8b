// Keys that mean the same wherever the keyboard is in the main window.
#pragma once

#include <QObject>
#include <QWidget>

#include "shell/form1.h"

namespace tallowbrook {

class WindowKeys : public QObject {
 public:
  // Watches all keys of `window`; those of dialogs and drop-down lists are their own.
  WindowKeys(Form1& form, QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Form1& form_;
  QWidget& window_;
};

}  // namespace tallowbrook
