// The five pages. Which one is in front is the setting TabIndex.
#pragma once

#include <QTabWidget>

#include "desktop/binder.h"
#include "shell/form1.h"

namespace tallowbrook {

class PageTabs : public QTabWidget {
 public:
  PageTabs(Form1& form, Binder& binder, QWidget* parent);

 private:
  void AddPage(QWidget* page, const std::string& caption);
};

}  // namespace tallowbrook
