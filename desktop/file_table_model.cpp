#include "desktop/file_table_model.h"

#include <QColor>
#include <algorithm>
#include <limits>

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

int Rows(const FileList& list) {
  return static_cast<int>(std::min<std::size_t>(list.Count(), std::numeric_limits<int>::max()));
}

}  // namespace

FileTableModel::FileTableModel(FileList& list)
    : list_(list), throttle_([this] { Sync(); }), shownRows_(Rows(list)) {
  list_.changed = [this](const ListChange& change) { Note(change); };
}

FileTableModel::~FileTableModel() {
  list_.changed = nullptr;
}

int FileTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shownRows_;
}

int FileTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : tallowbrook::columnCount;
}

// The view may ask between a change and its Sync, when rows that it knows have gone.
std::size_t FileTableModel::NumberOf(const QModelIndex& index) const {
  const auto number = static_cast<std::size_t>(index.row()) + 1;
  return index.isValid() && number <= list_.Count() ? number : 0;
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
    default:
      return {};
  }
}

QVariant FileTableModel::TextOf(std::size_t number, Column column) const {
  return VisibleText(list_.Cell(number, column));
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
  list_.SetChecked(number, value.toInt() == Qt::Checked);
  Sync();
  return true;
}

void FileTableModel::Note(const ListChange& change) {
  switch (change.kind) {
    case ListChange::Kind::Reset:
      reset_ = true;
      break;
    case ListChange::Kind::Appended:
      break;
    case ListChange::Kind::Rows:
      firstChanged_ = firstChanged_ ? std::min(firstChanged_, change.first) : change.first;
      lastChanged_ = std::max(lastChanged_, change.last);
      break;
    case ListChange::Kind::State:
      state_ = true;
      break;
  }
  throttle_.Touch();
}

void FileTableModel::Sync() {
  if (list_.Visible()) SyncRows();
  if (!state_) return;
  state_ = false;
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
  if (stateChanged) stateChanged();
}

void FileTableModel::SyncRows() {
  const int rows = Rows(list_);
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
