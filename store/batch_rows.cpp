#include "store/batch_rows.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "store/log_format.h"

namespace tallowbrook {

namespace {

using log_format::ParseRecord;
using log_format::RecordText;

struct StatusFacts {
  std::string_view status;
  std::string_view result;
  ResultColour colour;
};
constexpr std::array<StatusFacts, 5> statuses = {{
    {"0", "Error", ResultColour::Error},
    {"1", "Success", ResultColour::Success},
    {"9", "Success", ResultColour::Success},
    {"3", "Undone", ResultColour::Undone},
    {"10", "Undone", ResultColour::Undone},
}};

const StatusFacts& FactsOf(std::string_view status) {
  static constexpr StatusFacts unknown{{}, {}, ResultColour::Plain};
  const auto* const found = std::ranges::find(statuses, status, &StatusFacts::status);
  return found == statuses.end() ? unknown : *found;
}

// Every line that became a row holds a record.
RecordText RecordOf(std::string_view line) {
  return *ParseRecord(line);
}

std::string_view FolderOf(std::string_view path) {
  return path.substr(0, path.rfind('/') + 1);
}
std::string_view LeafOf(std::string_view path) {
  return path.substr(path.rfind('/') + 1);
}

// Gives each pair of folders a number, mostly that of the line before.
class FolderNumbers {
 public:
  // `isNew` if the pair has got the next number just now.
  std::uint32_t Find(std::string_view ofOld, std::string_view ofNew, bool& isNew) {
    isNew = false;
    if (!numbers_.empty() && ofOld == lastOld_ && ofNew == lastNew_) return last_;
    // No path holds the separator: it ends a field.
    key_.assign(ofOld).append(1, log_format::fieldEnd).append(ofNew);
    const auto [place, inserted] =
        numbers_.try_emplace(key_, static_cast<std::uint32_t>(numbers_.size()));
    isNew = inserted;
    lastOld_ = ofOld;
    lastNew_ = ofNew;
    return last_ = place->second;
  }

 private:
  std::unordered_map<std::string, std::uint32_t> numbers_;
  std::string key_;
  std::string_view lastOld_, lastNew_;
  std::uint32_t last_ = 0;
};

}  // namespace

void BatchRows::Load(std::string_view batch) {
  Clear();
  text_ = batch;
  FolderNumbers numbers;
  log_format::ForEachInnerLine(batch, [&](std::string_view line) {
    const std::optional<RecordText> record = ParseRecord(line);
    if (!record) return;
    const std::string_view ofOld = FolderOf(record->oldPath);
    const std::string_view ofNew = FolderOf(record->newPath);
    bool isNew = false;
    const std::uint32_t number = numbers.Find(ofOld, ofNew, isNew);
    if (isNew) folders_.push_back({log_format::Unescaped(ofOld), log_format::Unescaped(ofNew)});
    rows_.push_back({line, std::string(record->status), number});
  });
}

void BatchRows::Clear() {
  text_ = {};
  rows_.clear();
  folders_.clear();
  byNew_.clear();
}

std::size_t BatchRows::CountChecked() const {
  return static_cast<std::size_t>(std::ranges::count(rows_, true, &Row::checked));
}

std::string_view BatchRows::Result(std::size_t row) const {
  return FactsOf(RecordOf(At(row).line).status).result;
}

ResultColour BatchRows::ColourOf(std::size_t row) const {
  return FactsOf(RecordOf(At(row).line).status).colour;
}

bool BatchRows::CanBeUndone(std::size_t row) const {
  const ResultColour colour = FactsOf(At(row).status).colour;
  return colour != ResultColour::Error && colour != ResultColour::Undone;
}

std::string BatchRows::OldPath(std::size_t row) const {
  return folders_[At(row).folders].ofOld +
         log_format::Unescaped(LeafOf(RecordOf(At(row).line).oldPath));
}

std::string BatchRows::NewPath(std::size_t row) const {
  return folders_[At(row).folders].ofNew +
         log_format::Unescaped(LeafOf(RecordOf(At(row).line).newPath));
}

std::string BatchRows::DateCommand(std::size_t row) const {
  return log_format::Unescaped(RecordOf(At(row).line).detail);
}

std::string BatchRows::Detail(std::size_t row) const {
  switch (At(row).outcome) {
    case UndoOutcome::Undone:
      return "Undo Successful";
    case UndoOutcome::Failed:
      return "Could Not Undo";
    case UndoOutcome::None:
      break;
  }
  return DateCommand(row);
}

void BatchRows::ChangeLogStatus(std::size_t row, int status) {
  std::string& text = At(row).status;
  text.replace(0, 1, std::to_string(status));
}

std::string BatchRows::Text() const {
  std::string text;
  text.reserve(text_.size() + rows_.size());
  std::size_t taken = 0;
  for (const Row& row : rows_) {
    const std::string_view before = RecordOf(row.line).status;
    if (row.status == before) continue;
    const auto at = static_cast<std::size_t>(row.line.data() - text_.data());
    text.append(text_, taken, at - taken) += row.status;
    taken = at + before.size();
  }
  return text.append(text_, taken);
}

void BatchRows::IndexFolders() {
  for (std::uint32_t number = 0; number < folders_.size(); ++number) {
    byNew_.emplace(folders_[number].ofNew, number);
  }
}

// A path that only its old half has in that folder stays: the record names it where it is.
void BatchRows::UpdateRowsUnderFolder(std::string_view newLeaf, std::string_view oldLeaf,
                                      std::string_view parent) {
  if (byNew_.empty()) IndexFolders();
  const std::string from = std::string(parent).append(newLeaf) + '/';
  const std::string to = std::string(parent).append(oldLeaf) + '/';
  std::vector<std::uint32_t> below;
  auto place = byNew_.lower_bound(from);
  while (place != byNew_.end() && place->first.starts_with(from)) {
    below.push_back(place->second);
    place = byNew_.erase(place);
  }
  for (const std::uint32_t number : below) {
    Folders& folders = folders_[number];
    folders.ofNew.replace(0, from.size(), to);
    if (folders.ofOld.starts_with(from)) folders.ofOld.replace(0, from.size(), to);
    byNew_.emplace(folders.ofNew, number);
  }
}

}  // namespace tallowbrook
