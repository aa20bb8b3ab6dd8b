// The history: reading a long log, undoing a large batch of files and a large tree of folders.
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "bench/program.h"

namespace tallowbrook::bench {
namespace {

// Opens the history and undoes all rows of the latest batch. The listing of the folder behind it is
// left out: it is a job of its own.
double UndoLatest(Program& p) {
  LogHistory history({p.files, p.dialogs, p.events, nullptr, {}}, p.form.log.Path());
  p.dialogs.answer = Answer::Yes;
  const double seconds = Seconds([&] {
    history.Open();
    history.Cmd_Undo.Press();
  });
  p.dialogs.answer = Answer::No;
  return seconds;
}

void RunAnew(Program& p) {
  std::filesystem::remove(p.form.log.Path());
  p.FillAnew();
  p.form.scan.ScanFolder(p.folder);
  p.form.run.RenameFiles(0, {});
}

double UndoWithProgram() {
  Program& p = TheProgram();
  RunAnew(p);
  return UndoLatest(p);
}

double UndoBare() {
  Program& p = TheProgram();
  RunAnew(p);
  std::vector<std::pair<std::string, std::string>> names;
  for (int i = 1; i <= fileCount; ++i) {
    char oldName[64], newName[64];
    std::snprintf(oldName, sizeof oldName, "photo_%07d.jpg", i);
    std::snprintf(newName, sizeof newName, "photo_%07d-%04d.jpg", i, i);
    names.emplace_back(p.folder + newName, p.folder + oldName);
  }
  return Seconds([&] {
    for (const auto& [from, to] : names) {
      syscall(SYS_renameat2, AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
    }
  });
}

// 100 x 100 x 3 folders, each level renamed, so that each undo moves the rows below it.
constexpr int wide = 100, deep = 3;

std::string FolderLog(const std::string& folder, bool withNewParents) {
  const auto leaf = [](int i, bool isNew) { return (isNew ? "new" : "old") + std::to_string(i); };
  std::string log = "@----------- 01/01/26 [10:00] -----------@\r\n";
  const auto record = [&](const std::string& parent, int i) {
    log.append("9\x06 ").append(parent).append(leaf(i, false)).append("?");
    log.append(parent).append(leaf(i, true)).append("?\x06\x05\r\n");
  };
  for (int a = 0; a < wide; ++a) record(folder, a);
  for (int a = 0; a < wide; ++a) {
    const std::string outer = folder + leaf(a, withNewParents) + "/";
    for (int b = 0; b < wide; ++b) record(outer, b);
    for (int b = 0; b < wide; ++b) {
      for (int c = 0; c < deep; ++c) record(outer + leaf(b, withNewParents) + "/", c);
    }
  }
  return log + "\x07";
}

void MakeNewFolders(const std::string& folder) {
  EmptyFolder(folder);
  for (int a = 0; a < wide; ++a) {
    for (int b = 0; b < wide; ++b) {
      for (int c = 0; c < deep; ++c) {
        std::filesystem::create_directories(folder + "new" + std::to_string(a) + "/new" +
                                            std::to_string(b) + "/new" + std::to_string(c));
      }
    }
  }
}

double UndoFoldersWithProgram() {
  Program& p = TheProgram();
  MakeNewFolders(p.folder);
  std::ofstream(p.form.log.Path(), std::ios::binary) << FolderLog(p.folder, true);
  return UndoLatest(p);
}

double UndoFoldersBare() {
  Program& p = TheProgram();
  MakeNewFolders(p.folder);
  const std::string log = FolderLog(p.folder, false);
  BatchRows rows;
  rows.Load(std::string_view(log).substr(0, log.size() - 1));
  std::vector<std::pair<std::string, std::string>> names;
  for (std::size_t row = 1; row <= rows.Count(); ++row) {
    names.emplace_back(rows.NewPath(row), rows.OldPath(row));
  }
  return Seconds([&] {
    for (const auto& [from, to] : names) {
      syscall(SYS_renameat2, AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
    }
  });
}

constexpr int batchCount = 1000, recordCount = 1000;

void WriteLongLog(const std::string& path) {
  std::ofstream log(path, std::ios::binary);
  for (int batch = 0; batch < batchCount; ++batch) {
    log << "@----------- 01/01/26 [10:00] -----------@\r\n";
    for (int i = 0; i < recordCount; ++i) {
      log << "1\x06 /home/user/Pictures/2026/photo_" << i << ".jpg?/home/user/Pictures/2026/Trip-"
          << i << ".jpg?\x06\x05\r\n";
    }
    log << "\x07\r\n";
  }
}

const std::string& LongLog() {
  static const std::string path = [] {
    std::string made = NewFolder() + "Logfile.txt";
    WriteLongLog(made);
    return made;
  }();
  return path;
}

double LoadWithProgram() {
  Program& p = TheProgram();
  LogHistory history({p.files, p.dialogs, p.events, nullptr, {}}, LongLog());
  return Seconds([&] { history.Open(); });
}

double CountLines() {
  const std::string& path = LongLog();
  return Seconds([&] {
    const int file = open(path.c_str(), O_RDONLY);
    std::string text(std::filesystem::file_size(path), '\0');
    [[maybe_unused]] const auto got = read(file, text.data(), text.size());
    close(file);
    volatile std::ptrdiff_t lines = std::count(text.begin(), text.end(), '\n');
    static_cast<void>(lines);
  });
}

[[maybe_unused]] const bool registered = [] {
  Register({"undo-100k", UndoWithProgram, UndoBare});
  Register({"undo-folders", UndoFoldersWithProgram, UndoFoldersBare});
  Register({"log-load", LoadWithProgram, CountLines});
  return true;
}();

}  // namespace
}  // namespace tallowbrook::bench
