// The file list on the screen, as a table or as icons: keys, clicks, menu and drops.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/file_rows.h"
#include "desktop/row_table.h"

namespace tallowbrook {

// Over RowTable or RowView<QListView>.
template <typename Base>
class FileView : public Base {
 public:
  FileView(FileRows& rows, QWidget* parent);

  // Files were dropped on the view.
  std::function<void(const std::vector<std::string>&)> dropped;

  void reset() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void RowDoubleClicked(std::size_t row) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

  // The cell to scroll to for a row, from 0: one in sight, so that nothing moves sideways.
  virtual QModelIndex CellInSight(int row) const = 0;
  // The cell below which a row's menu opens.
  virtual QModelIndex NameCell(int row) const = 0;

  FileTableModel& Model() const { return rows_.model; }

 private:
  void ScrollToRow(std::size_t row);
  void HighlightForMenu(const QModelIndex& index);
  void PopUpAtCurrentRow();

  FileRows& rows_;
};

extern template class FileView<RowTable>;
extern template class FileView<RowView<QListView>>;

}  // namespace tallowbrook
