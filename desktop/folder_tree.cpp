#include "desktop/folder_tree.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTimer>

namespace tallowbrook {

FolderTree::FolderTree(Files& files, const std::string& home, std::string_view computerCaption,
                       QWidget* parent)
    : QTreeView(parent), model_(files, home, computerCaption) {
  setObjectName(QStringLiteral("FolderTreeview1"));
  setModel(&model_);
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setEditTriggers(NoEditTriggers);
  setIndentation(16);
  // A long name scrolls; it isn't cut.
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  setHorizontalScrollMode(ScrollPerPixel);
  // A click on the folder that is selected already lists it again.
  connect(this, &QTreeView::clicked, this, [this](const QModelIndex& index) {
    if (!justSelected_) Report(model_.PathOf(index));
  });
}

void FolderTree::mousePressEvent(QMouseEvent* event) {
  justSelected_ = false;
  QTreeView::mousePressEvent(event);
}

void FolderTree::ShowFolder(std::string_view path) {
  path = WithoutEndSlash(path);
  if (SelectedPath() == path) return;
  showing_ = true;
  const QModelIndex found = model_.Find(path, currentIndex());
  if (found.isValid()) {
    setCurrentIndex(found);
    if (!found.parent().isValid()) expand(found);
    scrollTo(found, PositionAtCenter);
    // The arrows and the beginning of each name stay in sight.
    horizontalScrollBar()->setValue(0);
  } else {
    selectionModel()->clear();
  }
  showing_ = false;
}

void FolderTree::Refresh() {
  const std::string current = SelectedPath();
  const std::vector<std::string> open = OpenFolders({});
  showing_ = true;
  model_.Reload();
  for (const std::string& path : open) {
    if (const QModelIndex found = model_.Find(path); found.isValid()) expand(found);
  }
  showing_ = false;
  if (!current.empty()) ShowFolder(current);
}

// From the top down.
std::vector<std::string> FolderTree::OpenFolders(const QModelIndex& below) const {
  std::vector<std::string> open;
  for (int row = 0; row < model_.rowCount(below); ++row) {
    const QModelIndex index = model_.index(row, 0, below);
    if (!isExpanded(index)) continue;
    open.push_back(model_.PathOf(index));
    const std::vector<std::string> deeper = OpenFolders(index);
    open.insert(open.end(), deeper.begin(), deeper.end());
  }
  return open;
}

std::string FolderTree::SelectedPath() const {
  return model_.PathOf(selectionModel()->selectedIndexes().value(0));
}

// The current row alone says nothing: a tree that gets the focus makes its first row that.
void FolderTree::selectionChanged(const QItemSelection& selected,
                                  const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  const std::string path = SelectedPath();
  if (showing_ || path.empty()) return;
  justSelected_ = true;
  Report(path);
}

// A scan lets events through: it must not begin inside this view's own event.
void FolderTree::Report(const std::string& path) {
  if (reportsAtOnce) {
    if (folderSelected) folderSelected(path);
    return;
  }
  QTimer::singleShot(0, this, [this, path] {
    if (folderSelected) folderSelected(path);
  });
}

// The highlight of a short name goes across the whole tree.
void FolderTree::resizeEvent(QResizeEvent* event) {
  QTreeView::resizeEvent(event);
  header()->setMinimumSectionSize(viewport()->width());
}

void FolderTree::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F5) return Refresh();
  QTreeView::keyPressEvent(event);
}

}  // namespace tallowbrook
