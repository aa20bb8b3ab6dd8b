// Rows as a view asks for them, and no more: a text, a mark, a colour by row and column.
//
// A model holds nothing but how many rows it has told the view of. What long work does to the rows
// is noted at the cost of a few comparisons; Sync tells the view, at most 20 times a second.
#pragma once

#include <QAbstractTableModel>

#include "desktop/throttle.h"

namespace tallowbrook {

class RowModel : public QAbstractTableModel {
 public:
  int rowCount(const QModelIndex& parent = {}) const override;
  // Tells the view all that has happened since.
  virtual void Sync() { SyncRows(); }

 protected:
  RowModel() : throttle_([this] { Sync(); }) {}
  // How many rows there are by now. The view may know of more or fewer.
  virtual std::size_t CountRows() const = 0;

  // Rows count from 1.
  void NoteReset();
  void NoteRows(std::size_t first, std::size_t last);
  // For rows that were appended, and for what a model knows besides its rows.
  void NoteChange() { throttle_.Touch(); }
  void SyncRows();

  // The row's number, 0 for one that is there no more: the view may ask between a change and its
  // Sync.
  std::size_t NumberOf(const QModelIndex& index) const;

 private:
  Throttle throttle_;
  int shownRows_ = 0;
  bool reset_ = false;
  std::size_t firstChanged_ = 0;  // 0: no row's content has changed
  std::size_t lastChanged_ = 0;
};

}  // namespace tallowbrook
