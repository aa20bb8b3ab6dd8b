#include "shell/browse.h"

namespace tallowbrook {

namespace {

bool IsFolder(Files& files, const std::string& path) {
  const std::optional<FileFacts> facts = files.Facts(path);
  return path.starts_with('/') && facts && facts->kind == EntryKind::Folder;
}

}  // namespace

Browse::Browse(Files& files, Text& target, std::string_view folder)
    : FolderTreeview1(screen, {.name = "FolderTreeview1"}),
      Frame1(screen, {.name = "Frame1"}),
      Command_Save(screen, {.name = "Command_Save", .caption = "OK"}),
      Command_Done(screen, {.name = "Command_Done", .caption = "Cancel"}) {
  FolderTreeview1.rule = [this] { statusBar.Set(0, FolderTreeview1.Value()); };
  FolderTreeview1.Set(WithoutSlash(IsFolder(files, target.Value()) ? target.Value() : folder));
  Command_Save.rule = [this, &target] {
    target.Set(FolderTreeview1.Value());
    if (close) close();
  };
  Command_Done.rule = [this] {
    if (close) close();
  };
}

}  // namespace tallowbrook
