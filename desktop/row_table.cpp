#include "desktop/row_table.h"

#include <QHeaderView>
#include <QPainter>

#include "desktop/contrast.h"
#include "desktop/look.h"
#include "desktop/theme.h"

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

bool HasKeyboard(const QStyleOptionViewItem& option, const QModelIndex& index) {
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
  return view && view->hasFocus() && view->currentIndex().row() == index.row();
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
  if (HasKeyboard(option, index)) PaintFrame(*painter, option, index, CurrentTheme().focus, 1);
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

void RowDelegate::PaintFrame(QPainter& painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index, const QColor& colour, int thick) {
  const QRect& cell = option.rect;
  painter.fillRect(cell.left(), cell.top(), cell.width(), thick, colour);
  painter.fillRect(cell.left(), cell.bottom() - thick + 1, cell.width(), thick, colour);
  if (index.column() == 0) {
    painter.fillRect(cell.left(), cell.top(), thick, cell.height(), colour);
  }
}

RowTable::RowTable(QWidget* parent) : RowView(parent) {
  setItemDelegate(new RowDelegate(this));
  SetUpLook();
}

void RowTable::SetUpLook() {
  setShowGrid(false);
  setAlternatingRowColors(true);
  setWordWrap(false);
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

void RowTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  RowView::currentChanged(current, previous);
  for (const QModelIndex& cell : {current, previous}) {
    const QRect place = visualRect(cell);
    viewport()->update(0, place.top(), viewport()->width(), place.height());
  }
}

QRect RowTable::CheckBoxRect(const QModelIndex& index) const {
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.rect = visualRect(index);
  option.features |= QStyleOptionViewItem::HasCheckIndicator;
  return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this);
}

}  // namespace tallowbrook
