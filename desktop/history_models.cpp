#include "desktop/history_models.h"

#include <QColor>

#include "desktop/text.h"
#include "desktop/theme.h"

namespace tallowbrook {

namespace {

constexpr int firstNumber = 2;  // the columns of a batch from here on hold numbers

QVariant ShadeOf(ResultColour colour) {
  switch (colour) {
    case ResultColour::Error:
      return errorInk;
    case ResultColour::Success:
      return successInk;
    case ResultColour::Undone:
      return shadowInk;
    case ResultColour::Plain:
      break;
  }
  return {};
}

// An undo that went well looks as a run that did.
ResultColour ColourOf(UndoOutcome outcome) {
  if (outcome == UndoOutcome::None) return ResultColour::Plain;
  return outcome == UndoOutcome::Undone ? ResultColour::Success : ResultColour::Error;
}

}  // namespace

BatchModel::BatchModel(LogHistory& history) : history_(history) {
  history_.batchesChanged = [this] { NoteReset(); };
  SyncRows();
}

BatchModel::~BatchModel() {
  history_.batchesChanged = nullptr;
}

int BatchModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(std::size(LogHistory::summaryColumns));
}

QVariant BatchModel::data(const QModelIndex& index, int role) const {
  const std::size_t number = NumberOf(index);
  if (!number) return {};
  if (role == Qt::TextAlignmentRole) {
    return QVariant((index.column() < firstNumber ? Qt::AlignLeft : Qt::AlignRight) |
                    Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole) return {};
  const log_format::BatchSummary& batch = history_.Batch(number);
  switch (index.column()) {
    case 0:
      return VisibleText(batch.date);
    case 1:
      return VisibleText(batch.time);
    case firstNumber:
      return QString::number(batch.files);
    default:
      return QString::number(batch.errors);
  }
}

QVariant BatchModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) return ToText(LogHistory::summaryColumns[section]);
  if (role == Qt::TextAlignmentRole) {
    return QVariant((section < firstNumber ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
  }
  return {};
}

BatchFileModel::BatchFileModel(LogHistory& history) : history_(history) {
  history_.filesChanged = [this] { NoteReset(); };
  history_.fileRowsChanged = [this](std::size_t first, std::size_t last) { NoteRows(first, last); };
  SyncRows();
}

BatchFileModel::~BatchFileModel() {
  history_.filesChanged = nullptr;
  history_.fileRowsChanged = nullptr;
}

int BatchFileModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(std::size(LogHistory::detailColumns));
}

QVariant BatchFileModel::data(const QModelIndex& index, int role) const {
  const std::size_t row = NumberOf(index);
  if (!row) return {};
  switch (role) {
    case Qt::DisplayRole:
      return TextOf(row, index.column());
    case Qt::ToolTipRole:
      return PlainToolTip(TextOf(row, index.column()));
    case Qt::ForegroundRole:
      return ColourOf(row, index.column());
    case Qt::CheckStateRole:
      if (index.column() != Result) return {};
      return history_.Files.Checked(row) ? Qt::Checked : Qt::Unchecked;
    default:
      return {};
  }
}

QString BatchFileModel::TextOf(std::size_t row, int section) const {
  switch (section) {
    case Result:
      return VisibleText(history_.Files.Result(row));
    case OldPath:
      return VisibleText(history_.Files.OldPath(row));
    case NewPath:
      return VisibleText(history_.Files.NewPath(row));
    default:
      return VisibleText(history_.Files.Detail(row));
  }
}

QVariant BatchFileModel::ColourOf(std::size_t row, int section) const {
  if (section == Result) return ShadeOf(history_.Files.ColourOf(row));
  if (section == NewPath) return ShadeOf(tallowbrook::ColourOf(history_.Files.Outcome(row)));
  return {};
}

QVariant BatchFileModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) return ToText(LogHistory::detailColumns[section]);
  if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  return {};
}

Qt::ItemFlags BatchFileModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags usual = RowModel::flags(index);
  return index.column() == Result ? usual | Qt::ItemIsUserCheckable : usual;
}

bool BatchFileModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  const std::size_t row = NumberOf(index);
  if (!row || role != Qt::CheckStateRole) return false;
  history_.SetChecked(row, value.toInt() == Qt::Checked);
  Sync();
  return true;
}

}  // namespace tallowbrook
