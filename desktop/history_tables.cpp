#include "desktop/history_tables.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace tallowbrook {

namespace {

// A dialog's Enter presses a button; in a list it is the list's own.
bool IsEnter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

BatchTable::BatchTable(LogHistory& history, QWidget* parent)
    : RowTable(parent), history_(history), model_(history) {
  setObjectName(QStringLiteral("ListView1"));
  setModel(&model_);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  connect(&model_, &QAbstractItemModel::modelReset, this, [this] { ShowSelection(); });
}

void BatchTable::keyPressEvent(QKeyEvent* event) {
  if (IsEnter(*event)) {
    model_.Sync();
    history_.BatchDoubleClicked();
  } else if (event->key() == Qt::Key_Delete) {
    model_.Sync();
    history_.DeleteKey();
  } else {
    RowTable::keyPressEvent(event);
  }
}

void BatchTable::RowDoubleClicked(std::size_t) {
  history_.BatchDoubleClicked();
}

void BatchTable::selectionChanged(const QItemSelection& selected,
                                  const QItemSelection& deselected) {
  RowTable::selectionChanged(selected, deselected);
  TellSelection();
}

void BatchTable::ShowSelection() {
  const std::size_t selected = history_.SelectedBatch();
  if (!selected || selected > static_cast<std::size_t>(model_.rowCount())) return TellSelection();
  const QModelIndex index = model_.index(static_cast<int>(selected) - 1, 0);
  setCurrentIndex(index);
  scrollTo(index);
}

// The view may still know rows that the log has lost.
void BatchTable::TellSelection() {
  std::vector<std::size_t> rows = HighlightedRows();
  std::erase_if(rows, [this](std::size_t row) { return row > history_.CountBatches(); });
  const QModelIndex current = currentIndex();
  const auto row = static_cast<std::size_t>(current.row() + 1);
  const bool isSelected = selectionModel()->isSelected(current) && row <= history_.CountBatches();
  history_.SelectBatches(std::move(rows), isSelected ? row : 0);
}

BatchFileTable::BatchFileTable(LogHistory& history, QWidget* parent)
    : RowTable(parent), history_(history), model_(history) {
  setObjectName(QStringLiteral("ListView2"));
  setModel(&model_);
  setColumnWidth(BatchFileModel::Result, 15 * fontMetrics().averageCharWidth());
  setColumnWidth(BatchFileModel::Detail, 24 * fontMetrics().averageCharWidth());
  for (const int section : {BatchFileModel::OldPath, BatchFileModel::NewPath}) {
    horizontalHeader()->setSectionResizeMode(section, QHeaderView::Stretch);
  }
}

void BatchFileTable::keyPressEvent(QKeyEvent* event) {
  if (IsEnter(*event)) return;
  if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
    model_.Sync();
    ToggleHighlighted(
        history_.Files.Count(), [this](std::size_t row) { return history_.Files.Checked(row); },
        [this](std::size_t row, bool checked) { history_.SetChecked(row, checked); });
  } else {
    RowTable::keyPressEvent(event);
  }
}

void BatchFileTable::RowDoubleClicked(std::size_t row) {
  if (row <= history_.Files.Count()) history_.FileDoubleClicked(row);
}

}  // namespace tallowbrook
