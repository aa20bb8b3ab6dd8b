// frmHistory: the log as a list of batches, the files of one batch, and the undo.
//
// While it loads, asks or undoes, events come through, but what they ask of the history waits for
// the next time: its lists stand still for the work that walks them.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/controls.h"
#include "base/dialogs.h"
#include "base/pending_events.h"
#include "base/status_bar.h"
#include "engine/rename_run.h"
#include "platform/files.h"
#include "store/batch_rows.h"
#include "store/log_format.h"

namespace tallowbrook {

struct HistoryWorld {
  Files& files;
  Dialogs& dialogs;
  PendingEvents& events;
  FileDates* dates = nullptr;        // without one, no date goes back
  std::function<void()> filterList;  // shows the disk's state in the main window's list
};

class LogHistory {
 public:
  LogHistory(HistoryWorld world, std::string logPath);

  Screen screen;
  StatusBar statusBar;  // pane 0 the activity, pane 1 a count
  // Just one of the two is visible.
  Frame ListView1;  // summary
  Frame ListView2;  // detail
  Button Cmd_Undo;
  Button Cmd_Switch;
  Button Cmd_Close;
  static constexpr std::string_view caption = "View History";
  static constexpr std::string_view summaryColumns[] = {"Date", "Time", "Files Renamed", "Errors"};
  static constexpr std::string_view detailColumns[] = {"Result", "Old Filename", "New Filename",
                                                       "Detail"};

  // Fills the summary and selects the latest batch. The window calls it once it shows.
  void Open();
  // False while work goes on that the window must not be closed under.
  bool CanClose() const { return !busy_; }

  // Batches count from 1, the oldest first; 0 is none.
  std::size_t CountBatches() const { return summaries_.size(); }
  const log_format::BatchSummary& Batch(std::size_t number) const { return summaries_[number - 1]; }
  // The user's selection in the summary, and the one of its rows that was selected last.
  void SelectBatches(std::vector<std::size_t> numbers, std::size_t current);
  std::size_t SelectedBatch() const { return selected_; }

  BatchRows Files;  // the rows of the detail view

  void LoadLogSummary();
  void LoadLogDetail();
  void SwitchLogView();
  void UndoSelected();
  // The user's ticks. The rows that an undo asked about stay those.
  void SetChecked(std::size_t row, bool checked);
  // Keys and clicks of the window.
  void DeleteKey();
  void BatchDoubleClicked();
  void FileDoubleClicked(std::size_t row);

  // Set by the window. The lists' rows are others; the texts or marks of some detail rows have
  // changed; the window is to close.
  std::function<void()> batchesChanged;
  std::function<void()> filesChanged;
  std::function<void(std::size_t first, std::size_t last)> fileRowsChanged;
  std::function<void()> close;

 private:
  std::optional<std::string> ReadLog();
  bool ListBatches();
  void AskToClear();
  void ShowSummary();
  void UndoRows();
  void UndoRow(std::size_t row);
  bool Restore(std::size_t row, const std::string& from, const std::string& to);
  void KeepStatuses();
  std::optional<std::size_t> DeleteSelected();
  std::vector<std::size_t> TwinsBefore() const;
  std::optional<std::size_t> Rewrite(const std::vector<log_format::BatchChange>& changes);
  void TellRows(std::size_t first, std::size_t last) const;
  void UpdateButtons();
  void Work(const std::function<void()>& work);

  HistoryWorld world_;
  std::string logPath_;
  std::string LogText_;
  // Row i of the summary is LogBatches_[i - 1]. They lie in LogText_ or, once an undo has changed
  // them, in rebuilt_. What the file has of each is in onDisk_: the same, unless a rewrite failed.
  std::vector<std::string_view> LogBatches_;
  std::vector<std::string_view> onDisk_;
  std::deque<std::string> rebuilt_;
  std::vector<log_format::BatchSummary> summaries_;
  std::vector<std::size_t> marked_;
  std::size_t selected_ = 0;
  std::size_t detailed_ = 0;  // the batch that Files shows
  bool busy_ = false;
};

}  // namespace tallowbrook
