// The list: its rows, its columns, its sort. Every text that can be computed from a row is
// computed when it is asked for.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "filelist/file_entry.h"
#include "platform/thumbnail_source.h"

namespace tallowbrook {

// Numbered as the headers stand, from 1.
enum class Column {
  Row = 1,
  FileName,
  NewFileName,
  Size,
  Ext,
  Date,
  Directory,
  BaseSize,  // hidden sort key
  BaseDate,  // hidden sort key
};
inline constexpr int columnCount = 9;

struct ColumnFacts {
  std::string_view caption;
  int widthTwips;  // 1440 to the inch; 0 is hidden
  bool rightAligned;
};
const ColumnFacts& FactsOf(Column column);

// What has happened to the list since it last told; rows count from 1.
struct ListChange {
  enum class Kind {
    Reset,     // all rows are others
    Appended,  // rows were added at the end
    Rows,      // the texts, marks or colours of rows first to last
    State,     // a caption, the visibility, the kind of view
  };
  Kind kind;
  std::size_t first = 0;
  std::size_t last = 0;
};

class FileList {
 public:
  FileList();

  std::size_t Count() const { return rows_.size(); }
  FileEntry& Row(std::size_t number) { return rows_[number - 1]; }
  const FileEntry& Row(std::size_t number) const { return rows_[number - 1]; }
  // The folder of the row, with "/" at its end. Valid until a folder is added or renamed.
  const std::string& Directory(std::size_t number) const;
  std::string FullPath(std::size_t number) const;
  std::string Cell(std::size_t number, Column column) const;

  FolderTable& Folders() { return folders_; }

  // Appends; returns the new row's number.
  std::size_t Add(FileEntry entry);
  // Makes room for that many rows more, so that no row moves while they are added.
  void ExpectRows(std::size_t more);
  // All rows go, and with them the images.
  void Clear();

  // The images of the present fill. A number is given once: no later image of this list gets it.
  std::uint32_t AddImage(PackedBitmap image);
  // The image of a row; null for a row without one.
  const PackedBitmap* Image(std::size_t number) const;

  // Check marks. SetChecked is for the user's own clicks and commands on single rows.
  void SetChecked(std::size_t number, bool checked);
  // 1 checks all, 2 none, 3 inverts.
  void SetAllChecks(int mode);
  // Checks the first row from `start` on (0 counts as 1) and every step-th behind it, unchecks
  // all others; a step of 0 unchecks all. Rows that still stand as the same pattern left them
  // are not visited again.
  void ApplyPattern(std::int64_t start, std::int64_t step);
  std::size_t CountCheckedFiles() const;

  // The row that the pointer or the keys chose last among the highlighted ones; 0 for none.
  void SelectItem(std::size_t number) { selectedItem_ = number; }
  std::size_t SelectedItem() const { return selectedItem_; }
  // The selected item, or else the first highlighted row; 0 without one.
  std::size_t HighlightedRow() const;

  // Highlights a row by code, or takes its highlight off; the view is told at once.
  void SetSelected(std::size_t number, bool selected);
  std::function<void(std::size_t number)> selectedChanged;
  // The row that a window works on, marked beside all highlights; 0 for none.
  void SetDropHighlight(std::size_t number);
  std::size_t DropHighlight() const { return dropHighlight_; }
  // Asks the view to show a row; 0 shows none.
  void EnsureVisible(std::size_t number) const;
  std::function<void(std::size_t number)> ensureVisible;

  // A click on a header: sorts by it; the order flips with every click on any header.
  void SortByColumn(Column column);
  bool SortsAscending() const { return ascending_; }
  // Stops sorting while many rows come or change; the next call sorts once and goes on with it.
  void ToggleListSort();

  const std::string& Caption(Column column) const;
  void SetCaption(Column column, std::string_view caption);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  // Whether the rows show as pictures over their own texts instead of as a table.
  bool IconView() const { return iconView_; }
  void SetIconView(bool iconView);

  std::function<void(const ListChange&)> changed;
  void TellRows(std::size_t first, std::size_t last) const;

 private:
  void Tell(ListChange::Kind kind) const;
  void Sort();
  std::vector<std::uint32_t> OrderByText() const;

  std::vector<FileEntry> rows_;
  FolderTable folders_;
  std::vector<PackedBitmap> ilsThumbs_;
  std::uint32_t clearedImages_ = 0;  // the number before that of the first one
  std::array<std::string, columnCount> captions_;
  bool visible_ = true;
  bool iconView_ = false;

  // The pattern that rows 1 to patterned_ stand as.
  std::int64_t patternStart_ = -1;
  std::int64_t patternStep_ = -1;
  std::size_t patterned_ = 0;

  std::size_t selectedItem_ = 0;
  std::size_t dropHighlight_ = 0;

  bool sorted_ = false;
  bool sortSuspended_ = false;
  bool ascending_ = true;
  Column sortColumn_ = Column::Row;
};

// "1,234" for 1,234,499 bytes: thousands of bytes, rounded, halves up.
std::string SizeText(std::int64_t bytes);

}  // namespace tallowbrook
