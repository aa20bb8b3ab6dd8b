// The file list as a table: columns, headers that sort, badges.
#pragma once

#include "desktop/file_view.h"

namespace tallowbrook {

// A property of the table's header: true while the folder's column fills the rest of the view, its
// width being nobody's choice.
inline constexpr char folderFillsRest[] = "folderFillsRest";

class FileTable : public FileView<RowTable> {
 public:
  FileTable(FileRows& rows, QWidget* parent);

 protected:
  QModelIndex CellInSight(int row) const override;
  QModelIndex NameCell(int row) const override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetUpColumns();
  void FillWidth();
  void SortBy(int section);

  bool filling_ = false;
};

}  // namespace tallowbrook
