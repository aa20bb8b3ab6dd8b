// Form1: the program. It holds the settings, the list and every routine, starts them in a fixed
// order, and ends by one path. The window shows it; a test drives it by the names of its controls.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/controls.h"
#include "base/dialogs.h"
#include "base/pending_events.h"
#include "base/status_bar.h"
#include "engine/name_builder.h"
#include "engine/preview.h"
#include "engine/rename_pages.h"
#include "engine/rename_run.h"
#include "engine/rename_settings.h"
#include "engine/unique_parameter.h"
#include "filelist/list_operations.h"
#include "media/genres.h"
#include "media/mp3_id3v1.h"
#include "media/mp3_id3v2.h"
#include "platform/program_folders.h"
#include "platform/tcp_client.h"
#include "platform/thumbnail_source.h"
#include "shell/blinker.h"
#include "shell/deployment.h"
#include "shell/keyword_picker.h"
#include "shell/manual_rename.h"
#include "shell/tag_editor.h"
#include "store/log_file.h"
#include "store/log_history.h"

namespace tallowbrook {

// What the program needs of the world. All must outlive Form1.
struct World {
  Files& files;
  Clock& clock;
  RandomSource& random;
  Dialogs& dialogs;
  PendingEvents& events;
  Desktop& desktop;
  ThumbnailSource& thumbnails;
  TcpClient& updateSocket;
  const DateNames& dateNames;
  ProgramFolders folders;
  std::string home;  // the folder that a first start shows
  Deployment deployment = {};
};

class Form1 {
 public:
  explicit Form1(const World& world);

  // The screen comes first: every control below registers with it.
  Screen screen;
  StatusBar statusBar;
  FileList ListView1;
  RenameSettings settings;
  ListPane pane;
  FolderScan scan;
  ListOperations operations;
  RandomNumberPool pool;
  FileDateCommands dates;
  NameBuilder names;
  Preview preview;
  RenamePages pages;
  LogFile log;
  RenameRun run;

  ButtonPair Apply;  // Cmd_Apply, PushButton_Apply
  ButtonPair PreviewButton;
  ButtonPair Undo;  // Cmd_Undo, PushButton_Undo
  ButtonPair Exit;

  bool ProgramLoading = false;
  bool ExitDone = false;
  bool LoadSavedSettings = true;
  bool AutoUpdate = true;
  bool FirstRun = true;
  int DisplayStartupTipsNew = 1;
  std::string CurrentStyle;
  std::string AutoUpdateLastCheck;
  int ThumbnailWarning = 1;
  // In twips, at least 1. Read and written, but the window opens where the desktop puts it.
  int WindowTop = 1;
  int WindowLeft = 1;
  Blinker blinker;
  std::size_t ManualRenameRow = 0;
  KeywordPicker picker;
  GenreLists genres;
  // The tag editor's, one of each for the whole run.
  cMP3ID3v1 editedV1;
  cMP3ID3v2 editedV2;

  // Form_Load: everything from the panes to the first scan. Called once, before the window shows.
  void Load();
  // The only way out. During a scan it stops the scan and is called again at its end.
  void ExitProgram();
  // A number that no command bears does nothing.
  void Dispatch(int number);

  // Keys at window level. Escape stops a fill, Alt+D goes to the address.
  void EscapeKey() { scan.AbortRequested = true; }
  void DeleteKey() { operations.DeleteKey(); }
  void AddressShortcut() { screen.RequestFocus(pane.Txt_Address); }

  // Opens the dialog that renames the highlighted row; nothing without one.
  void OpenManualRename();
  // Opens the history of all runs, and its undo.
  void OpenHistoryWindow();
  // Opens the tag editor on the highlighted row; nothing without one.
  void ShowTagEditor();
  // Opens the keyword picker for the mask of a page, or turns the one that is open to it: 1
  // RTxt_ID3Name, 2 RTxt_Unique_Other.
  void OpenKeywordPicker(int target);

  // Set by the window: each shows a dialog until it closes, but the picker's comes back at once;
  // the last closes the main window.
  std::function<void(ManualRename&)> showManualRename;
  std::function<void(LogHistory&)> showHistory;
  std::function<void(TagEditor&)> showTagEditor;
  std::function<void(KeywordPicker&)> showKeywordPicker;
  std::function<void()> unload;

 private:
  void WireButtons();
  void SetInitialOptions();
  void ClearStatusBar();
  // Named steps that have little to do as long as nothing is stored or styled.
  void LoadSkin();
  void BuildPaths();
  void CreateThumbnailGenerator();
  void LoadGenreLists();
  void LoadLayout();
  void GetConfiguration();
  void SaveSettings();
  void AskAutoUpdate();
  void AutoUpdateIfDue();
  void ShowStartupTips();
  void SetupCommandBars();
  void BuildRibbon();
  void Profile_List_Update();
  void ApplyStyle(const std::string& path);

  World world_;
};

}  // namespace tallowbrook
