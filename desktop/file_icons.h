// The file list as pictures over their names.
#pragma once

#include "desktop/file_view.h"

namespace tallowbrook {

class FileIcons : public FileView<RowView<QListView>> {
 public:
  FileIcons(FileRows& rows, QWidget* parent);

 protected:
  QRect CheckBoxRect(const QModelIndex& index) const override;
  QModelIndex CellInSight(int row) const override { return Model().index(row, 0); }
  QModelIndex NameCell(int row) const override { return Model().index(row, 0); }
};

}  // namespace tallowbrook
