// The two lists of the history on the screen.
#pragma once

#include "desktop/history_models.h"
#include "desktop/row_table.h"

namespace tallowbrook {

class BatchTable : public RowTable {
 public:
  BatchTable(LogHistory& history, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void RowDoubleClicked(std::size_t row) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  // The history's own selection becomes the view's.
  void ShowSelection();
  // The other way round.
  void TellSelection();

  LogHistory& history_;
  BatchModel model_;
};

class BatchFileTable : public RowTable {
 public:
  BatchFileTable(LogHistory& history, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void RowDoubleClicked(std::size_t row) override;

 private:
  LogHistory& history_;
  BatchFileModel model_;
};

}  // namespace tallowbrook
