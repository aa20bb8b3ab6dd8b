// The list as the view asks for it: a text, a mark, a colour by row and column.
//
// It holds nothing but how many rows it has told the view of. What long work does to the list is
// noted at the cost of a few comparisons; Sync tells the view, at most 20 times a second, and not
// at all while the list is out of sight.
#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "desktop/throttle.h"
#include "filelist/file_list.h"

namespace tallowbrook {

class FileTableModel : public QAbstractTableModel {
 public:
  // Becomes the one listener of the list until it ends.
  explicit FileTableModel(FileList& list);
  ~FileTableModel() override;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  FileList& List() { return list_; }
  // Tells the view all that has happened since.
  void Sync();

  // Told by Sync after a change of captions or of the list's visibility.
  std::function<void()> stateChanged;

 private:
  // The row's number in the list, 0 for one that is there no more.
  std::size_t NumberOf(const QModelIndex& index) const;
  QVariant TextOf(std::size_t number, Column column) const;
  QVariant ToolTipOf(std::size_t number, Column column) const;
  QVariant ColourOf(std::size_t number, Column column, int role) const;
  void Note(const ListChange& change);
  void SyncRows();

  FileList& list_;
  Throttle throttle_;
  int shownRows_ = 0;

  bool reset_ = false;
  bool state_ = false;
  std::size_t firstChanged_ = 0;  // 0: no row's content has changed
  std::size_t lastChanged_ = 0;
};

inline Column ColumnOf(int section) {
  return static_cast<Column>(section + 1);
}
inline int SectionOf(Column column) {
  return static_cast<int>(column) - 1;
}

}  // namespace tallowbrook
