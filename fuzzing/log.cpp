// The log reader and its rewrite: any bytes as Logfile.txt, the history opened, every batch looked
// at and undone, every second one deleted.
//
// Aborts if a path is moved that no record of the batch gives, or if a rewrite loses a batch.
#include <cstdint>
#include <set>

#include "fuzzing/no_files.h"
#include "fuzzing/require.h"
#include "store/log_history.h"

namespace {

using namespace tallowbrook;

// Whether the text has "old path?new path?", with blanks around the two.
bool Names(std::string_view batch, const std::string& oldPath, const std::string& newPath) {
  const auto skip = [&](std::size_t at) {
    while (at < batch.size() && batch[at] == ' ') ++at;
    return at;
  };
  const auto ends = [&](std::size_t at) { return at < batch.size() && batch[at] == '?'; };
  for (std::size_t at = 0; (at = batch.find(oldPath, at)) != std::string_view::npos; ++at) {
    const std::size_t between = skip(at + oldPath.size());
    if (!ends(between)) continue;
    const std::size_t second = skip(between + 1);
    if (batch.substr(second).starts_with(newPath) && ends(skip(second + newPath.size()))) {
      return true;
    }
    if (at == batch.size()) break;
  }
  return false;
}

// A disk that holds the log and moves whatever it is asked to, every third time.
class LogOnly : public NoFiles {
 public:
  std::string log;
  // What may be moved to what: whole paths, or, below folders that go back, by their leaves.
  std::set<std::pair<std::string, std::string>> allowed;
  bool byLeaves = false;
  // Where each such pair has to stand; empty where escapes hide it.
  std::string batch;
  int moves = 0;

  std::pair<std::string, std::string> Pair(const std::string& path,
                                           const std::string& newPath) const {
    if (!byLeaves) return {path, newPath};
    return {path.substr(path.rfind('/') + 1), newPath.substr(newPath.rfind('/') + 1)};
  }
  FileError MovePath(const std::string& path, const std::string& newPath) override {
    Require(allowed.contains(Pair(path, newPath)));
    Require(byLeaves || batch.empty() || Names(batch, newPath, path));
    return ++moves % 3 ? FileError::None : FileError::NotFound;
  }
  FileError Rewrite(const std::string&, const FileEdit& edit) override {
    log = edit(log);
    return FileError::None;
  }
  std::optional<std::string> ReadWhole(const std::string&) override { return log; }
  bool Exists(const std::string&) override { return true; }
};

struct YesDialogs : Dialogs {
  Answer Ask(const MessageBox&) override { return Answer::Yes; }
};
struct NoEvents : PendingEvents {
  void Yield() override {}
};
struct AnyDates : FileDates {
  std::string ProcessAttributes(const std::string&, const std::string& command) override {
    return command;
  }
};

std::size_t CountBatches(const std::string& log) {
  return log_format::SplitBatches(log).size();
}

std::vector<std::string> OtherBatches(const std::string& log, std::size_t number) {
  const std::vector<std::string_view> batches = log_format::SplitBatches(log);
  std::vector<std::string> others(batches.begin(), batches.end());
  others.erase(others.begin() + static_cast<std::ptrdiff_t>(number - 1));
  return others;
}

void UndoBatch(LogHistory& history, LogOnly& disk, std::size_t number) {
  const std::size_t batches = CountBatches(disk.log);
  history.SelectBatches({number}, number);
  history.Cmd_Switch.Press();
  disk.allowed.clear();
  BatchRows& rows = history.Files;
  disk.byLeaves = false;
  for (std::size_t row = 1; row <= rows.Count(); ++row) {
    disk.byLeaves = disk.byLeaves || rows.IsFolder(row);
    Require(rows.Detail(row) == rows.DateCommand(row));
  }
  for (std::size_t row = 1; row <= rows.Count(); ++row) {
    disk.allowed.insert(disk.Pair(rows.NewPath(row), rows.OldPath(row)));
  }
  disk.batch = log_format::SplitBatches(disk.log)[number - 1];
  if (disk.batch.find(log_format::escape) != std::string::npos) disk.batch.clear();
  const std::vector<std::string> others = OtherBatches(disk.log, number);
  history.Cmd_Undo.Press();
  history.Cmd_Close.Press();
  Require(CountBatches(disk.log) == batches && OtherBatches(disk.log, number) == others);
  Require(history.CanClose() && history.ListView1.Visible());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  LogOnly disk;
  disk.log.assign(reinterpret_cast<const char*>(data), size);
  YesDialogs dialogs;
  NoEvents events;
  AnyDates dates;
  LogHistory history({disk, dialogs, events, &dates, {}}, "/log");
  history.Open();
  Require(history.CountBatches() <= CountBatches(disk.log));
  for (std::size_t i = 1; i <= history.CountBatches(); ++i) UndoBatch(history, disk, i);
  std::vector<std::size_t> doomed;
  for (std::size_t i = 1; i <= history.CountBatches(); i += 2) doomed.push_back(i);
  const std::size_t before = CountBatches(disk.log);
  history.SelectBatches(doomed, doomed.empty() ? 0 : doomed.back());
  history.DeleteKey();
  Require(CountBatches(disk.log) == before - doomed.size());
  return 0;
}
