#include "desktop/row_view.h"

#include <QMouseEvent>
#include <algorithm>
#include <utility>

namespace tallowbrook {

template <typename View>
RowView<View>::RowView(QWidget* parent) : View(parent) {
  this->setTextElideMode(Qt::ElideMiddle);
  this->setSelectionBehavior(View::SelectRows);
  this->setSelectionMode(View::ExtendedSelection);
  this->setEditTriggers(View::NoEditTriggers);
  this->setTabKeyNavigation(false);
}

template <typename View>
void RowView<View>::keyPressEvent(QKeyEvent* event) {
  Rows().Sync();
  View::keyPressEvent(event);
}

template <typename View>
void RowView<View>::mousePressEvent(QMouseEvent* event) {
  Rows().Sync();
  const QPoint point = event->position().toPoint();
  pressedRow_ = RowAt(point);
  pressedBox_ = event->button() == Qt::LeftButton && IsOnCheckBox(point);
  if (!pressedBox_) View::mousePressEvent(event);
}

template <typename View>
void RowView<View>::mouseReleaseEvent(QMouseEvent* event) {
  Rows().Sync();
  const QPoint point = event->position().toPoint();
  if (!std::exchange(pressedBox_, false)) return View::mouseReleaseEvent(event);
  if (RowAt(point) != pressedRow_ || !IsOnCheckBox(point)) return;
  const QModelIndex box = this->indexAt(point);
  const bool isChecked = box.data(Qt::CheckStateRole).toInt() == Qt::Checked;
  this->model()->setData(box, isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

template <typename View>
void RowView<View>::mouseDoubleClickEvent(QMouseEvent* event) {
  Rows().Sync();
  const QPoint point = event->position().toPoint();
  // Two quick clicks on two rows are none.
  const std::size_t row = RowAt(point) == pressedRow_ ? pressedRow_ : 0;
  const bool isLeft = event->button() == Qt::LeftButton;
  pressedBox_ = isLeft && IsOnCheckBox(point);
  if (pressedBox_) return;
  View::mouseDoubleClickEvent(event);
  if (row && isLeft) RowDoubleClicked(row);
}

// A drag that began on a box highlights nothing.
template <typename View>
void RowView<View>::mouseMoveEvent(QMouseEvent* event) {
  if (!pressedBox_) View::mouseMoveEvent(event);
}

template <typename View>
bool RowView<View>::edit(const QModelIndex& index, QAbstractItemView::EditTrigger trigger,
                         QEvent* event) {
  if (event && event->type() == QEvent::KeyPress) return false;
  return View::edit(index, trigger, event);
}

template <typename View>
std::size_t RowView<View>::RowAt(QPoint point) const {
  return static_cast<std::size_t>(this->indexAt(point).row() + 1);
}

template <typename View>
bool RowView<View>::IsOnCheckBox(QPoint point) const {
  const QModelIndex index = this->indexAt(point);
  return index.data(Qt::CheckStateRole).isValid() && CheckBoxRect(index).contains(point);
}

template <typename View>
std::vector<std::size_t> RowView<View>::HighlightedRows() const {
  QItemSelection ranges = this->selectionModel()->selection();
  std::ranges::sort(ranges, {}, &QItemSelectionRange::top);
  std::vector<std::size_t> rows;
  for (const QItemSelectionRange& range : ranges) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      rows.push_back(static_cast<std::size_t>(row) + 1);
    }
  }
  return rows;
}

template <typename View>
void RowView<View>::ToggleHighlighted(std::size_t count,
                                      const std::function<bool(std::size_t)>& isChecked,
                                      const std::function<void(std::size_t, bool)>& setChecked) {
  std::vector<std::size_t> rows = HighlightedRows();
  std::erase_if(rows, [count](std::size_t row) { return row > count; });
  if (rows.empty()) return;
  const bool checked = !isChecked(rows.front());
  for (const std::size_t row : rows) setChecked(row, checked);
  Rows().Sync();
}

template class RowView<QTableView>;
template class RowView<QListView>;

}  // namespace tallowbrook
