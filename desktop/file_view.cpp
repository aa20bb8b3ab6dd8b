#include "desktop/file_view.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QTimer>
#include <memory>

#include "desktop/dropped_paths.h"
#include "desktop/popup_menu.h"

namespace tallowbrook {

namespace {

constexpr char uriListType[] = "text/uri-list";

void AcceptFiles(QDropEvent& event) {
  if (event.mimeData()->hasFormat(QLatin1String(uriListType))) event.acceptProposedAction();
}

}  // namespace

template <typename Base>
FileView<Base>::FileView(FileRows& rows, QWidget* parent) : Base(parent), rows_(rows) {
  this->setModel(&rows.model);
  const std::unique_ptr<QItemSelectionModel> own(this->selectionModel());
  this->setSelectionModel(&rows.selection);
  this->setAcceptDrops(true);
  this->setDragDropMode(Base::DropOnly);
  this->setDropIndicatorShown(false);
}

template <typename Base>
void FileView<Base>::reset() {
  Base::reset();
  rows_.RestoreHighlights();
}

template <typename Base>
void FileView<Base>::keyPressEvent(QKeyEvent* event) {
  FileList& list = rows_.List();
  if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
    Model().Sync();
    this->ToggleHighlighted(
        list.Count(), [&](std::size_t row) { return list.Row(row).Checked; },
        [&](std::size_t row, bool checked) { list.SetChecked(row, checked); });
  } else if (event->key() == Qt::Key_F2) {
    rows_.operations.RenameKey();
  } else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
    PopUpAtCurrentRow();
  } else {
    Base::keyPressEvent(event);
    list.SelectItem(static_cast<std::size_t>(this->currentIndex().row() + 1));
  }
}

template <typename Base>
void FileView<Base>::mousePressEvent(QMouseEvent* event) {
  Base::mousePressEvent(event);
  const QPoint point = event->position().toPoint();
  if (!this->IsOnCheckBox(point)) rows_.List().SelectItem(this->RowAt(point));
}

template <typename Base>
void FileView<Base>::mouseReleaseEvent(QMouseEvent* event) {
  Base::mouseReleaseEvent(event);
  const QPoint point = event->position().toPoint();
  const bool isRight = event->button() == Qt::RightButton;
  if (isRight) HighlightForMenu(this->indexAt(point));
  if (rows_.operations.MouseUp(this->RowAt(point), isRight)) {
    PopUpMenu(rows_.operations.RightClick(), event->globalPosition().toPoint(), this);
  }
}

template <typename Base>
void FileView<Base>::RowDoubleClicked(std::size_t) {
  rows_.operations.DoubleClick();
}

// The keys go on from the row that is shown.
template <typename Base>
void FileView<Base>::ScrollToRow(std::size_t row) {
  Model().Sync();
  const QModelIndex index = CellInSight(static_cast<int>(row) - 1);
  this->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  this->scrollTo(index);
}

// The mouse's menu comes when the button is let go, the menu key's at once.
template <typename Base>
void FileView<Base>::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() != QContextMenuEvent::Mouse) PopUpAtCurrentRow();
}

// The menu acts on the highlighted rows, among which is the one that it is opened on.
template <typename Base>
void FileView<Base>::HighlightForMenu(const QModelIndex& index) {
  if (index.isValid() && !this->selectionModel()->isSelected(index)) {
    this->selectionModel()->select(index,
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }
}

template <typename Base>
void FileView<Base>::PopUpAtCurrentRow() {
  Model().Sync();
  const QModelIndex current = this->currentIndex();
  if (!current.isValid()) return;
  HighlightForMenu(current);
  this->scrollTo(current);
  if (!rows_.operations.MouseUp(static_cast<std::size_t>(current.row()) + 1, true)) return;
  const QRect place = this->visualRect(NameCell(current.row()));
  PopUpMenu(rows_.operations.RightClick(), this->viewport()->mapToGlobal(place.bottomLeft()), this);
}

template <typename Base>
void FileView<Base>::focusInEvent(QFocusEvent* event) {
  Base::focusInEvent(event);
  rows_.operations.ListHasFocus = true;
}

template <typename Base>
void FileView<Base>::focusOutEvent(QFocusEvent* event) {
  Base::focusOutEvent(event);
  rows_.operations.ListHasFocus = false;
}

template <typename Base>
void FileView<Base>::showEvent(QShowEvent* event) {
  Base::showEvent(event);
  rows_.ensureVisible = [this](std::size_t row) { ScrollToRow(row); };
}

template <typename Base>
void FileView<Base>::dragEnterEvent(QDragEnterEvent* event) {
  AcceptFiles(*event);
}

template <typename Base>
void FileView<Base>::dragMoveEvent(QDragMoveEvent* event) {
  AcceptFiles(*event);
}

template <typename Base>
void FileView<Base>::dropEvent(QDropEvent* event) {
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

template class FileView<RowTable>;
template class FileView<RowView<QListView>>;

}  // namespace tallowbrook
