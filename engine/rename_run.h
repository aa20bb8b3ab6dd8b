// The run: the one place that changes file names.
//
// It walks the rows, asks BuildNewName what each is to become, renames on the disk, copies or
// moves if asked to, leaves the outcome in the row and one record in the log. It never stops for
// a file and never lets pending events through.
#pragma once

#include <string>
#include <string_view>

#include "base/status_bar.h"
#include "engine/name_builder.h"
#include "engine/run_log.h"
#include "filelist/folder_scan.h"
#include "platform/clock.h"
#include "platform/files.h"

namespace tallowbrook {

// Sets a file's time from a date command; returns the former time in the same form, or an empty
// text if nothing was done.
class FileDates {
 public:
  virtual ~FileDates() = default;
  virtual std::string ProcessAttributes(const std::string& path, const std::string& command) = 0;
};

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

  // True if a file or folder is at the path.
  bool Found(const std::string& path);

  std::function<void()> updateMoveControls;

 private:
  struct RowResult {
    bool RowDone = false;
    bool IsRenameRecord = false;
    std::string newName;
    std::string CurrentDirectory;
  };
  void PrepareTarget();
  bool TakesPart(const FileEntry& row, bool single) const;
  RowResult Process(FileEntry& row, const std::string& directory, std::string newName);
  void Transfer(FileEntry& row, const std::string& directory, RowResult& result);
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
};

}  // namespace tallowbrook
