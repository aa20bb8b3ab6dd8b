// What a run would do, before it does it: the sample name, and column "New File Name".
#pragma once

#include <string>

#include "base/dialogs.h"
#include "base/pending_events.h"
#include "base/status_bar.h"
#include "engine/name_builder.h"
#include "filelist/file_list.h"

namespace tallowbrook {

class Preview {
 public:
  Preview(Screen& screen, RenameSettings& settings, FileList& list, NameBuilder& names,
          RandomNumberPool& pool, Dialogs& dialogs, PendingEvents& events, StatusBar& status);

  // Writes each row's new name. Lets pending events through every ten rows; a second preview, a
  // run or a scan may begin there.
  void PreviewFiles();
  // The new name of filename.abc.
  std::string BuildSampleFileName();

  // In the thumbnail view a row's own text follows its new name.
  std::function<bool()> thumbnailMode;

 private:
  bool MissesTagMask();
  void PreviewRow(FileEntry& row, const std::string& directory, std::int32_t counter);

  Screen& screen_;
  RenameSettings& settings_;
  FileList& list_;
  NameBuilder& names_;
  RandomNumberPool& pool_;
  Dialogs& dialogs_;
  PendingEvents& events_;
  StatusBar& status_;
};

// The counter after a file: plus the increment's number, rounded to a whole one. A sum beyond 32
// bits leaves the counter as it was.
std::int32_t NextCounter(std::int32_t counter, const RenameSettings& settings);

}  // namespace tallowbrook
