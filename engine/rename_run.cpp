#include "engine/rename_run.h"

#include "base/guards.h"

namespace tallowbrook {

RenameRun::RenameRun(RunWorld world, RenameSettings& settings, ListPane& pane, FileList& list,
                     FolderScan& scan, NameBuilder& names, RandomNumberPool& pool)
    : world_(world),
      settings_(settings),
      pane_(pane),
      list_(list),
      scan_(scan),
      names_(names),
      pool_(pool) {}

void RenameRun::RenameFiles(std::size_t row, const std::string& newName) {
  if (running_ || row > list_.Count()) return;
  running_ = true;
  const Finally end([this] { running_ = false; });
  written_.clear();
  RunRows(row, newName);
}

void RenameRun::RunRows(std::size_t row, const std::string& newName) {
  const bool single = row != 0;
  PrepareTarget();
  const std::size_t last = single ? row : static_cast<std::size_t>(pool_.PrepareRandomPool());
  world_.log.BeginBatch(world_.clock.Now());
  pool_.RandomPoolIndex = -1;
  std::int32_t UniqueCounter = 0;
  for (std::size_t i = single ? row : 1; i <= last; ++i) {
    FileEntry& entry = list_.Row(i);
    if (!TakesPart(entry, single)) {
      entry.newName = "(Not Selected)";
      entry.colour = RowColour::Skipped;
      continue;
    }
    ++pool_.RandomPoolIndex;
    // A copy: a renamed folder changes the paths of the rows.
    const std::string directory = list_.Directory(i);
    RowResult result =
        Process(entry, directory,
                single ? newName : names_.BuildNewName(entry.name, UniqueCounter, directory));
    if (result.RowDone) {
      FinishDone(entry, directory, result);
      UniqueCounter = NextCounter(UniqueCounter, settings_);
    } else {
      FinishFailed(entry, directory, result);
    }
  }
  list_.TellRows(1, list_.Count());
  // What has moved away is no row of this folder any more.
  if (settings_.Check_MoveEnable.On() && settings_.TransferMethod.Value() == 1) scan_.RefillList();
  world_.log.EndBatch();
  world_.status.Set(0, "File Renaming has completed");
  world_.log.Close();
}

void RenameRun::PrepareTarget() {
  settings_.Txt_MoveTo.Set(WithSlash(settings_.Txt_MoveTo.Value()));
  if (settings_.Txt_MoveTo.Value() != pane_.Txt_Address.Value()) return;
  if (!settings_.Check_MoveEnable.On()) return;
  settings_.Check_MoveEnable.Set(0);
  if (updateMoveControls) updateMoveControls();
}

bool RenameRun::TakesPart(const FileEntry& row, bool single) const {
  return (row.Checked || single) && !pool_.UsedUp();
}

RenameRun::RowResult RenameRun::Process(FileEntry& row, const std::string& directory,
                                        std::string newName) {
  RowResult result;
  result.newName = std::move(newName);
  result.CurrentDirectory = directory;
  if (result.newName.starts_with(FailureMarker)) return result;
  // No file name holds a "<": it marks a date command, or a keyword that nothing replaced.
  if (result.newName.find('<') != std::string::npos) {
    if (!world_.dates) return result;
    std::string former = world_.dates->ProcessAttributes(directory + row.name, result.newName);
    if (former.empty()) return result;
    result.newName = std::move(former);
    result.RowDone = true;
    return result;
  }
  result.IsRenameRecord = true;
  message_.assign("Renaming '").append(row.name).append("' to '");
  message_.append(result.newName).append("'");
  world_.status.Set(0, message_);
  if (world_.files.Rename(directory, row.name, result.newName) != FileError::None) return result;
  result.RowDone = true;
  Transfer(row, directory, result);
  return result;
}

// Copies or moves the renamed file. The rename was the row's own work, so that a failure here
// doesn't undo the success; the record then names the folder where the file still is.
void RenameRun::Transfer(FileEntry& row, const std::string& directory, RowResult& result) {
  if (!settings_.Check_MoveEnable.On()) return;
  const std::string& target = settings_.Txt_MoveTo.Value();
  // A path that doesn't begin at the root would mean another folder at every start.
  if (!target.starts_with('/') || !Found(target) || directory == target) return;
  const std::string source = directory + result.newName;
  const FileError copied = CopyOnce(source, target + result.newName);
  if (settings_.TransferMethod.Value() != 1) return;
  if (copied != FileError::None) {
    row.newName = "could not move file";
    return;
  }
  // A source that can't be deleted stays beside its copy, and the record names the copy.
  static_cast<void>(world_.files.Delete(source));
  result.CurrentDirectory = target;
}

// An older file of that name in the target is replaced, but never one that this run put there: two
// rows that end as one name would leave a single file of the two.
FileError RenameRun::CopyOnce(const std::string& source, const std::string& target) {
  if (written_.contains(target)) return FileError::AlreadyExists;
  const FileError error = world_.files.Copy(source, target);
  if (error == FileError::None) written_.insert(target);
  return error;
}

void RenameRun::FinishDone(FileEntry& row, const std::string& directory, RowResult& result) {
  row.newName = "success";
  row.colour = RowColour::Done;
  RunRecord record;
  record.kind = RunRecord::Kind::File;
  if (pane_.Option1_Folders.On()) {
    // A date row hands on the former date as the log has it, so that rows below that folder point
    // nowhere until the next scan. That is wanted: they fail rather than act on a stale path.
    UpdateFolderPaths(row.name, result.newName + (result.IsRenameRecord ? "" : "?"), directory);
    record.kind = RunRecord::Kind::Folder;
  }
  record.oldFolder = directory;
  record.oldName = row.name;
  record.newFolder = result.CurrentDirectory;
  record.newName = result.IsRenameRecord ? result.newName : row.name;
  if (!result.IsRenameRecord) record.detail = result.newName;
  world_.log.Record(record);
  if (!result.IsRenameRecord) return;
  row.name = std::move(result.newName);
  if (scan_.ThumbnailMode) row.rowText = row.name + " (success)";
}

void RenameRun::FinishFailed(FileEntry& row, const std::string& directory,
                             const RowResult& result) {
  row.newName = "error";
  row.colour = RowColour::Failed;
  RunRecord record;
  record.oldFolder = directory;
  record.oldName = row.name;
  record.newFolder = directory;
  record.newName = result.newName;
  world_.log.Record(record);
  if (scan_.ThumbnailMode) row.rowText = "(could not rename)";
}

bool RenameRun::Found(const std::string& path) {
  return world_.files.Exists(path);
}

void RenameRun::UpdateFolderPaths(const std::string& oldName, const std::string& newName,
                                  const std::string& directory) {
  if (oldName == newName) return;
  list_.Folders().Rename(directory + oldName + "/", newName);
}

}  // namespace tallowbrook
