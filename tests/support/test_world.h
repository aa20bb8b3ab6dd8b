// A world for the whole program: a home folder and a data folder of its own, real files, and fakes
// for the rest. Pending events come from the test, since the window has real ones.
#pragma once

#include "shell/form1.h"
#include "tests/support/fakes.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {

struct TestWorld {
  TemporaryFolder home;
  TemporaryFolder data;
  SystemFiles files;
  FakeClock clock;
  FakeRandom random;
  FakeDialogs dialogs;
  FakeDesktop desktop;
  FakeThumbnails thumbnails;
  FakeTcpClient socket;

  // A start as any but the first: it asks nothing, checks nothing and shows no tips.
  TestWorld() {
    data.Write("tallowbrook.cfg",
               "FirstRun=False\r\nAutoUpdate=False\r\nDisplayStartupTipsNew=0\r\n");
  }

  // With other files or dialogs, if given.
  World With(PendingEvents& events, Files* otherFiles = nullptr, Dialogs* otherDialogs = nullptr) {
    const ProgramFolders folders{data.Path(), data.Path()};
    Files& used = otherFiles ? *otherFiles : files;
    Dialogs& asked = otherDialogs ? *otherDialogs : dialogs;
    return {
        used,    clock,      random, asked, events, desktop, thumbnails, socket, EnglishDateNames(),
        folders, home.Path()};
  }
};

}  // namespace tallowbrook
