#include "desktop/folder_tree_model.h"

#include <algorithm>

#include "base/text.h"
#include "desktop/icons.h"
#include "desktop/text.h"

namespace tallowbrook {

struct FolderTreeModel::Node {
  std::string path;
  std::string name;
  Node* parent = nullptr;
  int row = 0;
  bool isLink = false;
  bool isLoaded = false;
  std::vector<std::unique_ptr<Node>> children;
};

std::string_view WithoutEndSlash(std::string_view path) {
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  return path;
}

namespace {

bool Contains(std::string_view folder, std::string_view path) {
  if (folder == "/") return path.starts_with('/');
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

}  // namespace

FolderTreeModel::FolderTreeModel(Files& files, const std::string& home,
                                 std::string_view computerCaption)
    : files_(files) {
  const std::string homePath(WithoutEndSlash(home));
  if (homePath.size() > 1) AddRoot(homePath, "Home");
  AddRoot("/", std::string(computerCaption));
}

FolderTreeModel::~FolderTreeModel() = default;

void FolderTreeModel::AddRoot(const std::string& path, const std::string& caption) {
  auto root = std::make_unique<Node>();
  root->path = path;
  root->name = caption;
  root->row = static_cast<int>(roots_.size());
  roots_.push_back(std::move(root));
}

FolderTreeModel::Node* FolderTreeModel::NodeOf(const QModelIndex& index) const {
  return static_cast<Node*>(index.internalPointer());
}

QModelIndex FolderTreeModel::IndexOf(Node& node) const {
  return createIndex(node.row, 0, &node);
}

QModelIndex FolderTreeModel::index(int row, int column, const QModelIndex& parent) const {
  const auto& siblings = parent.isValid() ? NodeOf(parent)->children : roots_;
  const auto at = static_cast<std::size_t>(row);
  if (row < 0 || column != 0 || at >= siblings.size()) return {};
  return createIndex(row, 0, siblings[at].get());
}

QModelIndex FolderTreeModel::parent(const QModelIndex& index) const {
  Node* above = index.isValid() ? NodeOf(index)->parent : nullptr;
  return above ? IndexOf(*above) : QModelIndex();
}

int FolderTreeModel::rowCount(const QModelIndex& parent) const {
  return static_cast<int>(parent.isValid() ? NodeOf(parent)->children.size() : roots_.size());
}

int FolderTreeModel::columnCount(const QModelIndex&) const {
  return 1;
}

QVariant FolderTreeModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Node& node = *NodeOf(index);
  if (role == Qt::DisplayRole) return VisibleText(node.name);
  if (role == Qt::ToolTipRole) return PlainToolTip(VisibleText(node.path));
  if (role != Qt::DecorationRole) return {};
  if (node.parent) return FolderIcon(node.isLink ? FolderPicture::Link : FolderPicture::Folder);
  return FolderIcon(node.path == "/" ? FolderPicture::Computer : FolderPicture::Home);
}

// A level that nobody has opened is taken to hold something: looking would read every folder
// that merely shows.
bool FolderTreeModel::hasChildren(const QModelIndex& parent) const {
  if (!parent.isValid()) return true;
  return !NodeOf(parent)->isLoaded || !NodeOf(parent)->children.empty();
}

bool FolderTreeModel::canFetchMore(const QModelIndex& parent) const {
  return parent.isValid() && !NodeOf(parent)->isLoaded;
}

void FolderTreeModel::fetchMore(const QModelIndex& parent) {
  if (!canFetchMore(parent)) return;
  Node& node = *NodeOf(parent);
  node.isLoaded = true;
  const std::unique_ptr<FolderListing> listing = files_.ListFolder(node.path);
  std::vector<std::unique_ptr<Node>> children;
  for (std::size_t at = 0; listing && at < listing->Size(); ++at) {
    const EntryKind kind = listing->Kind(at);
    if (kind != EntryKind::Folder && kind != EntryKind::FolderLink) continue;
    auto child = std::make_unique<Node>();
    child->name = listing->Name(at);
    child->path = JoinPath(node.path, child->name);
    child->parent = &node;
    child->row = static_cast<int>(children.size());
    child->isLink = kind == EntryKind::FolderLink;
    children.push_back(std::move(child));
  }
  if (children.empty()) return;
  beginInsertRows(parent, 0, static_cast<int>(children.size()) - 1);
  node.children = std::move(children);
  endInsertRows();
}

std::string FolderTreeModel::PathOf(const QModelIndex& index) const {
  return index.isValid() ? NodeOf(index)->path : std::string();
}

QModelIndex FolderTreeModel::Find(std::string_view path, const QModelIndex& near) {
  path = WithoutEndSlash(path);
  if (near.isValid()) {
    Node* root = NodeOf(near);
    while (root->parent) root = root->parent;
    if (const QModelIndex found = Descend(*root, path); found.isValid()) return found;
  }
  for (const std::unique_ptr<Node>& root : roots_) {
    if (const QModelIndex found = Descend(*root, path); found.isValid()) return found;
  }
  return {};
}

QModelIndex FolderTreeModel::Descend(Node& root, std::string_view path) {
  if (!Contains(root.path, path)) return {};
  Node* node = &root;
  for (const std::string_view name : Split(path.substr(root.path.size()), '/')) {
    if (name.empty()) continue;
    node = ChildNamed(*node, name);
    if (!node) return {};
  }
  return IndexOf(*node);
}

// A child that the level doesn't list is added at its end if the disk has it.
FolderTreeModel::Node* FolderTreeModel::ChildNamed(Node& node, std::string_view name) {
  fetchMore(IndexOf(node));
  const auto found = std::ranges::find_if(
      node.children, [&](const std::unique_ptr<Node>& child) { return child->name == name; });
  if (found != node.children.end()) return found->get();

  const std::string path = JoinPath(node.path, name);
  const std::optional<FileFacts> facts = files_.Facts(path);
  if (!facts || facts->kind != EntryKind::Folder) return nullptr;
  auto child = std::make_unique<Node>();
  child->path = path;
  child->name = name;
  child->parent = &node;
  child->row = static_cast<int>(node.children.size());
  beginInsertRows(IndexOf(node), child->row, child->row);
  node.children.push_back(std::move(child));
  endInsertRows();
  return node.children.back().get();
}

void FolderTreeModel::Reload() {
  beginResetModel();
  for (const std::unique_ptr<Node>& root : roots_) {
    root->children.clear();
    root->isLoaded = false;
  }
  endResetModel();
}

}  // namespace tallowbrook
