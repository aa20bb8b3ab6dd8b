#include "shell/form1.h"

#include <algorithm>

#include "base/guards.h"
#include "shell/commands.h"

namespace tallowbrook {

namespace {

// The profile that stands for how the program was left, and one that is in no file.
constexpr std::int32_t lastState = 0;
constexpr std::int32_t noProfile = -1;

}  // namespace

Form1::Form1(const World& world)
    : settings(screen),
      pane(screen),
      thumbnails(world.thumbnails, world.files),
      scan({world.files, world.clock, world.events, statusBar, world.dialogs, thumbnails,
            ThumbnailWarning, world.home},
           ListView1, pane),
      operations({world.files, world.dialogs, world.desktop, statusBar}, screen, ListView1, scan),
      pool(settings, ListView1, world.dialogs, world.clock, world.random),
      dates(world.files, world.clock),
      names(settings, pool, world.clock, world.dateNames, world.files),
      preview(screen, settings, ListView1, names, pool, world.dialogs, world.events, statusBar),
      pages(screen, settings, pane, preview, world.dialogs, world.clock),
      log(world.files),
      run({world.files, world.clock, statusBar, log, &dates}, settings, pane, ListView1, scan,
          names, pool),
      Apply(screen, {.name = "Cmd_Apply", .caption = "Apply"},
            {.name = "PushButton_Apply",
             .caption = "Apply",
             .tip = "Rename the checked rows on the disk"}),
      PreviewButton(screen, {.name = "Cmd_Preview", .caption = "Preview"},
                    {.name = "PushButton_Preview",
                     .caption = "Preview",
                     .tip = "Show the new names; nothing on the disk changes"}),
      Undo(screen, {.name = "Cmd_Undo", .caption = "Undo"},
           {.name = "PushButton_Undo",
            .caption = "Undo",
            .tip = "Show what was renamed, and undo it"}),
      Exit(screen, {.name = "Cmd_Exit", .caption = "Exit"},
           {.name = "PushButton_Exit", .caption = "Exit"}),
      picker(settings, pages.KeywordCaret),
      editedV1(world.files),
      editedV2(world.files),
      profiles({world.files, world.clock, screen, settings, pages, pane, scan, operations,
                statusBar, world.home}),
      update({world.updateSocket, world.clock, world.dialogs, world.desktop, world.deployment,
              AutoUpdateLastCheck}),
      tips(world.files, world.clock, world.random, DisplayStartupTipsNew),
      ribbon(screen),
      menus(screen, [this](int number) { Dispatch(number); }),
      world_(world) {
  WireButtons();
  WireProfiles();
}

void Form1::WireProfiles() {
  profiles.listChanged = [this] { Profile_List_Update(); };
  profiles.currentChanged = [this] {
    menus.Item("mnu_SaveProfile").SetEnabled(profiles.Current().id != 0);
  };
  profiles.currentStyle = [this] { return CurrentStyle; };
  profiles.applyStyle = [this](const std::string& path) { ApplyStyle(path); };
  menus.Item("mnu_StartupTips").rule = [this] { ShowStartupTips(); };
  menus.Item("mnu_SC_ManualRename").rule = [this] { OpenManualRename(); };
}

void Form1::WireButtons() {
  Apply.Does([this] { run.RenameFiles(0, {}); });
  PreviewButton.Does([this] { preview.PreviewFiles(); });
  Undo.Does([this] { OpenHistoryWindow(); });
  operations.OpenManualRename = [this] { OpenManualRename(); };
  Exit.Does([this] { ExitProgram(); });
  pages.InsertKeyword.Does([this] { OpenKeywordPicker(1); });
  pages.InsertKeyword1.Does([this] { OpenKeywordPicker(2); });
  operations.ShowTagEditor = [this] { ShowTagEditor(); };
  pages.BrowseMoveTo.Does([this] { OpenBrowse(); });
  pages.EditID3.Does([this] { operations.OpenTagEditorForSelection(); });
  run.updateMoveControls = [this] { pages.UpdateMoveControls(); };
  preview.ended = [this] { return ExitDone; };
  preview.thumbnailMode = [this] { return scan.ThumbnailMode; };
  scan.exitProgram = [this] { ExitProgram(); };
  // A folder's name is searched whole.
  scan.viewChanged = [this](bool folders) {
    if (folders) settings.Option_Search1.Choose();
    for (Option* option :
         {&settings.Option_Search1, &settings.Option_Search2, &settings.Option_Search3}) {
      option->SetVisible(!folders);
    }
  };
}

// The order is fixed: later steps read what earlier ones set. A step that fails is left out.
void Form1::Load() {
  const std::function<void()> steps[] = {
      [this] { ProgramLoading = true; },
      [this] { ClearStatusBar(); },
      [this] { BuildPaths(); },
      [this] { SetInitialOptions(); },
      [this] { CreateThumbnailGenerator(); },
      [this] { LoadGenreLists(); },
      [this] { pages.ResetSettings(); },
      [this] { GetConfiguration(); },
      [this] { pages.UpdateMoveControls(); },
      [this] { AskAutoUpdate(); },
      [this] { log.SetPath(world_.folders.data + "Logfile.txt"); },
      [this] {
        if (AutoUpdate) update.AutoUpdateIfDue();
      },
      [this] { operations.ShowDateCaption(); },
      [this] { pages.unique.UniqueClicked(); },
      [this] {
        if (DisplayStartupTipsNew == 1) ShowStartupTips();
      },
      [this] { SetupCommandBars(); },
      [this] { BuildRibbon(); },
      [this] { Profile_List_Update(); },
      [this] { ApplyStyle(CurrentStyle); },
  };
  for (const auto& step : steps) Attempt(step);
  ProgramLoading = false;
}

void Form1::ClearStatusBar() {
  statusBar.Set(0, "");
  statusBar.Set(1, "");
}

void Form1::SetInitialOptions() {
  pane.Option1_Files.Choose();
  settings.Option_Copy.Choose();
  settings.Option_ChangeFileName.Choose();
  settings.Option_Search1.Choose();
}

void Form1::ExitProgram() {
  if (scan.ScanInProgress) {
    scan.AbortRequested = true;
    scan.ExitAfterScan = true;
    return;
  }
  if (ExitDone) return;
  scan.AbortRequested = true;
  // A subfolder scan that is still on the stack ends at its next folder.
  scan.StopSubfolderScan = true;
  ExitDone = true;
  Attempt([this] { SaveSettings(); });
  if (unload) unload();
}

void Form1::Dispatch(int number) {
  const auto index = static_cast<std::size_t>(number) - profileCommands;
  if (number > profileCommands && index < profiles.ProfileList().size()) {
    Attempt([&] { LoadProfileAt(index); });
  } else if (const Command* command = FindCommand(number)) {
    Attempt([&] { command->action(*this, number); });
  } else if (repaint) {
    repaint();
  }
}

void Form1::OpenManualRename() {
  ManualRenameRow = ListView1.HighlightedRow();
  if (ManualRenameRow == 0 || !showManualRename) return;
  ManualRename dialog(ListView1.Row(ManualRenameRow).name, world_.dialogs,
                      [this](const std::string& name) { run.RenameFiles(ManualRenameRow, name); });
  showManualRename(dialog);
}

void Form1::OpenHistoryWindow() {
  if (!showHistory) return;
  LogHistory history(
      {world_.files, world_.dialogs, world_.events, &dates, [this] { scan.RefillList(); }},
      log.Path());
  showHistory(history);
}

void Form1::ShowTagEditor() {
  if (ListView1.HighlightedRow() == 0 || !showTagEditor) return;
  TagEditor editor({ListView1, genres, editedV1, editedV2, world_.dialogs});
  showTagEditor(editor);
}

void Form1::OpenKeywordPicker(int target) {
  picker.Open(target);
  if (showKeywordPicker) showKeywordPicker(picker);
}

// One line a key, in the order of the file.
std::vector<ConfigurationEntry> Form1::ConfigurationEntries() {
  return {
      {"LoadSavedSettings=", &LoadSavedSettings, "True"},
      {"AutoUpdate=", &AutoUpdate, "True"},
      {"AutoUpdateLastCheck=", &AutoUpdateLastCheck, GeneralDateText(world_.clock.Now())},
      {"DisplayStartupTips=", &DisplayStartupTips, "1"},
      {"DisplayStartupTipsNew=", &DisplayStartupTipsNew, "1"},
      {"ThumbnailWarning=", &ThumbnailWarning, "1"},
      {"FirstRun=", &FirstRun, "True"},
      {"ShowEXIFDateCreated=", &scan.ShowEXIFDateCreated, "1"},
      {"WindowHeight=", &WindowHeight, "11100"},
      {"WindowWidth=", &WindowWidth, "", false},
      {"WindowTop=", &WindowTop, "1"},
      {"WindowLeft=", &WindowLeft, "1"},
  };
}

void Form1::GetConfiguration() {
  const std::string path = ConfigurationPath();
  const std::string text =
      FileExists(world_.files, path) ? world_.files.ReadWhole(path).value_or("") : "";
  ReadConfiguration(text, ConfigurationEntries());
  if (heightChanged) heightChanged();
  WindowTop = std::max(WindowTop, 1);
  WindowLeft = std::max(WindowLeft, 1);
  std::int32_t id = LoadSavedSettings ? lastState : noProfile;
  profiles.LoadProfile(id);
}

void Form1::SaveSettings() {
  world_.files.Rewrite(ConfigurationPath(), [this](std::string_view) {
    return WriteConfiguration(ConfigurationEntries());
  });
  profiles.SaveProfile(lastState, "");
}

std::string Form1::ConfigurationPath() const {
  return world_.folders.data + "tallowbrook.cfg";
}

void Form1::AskAutoUpdate() {
  if (!FirstRun) return;
  const Answer answer = world_.dialogs.Ask(
      {"Auto Update Check",
       "Tallowbrook has the option of automatically checking for updates, would you like to turn "
       "this feature on?",
       Buttons::YesNo});
  AutoUpdate = answer == Answer::Yes;
  if (AutoUpdate) {
    world_.dialogs.Ask({"Auto Updated Check Enabled", "Auto Update Check has been turned on"});
  } else {
    world_.dialogs.Ask({"Auto Update Check Disabled",
                        "Auto Update Check has been disabled. You can always re-enable it through "
                        "the 'Options' menu"});
  }
  FirstRun = false;
  SaveSettings();
}

void Form1::LoadGenreLists() {
  genres.LoadGenreLists(world_.files, world_.folders.program);
}

void Form1::BuildPaths() {
  profiles.SetPath(world_.folders.data + "profile.cfg");
  profiles.DefaultStyle = StylePath(commandStyleBlack);
}

void Form1::CreateThumbnailGenerator() {
  thumbnails.Options = thumbnail_option::aspect | thumbnail_option::screen;
  thumbnails.DesiredWidth = thumbnails.DesiredHeight = 96;
}

std::string Form1::StylePath(int number) const {
  const auto style = std::ranges::find(Styles(), number, &StyleChoice::number);
  return world_.folders.program + "Styles/" +
         std::string(style == Styles().end() ? "" : style->file);
}

void Form1::ApplyStyle(const std::string& path) {
  CurrentStyle = path;
  if (styleChanged) styleChanged();
}

// The classic menu bar isn't shown; its items answer to their names alone.
void Form1::SetupCommandBars() {
  ribbon.Checked[commandAutoUpdate] = AutoUpdate;
  ribbon.Checked[commandStartupTips] = DisplayStartupTipsNew == 1;
  ribbon.Checked[commandDateCreated] = scan.DateColumnMode == 1;
  ribbon.Checked[commandDateModified] = scan.DateColumnMode != 1;
  ribbon.Checked[commandExifDate] = scan.ShowEXIFDateCreated == 1;
  ribbon.Checked[commandLoadSettings] = LoadSavedSettings;
}

void Form1::BuildRibbon() {
  ribbon.CurrentProfile.SetCaption("Current Profile: None");
}

// The profile that is selected in the ribbon stays selected, wherever it stands by now.
void Form1::Profile_List_Update() {
  const std::vector<ProfileEntry>& list = profiles.ProfileList();
  std::vector<std::string> profileNames;
  for (const ProfileEntry& profile : list) profileNames.push_back(profile.name);
  menus.ShowProfiles(profileNames);
  const auto index = static_cast<std::size_t>(ribbon.LoadProfile.Index());
  const std::int32_t selected = index < shownProfiles_.size() ? shownProfiles_[index].id : 0;
  const auto found = std::ranges::find(list, selected, &ProfileEntry::id);
  ribbon.LoadProfile.SetItems(std::move(profileNames));
  ribbon.LoadProfile.Select(
      found == list.end() || selected == 0 ? -1 : static_cast<int>(found - list.begin()));
  shownProfiles_ = list;
  if (profileMenuChanged) profileMenuChanged();
}

void Form1::LoadProfileAt(std::size_t index) {
  std::int32_t id = profiles.ProfileList()[index].id;
  profiles.LoadProfile(id);
}

void Form1::LoadSelectedProfile() {
  const int index = ribbon.LoadProfile.Index();
  if (index <= 0) return;
  const std::string profile = ribbon.LoadProfile.ItemText();
  LoadProfileAt(static_cast<std::size_t>(index));
  ribbon.CurrentProfile.SetCaption("Current Profile: " + profile);
}

void Form1::SaveCurrentProfile() {
  const ProfileEntry current = profiles.Current();
  const bool saved = profiles.SaveProfile(current.id, current.name);
  // It stands in front now, and is there again if it was deleted meanwhile.
  profiles.LoadProfileList();
  if (saved) {
    world_.dialogs.Ask({"Profile Saved", "Profile " + current.name + " saved successfully"});
  } else {
    world_.dialogs.Ask({"Save Profile", "The profile could not be saved"});
  }
}

void Form1::OpenSaveProfileDialog() {
  if (!showSaveProfile) return;
  SaveProfileDialog dialog(profiles, world_.dialogs);
  showSaveProfile(dialog);
}

void Form1::OpenManageProfiles() {
  if (!showManageProfiles) return;
  ManageProfiles dialog(profiles, world_.dialogs);
  showManageProfiles(dialog);
}

void Form1::OpenOptions() {
  if (!showOptions) return;
  Options dialog({LoadSavedSettings, AutoUpdate, DisplayStartupTipsNew, scan.ShowEXIFDateCreated,
                  scan.DateColumnMode, operations});
  showOptions(dialog);
  operations.ShowDateCaption();
  SetupCommandBars();
  SaveSettings();
}

void Form1::OpenAboutDialog() {
  if (!showAbout) return;
  About dialog(world_.deployment, world_.desktop);
  showAbout(dialog);
}

void Form1::OpenBrowse() {
  if (!showBrowse) return;
  Text& target = settings.Txt_MoveTo;
  Browse dialog(world_.files, target, pane.FolderTreeview1.Value());
  showBrowse(dialog);
  if (!target.Value().empty()) target.Set(WithSlash(target.Value()));
}

void Form1::OpenSite(std::string_view path) {
  world_.desktop.OpenAddress(world_.deployment.site + std::string(path));
}

void Form1::ShowStartupTips() {
  if (!showTips || !tips.Load(world_.folders.program + "startuptips.txt")) return;
  showTips(tips);
}

}  // namespace tallowbrook
