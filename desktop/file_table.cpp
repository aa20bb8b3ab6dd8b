#include "desktop/file_table.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>

#include "base/guards.h"
#include "desktop/look.h"

namespace tallowbrook {

namespace {

// Paints a cell's background as a badge no wider than its text.
class BadgeDelegate : public RowDelegate {
 public:
  using RowDelegate::RowDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const QVariant badge = index.data(Qt::BackgroundRole);
    if (badge.isValid() && !(option.state & QStyle::State_Selected)) {
      constexpr int inset = 2;
      const int width = option.fontMetrics.horizontalAdvance(index.data().toString()) + 7;
      QRect box = option.rect.adjusted(inset - 1, inset, -inset, -inset);
      box.setWidth(std::min(box.width(), width));
      painter->save();
      painter->setRenderHint(QPainter::Antialiasing);
      painter->setPen(Qt::NoPen);
      painter->setBrush(badge.value<QColor>());
      painter->drawRoundedRect(box, 4, 4);
      painter->restore();
    }
    RowDelegate::paint(painter, option, index);
    if (index.data(FileTableModel::DropHighlightRole).toBool()) {
      PaintFrame(*painter, option, index, QApplication::palette().color(QPalette::Highlight), 2);
    }
  }
};

}  // namespace

FileTable::FileTable(FileRows& rows, QWidget* parent) : FileView(rows, parent) {
  setObjectName(QStringLiteral("ListView1"));
  setItemDelegate(new BadgeDelegate(this));
  SetUpColumns();
}

void FileTable::SetUpColumns() {
  QHeaderView& header = *horizontalHeader();
  header.setSectionsClickable(true);
  for (int section = 0; section < Model().columnCount(); ++section) {
    const int width = FactsOf(ColumnOf(section)).widthTwips / twipsPerPixel;
    if (width > 0) {
      setColumnWidth(section, width);
    } else {
      setColumnHidden(section, true);
    }
  }
  connect(&header, &QHeaderView::sectionClicked, this, [this](int section) { SortBy(section); });
}

void FileTable::SortBy(int section) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const Finally restore([] { QApplication::restoreOverrideCursor(); });
  Model().List().SortByColumn(ColumnOf(section));
  Model().Sync();
  horizontalHeader()->setSortIndicatorShown(true);
  horizontalHeader()->setSortIndicator(
      section, Model().List().SortsAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
}

QModelIndex FileTable::CellInSight(int row) const {
  return Model().index(row, std::max(columnAt(0), 0));
}

QModelIndex FileTable::NameCell(int row) const {
  return Model().index(row, SectionOf(Column::FileName));
}

}  // namespace tallowbrook
