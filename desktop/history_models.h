// The history's two lists for their views: the batches of the log, and the files of one batch.
#pragma once

#include "desktop/row_model.h"
#include "store/log_history.h"

namespace tallowbrook {

class BatchModel : public RowModel {
 public:
  // Becomes the one listener for the history's batches until it ends.
  explicit BatchModel(LogHistory& history);
  ~BatchModel() override;

  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 protected:
  std::size_t CountRows() const override { return history_.CountBatches(); }

 private:
  LogHistory& history_;
};

class BatchFileModel : public RowModel {
 public:
  enum Section { Result, OldPath, NewPath, Detail };

  // Becomes the one listener for the history's files until it ends.
  explicit BatchFileModel(LogHistory& history);
  ~BatchFileModel() override;

  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 protected:
  std::size_t CountRows() const override { return history_.Files.Count(); }

 private:
  QString TextOf(std::size_t row, int section) const;
  QVariant ColourOf(std::size_t row, int section) const;

  LogHistory& history_;
};

}  // namespace tallowbrook
