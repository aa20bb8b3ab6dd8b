#include "filelist/folder_table.h"

#include <algorithm>

namespace tallowbrook {

namespace {

constexpr FolderId rootId = 0;

// Calls visit(name) for each name that a "/" ends: "/a/" holds "" and "a". A rest without its
// "/" is a name too.
template <class Visit>
void ForEachName(std::string_view path, Visit visit) {
  while (!path.empty()) {
    const std::size_t slash = std::min(path.find('/'), path.size());
    visit(path.substr(0, slash));
    path.remove_prefix(std::min(slash + 1, path.size()));
  }
}

}  // namespace

FolderTable::FolderTable() {
  Clear();
}

void FolderTable::Clear() {
  nodes_.clear();
  nodes_.push_back(Node{rootId, {}, {}, {}, 0});
  ++version_;
}

FolderId FolderTable::Intern(std::string_view path) {
  if (lastVersion_ == version_ && lastPath_ == path) return lastId_;
  FolderId id = rootId;
  ForEachName(path, [&](std::string_view name) {
    const std::string key(name);
    const auto child = nodes_[id].children.find(key);
    if (child != nodes_[id].children.end()) {
      id = child->second;
      return;
    }
    const auto made = static_cast<FolderId>(nodes_.size());
    nodes_.push_back(Node{id, key, {}, {}, 0});
    nodes_[id].children.emplace(key, made);
    id = made;
  });
  lastPath_ = path;
  lastId_ = id;
  lastVersion_ = version_;
  return id;
}

const std::string& FolderTable::Path(FolderId id) const {
  const Node& node = nodes_[id];
  if (id == rootId || node.pathVersion == version_) return node.path;
  node.path = Path(node.parent);
  node.path += node.name;
  node.path += '/';
  node.pathVersion = version_;
  return node.path;
}

std::vector<FolderId> FolderTable::FindAll(std::string_view path) const {
  std::vector<FolderId> found{rootId};
  ForEachName(path, [&](std::string_view name) {
    std::vector<FolderId> below;
    const std::string key(name);
    for (const FolderId id : found) {
      const auto [first, last] = nodes_[id].children.equal_range(key);
      for (auto child = first; child != last; ++child) below.push_back(child->second);
    }
    found = std::move(below);
  });
  return found;
}

void FolderTable::Rename(std::string_view path, std::string_view newName) {
  const std::vector<FolderId> folders = FindAll(path);
  if (folders.empty() || folders.front() == rootId) return;
  for (const FolderId id : folders) {
    auto& siblings = nodes_[nodes_[id].parent].children;
    const auto [first, last] = siblings.equal_range(nodes_[id].name);
    siblings.erase(
        std::find_if(first, last, [&](const auto& child) { return child.second == id; }));
    siblings.emplace(newName, id);
    nodes_[id].name = newName;
  }
  ++version_;
}

}  // namespace tallowbrook
