// The file list for its view. Nothing is told while the list is out of sight.
#pragma once

#include <functional>

#include "desktop/row_model.h"
#include "filelist/file_list.h"

namespace tallowbrook {

class FileTableModel : public RowModel {
 public:
  // Becomes the one listener of the list until it ends.
  explicit FileTableModel(FileList& list);
  ~FileTableModel() override;

  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  void Sync() override;

  // Whether the cell's row is marked as the one that a window works on.
  static constexpr int DropHighlightRole = Qt::UserRole;

  FileList& List() { return list_; }

  // The user has clicked a row's check box.
  std::function<void(std::size_t row, bool checked)> itemCheck;
  // Told by Sync after a change of captions, of the list's visibility or of its kind of view.
  std::function<void()> stateChanged;

 protected:
  std::size_t CountRows() const override { return list_.Count(); }

 private:
  QVariant TextOf(std::size_t number, Column column) const;
  QVariant ToolTipOf(std::size_t number, Column column) const;
  QVariant ColourOf(std::size_t number, Column column, int role) const;
  // Whether the cell stands for its whole row, as a picture.
  bool IsIcon(Column column) const;
  void Note(const ListChange& change);

  FileList& list_;
  bool state_ = false;
};

inline Column ColumnOf(int section) {
  return static_cast<Column>(section + 1);
}
inline int SectionOf(Column column) {
  return static_cast<int>(column) - 1;
}

}  // namespace tallowbrook
