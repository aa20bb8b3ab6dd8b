#include "desktop/file_table_model.h"

#include <QColor>

#include "base/text.h"
#include "desktop/look.h"
#include "desktop/text.h"
#include "desktop/theme.h"

namespace tallowbrook {

namespace {

struct Shade {
  QColor text;
  QColor badge;
};

// A row that was left alone has its light grey, which white paper would swallow, on a badge: it
// can be read as well as any other.
Shade ShadeOf(RowColour colour) {
  switch (colour) {
    case RowColour::Done:
      return {successInk, {}};
    case RowColour::Failed:
      return {errorInk, {}};
    case RowColour::Skipped:
      return {CurrentTheme().badgeText, CurrentTheme().badge};
    case RowColour::Refused:
      return {shadowInk, {}};
    case RowColour::Plain:
      break;
  }
  return {};
}

}  // namespace

FileTableModel::FileTableModel(FileList& list) : list_(list) {
  list_.changed = [this](const ListChange& change) { Note(change); };
  SyncRows();
}

FileTableModel::~FileTableModel() {
  list_.changed = nullptr;
}

int FileTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : tallowbrook::columnCount;
}

QVariant FileTableModel::data(const QModelIndex& index, int role) const {
  const std::size_t number = NumberOf(index);
  if (!number) return {};
  const Column column = ColumnOf(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return TextOf(number, column);
    case Qt::ToolTipRole:
      return ToolTipOf(number, column);
    case Qt::ForegroundRole:
    case Qt::BackgroundRole:
      return ColourOf(number, column, role);
    case Qt::TextAlignmentRole:
      return FactsOf(column).rightAligned ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                          : QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::CheckStateRole:
      if (column == Column::Row) return list_.Row(number).Checked ? Qt::Checked : Qt::Unchecked;
      return {};
    case DropHighlightRole:
      return number == list_.DropHighlight();
    default:
      return {};
  }
}

QVariant FileTableModel::TextOf(std::size_t number, Column column) const {
  // A mask may have made a name of megabytes: no file can bear it, and no cell has to paint it.
  constexpr std::ptrdiff_t mostCharacters = 1000;
  std::string text = list_.Cell(number, column);
  // A row that was there before the pictures were has no text of its own.
  if (IsIcon(column) && text.empty()) text = list_.Row(number).name;
  return VisibleText(*LeftCharacters(text, mostCharacters));
}

// Under a picture stands what becomes of the name, so that its tip tells the name as well.
QVariant FileTableModel::ToolTipOf(std::size_t number, Column column) const {
  const QString text = TextOf(number, column).toString();
  if (column != Column::Row) return PlainToolTip(text);
  if (!IsIcon(column)) return {};
  const QString name = TextOf(number, Column::FileName).toString();
  return PlainToolTip(text == name ? name : name + QLatin1Char('\n') + text);
}

bool FileTableModel::IsIcon(Column column) const {
  return column == Column::Row && list_.IconView();
}

QVariant FileTableModel::ColourOf(std::size_t number, Column column, int role) const {
  if (column != Column::NewFileName && !IsIcon(column)) return {};
  const Shade shade = ShadeOf(list_.Row(number).colour);
  const QColor& colour = role == Qt::ForegroundRole ? shade.text : shade.badge;
  return colour.isValid() ? QVariant(colour) : QVariant();
}

QVariant FileTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) return ToText(list_.Caption(ColumnOf(section)));
  if (role == Qt::TextAlignmentRole) {
    return QVariant((FactsOf(ColumnOf(section)).rightAligned ? Qt::AlignRight : Qt::AlignLeft) |
                    Qt::AlignVCenter);
  }
  return {};
}

Qt::ItemFlags FileTableModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::ItemIsDropEnabled;
  const Qt::ItemFlags usual =
      Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled | Qt::ItemNeverHasChildren;
  return ColumnOf(index.column()) == Column::Row ? usual | Qt::ItemIsUserCheckable : usual;
}

bool FileTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  const std::size_t number = NumberOf(index);
  if (!number || role != Qt::CheckStateRole) return false;
  if (itemCheck) itemCheck(number, value.toInt() == Qt::Checked);
  Sync();
  return true;
}

void FileTableModel::Note(const ListChange& change) {
  switch (change.kind) {
    case ListChange::Kind::Reset:
      return NoteReset();
    case ListChange::Kind::Appended:
      return NoteChange();
    case ListChange::Kind::Rows:
      return NoteRows(change.first, change.last);
    case ListChange::Kind::State:
      state_ = true;
      return NoteChange();
  }
}

void FileTableModel::Sync() {
  if (list_.Visible()) SyncRows();
  if (!state_) return;
  state_ = false;
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
  if (stateChanged) stateChanged();
}

}  // namespace tallowbrook
