// The run over the rows: rename on the disk, copy or move, outcome, record.
//
// Each row stands alone: whatever happens to it, the next one has its turn. While a run works,
// no second one begins, though the listing at its end lets events through.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

#include "base/status_bar.h"
#include "engine/file_dates.h"
#include "engine/name_builder.h"
#include "engine/run_log.h"
#include "filelist/folder_scan.h"
#include "platform/clock.h"
#include "platform/files.h"

namespace tallowbrook {

struct RunWorld {
  Files& files;
  Clock& clock;
  StatusBar& status;
  RunLog& log;
  FileDates* dates = nullptr;  // without one, no date changes and such rows fail
};

class RenameRun {
 public:
  RenameRun(RunWorld world, RenameSettings& settings, ListPane& pane, FileList& list,
            FolderScan& scan, NameBuilder& names, RandomNumberPool& pool);

  // `row` 0 runs over all checked rows and ignores `newName`; any other row is renamed alone, to
  // `newName` as it stands, checked or not.
  void RenameFiles(std::size_t row, const std::string& newName);

  // Whether anything stands there, a file or a folder.
  bool Found(const std::string& path);

  std::function<void()> updateMoveControls;

 private:
  struct RowResult {
    bool RowDone = false;
    bool IsRenameRecord = false;
    std::string newName;
    std::string CurrentDirectory;
  };
  void RunRows(std::size_t row, const std::string& newName);
  void PrepareTarget();
  bool TakesPart(const FileEntry& row, bool single) const;
  RowResult Process(FileEntry& row, const std::string& directory, std::string newName);
  void Transfer(FileEntry& row, const std::string& directory, RowResult& result);
  FileError CopyOnce(const std::string& source, const std::string& target);
  void FinishDone(FileEntry& row, const std::string& directory, RowResult& result);
  void FinishFailed(FileEntry& row, const std::string& directory, const RowResult& result);
  // Rows below a renamed folder get its new path.
  void UpdateFolderPaths(const std::string& oldName, const std::string& newName,
                         const std::string& directory);

  RunWorld world_;
  RenameSettings& settings_;
  ListPane& pane_;
  FileList& list_;
  FolderScan& scan_;
  NameBuilder& names_;
  RandomNumberPool& pool_;

  bool running_ = false;
  std::string message_;  // kept for its memory
  // What this run has copied or moved to.
  std::unordered_set<std::string> written_;
};

}  // namespace tallowbrook
