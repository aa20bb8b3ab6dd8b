// The list pane: address and filter above the list, check marks and progress below it.
#pragma once

#include <QWidget>

#include "desktop/binder.h"
#include "desktop/file_table.h"
#include "desktop/throttle.h"
#include "shell/form1.h"

class QProgressBar;

namespace tallowbrook {

class ListArea : public QWidget {
 public:
  ListArea(Form1& form, Binder& binder, QWidget* parent);
  ~ListArea() override;

 protected:
  // Keys of the address come by here first.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLayout* MakeAddressRow(Binder& binder);
  QLayout* MakeFilterRow(Binder& binder);
  QWidget* MakeList();
  QLayout* MakeCheckRow(Binder& binder);
  QWidget* MakeProgress(Binder& binder);
  void ShowProgress();
  bool AddressKey(int key);

  Form1& form_;
  FileRows rows_;
  QWidget* list_ = nullptr;
  QLineEdit* address_ = nullptr;
  QProgressBar* bar_ = nullptr;
  Throttle progress_;
};

}  // namespace tallowbrook
