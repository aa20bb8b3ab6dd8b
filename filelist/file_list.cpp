#include "filelist/file_list.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

#include "base/letter_case.h"
#include "base/text.h"
#include "platform/name_order.h"

namespace tallowbrook {

namespace {

constexpr std::array<ColumnFacts, columnCount> columns = {{
    {"", 617, false},
    {"File Name", 3528, false},
    {"New File Name", 3528, false},
    {"Size (KB)", 1764, true},
    {"Ext", 1147, false},
    {"Date Modified", 2540, false},
    {"Directory", 17639, false},
    {"basesize", 0, false},
    {"basedate", 0, false},
}};

std::string Padded(std::uint64_t value, std::size_t width) {
  std::string digits = std::to_string(value);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return digits;
}

// The column whose values a click on a header sorts by.
Column SortKeyOf(Column clicked) {
  if (clicked == Column::Size) return Column::BaseSize;
  if (clicked == Column::Date) return Column::BaseDate;
  return clicked;
}

}  // namespace

const ColumnFacts& FactsOf(Column column) {
  return columns[static_cast<std::size_t>(column) - 1];
}

std::string SizeText(std::int64_t bytes) {
  std::string digits = std::to_string(bytes / 1000 + (bytes % 1000 >= 500 ? 1 : 0));
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, 1, ',');
  return digits;
}

FileList::FileList() {
  std::transform(columns.begin(), columns.end(), captions_.begin(),
                 [](const ColumnFacts& facts) { return std::string(facts.caption); });
}

const std::string& FileList::Directory(std::size_t number) const {
  return folders_.Path(Row(number).folder);
}

std::string FileList::FullPath(std::size_t number) const {
  return Directory(number) + Row(number).name;
}

std::string FileList::Cell(std::size_t number, Column column) const {
  const FileEntry& row = Row(number);
  switch (column) {
    case Column::Row:
      return row.rowText;
    case Column::FileName:
      return row.name;
    case Column::NewFileName:
      return row.newName;
    case Column::Size:
      return row.hasFacts ? SizeText(row.size) : std::string();
    case Column::Ext:
      return row.isFolder ? std::string() : ToUpper(ExtensionOf(row.name));
    case Column::Date:
      return row.hasDate ? GeneralDateText(row.shownDate) : std::string();
    case Column::Directory:
      return Directory(number);
    case Column::BaseSize:
      return row.hasFacts ? Padded(static_cast<std::uint64_t>(row.size), 10) : std::string();
    case Column::BaseDate:
      return row.hasFacts ? FormatDate(row.sortDate, "yyyymmddhhmmss", EnglishDateNames())
                          : std::string();
  }
  return {};
}

std::size_t FileList::Add(FileEntry entry) {
  rows_.push_back(std::move(entry));
  Tell(ListChange::Kind::Appended);
  return rows_.size();
}

// By half at least, since many small folders may come one by one.
void FileList::ExpectRows(std::size_t more) {
  const std::size_t rows = rows_.size() + more;
  if (rows > rows_.capacity()) rows_.reserve(std::max(rows, rows_.size() + rows_.size() / 2));
}

void FileList::Clear() {
  rows_.clear();
  selectedItem_ = 0;
  dropHighlight_ = 0;
  folders_.Clear();
  clearedImages_ += static_cast<std::uint32_t>(ilsThumbs_.size());
  ilsThumbs_.clear();
  ilsThumbs_.shrink_to_fit();
  patterned_ = 0;
  Tell(ListChange::Kind::Reset);
}

std::uint32_t FileList::AddImage(PackedBitmap image) {
  ilsThumbs_.push_back(std::move(image));
  return clearedImages_ + static_cast<std::uint32_t>(ilsThumbs_.size());
}

const PackedBitmap* FileList::Image(std::size_t number) const {
  const std::uint32_t image = Row(number).image;
  return image ? &ilsThumbs_[image - clearedImages_ - 1] : nullptr;
}

void FileList::SetChecked(std::size_t number, bool checked) {
  Row(number).Checked = checked;
  patterned_ = std::min(patterned_, number - 1);
  TellRows(number, number);
}

void FileList::SetAllChecks(int mode) {
  for (FileEntry& row : rows_) row.Checked = mode == 3 ? !row.Checked : mode == 1;
  patterned_ = 0;
  TellRows(1, Count());
}

void FileList::ApplyPattern(std::int64_t start, std::int64_t step) {
  if (start != patternStart_ || step != patternStep_) patterned_ = 0;
  patternStart_ = start;
  patternStep_ = step;
  const std::int64_t first = std::max<std::int64_t>(start, 1);
  const std::size_t from = patterned_ + 1;
  for (std::size_t number = from; number <= Count(); ++number) {
    const std::int64_t distance = static_cast<std::int64_t>(number) - first;
    Row(number).Checked = step > 0 && distance >= 0 && distance % step == 0;
  }
  patterned_ = Count();
  TellRows(from, Count());
}

std::size_t FileList::HighlightedRow() const {
  if (selectedItem_ && selectedItem_ <= Count() && Row(selectedItem_).Selected) {
    return selectedItem_;
  }
  const auto found = std::ranges::find(rows_, true, &FileEntry::Selected);
  return found == rows_.end() ? 0 : static_cast<std::size_t>(found - rows_.begin()) + 1;
}

void FileList::SetSelected(std::size_t number, bool selected) {
  Row(number).Selected = selected;
  if (selectedChanged) selectedChanged(number);
}

void FileList::SetDropHighlight(std::size_t number) {
  for (const std::size_t row : {std::exchange(dropHighlight_, number), number}) {
    if (row) TellRows(row, row);
  }
}

void FileList::EnsureVisible(std::size_t number) const {
  if (number && ensureVisible) ensureVisible(number);
}

std::size_t FileList::CountCheckedFiles() const {
  return static_cast<std::size_t>(
      std::count_if(rows_.begin(), rows_.end(), [](const FileEntry& row) { return row.Checked; }));
}

void FileList::SortByColumn(Column column) {
  sortColumn_ = SortKeyOf(column);
  sorted_ = true;
  ascending_ = !ascending_;
  Sort();
}

void FileList::ToggleListSort() {
  if (sortSuspended_) {
    sortSuspended_ = false;
    sorted_ = true;
    Sort();
  }
  sortSuspended_ = sorted_;
  sorted_ = false;
}

std::vector<std::uint32_t> FileList::OrderByText() const {
  std::string keys;
  for (std::size_t number = 1; number <= Count(); ++number) {
    std::string key = ToLower(Cell(number, sortColumn_));
    // A new name may hold a NUL, from a photo; it would end the key.
    std::ranges::replace(key, '\0', '\1');
    keys.append(key) += '\0';
  }
  return OrderOfKeys(keys, Count(), ascending_);
}

// Rows that are equal by the key keep their order. References are sorted and the rows then moved
// once each.
void FileList::Sort() {
  std::vector<std::uint32_t> order(Count());
  std::iota(order.begin(), order.end(), 0U);
  const auto sortBy = [&](auto keyOf) {
    using Key = decltype(keyOf(std::uint32_t{}));
    std::vector<std::pair<Key, std::uint32_t>> keyed;
    keyed.reserve(order.size());
    for (const std::uint32_t index : order) keyed.emplace_back(keyOf(index), index);
    std::stable_sort(keyed.begin(), keyed.end(), [this](const auto& a, const auto& b) {
      return ascending_ ? a.first < b.first : b.first < a.first;
    });
    std::transform(keyed.begin(), keyed.end(), order.begin(),
                   [](const auto& k) { return k.second; });
  };
  constexpr std::int64_t none = std::numeric_limits<std::int64_t>::min();
  const auto size = [&](std::uint32_t index) {
    return rows_[index].hasFacts ? rows_[index].size : none;
  };
  const auto date = [&](std::uint32_t index) {
    return rows_[index].hasFacts ? rows_[index].sortDate.seconds : none;
  };
  if (sortColumn_ == Column::BaseSize) {
    sortBy(size);
  } else if (sortColumn_ == Column::BaseDate) {
    sortBy(date);
  } else {
    order = OrderByText();
  }
  std::vector<FileEntry> arranged;
  arranged.reserve(rows_.size());
  for (const std::uint32_t index : order) arranged.push_back(std::move(rows_[index]));
  rows_ = std::move(arranged);
  for (std::size_t* marked : {&selectedItem_, &dropHighlight_}) {
    const auto moved = std::ranges::find(order, *marked - 1);
    if (moved != order.end()) *marked = static_cast<std::size_t>(moved - order.begin()) + 1;
  }
  patterned_ = 0;
  Tell(ListChange::Kind::Reset);
}

const std::string& FileList::Caption(Column column) const {
  return captions_[static_cast<std::size_t>(column) - 1];
}

void FileList::SetCaption(Column column, std::string_view caption) {
  captions_[static_cast<std::size_t>(column) - 1] = caption;
  Tell(ListChange::Kind::State);
}

void FileList::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Tell(ListChange::Kind::State);
}

void FileList::SetIconView(bool iconView) {
  if (iconView_ == iconView) return;
  iconView_ = iconView;
  Tell(ListChange::Kind::State);
}

void FileList::TellRows(std::size_t first, std::size_t last) const {
  if (changed && first <= last) changed({ListChange::Kind::Rows, first, last});
}

void FileList::Tell(ListChange::Kind kind) const {
  if (changed) changed({kind, 0, 0});
}

}  // namespace tallowbrook
