// The five pages. Which one is in front is the setting TabIndex.
#pragma once

#include <QTabWidget>
#include <array>

#include "desktop/binder.h"
#include "shell/form1.h"

namespace tallowbrook {

// When the pages get their fields: at once; or, of those that aren't seen, behind the first
// painting of the window, which comes some milliseconds earlier for that. No page is larger than
// the first.
enum class MakePages { Now, BehindFirstPaint };

class PageTabs : public QTabWidget {
 public:
  PageTabs(Form1& form, Binder& binder, QWidget* parent, MakePages when = MakePages::Now);

 private:
  static constexpr int pageCount = 5;

  void AddTab(int number, const std::string& caption);
  // Makes the page if it isn't there.
  void Need(int number);
  QWidget* Make(int number, QWidget* place);

  Form1& form_;
  Binder& binder_;
  std::array<QWidget*, pageCount> lastFields_{};  // of the pages that are made, in order of keys
};

}  // namespace tallowbrook
