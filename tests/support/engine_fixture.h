// The engine with a fresh start's settings over real files in a temporary folder, no window.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "engine/name_builder.h"
#include "engine/preview.h"
#include "engine/rename_pages.h"
#include "engine/rename_run.h"
#include "filelist/list_operations.h"
#include "tests/support/fakes.h"
#include "tests/support/faulty_files.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {

class EngineTest : public testing::Test {
 protected:
  EngineTest() {
    pane.Option1_Files.Choose();
    settings.Option_Copy.Choose();
    settings.Option_ChangeFileName.Choose();
    settings.Option_Search1.Choose();
    pages.ResetSettings();
    run.updateMoveControls = [this] { pages.UpdateMoveControls(); };
  }

  using Lines = std::vector<std::string>;
  using Pairs = std::vector<std::pair<std::string, std::string>>;

  // Sets a control by its name.
  void Set(std::string_view name, std::string_view value) {
    Control* control = screen.Find(name);
    ASSERT_NE(control, nullptr) << name;
    ASSERT_TRUE(control->SetValueText(value)) << name << " = " << value;
  }
  // Sets several: "Check_Unique=0|Combo_Find=x".
  void Set(std::string_view fields) {
    while (!fields.empty()) {
      const std::string_view field = fields.substr(0, fields.find('|'));
      Set(field.substr(0, field.find('=')), field.substr(field.find('=') + 1));
      fields.remove_prefix(std::min(fields.size(), field.size() + 1));
    }
  }
  std::string Build(std::string_view fileName, std::int32_t counter = 0) {
    return names.BuildNewName(fileName, counter, "/d/");
  }
  void Scan(std::string_view below = {}) { scan.ScanFolder(folder.Path(below)); }
  // Makes the files and lists the folder.
  void List(std::initializer_list<std::string> fileNames) {
    for (const std::string& name : fileNames) folder.Write(name, "bytes of " + name);
    Scan();
  }
  // Makes files "f100", "f101" and so on.
  void Fill(int count, const std::string& prefix = "f") {
    for (int i = 0; i < count; ++i) folder.Write(prefix + std::to_string(100 + i));
  }
  // At the n-th of the yields to come.
  void AtYield(int n, std::function<void()> action) {
    events.yields = 0;
    events.atYield = {{n, std::move(action)}};
  }
  // One text a row.
  template <typename Text>
  Lines Rows(Text text) {
    Lines texts;
    for (std::size_t i = 1; i <= list.Count(); ++i) texts.push_back(text(i));
    return texts;
  }
  Lines Names() {
    return Rows([this](std::size_t i) { return list.Row(i).name; });
  }
  Lines NewNames() {
    return Rows([this](std::size_t i) { return list.Row(i).newName; });
  }
  // Builds the preview and gives the column.
  Lines Previewed() {
    preview.PreviewFiles();
    return NewNames();
  }
  // Full paths, the folder's own as "~/".
  Lines Paths() {
    return Rows([this](std::size_t i) { return Short(list.FullPath(i)); });
  }
  // "x" a row that is checked, "." another.
  std::string Marks(bool FileEntry::*mark = &FileEntry::Checked) {
    std::string marks;
    for (std::size_t i = 1; i <= list.Count(); ++i) marks += list.Row(i).*mark ? 'x' : '.';
    return marks;
  }
  std::string Highlights() { return Marks(&FileEntry::Selected); }
  // With the folder's path as "~/".
  std::string Short(std::string text) const {
    for (std::size_t at; (at = text.find(folder.Path())) != std::string::npos;) {
      text.replace(at, folder.Path().size(), "~/");
    }
    return text;
  }

  TemporaryFolder folder;
  SystemFiles disk;
  FaultyFiles files{disk};
  FakeClock clock;
  FakeRandom random;
  FakeDialogs dialogs;
  FakeEvents events;
  FakeDesktop desktop;
  FakeLog log;
  StatusBar status;
  Screen screen;
  FileList list;
  RenameSettings settings{screen};
  ListPane pane{screen};
  FakeThumbnails pictures;
  cThumbnailGenerator thumbnails{pictures, files};
  int ThumbnailWarning = 1;
  FolderScan scan{{files, clock, events, status, dialogs, thumbnails, ThumbnailWarning, "/home/u/"},
                  list,
                  pane};
  ListOperations operations{{files, dialogs, desktop, status}, screen, list, scan};
  RandomNumberPool pool{settings, list, dialogs, clock, random};
  NameBuilder names{settings, pool, clock, EnglishDateNames(), files};
  FileDateCommands fileDates{files, clock};
  Preview preview{screen, settings, list, names, pool, dialogs, events, status};
  RenamePages pages{screen, settings, pane, preview, dialogs, clock};
  RenameRun run{{files, clock, status, log, &fileDates}, settings, pane, list, scan, names, pool};
};

}  // namespace tallowbrook
