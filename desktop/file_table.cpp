#include "desktop/file_table.h"

#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTimer>

#include "base/guards.h"
#include "desktop/dropped_paths.h"

namespace tallowbrook {

namespace {

constexpr int twipsPerPixel = 15;  // 1440 to the inch, 96 pixels to the inch
constexpr char uriListType[] = "text/uri-list";

// Paints a cell's background as a badge no wider than its text.
class BadgeDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

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
    QStyledItemDelegate::paint(painter, option, index);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->backgroundBrush = {};
    // A highlighted row keeps the colour that tells how it went; its badge isn't painted.
    const QVariant text = index.data(Qt::ForegroundRole);
    if (text.isValid() && !index.data(Qt::BackgroundRole).isValid()) {
      option->palette.setColor(QPalette::HighlightedText, text.value<QColor>());
    }
    option->state &= ~QStyle::State_HasFocus;
  }
};

}  // namespace

FileTable::FileTable(FileList& list, QWidget* parent) : QTableView(parent), model_(list) {
  setObjectName(QStringLiteral("ListView1"));
  setModel(&model_);
  setItemDelegate(new BadgeDelegate(this));
  SetUpLook();
  SetUpColumns();
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setAcceptDrops(true);
  setDragDropMode(DropOnly);
  setDropIndicatorShown(false);
  model_.stateChanged = [this] {
    if (visibilityChanged) visibilityChanged();
  };
  connect(&model_, &QAbstractItemModel::modelReset, this, [this] { RestoreHighlights(); });
}

void FileTable::SetUpLook() {
  // Light enough for the colours of the outcomes to stand on it.
  QPalette colours = palette();
  colours.setColor(QPalette::Highlight, QColor(0xd3, 0xe4, 0xf7));
  colours.setColor(QPalette::HighlightedText, colours.color(QPalette::Text));
  setPalette(colours);
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
}

void FileTable::SetUpColumns() {
  QHeaderView& header = *horizontalHeader();
  header.setHighlightSections(false);
  header.setSectionsClickable(true);
  header.setMinimumSectionSize(24);
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
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const Finally restore([] { QGuiApplication::restoreOverrideCursor(); });
  model_.List().SortByColumn(ColumnOf(section));
  model_.Sync();
  horizontalHeader()->setSortIndicatorShown(true);
  horizontalHeader()->setSortIndicator(
      section, model_.List().SortsAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void FileTable::keyPressEvent(QKeyEvent* event) {
  model_.Sync();
  if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
    ToggleHighlighted();
  } else if (event->key() == Qt::Key_F2 && renamePressed) {
    renamePressed();
  } else {
    QTableView::keyPressEvent(event);
  }
}

// All highlighted rows become what the first of them was not.
void FileTable::ToggleHighlighted() {
  FileList& list = model_.List();
  std::size_t first = 0;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    const auto top = static_cast<std::size_t>(range.top()) + 1;
    if (!first || top < first) first = top;
  }
  if (!first || first > list.Count()) return;
  const bool checked = !list.Row(first).Checked;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      const auto number = static_cast<std::size_t>(row) + 1;
      if (number <= list.Count()) list.SetChecked(number, checked);
    }
  }
  model_.Sync();
}

void FileTable::mousePressEvent(QMouseEvent* event) {
  model_.Sync();
  QTableView::mousePressEvent(event);
}

void FileTable::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  if (focused) focused(true);
}

void FileTable::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  if (focused) focused(false);
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

// A sort moves the rows with their highlights; the view has forgotten its own by then.
void FileTable::RestoreHighlights() {
  const FileList& list = model_.List();
  QItemSelection highlighted;
  const int rows = model_.rowCount();
  const int lastSection = model_.columnCount() - 1;
  for (int row = 0; row < rows; ++row) {
    if (!list.Row(static_cast<std::size_t>(row) + 1).Selected) continue;
    const int first = row;
    while (row + 1 < rows && list.Row(static_cast<std::size_t>(row) + 2).Selected) ++row;
    highlighted.append({model_.index(first, 0), model_.index(row, lastSection)});
  }
  selectionModel()->select(highlighted, QItemSelectionModel::ClearAndSelect);
}

}  // namespace tallowbrook
