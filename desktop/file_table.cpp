#include "desktop/file_table.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>
#include <QTimer>

#include "base/guards.h"
#include "desktop/dropped_paths.h"
#include "desktop/look.h"
#include "desktop/popup_menu.h"

namespace tallowbrook {

namespace {

constexpr char uriListType[] = "text/uri-list";

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
    if (index.data(FileTableModel::DropHighlightRole).toBool()) PaintFrame(*painter, option, index);
  }

 private:
  // The cell's part of a frame around its row, which leaves text and check mark as they are.
  static void PaintFrame(QPainter& painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) {
    constexpr int thick = 2;
    const QRect& cell = option.rect;
    const QColor colour = QApplication::palette().color(QPalette::Highlight);
    painter.fillRect(cell.left(), cell.top(), cell.width(), thick, colour);
    painter.fillRect(cell.left(), cell.bottom() - thick + 1, cell.width(), thick, colour);
    if (index.column() == 0) {
      painter.fillRect(cell.left(), cell.top(), thick, cell.height(), colour);
    }
  }
};

}  // namespace

FileTable::FileTable(FileList& list, ListOperations& operations, QWidget* parent)
    : RowTable(parent), model_(list), operations_(operations) {
  setObjectName(QStringLiteral("ListView1"));
  setModel(&model_);
  setItemDelegate(new BadgeDelegate(this));
  SetUpColumns();
  setAcceptDrops(true);
  setDragDropMode(DropOnly);
  setDropIndicatorShown(false);
  model_.itemCheck = [this](std::size_t row, bool checked) { operations_.ItemCheck(row, checked); };
  model_.stateChanged = [this] {
    if (visibilityChanged) visibilityChanged();
  };
  connect(&model_, &QAbstractItemModel::modelReset, this, [this] { RestoreHighlights(); });
  list.selectedChanged = [this](std::size_t row) { ShowHighlight(row); };
  list.ensureVisible = [this](std::size_t row) { ScrollToRow(row); };
}

FileTable::~FileTable() {
  model_.List().selectedChanged = nullptr;
  model_.List().ensureVisible = nullptr;
}

void FileTable::SetUpColumns() {
  QHeaderView& header = *horizontalHeader();
  header.setSectionsClickable(true);
  for (int section = 0; section < model_.columnCount(); ++section) {
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
  model_.List().SortByColumn(ColumnOf(section));
  model_.Sync();
  horizontalHeader()->setSortIndicatorShown(true);
  horizontalHeader()->setSortIndicator(
      section, model_.List().SortsAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void FileTable::keyPressEvent(QKeyEvent* event) {
  FileList& list = model_.List();
  if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
    model_.Sync();
    ToggleHighlighted(
        list.Count(), [&](std::size_t row) { return list.Row(row).Checked; },
        [&](std::size_t row, bool checked) { list.SetChecked(row, checked); });
  } else if (event->key() == Qt::Key_F2) {
    operations_.RenameKey();
  } else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
    PopUpAtCurrentRow();
  } else {
    RowTable::keyPressEvent(event);
    list.SelectItem(static_cast<std::size_t>(currentIndex().row() + 1));
  }
}

void FileTable::mousePressEvent(QMouseEvent* event) {
  RowTable::mousePressEvent(event);
  const QPoint point = event->position().toPoint();
  if (!IsOnCheckBox(point)) model_.List().SelectItem(RowAt(point));
}

void FileTable::mouseReleaseEvent(QMouseEvent* event) {
  RowTable::mouseReleaseEvent(event);
  const bool isRight = event->button() == Qt::RightButton;
  if (isRight) HighlightForMenu(indexAt(event->position().toPoint()));
  if (operations_.MouseUp(RowAt(event->position().toPoint()), isRight)) {
    PopUpMenu(operations_.RightClick(), event->globalPosition().toPoint(), this);
  }
}

void FileTable::RowDoubleClicked(std::size_t) {
  operations_.DoubleClick();
}

// The view keeps highlights of its own.
void FileTable::ShowHighlight(std::size_t row) {
  const bool selected = model_.List().Row(row).Selected;
  model_.Sync();
  selectionModel()->select(
      model_.index(static_cast<int>(row) - 1, 0),
      (selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect) |
          QItemSelectionModel::Rows);
}

// The keys go on from the row that is shown.
void FileTable::ScrollToRow(std::size_t row) {
  model_.Sync();
  // In a column that is in sight, so that nothing moves sideways.
  const QModelIndex index = model_.index(static_cast<int>(row) - 1, std::max(columnAt(0), 0));
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  scrollTo(index);
}

// The mouse's menu comes when the button is let go, the menu key's at once.
void FileTable::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() != QContextMenuEvent::Mouse) PopUpAtCurrentRow();
}

// The menu acts on the highlighted rows, among which is the one that it is opened on.
void FileTable::HighlightForMenu(const QModelIndex& index) {
  if (index.isValid() && !selectionModel()->isSelected(index)) {
    selectionModel()->select(index,
                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }
}

void FileTable::PopUpAtCurrentRow() {
  model_.Sync();
  const QModelIndex current = currentIndex();
  if (!current.isValid()) return;
  HighlightForMenu(current);
  scrollTo(current);
  if (!operations_.MouseUp(static_cast<std::size_t>(current.row()) + 1, true)) return;
  const QRect place = visualRect(model_.index(current.row(), SectionOf(Column::FileName)));
  PopUpMenu(operations_.RightClick(), viewport()->mapToGlobal(place.bottomLeft()), this);
}

void FileTable::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  operations_.ListHasFocus = true;
}

void FileTable::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  operations_.ListHasFocus = false;
}

void FileTable::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasFormat(QLatin1String(uriListType))) event->acceptProposedAction();
}

void FileTable::dragMoveEvent(QDragMoveEvent* event) {
  if (event->mimeData()->hasFormat(QLatin1String(uriListType))) event->acceptProposedAction();
}

void FileTable::dropEvent(QDropEvent* event) {
  const QByteArray bytes = event->mimeData()->data(QLatin1String(uriListType));
  std::vector<std::string> paths =
      DroppedPaths({bytes.constData(), static_cast<std::size_t>(bytes.size())});
  if (paths.empty() || !dropped) return;
  // The files stay where they are, whatever the other side proposed. It waits for this event to
  // end, so the rows are made behind it.
  event->setDropAction(Qt::CopyAction);
  event->accept();
  QTimer::singleShot(0, this, [this, paths = std::move(paths)] { dropped(paths); });
}

void FileTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  Mark(deselected, false);
  Mark(selected, true);
  QTableView::selectionChanged(selected, deselected);
}

void FileTable::Mark(const QItemSelection& ranges, bool selected) {
  FileList& list = model_.List();
  for (const QItemSelectionRange& range : ranges) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      const auto number = static_cast<std::size_t>(row) + 1;
      if (number <= list.Count()) list.Row(number).Selected = selected;
    }
  }
}

// A sort moves the rows with their highlights; the view has forgotten its own by then. It can't
// paint with a great many stretches of highlighted rows, so that those are given up.
void FileTable::RestoreHighlights() {
  constexpr qsizetype mostStretches = 2000;
  FileList& list = model_.List();
  QItemSelection highlighted;
  const int rows = model_.rowCount();
  const int lastSection = model_.columnCount() - 1;
  for (int row = 0; row < rows; ++row) {
    if (!list.Row(static_cast<std::size_t>(row) + 1).Selected) continue;
    const int first = row;
    while (row + 1 < rows && list.Row(static_cast<std::size_t>(row) + 2).Selected) ++row;
    highlighted.append({model_.index(first, 0), model_.index(row, lastSection)});
    if (highlighted.size() <= mostStretches) continue;
    for (std::size_t i = 1; i <= list.Count(); ++i) list.Row(i).Selected = false;
    highlighted.clear();
  }
  selectionModel()->select(highlighted, QItemSelectionModel::ClearAndSelect);
  const auto chosen = static_cast<int>(list.SelectedItem());
  if (chosen > 0 && chosen <= rows) {
    selectionModel()->setCurrentIndex(model_.index(chosen - 1, 0), QItemSelectionModel::NoUpdate);
  }
}

}  // namespace tallowbrook
