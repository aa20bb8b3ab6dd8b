// The file list as a table: columns, headers that sort, badges.
#pragma once

#include "desktop/file_view.h"

namespace tallowbrook {

class FileTable : public FileView<RowTable> {
 public:
  FileTable(FileRows& rows, QWidget* parent);

 protected:
  QModelIndex CellInSight(int row) const override;
  QModelIndex NameCell(int row) const override;

 private:
  void SetUpColumns();
  void SortBy(int section);
};

}  // namespace tallowbrook
