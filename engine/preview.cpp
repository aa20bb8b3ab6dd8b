#include "engine/preview.h"

namespace tallowbrook {

namespace {
constexpr std::size_t rowsBetweenYields = 10;
}

Preview::Preview(Screen& screen, RenameSettings& settings, FileList& list, NameBuilder& names,
                 RandomNumberPool& pool, Dialogs& dialogs, PendingEvents& events, StatusBar& status)
    : screen_(screen),
      settings_(settings),
      list_(list),
      names_(names),
      pool_(pool),
      dialogs_(dialogs),
      events_(events),
      status_(status) {}

void Preview::PreviewFiles() {
  if (MissesTagMask()) return;
  const auto count = static_cast<std::size_t>(pool_.PrepareRandomPool());
  pool_.RandomPoolIndex = -1;
  std::int32_t UniqueCounter = 0;
  // A yield may have shortened the list.
  for (std::size_t i = 1; i <= count && i <= list_.Count(); ++i) {
    FileEntry& row = list_.Row(i);
    if (row.Checked && !pool_.UsedUp()) {
      ++pool_.RandomPoolIndex;
      PreviewRow(row, list_.Directory(i), UniqueCounter);
      UniqueCounter = NextCounter(UniqueCounter, settings_);
    } else {
      row.newName = "(Not Selected)";
      row.colour = RowColour::Skipped;
    }
    if (i % rowsBetweenYields != 0) continue;
    list_.TellRows(i - rowsBetweenYields + 1, i);
    status_.Set(0, "Building Preview " + std::to_string(i) + " of " + std::to_string(count));
    events_.Yield();
    if (ended && ended()) return;
  }
  list_.TellRows(1, list_.Count());
  status_.Set(0, "Finished building preview");
}

bool Preview::MissesTagMask() {
  if (settings_.TabIndex.Index() != PageTags || !settings_.RTxt_ID3Name.Value().empty()) {
    return false;
  }
  dialogs_.Ask({"Nothing to rename",
                "You haven't entered a new filename mask\r\n\r\n"
                "example: <v1artist> - <v1title> - <v1album>",
                Buttons::Ok});
  screen_.RequestFocus(settings_.RTxt_ID3Name);
  return true;
}

void Preview::PreviewRow(FileEntry& row, const std::string& directory, std::int32_t UniqueCounter) {
  row.newName = names_.BuildNewName(row.name, UniqueCounter, directory);
  row.colour = RowColour::Plain;
  if (row.newName.starts_with(FailureMarker)) {
    row.newName.erase(0, FailureMarker.size());
    row.colour = RowColour::Refused;
  } else if (thumbnailMode && thumbnailMode()) {
    row.rowText = row.newName;
  }
}

std::string Preview::BuildSampleFileName() {
  return names_.BuildNewName(std::string(SampleBaseName) + "." + std::string(SampleExtension), 0,
                             {});
}

}  // namespace tallowbrook
