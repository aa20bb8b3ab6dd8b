#include "desktop/row_table.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

#include "desktop/contrast.h"

namespace tallowbrook {

namespace {

// One shade for all rows, and one for highlights.
void ShowOutcome(const QColor& colour, QPalette& palette) {
  const QColor rows = palette.color(QPalette::Base),
               others = palette.color(QPalette::AlternateBase);
  palette.setColor(QPalette::Text, LegibleShade(colour, {rows, others}));
  palette.setColor(QPalette::HighlightedText,
                   LegibleShade(colour, {palette.color(QPalette::Highlight)}));
}

}  // namespace

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->backgroundBrush = {};
  // A badge isn't painted on a highlight, nor is the colour that was made for it.
  const QVariant text = index.data(Qt::ForegroundRole);
  if (text.isValid() && !index.data(Qt::BackgroundRole).isValid()) {
    ShowOutcome(text.value<QColor>(), option->palette);
  }
  option->state &= ~QStyle::State_HasFocus;
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const QVariant mark = index.data(Qt::CheckStateRole);
  if (!mark.isValid() || !index.data(Qt::ForegroundRole).isValid()) return;
  // The style gave the mark the text's colour, and a grey one looks as if it couldn't be changed.
  QStyleOptionViewItem box = option;
  initStyleOption(&box, index);
  box.rect =
      box.widget->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &box, box.widget);
  box.palette = option.palette;
  box.state.setFlag(mark == Qt::Checked ? QStyle::State_On : QStyle::State_Off);
  box.widget->style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter,
                                     box.widget);
}

RowTable::RowTable(QWidget* parent) : QTableView(parent) {
  setItemDelegate(new RowDelegate(this));
  SetUpLook();
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
}

void RowTable::SetUpLook() {
  setShowGrid(false);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setTextElideMode(Qt::ElideMiddle);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(fontMetrics().height() + 6);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setMinimumSectionSize(24);
}

void RowTable::keyPressEvent(QKeyEvent* event) {
  Rows().Sync();
  QTableView::keyPressEvent(event);
}

void RowTable::mousePressEvent(QMouseEvent* event) {
  Rows().Sync();
  const QPoint point = event->position().toPoint();
  pressedRow_ = RowAt(point);
  pressedBox_ = event->button() == Qt::LeftButton && IsOnCheckBox(point);
  if (!pressedBox_) QTableView::mousePressEvent(event);
}

void RowTable::mouseReleaseEvent(QMouseEvent* event) {
  Rows().Sync();
  const QPoint point = event->position().toPoint();
  if (!std::exchange(pressedBox_, false)) return QTableView::mouseReleaseEvent(event);
  if (RowAt(point) != pressedRow_ || !IsOnCheckBox(point)) return;
  const QModelIndex box = indexAt(point);
  const bool isChecked = box.data(Qt::CheckStateRole).toInt() == Qt::Checked;
  model()->setData(box, isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void RowTable::mouseDoubleClickEvent(QMouseEvent* event) {
  Rows().Sync();
  const QPoint point = event->position().toPoint();
  // Two quick clicks on two rows are none.
  const std::size_t row = RowAt(point) == pressedRow_ ? pressedRow_ : 0;
  const bool isLeft = event->button() == Qt::LeftButton;
  pressedBox_ = isLeft && IsOnCheckBox(point);
  if (pressedBox_) return;
  QTableView::mouseDoubleClickEvent(event);
  if (row && isLeft) RowDoubleClicked(row);
}

bool RowTable::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  if (event && event->type() == QEvent::KeyPress) return false;
  return QTableView::edit(index, trigger, event);
}

std::size_t RowTable::RowAt(QPoint point) const {
  return static_cast<std::size_t>(indexAt(point).row() + 1);
}

// A drag that began on a box highlights nothing.
void RowTable::mouseMoveEvent(QMouseEvent* event) {
  if (!pressedBox_) QTableView::mouseMoveEvent(event);
}

bool RowTable::IsOnCheckBox(QPoint point) const {
  const QModelIndex index = indexAt(point);
  if (!index.data(Qt::CheckStateRole).isValid()) return false;
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.rect = visualRect(index);
  option.features |= QStyleOptionViewItem::HasCheckIndicator;
  return style()
      ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this)
      .contains(point);
}

std::vector<std::size_t> RowTable::HighlightedRows() const {
  QItemSelection ranges = selectionModel()->selection();
  std::ranges::sort(ranges, {}, &QItemSelectionRange::top);
  std::vector<std::size_t> rows;
  for (const QItemSelectionRange& range : ranges) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      rows.push_back(static_cast<std::size_t>(row) + 1);
    }
  }
  return rows;
}

void RowTable::ToggleHighlighted(std::size_t count,
                                 const std::function<bool(std::size_t)>& isChecked,
                                 const std::function<void(std::size_t, bool)>& setChecked) {
  std::vector<std::size_t> rows = HighlightedRows();
  std::erase_if(rows, [count](std::size_t row) { return row > count; });
  if (rows.empty()) return;
  const bool checked = !isChecked(rows.front());
  for (const std::size_t row : rows) setChecked(row, checked);
  Rows().Sync();
}

}  // namespace tallowbrook
