// The rows of the file list as its views share them: one model, and one selection, which is the
// rows' own highlights.
#pragma once

#include <QItemSelectionModel>
#include <QObject>

#include "desktop/file_table_model.h"
#include "filelist/list_operations.h"

namespace tallowbrook {

class FileRows : public QObject {
 public:
  // Outlives all views of it. What the user does with the rows goes to `operations`.
  FileRows(FileList& list, ListOperations& operations);
  ~FileRows() override;

  ListOperations& operations;
  FileTableModel model;
  QItemSelectionModel selection{&model};

  FileList& List() { return model.List(); }
  // A sort moves the rows with their highlights; the selection has forgotten its own by then. A
  // view calls this once it has been reset.
  void RestoreHighlights();

  // Brings a row, from 1, into sight. The view that came into sight last sets it.
  std::function<void(std::size_t row)> ensureVisible;

 private:
  void ShowHighlight(std::size_t row);
  void Mark(const QItemSelection& ranges, bool selected);
};

}  // namespace tallowbrook
