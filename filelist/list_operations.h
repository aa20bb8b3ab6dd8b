// What acts on rows that exist: open, delete, highlight to check mark, the date column, and the
// list's keys, clicks and right-click menu.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/dialogs.h"
#include "filelist/folder_scan.h"
#include "platform/desktop.h"

namespace tallowbrook {

struct ListWorld {
  Files& files;
  Dialogs& dialogs;
  Desktop& desktop;
  StatusBar& status;
};

class ListOperations {
 public:
  ListOperations(ListWorld world, Screen& screen, FileList& list, FolderScan& scan);

  // The right-click menu, in its order. It acts on the highlighted rows.
  Button mnu_Open;
  Button mnu_OpenContaining;
  Button mnu_SelectHighlighted;
  Button mnu_DeselectHighlighted;
  Button mnu_SelectOnlyHighlighted;
  Button mnu_Delete;
  Button mnu_EditID3Tag;
  Button mnu_ManualRename;
  struct MenuItem {
    Button& button;
    bool separatorBehind;
  };
  std::vector<MenuItem> RightClick();

  bool ListHasFocus = false;

  // Asks, then deletes the highlighted files for good. The first that can't be deleted, as a
  // folder can't, ends it: pane 0 then says so, and the list stays as it was.
  void DeleteHighlighted();
  // Opens the highlighted row's file in its program; without one, nothing.
  void OpenFile();
  void OpenContainingFolder();
  // Dates all rows anew. The order of a sort by date stays that of the scan, and
  // photos show their file dates: both are wanted.
  void UpdateDates();
  // 1 shows dates of creation, 0 of modification.
  void SetDateColumnMode(int mode);
  void ShowDateCaption();
  void OpenTagEditorForSelection();

  // The list's events.
  void DoubleClick() { OpenFile(); }
  // A button was let go over a row, or over none (0). True if the menu is to show.
  bool MouseUp(std::size_t row, bool isRight);
  // The user has turned a check mark by a click. The selected item is then no longer highlighted.
  void ItemCheck(std::size_t row, bool checked);
  void RenameKey();
  // Deletes only while the keyboard is the list's: elsewhere the key edits text.
  void DeleteKey();

  // Set by whoever has the windows. Without an editor, its menu item is disabled.
  std::function<void()> OpenManualRename;
  std::function<void()> ShowTagEditor;

 private:
  void WireMenu();
  void CheckHighlighted(bool checked);
  void CheckOnlyHighlighted();
  bool IsMp3(std::size_t row) const;
  std::vector<std::string> HighlightedPaths() const;

  ListWorld world_;
  FileList& list_;
  FolderScan& scan_;
};

}  // namespace tallowbrook
