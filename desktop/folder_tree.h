// The folder tree on the screen. What the user selects it hands on once the event is over; what
// is shown by ShowFolder it doesn't.
#pragma once

#include <QTreeView>
#include <functional>
#include <string>
#include <string_view>

#include "desktop/folder_tree_model.h"

namespace tallowbrook {

class FolderTree : public QTreeView {
 public:
  FolderTree(Files& files, const std::string& home, std::string_view computerCaption,
             QWidget* parent);

  // The path without "/" at its end, but "/" itself.
  std::function<void(const std::string& path)> folderSelected;
  // Hands a selection on within its event, for a listener that lets no events through.
  bool reportsAtOnce = false;

  // Opens the levels above the folder and selects it; without such a folder nothing is selected.
  void ShowFolder(std::string_view path);
  // Reads all open levels again.
  void Refresh();

 protected:
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void Report(const std::string& path);
  std::string SelectedPath() const;
  std::vector<std::string> OpenFolders(const QModelIndex& below) const;

  FolderTreeModel model_;
  bool showing_ = false;
  bool justSelected_ = false;  // by the click that is going on
};

}  // namespace tallowbrook
