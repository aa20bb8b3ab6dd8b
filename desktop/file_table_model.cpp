#include "desktop/file_table_model.h"

#include <QColor>
#include <algorithm>

#include "base/text.h"
#include "desktop/text.h"

namespace tallowbrook {

namespace {

struct Shade {
  RowColour colour;
  QColor text;
  QColor badge;  // behind a text that white paper would swallow
};

const Shade& ShadeOf(RowColour colour) {
  static const Shade shades[] = {
      {RowColour::Plain, {0, 0, 0}, {}},
      {RowColour::Done, {0, 0, 255}, {}},
      {RowColour::Failed, {255, 0, 0}, {}},
      {RowColour::Skipped, {224, 224, 224}, {112, 122, 138}},
      {RowColour::Refused, {128, 128, 128}, {}},
  };
  return *std::ranges::find(shades, colour, &Shade::colour);
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
  const std::string text = list_.Cell(number, column);
  return VisibleText(*LeftCharacters(text, mostCharacters));
}

QVariant FileTableModel::ToolTipOf(std::size_t number, Column column) const {
  return column == Column::Row ? QVariant() : PlainToolTip(TextOf(number, column).toString());
}

QVariant FileTableModel::ColourOf(std::size_t number, Column column, int role) const {
  if (column != Column::NewFileName) return {};
  const Shade& shade = ShadeOf(list_.Row(number).colour);
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
