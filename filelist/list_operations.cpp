#include "filelist/list_operations.h"

#include "base/letter_case.h"

namespace tallowbrook {

ListOperations::ListOperations(ListWorld world, Screen& screen, FileList& list, FolderScan& scan)
    : mnu_Open(screen, {.name = "mnu_Open", .caption = "Open"}),
      mnu_OpenContaining(screen,
                         {.name = "mnu_OpenContaining", .caption = "Open Containing Folder"}),
      mnu_SelectHighlighted(
          screen, {.name = "mnu_SelectHighlighted", .caption = "Check all files highlighted"}),
      mnu_DeselectHighlighted(
          screen, {.name = "mnu_DeselectHighlighted", .caption = "Un-Check all files highlighted"}),
      mnu_SelectOnlyHighlighted(screen, {.name = "mnu_SelectOnlyHighlighted",
                                         .caption = "Check only the files highlighted"}),
      mnu_Delete(screen,
                 {.name = "mnu_Delete", .caption = "Delete all highlighted files from system"}),
      mnu_EditID3Tag(screen, {.name = "mnu_EditID3Tag", .caption = "Edit ID3 Tag"}),
      mnu_ManualRename(screen, {.name = "mnu_ManualRename", .caption = "Manually Rename File"}),
      world_(world),
      list_(list),
      scan_(scan) {
  WireMenu();
}

void ListOperations::WireMenu() {
  mnu_Open.rule = [this] { OpenFile(); };
  mnu_OpenContaining.rule = [this] { OpenContainingFolder(); };
  mnu_SelectHighlighted.rule = [this] { CheckHighlighted(true); };
  mnu_DeselectHighlighted.rule = [this] { CheckHighlighted(false); };
  mnu_SelectOnlyHighlighted.rule = [this] { CheckOnlyHighlighted(); };
  mnu_Delete.rule = [this] { DeleteHighlighted(); };
  mnu_EditID3Tag.rule = [this] {
    if (ShowTagEditor) ShowTagEditor();
  };
  mnu_ManualRename.rule = [this] { RenameKey(); };
}

std::vector<ListOperations::MenuItem> ListOperations::RightClick() {
  return {{mnu_Open, false},
          {mnu_OpenContaining, true},
          {mnu_SelectHighlighted, false},
          {mnu_DeselectHighlighted, false},
          {mnu_SelectOnlyHighlighted, true},
          {mnu_Delete, true},
          {mnu_EditID3Tag, true},
          {mnu_ManualRename, false}};
}

std::vector<std::string> ListOperations::HighlightedPaths() const {
  std::vector<std::string> paths;
  for (std::size_t row = 1; row <= list_.Count(); ++row) {
    if (list_.Row(row).Selected) paths.push_back(list_.FullPath(row));
  }
  return paths;
}

void ListOperations::DeleteHighlighted() {
  const std::vector<std::string> paths = HighlightedPaths();
  const Answer answer =
      world_.dialogs.Ask({"Delete File",
                          "Are you sure you want to delete the " + std::to_string(paths.size()) +
                              " highlighted file(s) from the system?",
                          Buttons::YesNo, Answer::No});
  if (answer != Answer::Yes) return;
  std::size_t deleted = 0;
  for (const std::string& path : paths) {
    if (world_.files.Delete(path) != FileError::None) {
      world_.status.Set(0, std::to_string(deleted) + " file(s) deleted, stopped at '" + path +
                               "', which could not be deleted");
      return;
    }
    ++deleted;
  }
  scan_.RefillList();
}

void ListOperations::OpenFile() {
  const std::size_t row = list_.HighlightedRow();
  if (row) world_.desktop.Open(list_.FullPath(row));
}

void ListOperations::OpenContainingFolder() {
  const std::size_t row = list_.HighlightedRow();
  if (row) world_.desktop.ShowInFolder(list_.Directory(row), list_.FullPath(row));
}

void ListOperations::UpdateDates() {
  list_.ToggleListSort();
  for (std::size_t row = 1; row <= list_.Count(); ++row) {
    const std::optional<Date> date = scan_.FileDate(list_.FullPath(row));
    list_.Row(row).hasDate = date.has_value();
    list_.Row(row).shownDate = date.value_or(Date{});
  }
  list_.ToggleListSort();
  list_.TellRows(1, list_.Count());
}

void ListOperations::SetDateColumnMode(int mode) {
  if (scan_.DateColumnMode == mode) return;
  scan_.DateColumnMode = mode;
  UpdateDates();
  ShowDateCaption();
}

void ListOperations::ShowDateCaption() {
  list_.SetCaption(Column::Date, scan_.DateColumnMode == 1 ? "Date Created" : "Date Modified");
}

bool ListOperations::IsMp3(std::size_t row) const {
  return ToLower(list_.Cell(row, Column::Ext)) == "mp3";
}

void ListOperations::OpenTagEditorForSelection() {
  const std::size_t row = list_.HighlightedRow();
  if (!row) {
    world_.dialogs.Ask({"", "You must select an MP3 file to edit", Buttons::Ok});
  } else if (!IsMp3(row)) {
    world_.dialogs.Ask({"No MP3 File Selected",
                        "You must select which MP3 file you would like to edit", Buttons::Ok});
  } else if (ShowTagEditor) {
    ShowTagEditor();
  }
}

bool ListOperations::MouseUp(std::size_t row, bool isRight) {
  // The list may have shrunk since the view last looked.
  if (row > list_.Count()) row = 0;
  list_.SelectItem(row);
  if (!row || !isRight) return false;
  mnu_EditID3Tag.SetEnabled(ShowTagEditor && IsMp3(row));
  return true;
}

void ListOperations::ItemCheck(std::size_t row, bool checked) {
  list_.SetChecked(row, checked);
  const std::size_t selected = list_.SelectedItem();
  if (selected && selected <= list_.Count()) list_.SetSelected(selected, false);
  list_.SelectItem(0);
}

void ListOperations::RenameKey() {
  if (OpenManualRename) OpenManualRename();
}

void ListOperations::DeleteKey() {
  if (ListHasFocus) DeleteHighlighted();
}

void ListOperations::CheckHighlighted(bool checked) {
  for (std::size_t row = 1; row <= list_.Count(); ++row) {
    if (list_.Row(row).Selected) list_.SetChecked(row, checked);
  }
}

void ListOperations::CheckOnlyHighlighted() {
  for (std::size_t row = 1; row <= list_.Count(); ++row) {
    list_.SetChecked(row, list_.Row(row).Selected);
  }
}

}  // namespace tallowbrook
