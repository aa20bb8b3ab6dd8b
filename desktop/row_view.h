// Lists of whole rows, as a table or as icons: what input does to them. Highlights and check marks
// are two things that never touch each other.
#pragma once

#include <QListView>
#include <QTableView>
#include <functional>
#include <vector>

#include "desktop/row_model.h"

namespace tallowbrook {

// Over QTableView or QListView. Its model is a RowModel.
template <typename View>
class RowView : public View {
 public:
  explicit RowView(QWidget* parent);

 protected:
  // Input acts on rows that are there: each of these tells the view of all changes first.
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  // A click on a check box turns it and leaves the highlights alone.
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  // A key never acts on a single check box.
  bool edit(const QModelIndex& index, QAbstractItemView::EditTrigger trigger,
            QEvent* event) override;

  // The left button, twice on one row but not on its check box. The row counts from 1.
  virtual void RowDoubleClicked(std::size_t) {}
  // In the viewport, of a cell that has one.
  virtual QRect CheckBoxRect(const QModelIndex& index) const = 0;

  RowModel& Rows() const { return *static_cast<RowModel*>(this->model()); }
  bool IsOnCheckBox(QPoint point) const;
  // From 1, 0 for none.
  std::size_t RowAt(QPoint point) const;
  // Of those that the view knows, ascending.
  std::vector<std::size_t> HighlightedRows() const;
  // All highlighted rows become what the first of them was not; rows beyond `count` are left out.
  void ToggleHighlighted(std::size_t count, const std::function<bool(std::size_t)>& isChecked,
                         const std::function<void(std::size_t, bool)>& setChecked);

 private:
  std::size_t pressedRow_ = 0;
  bool pressedBox_ = false;
};

extern template class RowView<QTableView>;
extern template class RowView<QListView>;

}  // namespace tallowbrook
