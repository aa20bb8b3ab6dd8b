// The list on the screen: a table of whole rows with check marks, highlights and drops.
#pragma once

#include <QTableView>
#include <functional>
#include <string>
#include <vector>

#include "desktop/file_table_model.h"

namespace tallowbrook {

class FileTable : public QTableView {
 public:
  FileTable(FileList& list, QWidget* parent);

  // What the table hands on: F2, files dropped on it, the focus coming and going.
  std::function<void()> renamePressed;
  std::function<void(const std::vector<std::string>&)> dropped;
  std::function<void(bool)> focused;
  // The list has come into sight or gone out of it.
  std::function<void()> visibilityChanged;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void SetUpLook();
  void SetUpColumns();
  void SortBy(int section);
  void ToggleHighlighted();
  void Mark(const QItemSelection& ranges, bool selected);
  void RestoreHighlights();

  FileTableModel model_;
};

}  // namespace tallowbrook
