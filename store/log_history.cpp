#include "store/log_history.h"

#include <unordered_map>

#include "base/guards.h"

namespace tallowbrook {

namespace {

constexpr std::size_t batchesBetweenYields = 10;
constexpr std::size_t rowsBetweenYields = 10;
constexpr int statusUndoneFile = 3;
constexpr int statusUndoneFolder = 10;
constexpr std::string_view toDetail = "View Detailed";
constexpr std::string_view toSummary = "View Summary";

std::string LogEntries(std::size_t count) {
  return "Log Entries: " + std::to_string(count);
}

}  // namespace

LogHistory::LogHistory(HistoryWorld world, std::string logPath)
    : ListView1(screen, {.name = "ListView1"}),
      ListView2(screen, {.name = "ListView2"}, false),
      Cmd_Undo(screen, {.name = "Cmd_Undo",
                        .caption = "Undo",
                        .tip = "Give the checked files of the batch their old names back"}),
      Cmd_Switch(screen, {.name = "Cmd_Switch",
                          .caption = toDetail,
                          .tip = "Turn between the batches and the files of the selected one"}),
      Cmd_Close(screen, {.name = "Cmd_Close", .caption = "Close"}),
      world_(std::move(world)),
      logPath_(std::move(logPath)) {
  Cmd_Switch.rule = [this] { SwitchLogView(); };
  Cmd_Undo.rule = [this] {
    if (ListView1.Visible()) SwitchLogView();
    UndoSelected();
  };
  Cmd_Close.rule = [this] {
    if (busy_) return;
    if (!ListView1.Visible()) return SwitchLogView();
    if (close) close();
  };
  UpdateButtons();
}

// Runs work that lets events through; what they ask for meanwhile is left out.
void LogHistory::Work(const std::function<void()>& work) {
  if (busy_) return;
  busy_ = true;
  const Finally end([this] { busy_ = false; });
  work();
}

void LogHistory::Open() {
  LoadLogSummary();
  if (summaries_.empty()) return;
  SelectBatches({summaries_.size()}, summaries_.size());
  if (batchesChanged) batchesChanged();
}

void LogHistory::SelectBatches(std::vector<std::size_t> numbers, std::size_t current) {
  marked_ = std::move(numbers);
  selected_ = current;
  UpdateButtons();
}

// Without a batch there is nothing to look at and nothing to undo.
void LogHistory::UpdateButtons() {
  const bool hasBatch = selected_ > 0 || !ListView1.Visible();
  Cmd_Undo.SetEnabled(hasBatch);
  Cmd_Switch.SetEnabled(hasBatch);
}

void LogHistory::LoadLogSummary() {
  Work([this] {
    statusBar.Set(0, "Loading log file...");
    Files.Clear();
    LogBatches_.clear();
    onDisk_.clear();
    detailed_ = 0;
    rebuilt_.clear();
    summaries_.clear();
    SelectBatches({}, 0);
    if (batchesChanged) batchesChanged();
    const bool isWhole = ListBatches();
    statusBar.Set(0, isWhole ? "Finished loading log file" : "The log file could not be read");
    statusBar.Set(1, LogEntries(summaries_.size()));
    if (batchesChanged) batchesChanged();
    if (!isWhole) AskToClear();
  });
}

// A log that isn't there is made, empty. Nothing if there is one that can't be read.
std::optional<std::string> LogHistory::ReadLog() {
  std::optional<std::string> text = world_.files.ReadWhole(logPath_);
  if (text || world_.files.Exists(logPath_)) return text;
  static_cast<void>(world_.files.OpenForAppend(logPath_, {}));
  return std::string();
}

// False if it ended early; what was listed by then stays.
bool LogHistory::ListBatches() {
  std::optional<std::string> text = ReadLog();
  LogText_.clear();
  if (!text) return false;
  LogText_ = std::move(*text);
  for (const std::string_view batch : log_format::SplitBatches(LogText_)) {
    std::optional<log_format::BatchSummary> summary = log_format::Summarize(batch);
    if (!summary) return false;
    LogBatches_.push_back(batch);
    onDisk_.push_back(batch);
    summaries_.push_back(std::move(*summary));
    if (summaries_.size() % batchesBetweenYields == 0) world_.events.Yield();
  }
  return true;
}

void LogHistory::AskToClear() {
  const Answer answer = world_.dialogs.Ask(
      {"Error loading undo file",
       "There was an error loading the undo file. Click 'Yes' to fix the error\r\n\r\n"
       "NOTE: Clicking 'Yes' will clear the undo file",
       Buttons::YesNo, Answer::No});
  if (answer != Answer::Yes) return;
  if (world_.files.Delete(logPath_) == FileError::None) return;
  statusBar.Set(0, "The log file could not be deleted");
}

void LogHistory::SwitchLogView() {
  if (busy_) return;
  if (!ListView1.Visible()) return ShowSummary();
  if (selected_ == 0) return;
  Cmd_Switch.SetCaption(toSummary);
  LoadLogDetail();
}

void LogHistory::ShowSummary() {
  Cmd_Switch.SetCaption(toDetail);
  ListView2.SetVisible(false);
  ListView1.SetVisible(true);
  statusBar.Set(0, "Viewing summary log information");
  statusBar.Set(1, LogEntries(summaries_.size()));
  UpdateButtons();
}

void LogHistory::LoadLogDetail() {
  if (selected_ == 0) return;
  statusBar.Set(0, "Loading detailed log information");
  detailed_ = selected_;
  Files.Load(LogBatches_[detailed_ - 1]);
  ListView2.SetVisible(true);
  ListView1.SetVisible(false);
  if (filesChanged) filesChanged();
  statusBar.Set(0, "Finished loading detailed log information");
  statusBar.Set(1, "Files renamed this batch: " + std::to_string(Files.Count()));
}

// The button keeps its caption, and leads back from here all the same.
void LogHistory::BatchDoubleClicked() {
  if (!busy_) LoadLogDetail();
}

void LogHistory::SetChecked(std::size_t row, bool checked) {
  if (busy_) return;
  Files.SetChecked(row, checked);
  TellRows(row, row);
}

void LogHistory::FileDoubleClicked(std::size_t row) {
  SetChecked(row, !Files.Checked(row));
}

void LogHistory::TellRows(std::size_t first, std::size_t last) const {
  if (fileRowsChanged) fileRowsChanged(first, last);
}

void LogHistory::UndoSelected() {
  if (ListView1.Visible() || detailed_ == 0) return;
  Work([this] {
    const Answer answer = world_.dialogs.Ask(
        {"Confirm Undo", "Number of files to Undo Rename: " + std::to_string(Files.CountChecked()),
         Buttons::YesNo});
    if (answer != Answer::Yes) return;
    UndoRows();
    KeepStatuses();
    if (world_.filterList) world_.filterList();
  });
}

// In the order of the run, and once through: a row whose old name a later row still bears isn't
// tried again when that one has gone. Nothing that happens to a row keeps the others from theirs.
void LogHistory::UndoRows() {
  for (std::size_t row = 1; row <= Files.Count(); ++row) {
    if (row % rowsBetweenYields == 0) Attempt([this] { world_.events.Yield(); });
    if (Files.Checked(row)) Attempt([&] { UndoRow(row); });
  }
}

void LogHistory::UndoRow(std::size_t row) {
  const std::string from = Files.NewPath(row);
  const std::string to = Files.OldPath(row);
  bool isDone = false;
  Attempt([&] { isDone = Files.CanBeUndone(row) && Restore(row, from, to); });
  Files.SetOutcome(row, isDone ? UndoOutcome::Undone : UndoOutcome::Failed);
  if (isDone && Files.IsFolder(row)) {
    const std::size_t newLeaf = from.rfind('/') + 1;
    Files.UpdateRowsUnderFolder(std::string_view(from).substr(newLeaf),
                                std::string_view(to).substr(to.rfind('/') + 1),
                                std::string_view(from).substr(0, newLeaf));
    Files.ChangeLogStatus(row, statusUndoneFolder);
    TellRows(row, Files.Count());
    return;
  }
  if (isDone) Files.ChangeLogStatus(row, statusUndoneFile);
  TellRows(row, row);
}

bool LogHistory::Restore(std::size_t row, const std::string& from, const std::string& to) {
  if (world_.files.MovePath(from, to) != FileError::None) return false;
  const std::string command = Files.DateCommand(row);
  if (command.find('<') == std::string::npos) return true;
  return world_.dates && !world_.dates->ProcessAttributes(to, command).empty();
}

// Puts the batch with its new statuses into the log, also when every row failed.
void LogHistory::KeepStatuses() {
  const std::size_t index = detailed_ - 1;
  const std::string& text = rebuilt_.emplace_back(Files.Text());
  LogBatches_[index] = text;
  const std::optional<std::size_t> applied =
      Rewrite({{onDisk_[index], text, TwinsBefore()[index]}});
  if (applied == 1U) {
    onDisk_[index] = text;
  } else if (applied) {
    statusBar.Set(0, "Another window has changed this log entry; its results are not kept");
  }
}

// Of each batch in the file: how many before it read alike.
std::vector<std::size_t> LogHistory::TwinsBefore() const {
  std::unordered_map<std::string_view, std::size_t> counts;
  std::vector<std::size_t> twins;
  for (const std::string_view batch : onDisk_) twins.push_back(counts[batch]++);
  return twins;
}

// How many of the changes found their batch; nothing if the file couldn't be written. Pane 0 tells.
std::optional<std::size_t> LogHistory::Rewrite(
    const std::vector<log_format::BatchChange>& changes) {
  std::size_t applied = 0;
  const FileError error = world_.files.Rewrite(logPath_, [&](std::string_view log) {
    return log_format::Rewritten(log, changes, &applied);
  });
  if (error != FileError::None) {
    statusBar.Set(0, "The log file could not be written");
    return {};
  }
  return applied;
}

void LogHistory::DeleteKey() {
  if (busy_ || !ListView1.Visible()) return;
  bool isDone = false;
  bool missing = false;
  Work([&] {
    const Answer answer = world_.dialogs.Ask(
        {"Delete Selected Log Entries", "Are you sure you want to delete the selected log entries?",
         Buttons::YesNo, Answer::No});
    if (answer != Answer::Yes) return;
    const std::optional<std::size_t> deleted = DeleteSelected();
    isDone = deleted.has_value();
    missing = deleted < marked_.size();
  });
  if (!isDone) return;
  LoadLogSummary();
  if (missing) statusBar.Set(0, "Another window has changed some of these log entries");
}

std::optional<std::size_t> LogHistory::DeleteSelected() {
  const std::vector<std::size_t> twins = TwinsBefore();
  std::vector<log_format::BatchChange> changes;
  for (const std::size_t number : marked_) {
    changes.push_back({onDisk_[number - 1], {}, twins[number - 1]});
  }
  return Rewrite(changes);
}

}  // namespace tallowbrook
