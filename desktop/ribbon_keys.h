// The keys that lead to the ribbon and, while it has the keyboard, the letters of its captions.
//
// Alt pressed by itself, or F10, takes the keyboard to the tabs and back again; Escape leads back
// too.
#pragma once

#include <QObject>
#include <functional>

#include "desktop/ribbon_bar.h"

class QKeyEvent;

namespace tallowbrook {

class RibbonKeys : public QObject {
 public:
  // Watches all keys of `window`. While `isBusy` says so, Escape is left to the window.
  RibbonKeys(RibbonBar& ribbon, QWidget& window, std::function<bool()> isBusy);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void WatchAlt(const QEvent& event);
  bool Press(const QKeyEvent& key);
  void Turn();

  RibbonBar& ribbon_;
  QWidget& window_;
  std::function<bool()> isBusy_;
  // Alt is down, and nothing else has happened since.
  bool altAlone_ = false;
};

}  // namespace tallowbrook
