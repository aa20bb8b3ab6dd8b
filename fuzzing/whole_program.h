// The whole program over files that are only bytes in memory, with nobody there to answer.
#pragma once

#include <algorithm>
#include <map>
#include <string>

#include "fuzzing/no_files.h"
#include "shell/form1.h"
#include "tests/support/silent_world.h"

namespace tallowbrook {

// What was put in can be read and replaced by its path; there is nothing else.
class TextFiles : public NoFiles {
 public:
  std::map<std::string, std::string> texts;

  std::optional<FileFacts> Facts(const std::string& path) override {
    if (path == "/" || path == "/home/") return FileFacts{.kind = EntryKind::Folder};
    if (!texts.contains(path)) return {};
    return FileFacts{.kind = EntryKind::File};
  }
  std::optional<std::string> ReadWhole(const std::string& path) override {
    const auto found = texts.find(path);
    return found == texts.end() ? std::nullopt : std::optional(found->second);
  }
  FileError Rewrite(const std::string& path, const FileEdit& edit) override {
    texts[path] = edit(texts[path]);
    return FileError::None;
  }
};

class WholeProgram {
 public:
  explicit WholeProgram(TextFiles& files)
      : form({files,
              clock,
              random,
              dialogs_,
              events_,
              desktop_,
              thumbnails_,
              network_,
              EnglishDateNames(),
              {"/program/", "/data/"},
              "/home/"}) {
    form.Load();
  }

  struct StoppedClock : Clock {
    Date Now() override { return *MakeDate({2024, 2, 29, 13, 5, 9}); }
    Date Local(std::int64_t seconds) override { return UniversalDate(seconds); }
    std::int64_t Posix(Date local) override { return local.seconds - secondsToPosixEpoch; }
  };
  struct NoChance : RandomSource {
    void Reseed(double) override {}
    double Next() override { return 0; }
  };
  StoppedClock clock;
  NoChance random;

 private:
  NoDialogs dialogs_;
  NoEvents events_;
  NoDesktop desktop_;
  NoThumbnails thumbnails_;
  NoNetwork network_;

 public:
  Form1 form;
};

}  // namespace tallowbrook
