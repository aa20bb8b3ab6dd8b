// The files of one batch, as the history lists them and as an undo works through them.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tallowbrook {

// By the status of a record, for the column "Result".
enum class ResultColour : std::uint8_t { Plain, Error, Success, Undone };
// How an undo of the row ended, if there was one.
enum class UndoOutcome : std::uint8_t { None, Undone, Failed };

// Rows count from 1. Paths are kept by folder, so that a folder that gets its old name back changes
// the paths of all rows below it at the cost of one.
class BatchRows {
 public:
  // The batch's text must outlive the rows. Every row comes checked, whatever its status.
  void Load(std::string_view batch);
  void Clear();

  std::size_t Count() const { return rows_.size(); }
  bool Checked(std::size_t row) const { return At(row).checked; }
  void SetChecked(std::size_t row, bool checked) { At(row).checked = checked; }
  std::size_t CountChecked() const;

  // The result as it was when the rows were loaded.
  std::string_view Result(std::size_t row) const;
  ResultColour ColourOf(std::size_t row) const;
  std::string OldPath(std::size_t row) const;
  std::string NewPath(std::size_t row) const;
  // The former date of a date change, as a date command; empty for other records.
  std::string DateCommand(std::size_t row) const;
  // What the column "Detail" shows: the date command, then how the undo ended.
  std::string Detail(std::size_t row) const;
  UndoOutcome Outcome(std::size_t row) const { return At(row).outcome; }
  void SetOutcome(std::size_t row, UndoOutcome outcome) { At(row).outcome = outcome; }

  // False for a row that changed nothing on the disk, or whose change was undone: what bears its
  // new name by now is another file.
  bool CanBeUndone(std::size_t row) const;
  // By the first character of its record: a folder that was undone is none any more.
  bool IsFolder(std::size_t row) const { return At(row).status.starts_with('9'); }
  // Puts a number in the place of the first character of the row's record.
  void ChangeLogStatus(std::size_t row, int status);
  // The batch's text with the statuses as they are now.
  std::string Text() const;

  // A folder has got its old name back: rows whose new path lies below `parent` + `newLeaf` lie
  // below `parent` + `oldLeaf` now, with both their paths. `parent` ends in "/".
  void UpdateRowsUnderFolder(std::string_view newLeaf, std::string_view oldLeaf,
                             std::string_view parent);

 private:
  struct Row {
    std::string_view line;
    std::string status;  // as it is now
    std::uint32_t folders;
    bool checked = true;
    UndoOutcome outcome = UndoOutcome::None;
  };
  // Where a row was and where it is, "/" at the ends; shared by the rows of one folder.
  struct Folders {
    std::string ofOld;
    std::string ofNew;
  };
  const Row& At(std::size_t row) const { return rows_[row - 1]; }
  Row& At(std::size_t row) { return rows_[row - 1]; }
  void IndexFolders();

  std::string_view text_;
  std::vector<Row> rows_;
  std::vector<Folders> folders_;
  // folders_ by ofNew; filled by the first folder that is undone.
  std::multimap<std::string, std::uint32_t, std::less<>> byNew_;
};

}  // namespace tallowbrook
