// The engine with a fresh start's settings over real files in a temporary folder, no window.
#pragma once

#include <gtest/gtest.h>

#include "engine/name_builder.h"
#include "engine/preview.h"
#include "engine/rename_pages.h"
#include "engine/rename_run.h"
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

  // Sets a control by its name.
  void Set(std::string_view name, std::string_view value) {
    Control* control = screen.Find(name);
    ASSERT_NE(control, nullptr) << name;
    ASSERT_TRUE(control->SetValueText(value)) << name << " = " << value;
  }
  std::string Build(std::string_view fileName, std::int32_t counter = 0) {
    return names.BuildNewName(fileName, counter, "/d/");
  }
  // Makes the files and lists the folder.
  void List(std::initializer_list<std::string> fileNames) {
    for (const std::string& name : fileNames) folder.Write(name, "bytes of " + name);
    scan.ScanFolder(folder.Path());
  }
  std::vector<std::string> NewNames() {
    std::vector<std::string> texts;
    for (std::size_t i = 1; i <= list.Count(); ++i) texts.push_back(list.Row(i).newName);
    return texts;
  }

  TemporaryFolder folder;
  SystemFiles disk;
  FaultyFiles files{disk};
  FakeClock clock;
  FakeRandom random;
  FakeDialogs dialogs;
  FakeEvents events;
  FakeLog log;
  StatusBar status;
  Screen screen;
  FileList list;
  RenameSettings settings{screen};
  ListPane pane{screen};
  FolderScan scan{{files, clock, events, status, "/home/u/"}, list, pane};
  RandomNumberPool pool{settings, list, dialogs, clock, random};
  NameBuilder names{settings, pool, clock, EnglishDateNames()};
  Preview preview{screen, settings, list, names, pool, dialogs, events, status};
  RenamePages pages{screen, settings, pane, preview, dialogs, clock};
  RenameRun run{{files, clock, status, log}, settings, pane, list, scan, names, pool};
};

}  // namespace tallowbrook
