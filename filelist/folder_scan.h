// The scan: fills the list from a folder, from a tree, or from what was dropped on it.
//
// A fill lets pending events through at every tenth row, in the thumbnail view at every file, and
// any handler may run there; stops are flags that are looked at between files.
#pragma once

#include <string>
#include <vector>

#include "base/dialogs.h"
#include "base/pending_events.h"
#include "base/status_bar.h"
#include "filelist/check_pattern.h"
#include "filelist/file_list.h"
#include "filelist/list_pane.h"
#include "filelist/thumbnail_generator.h"
#include "platform/clock.h"
#include "platform/files.h"

namespace tallowbrook {

// What the scan needs of the world.
struct ScanWorld {
  Files& files;
  Clock& clock;
  PendingEvents& events;
  StatusBar& status;
  Dialogs& dialogs;
  cThumbnailGenerator& thumbnails;
  int& ThumbnailWarning;  // set: the user is to be told once what the thumbnail view leaves out
  std::string home = {};  // what "~" in a typed address stands for
};

class FolderScan {
 public:
  FolderScan(ScanWorld world, FileList& list, ListPane& pane);

  // State, under the names that the rest of the program knows.
  bool ScanInProgress = false;
  bool AbortRequested = false;
  bool ExitAfterScan = false;
  bool StopSubfolderScan = false;
  bool LastScanWasRecursive = false;
  bool ThumbnailMode = false;
  std::string LastScanFolder;
  // Of this fill: files looked at, also those that the view leaves out, and pictures.
  double FilesFound = 0;
  double ThumbnailsFound = 0;
  int ShowEXIFDateCreated = 1;
  int DateColumnMode = 0;  // 1: the list shows dates of creation, 0: of modification

  // Runs the end of the program, when it was asked for during a scan.
  std::function<void()> exitProgram;
  // Runs when the pane turns to folders (true) or back: the search options depend on it.
  std::function<void(bool folders)> viewChanged;

  // Replaces the list by one folder's entries. During a running fill: stops that one instead.
  void ScanFolder(const std::string& path);
  // Appends one folder's entries.
  void ListFolderEntries(const std::string& path);
  // Appends the entries of every folder below `path`, breadth first within a level. Folders that
  // are links are rows but are not walked into.
  void ScanSubfolders(const std::string& path);
  // Starts a subfolder scan of the last folder, or stops the running one.
  void ToggleSubfolderScan();
  // Appends one file; a full path with an empty directory is split.
  void AddListRow(std::string name, std::string directory);
  void ClearFileList();
  // Fills the list again as it was last filled; a subfolder scan adds to what is there.
  void FilterList();
  // Whether a fill or a subfolder scan is under way.
  bool IsBusy() const;
  // The same once files have changed: the list shows what is there now, and nothing else.
  void RefillList();
  void ApplyCheckPattern() { pattern_.ApplyCheckPattern(); }
  // Files and folders dropped on the list: added to what is there.
  void AddDropped(const std::vector<std::string>& paths);
  // True for an existing folder; its path then gets a "/" at its end. Outer blanks of a path at
  // which nothing stands don't count.
  bool IsDirectory(std::string& path);
  // The date of a file or folder by DateColumnMode, and its general date text; nothing if it is
  // gone.
  std::optional<Date> FileDate(const std::string& path);
  std::string GetListDate(const std::string& path);

  // Selects a folder as a click in the tree does, or stops a running fill instead. What is no
  // folder, or doesn't begin at the root, gives a message and false.
  bool SelectFolder(std::string path);

  // The user has clicked Check_Thumbnails, which shows by now what is wanted: warns where that is
  // due and lists the folder anew, or puts the box back. Code that sets the box doesn't come here.
  void ThumbnailsClicked();
  // Brings mode, box and view in line; nothing is listed or asked. Folders have no thumbnails.
  void SetThumbnailMode(bool on);
  // Shows pictures in the mode and the table without it; the table has no text at its check boxes.
  void ApplyListViewMode();

  // The window's keys. AddressKey is any key but Enter in Txt_Address.
  void AddressKey();
  void AddressEnter();
  void CompleteFolder();  // Combo1's text has changed

 private:
  // The subfolders of one folder, in the listing's order. A folder that can't be read leaves
  // what was there before.
  struct SubfolderList {
    struct Subfolder {
      std::string path;  // without "/" at the end
      bool isLink;
    };
    std::vector<Subfolder> folders;
    bool SetPath(Files& files, const std::string& folder);
    void Fill(const FolderListing& listing, const std::string& folder);
  };

  void ListOpened(const std::string& folder, FolderListing* listing);
  bool ListFiles(const std::string& folder, FolderListing& listing);
  bool ListFolders(const std::string& folder, const FolderListing* listing);
  void AddFileRow(std::string_view name, const std::string& directory,
                  const std::optional<FileFacts>& facts);
  void AddFolderRow(std::string_view name, std::string_view directory);
  std::optional<PackedBitmap> FindThumbnail(const std::string& name, const std::string& directory);
  void Say(std::string_view text);
  Date ListDate(const FileFacts& facts);
  std::optional<Date> ExifDate(std::string_view name, const std::string& directory);
  void WalkLevel(const SubfolderList& level);
  void ShowCount();
  void SetProgress(std::size_t value, std::size_t maximum);
  void ShowFiles();
  void ShowFolders();
  void WireRules();

  ScanWorld world_;
  FileList& list_;
  ListPane& pane_;
  CheckPattern pattern_;
  SubfolderList Dir1_;  // folders mode
  SubfolderList Dir3_;  // completion
};

// Behind the last dot; empty without one.
std::string GetFileExtension(std::string_view name);

}  // namespace tallowbrook
