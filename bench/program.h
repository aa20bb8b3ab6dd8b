// The program as the jobs drive it: without a window, without questions, over one folder of files.
#pragma once

#include "bench/job.h"
#include "shell/form1.h"

namespace tallowbrook::bench {

inline constexpr int fileCount = 100'000;

struct NoDialogs : Dialogs {
  Answer Ask(const MessageBox&) override { return answer; }
  Answer answer = Answer::No;
};
struct NoEvents : PendingEvents {
  void Yield() override {}
};
struct NoDesktop : Desktop {
  void Open(const std::string&) override {}
  void OpenAddress(const std::string&) override {}
  void ShowInFolder(const std::string&, const std::string&) override {}
};

struct NoThumbnails : ThumbnailSource {
  std::optional<PackedBitmap> Extract(const std::string&, const FileFacts&, int, int) override {
    return {};
  }
};
struct NoNetwork : TcpClient {
  void Connect(const std::string&, std::uint16_t) override {}
  void Send(std::string_view) override {}
  void Close() override {}
  bool IsOpen() const override { return false; }
};

struct Program {
  std::string folder = NewFolder();
  std::string data = NewFolder();
  SystemFiles files;
  SystemClock clock;
  SystemRandom random;
  NoDialogs dialogs;
  NoEvents events;
  NoDesktop desktop;
  NoThumbnails thumbnails;
  NoNetwork network;
  Form1 form{{files,
              clock,
              random,
              dialogs,
              events,
              desktop,
              thumbnails,
              network,
              EnglishDateNames(),
              {data, data},
              data}};

  // Photos are listed by their file dates: most jobs' photos are empty files.
  Program() {
    form.Load();
    form.scan.ShowEXIFDateCreated = 0;
  }
  // `fileCount` empty files, and nothing else.
  void FillAnew() {
    EmptyFolder(folder);
    FillFolder(folder, fileCount);
  }
};

// One program for all jobs.
Program& TheProgram();

}  // namespace tallowbrook::bench
