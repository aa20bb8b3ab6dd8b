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
#include "filelist/thumbnail_generator.h"
#include "media/genres.h"
#include "media/mp3_id3v1.h"
#include "media/mp3_id3v2.h"
#include "platform/program_folders.h"
#include "platform/tcp_client.h"
#include "platform/thumbnail_source.h"
#include "shell/about.h"
#include "shell/blinker.h"
#include "shell/browse.h"
#include "shell/classic_menus.h"
#include "shell/deployment.h"
#include "shell/keyword_picker.h"
#include "shell/manual_rename.h"
#include "shell/options.h"
#include "shell/ribbon.h"
#include "shell/startup_tips.h"
#include "shell/tag_editor.h"
#include "shell/update_check.h"
#include "store/configuration.h"
#include "store/log_file.h"
#include "store/log_history.h"
#include "store/profile_dialogs.h"
#include "store/profile_store.h"

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
  cThumbnailGenerator thumbnails;
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
  // The configuration. Its defaults stand with its keys, in ConfigurationEntries.
  bool LoadSavedSettings = true;
  bool AutoUpdate = true;
  std::string AutoUpdateLastCheck;
  int DisplayStartupTips = 1;
  int DisplayStartupTipsNew = 1;
  int ThumbnailWarning = 1;
  bool FirstRun = true;
  // In twips, 1440 to the inch. The window keeps its last normal size here; the height is set at
  // the next start, the width is written and never read. Top and left are at least 1, and read and
  // written too, but the window opens where the desktop puts it.
  int WindowHeight = 1;
  int WindowWidth = 1;
  int WindowTop = 1;
  int WindowLeft = 1;

  Blinker blinker;
  std::size_t ManualRenameRow = 0;
  KeywordPicker picker;
  GenreLists genres;
  // The tag editor's, one of each for the whole run.
  cMP3ID3v1 editedV1;
  cMP3ID3v2 editedV2;

  std::string CurrentStyle;  // its path
  ProfileStore profiles;
  UpdateCheck update;
  StartupTips tips;
  Ribbon ribbon;
  ClassicMenus menus;
  int RibbonTab = 0;  // the one that was selected last

  // Form_Load: everything from the panes to the first scan. Called once, before the window shows.
  void Load();
  // The only way out. During a scan it stops the scan and is called again at its end.
  void ExitProgram();
  // Runs a command, or loads a profile by its number. Any other number only has the window painted
  // again.
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

  // Writes the configuration and the last state. Two windows of the program never tear a file; the
  // one that closes last is remembered.
  void SaveSettings();
  // Applies a style by the path of its file and keeps the path.
  void ApplyStyle(const std::string& path);
  // The path of a style by its command.
  std::string StylePath(int number) const;
  // Loads the profile that is selected in the ribbon, and tells its name there.
  void LoadSelectedProfile();
  void SaveCurrentProfile();
  void OpenSaveProfileDialog();
  void OpenManageProfiles();
  void OpenOptions();
  void OpenAboutDialog();
  // Chooses the folder to copy or move to.
  void OpenBrowse();
  // Opens a path of the program's site.
  void OpenSite(std::string_view path);
  // Puts the state of all switches into the ribbon.
  void SetupCommandBars();
  // Shows one tip beside the main window; nothing without tips.
  void ShowStartupTips();

  // Set by the window: each shows a dialog until it closes, but the picker's and the tips' come
  // back at once.
  std::function<void(SaveProfileDialog&)> showSaveProfile;
  std::function<void(ManageProfiles&)> showManageProfiles;
  std::function<void(Options&)> showOptions;
  std::function<void(About&)> showAbout;
  std::function<void(Browse&)> showBrowse;
  std::function<void(StartupTips&)> showTips;
  std::function<void(ManualRename&)> showManualRename;
  std::function<void(LogHistory&)> showHistory;
  std::function<void(TagEditor&)> showTagEditor;
  std::function<void(KeywordPicker&)> showKeywordPicker;
  // Closes the main window.
  std::function<void()> unload;
  // Gives the window its height, from WindowHeight.
  std::function<void()> heightChanged;
  // Paints the window in CurrentStyle.
  std::function<void()> styleChanged;
  // Shows the ribbon's profiles and their menu items anew.
  std::function<void()> profileMenuChanged;
  std::function<void()> repaint;

 private:
  void WireButtons();
  void WireProfiles();
  void SetInitialOptions();
  void ClearStatusBar();
  void BuildPaths();
  void CreateThumbnailGenerator();
  void LoadGenreLists();
  void GetConfiguration();
  void AskAutoUpdate();
  void BuildRibbon();
  void Profile_List_Update();
  void LoadProfileAt(std::size_t index);
  std::vector<ConfigurationEntry> ConfigurationEntries();
  std::string ConfigurationPath() const;

  // As the ribbon lists them.
  std::vector<ProfileEntry> shownProfiles_;
  World world_;
};

}  // namespace tallowbrook
