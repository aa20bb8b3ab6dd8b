// The two panes of the status bar.
//
// Pane 0 follows long work that lets no events through, so it paints itself directly; neither
// pane paints more than 20 times a second, whatever is written to it.
#pragma once

#include <memory>

#include "base/status_bar.h"
#include "desktop/elided_label.h"
#include "desktop/throttle.h"

class QStatusBar;
class QVBoxLayout;

namespace tallowbrook {

class StatusPanes {
 public:
  // Becomes the one listener of the status until it ends.
  StatusPanes(StatusBar& status, QStatusBar& bar);
  ~StatusPanes();
  StatusPanes(const StatusPanes&) = delete;
  StatusPanes& operator=(const StatusPanes&) = delete;

  // Shows what the panes hold, at once.
  void Show();

 private:
  void Changed();

  StatusBar& status_;
  QWidget& row_;
  ElidedLabel& message_;
  ElidedLabel& count_;
  Throttle throttle_;
};

// Lays a window out as a body above its status bar; the body's layout comes back.
QVBoxLayout* MakeBody(QWidget& window, StatusBar& status, std::unique_ptr<StatusPanes>& panes);

}  // namespace tallowbrook
