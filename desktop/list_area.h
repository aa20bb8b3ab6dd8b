// The list pane: address and filter above the list, check marks and progress below it.
#pragma once

#include <QWidget>

#include "desktop/binder.h"
#include "desktop/file_icons.h"
#include "desktop/file_table.h"
#include "desktop/throttle.h"
#include "shell/form1.h"

class QProgressBar;
class QStackedLayout;
class QStackedWidget;

namespace tallowbrook {

class ListArea : public QWidget {
 public:
  ListArea(Form1& form, Binder& binder, QWidget* parent);
  ~ListArea() override;
  // Puts the keyboard on the list, in the view that it has now.
  void FocusList();

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
  void ShowList();
  QWidget* View();
  bool AddressKey(int key);

  Form1& form_;
  FileRows rows_;
  QStackedLayout* list_ = nullptr;   // the views, and an empty page over them
  QStackedWidget* views_ = nullptr;  // the table, and the icons once they were wanted
  FileTable* table_ = nullptr;
  FileIcons* icons_ = nullptr;
  QLineEdit* address_ = nullptr;
  QProgressBar* bar_ = nullptr;
  Throttle progress_;
};

}  // namespace tallowbrook
