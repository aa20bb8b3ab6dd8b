// The two panes of the status bar.
//
// Pane 0 follows long work that lets no events through, so it paints itself directly; neither
// pane paints more than 20 times a second, whatever is written to it.
#pragma once

#include <QLabel>
#include <string>

#include "base/status_bar.h"
#include "desktop/throttle.h"

class QStatusBar;

namespace tallowbrook {

// One line of plain text, cut in its middle where it is too long.
class StatusPane : public QLabel {
 public:
  explicit StatusPane(QWidget* parent);
  void ShowText(const std::string& text);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();
  QString whole_;
};

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
  StatusPane& message_;
  StatusPane& count_;
  Throttle throttle_;
};

}  // namespace tallowbrook
