// The folders of the rows: each path is held once, however many rows lie in it.
//
// Paths are kept as a tree of names, so that renaming a folder moves every path below it in one
// step, whatever number of rows and folders that is.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tallowbrook {

using FolderId = std::uint32_t;

class FolderTable {
 public:
  FolderTable();

  // The id of a folder's path, which is empty or ends in "/" and is kept to the byte. Asking for
  // the same path again in a row costs one comparison.
  FolderId Intern(std::string_view path);
  // Valid until the table changes.
  const std::string& Path(FolderId id) const;
  // The folder of this path, which ends in "/", is called `newName` from now on, whatever
  // characters that holds: all paths below it follow.
  void Rename(std::string_view path, std::string_view newName);
  // Forgets all folders; ids given out before are void.
  void Clear();

 private:
  struct Node {
    FolderId parent;
    std::string name;
    // Two nodes may bear one name: a folder renamed to where rows of a vanished one still point.
    std::unordered_multimap<std::string, FolderId> children;
    mutable std::string path;
    mutable std::uint64_t pathVersion = 0;
  };
  // All nodes that stand for the path; empty if there are none.
  std::vector<FolderId> FindAll(std::string_view path) const;

  std::deque<Node> nodes_;
  std::uint64_t version_ = 1;
  std::string lastPath_;
  FolderId lastId_ = 0;
  std::uint64_t lastVersion_ = 0;
};

}  // namespace tallowbrook
