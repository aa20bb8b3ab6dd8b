// Column "New File Name" before a run, and the name of the sample file.
#pragma once

#include <cstdint>
#include <functional>
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

  // Yields every ten rows; the list, the pool and the settings may be others afterwards.
  void PreviewFiles();
  // The new name of filename.abc.
  std::string BuildSampleFileName();

  // Whether the program has ended meanwhile: no further row is worth composing.
  std::function<bool()> ended;
  // In the thumbnail view a row's own text follows its new name.
  std::function<bool()> thumbnailMode;

 private:
  bool MissesTagMask();
  void PreviewRow(FileEntry& row, const std::string& directory, std::int32_t UniqueCounter);

  Screen& screen_;
  RenameSettings& settings_;
  FileList& list_;
  NameBuilder& names_;
  RandomNumberPool& pool_;
  Dialogs& dialogs_;
  PendingEvents& events_;
  StatusBar& status_;
};

}  // namespace tallowbrook
