// The program as the jobs drive it: without a window, without questions, over one folder of files.
#pragma once

#include "bench/job.h"
#include "shell/form1.h"
#include "tests/support/silent_world.h"

namespace tallowbrook::bench {

inline constexpr int fileCount = 100'000;  // of most jobs

struct Program {
  std::string folder = NewFolder();
  std::string data = NewFolder();
  SystemFiles files;
  SystemClock clock;
  SystemRandom random;
  NoDialogs dialogs;
  NoEvents events;
  NoDesktop desktop;
  NoThumbnails none;
  ThumbnailSource* thumbnails;
  NoNetwork network;
  Form1 form{{files,
              clock,
              random,
              dialogs,
              events,
              desktop,
              thumbnails ? *thumbnails : none,
              network,
              EnglishDateNames(),
              {data, data},
              data}};

  // Photos are listed by their file dates: most jobs' photos are empty files.
  explicit Program(ThumbnailSource* pictures = nullptr) : thumbnails(pictures) {
    form.Load();
    form.scan.ShowEXIFDateCreated = 0;
  }
  // Brings `count` empty files into the folder, and nothing else.
  void FillAnew(int count = fileCount) {
    EmptyFolder(folder);
    FillFolder(folder, count);
  }
};

// One program for all jobs.
Program& TheProgram();

}  // namespace tallowbrook::bench
