#include "desktop/row_model.h"

#include <algorithm>
#include <limits>

namespace tallowbrook {

int RowModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shownRows_;
}

std::size_t RowModel::NumberOf(const QModelIndex& index) const {
  const auto number = static_cast<std::size_t>(index.row()) + 1;
  return index.isValid() && number <= CountRows() ? number : 0;
}

void RowModel::NoteReset() {
  reset_ = true;
  NoteChange();
}

void RowModel::NoteRows(std::size_t first, std::size_t last) {
  firstChanged_ = firstChanged_ ? std::min(firstChanged_, first) : first;
  lastChanged_ = std::max(lastChanged_, last);
  NoteChange();
}

void RowModel::SyncRows() {
  const int rows =
      static_cast<int>(std::min<std::size_t>(CountRows(), std::numeric_limits<int>::max()));
  if (reset_ || rows < shownRows_) {
    beginResetModel();
    shownRows_ = rows;
    reset_ = false;
    firstChanged_ = lastChanged_ = 0;
    endResetModel();
    return;
  }
  if (firstChanged_ && shownRows_) {
    const int first = static_cast<int>(std::min<std::size_t>(firstChanged_, shownRows_)) - 1;
    const int last = static_cast<int>(std::min<std::size_t>(lastChanged_, shownRows_)) - 1;
    Q_EMIT dataChanged(index(first, 0), index(last, columnCount() - 1));
  }
  firstChanged_ = lastChanged_ = 0;
  if (rows > shownRows_) {
    beginInsertRows({}, shownRows_, rows - 1);
    shownRows_ = rows;
    endInsertRows();
  }
}

}  // namespace tallowbrook
