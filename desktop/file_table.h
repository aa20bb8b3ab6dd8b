// The list on the screen: a table of whole rows with check marks, highlights and drops.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/file_table_model.h"
#include "desktop/row_table.h"
#include "filelist/list_operations.h"

namespace tallowbrook {

class FileTable : public RowTable {
 public:
  // What the user does with the rows goes to `operations`.
  FileTable(FileList& list, ListOperations& operations, QWidget* parent);
  ~FileTable() override;

  // Files were dropped on the table.
  std::function<void(const std::vector<std::string>&)> dropped;
  // The list has come into sight or gone out of it.
  std::function<void()> visibilityChanged;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void RowDoubleClicked(std::size_t row) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void SetUpColumns();
  void SortBy(int section);
  void ShowHighlight(std::size_t row);
  void ScrollToRow(std::size_t row);
  void HighlightForMenu(const QModelIndex& index);
  void PopUpAtCurrentRow();
  void Mark(const QItemSelection& ranges, bool selected);
  void RestoreHighlights();

  FileTableModel model_;
  ListOperations& operations_;
};

}  // namespace tallowbrook
