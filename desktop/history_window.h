// The window of the history: the batches of the log or the files of one, in one place, and the
// buttons for them.
#pragma once

#include <QDialog>
#include <memory>

#include "desktop/binder.h"
#include "desktop/status_panes.h"
#include "store/log_history.h"

namespace tallowbrook {

class HistoryWindow : public QDialog {
 public:
  // Opens the history once it shows. `model` must outlive the window.
  HistoryWindow(LogHistory& model, QWidget* over);
  ~HistoryWindow() override;

  // Escape and the window's own closing come by here; while the model works, nothing closes.
  void reject() override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QLayout* MakeLists();
  QLayout* MakeButtons();

  LogHistory& model_;
  Binder binder_;
  std::unique_ptr<StatusPanes> status_;
  bool opened_ = false;
};

}  // namespace tallowbrook
