// The folders of the machine as a tree: read one level at a time, when a level is opened.
//
// Names are any bytes. Hidden folders aren't listed; one that the user goes to all the same is
// shown from then on.
#pragma once

#include <QAbstractItemModel>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace tallowbrook {

class FolderTreeModel : public QAbstractItemModel {
 public:
  // Two roots: the user's home and "/"; one if they are the same.
  FolderTreeModel(Files& files, const std::string& home, std::string_view computerCaption);
  ~FolderTreeModel() override;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool hasChildren(const QModelIndex& parent) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;

  // Without "/" at its end, but "/" itself; empty for an invalid index.
  std::string PathOf(const QModelIndex& index) const;
  // Reads the levels on the way. `near` says in whose root to look first. Invalid if there is no
  // such folder.
  QModelIndex Find(std::string_view path, const QModelIndex& near = {});
  // Forgets all levels below the roots.
  void Reload();

 private:
  struct Node;
  Node* NodeOf(const QModelIndex& index) const;
  QModelIndex IndexOf(Node& node) const;
  void AddRoot(const std::string& path, const std::string& caption);
  QModelIndex Descend(Node& root, std::string_view path);
  Node* ChildNamed(Node& node, std::string_view name);

  Files& files_;
  std::vector<std::unique_ptr<Node>> roots_;
};

// The path without slashes at its end, but "/" itself.
std::string_view WithoutEndSlash(std::string_view path);

}  // namespace tallowbrook
