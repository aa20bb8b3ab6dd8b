// Scan, preview and rename of a large folder, through the program's own routines: those that the
// window calls, with rows, log and status panes, without drawing.
#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>

#include "bench/program.h"

namespace tallowbrook::bench {
namespace {

double ScanWithProgram() {
  Program& p = TheProgram();
  if (p.form.ListView1.Count() != fileCount) p.FillAnew();
  return Seconds([&] { p.form.scan.ScanFolder(p.folder); });
}

double ScanBare() {
  return Seconds([] {
    DIR* folder = opendir(TheProgram().folder.c_str());
    struct statx facts;
    while (const dirent* entry = readdir(folder)) {
      statx(dirfd(folder), entry->d_name, 0, STATX_BASIC_STATS | STATX_BTIME, &facts);
    }
    closedir(folder);
  });
}

double PreviewWithProgram() {
  Program& p = TheProgram();
  if (p.form.ListView1.Count() != fileCount) ScanWithProgram();
  return Seconds([&] { p.form.preview.PreviewFiles(); });
}

double FormatBare() {
  return Seconds([] {
    std::vector<std::string> names;
    char name[64];
    for (int i = 1; i <= fileCount; ++i) {
      std::snprintf(name, sizeof name, "photo_%07d-%04d.jpg", i, i);
      names.emplace_back(name);
    }
  });
}

double RenameWithProgram() {
  Program& p = TheProgram();
  p.FillAnew();
  p.form.scan.ScanFolder(p.folder);
  return Seconds([&] { p.form.run.RenameFiles(0, {}); });
}

double RenameBare() {
  Program& p = TheProgram();
  p.FillAnew();
  std::vector<std::pair<std::string, std::string>> names;
  for (int i = 1; i <= fileCount; ++i) {
    char name[64];
    std::snprintf(name, sizeof name, "photo_%07d.jpg", i);
    char renamed[64];
    std::snprintf(renamed, sizeof renamed, "photo_%07d-%04d.jpg", i, i);
    names.emplace_back(p.folder + name, p.folder + renamed);
  }
  const int log = open((p.data + "bare.txt").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
  const std::string record(80, 'r');
  const double seconds = Seconds([&] {
    for (const auto& [from, to] : names) {
      syscall(SYS_renameat2, AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
      [[maybe_unused]] const auto written = write(log, record.data(), record.size());
    }
  });
  close(log);
  return seconds;
}

[[maybe_unused]] const bool registered = [] {
  Register({"scan-100k", ScanWithProgram, ScanBare});
  Register({"preview-100k", PreviewWithProgram, FormatBare});
  Register({"rename-100k", RenameWithProgram, RenameBare});
  return true;
}();

}  // namespace
}  // namespace tallowbrook::bench
