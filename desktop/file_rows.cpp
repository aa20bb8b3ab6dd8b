#include "desktop/file_rows.h"

#include <algorithm>

namespace tallowbrook {

FileRows::FileRows(FileList& list, ListOperations& listOperations)
    : operations(listOperations), model(list) {
  model.itemCheck = [this](std::size_t row, bool checked) { operations.ItemCheck(row, checked); };
  list.selectedChanged = [this](std::size_t row) { ShowHighlight(row); };
  list.ensureVisible = [this](std::size_t row) {
    if (ensureVisible) ensureVisible(row);
  };
  connect(&selection, &QItemSelectionModel::selectionChanged, this,
          [this](const QItemSelection& selected, const QItemSelection& deselected) {
            Mark(deselected, false);
            Mark(selected, true);
          });
}

FileRows::~FileRows() {
  List().selectedChanged = nullptr;
  List().ensureVisible = nullptr;
}

void FileRows::ShowHighlight(std::size_t row) {
  const bool selected = List().Row(row).Selected;
  model.Sync();
  selection.select(model.index(static_cast<int>(row) - 1, 0),
                   (selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect) |
                       QItemSelectionModel::Rows);
}

void FileRows::Mark(const QItemSelection& ranges, bool selected) {
  FileList& list = List();
  for (const QItemSelectionRange& range : ranges) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      const auto number = static_cast<std::size_t>(row) + 1;
      if (number <= list.Count()) list.Row(number).Selected = selected;
    }
  }
}

// A view can't paint with a great many stretches of highlighted rows, so that those are given up.
// While the list is hidden the model may still tell of rows that the list has no more.
void FileRows::RestoreHighlights() {
  constexpr qsizetype mostStretches = 2000;
  FileList& list = List();
  QItemSelection highlighted;
  const int rows = std::min(model.rowCount(), static_cast<int>(list.Count()));
  const int lastSection = model.columnCount() - 1;
  for (int row = 0; row < rows; ++row) {
    if (!list.Row(static_cast<std::size_t>(row) + 1).Selected) continue;
    const int first = row;
    while (row + 1 < rows && list.Row(static_cast<std::size_t>(row) + 2).Selected) ++row;
    highlighted.append({model.index(first, 0), model.index(row, lastSection)});
    if (highlighted.size() <= mostStretches) continue;
    for (std::size_t i = 1; i <= list.Count(); ++i) list.Row(i).Selected = false;
    highlighted.clear();
  }
  selection.select(highlighted, QItemSelectionModel::ClearAndSelect);
  const auto chosen = static_cast<int>(list.SelectedItem());
  if (chosen > 0 && chosen <= rows) {
    selection.setCurrentIndex(model.index(chosen - 1, 0), QItemSelectionModel::NoUpdate);
  }
}

}  // namespace tallowbrook
