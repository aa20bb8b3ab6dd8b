#include "shell/form1.h"

#include "base/guards.h"
#include "shell/commands.h"

namespace tallowbrook {

Form1::Form1(const World& world)
    : settings(screen),
      pane(screen),
      scan({world.files, world.clock, world.events, statusBar, world.home}, ListView1, pane),
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
      world_(world) {
  WireButtons();
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
      [this] { LoadSkin(); },
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
        if (AutoUpdate) AutoUpdateIfDue();
      },
      [this] { operations.ShowDateCaption(); },
      [this] { pages.unique.UniqueClicked(); },
      [this] {
        if (DisplayStartupTipsNew == 1) ShowStartupTips();
      },
      [this] { SetupCommandBars(); },
      [this] { BuildRibbon(); },
      [this] { LoadLayout(); },
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
  switch (number) {
    case commandReset:
      pages.ResetSettings();
      break;
    case commandViewLog:
      OpenHistoryWindow();
      break;
    case commandExit:
      ExitProgram();
      break;
    default:
      break;
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

// Nothing is stored yet: every start is a first one and shows the user's own folder.
void Form1::GetConfiguration() {
  scan.SelectFolder(world_.home);
}

void Form1::LoadGenreLists() {
  genres.LoadGenreLists(world_.files, world_.folders.program);
}

void Form1::LoadSkin() {}
void Form1::BuildPaths() {}
void Form1::CreateThumbnailGenerator() {}
void Form1::LoadLayout() {}
void Form1::SaveSettings() {}
void Form1::AskAutoUpdate() {}
void Form1::AutoUpdateIfDue() {}
void Form1::ShowStartupTips() {}
void Form1::SetupCommandBars() {}
void Form1::BuildRibbon() {}
void Form1::Profile_List_Update() {}
void Form1::ApplyStyle(const std::string& path) {
  CurrentStyle = path;
}

}  // namespace tallowbrook
