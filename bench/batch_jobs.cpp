// Runs over many files: renamed where they are, and moved to another file system.
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/sendfile.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "bench/program.h"

namespace tallowbrook::bench {
namespace {

std::string OldName(int number) {
  char name[64];
  std::snprintf(name, sizeof name, "photo_%07d.jpg", number);
  return name;
}

std::string NewName(int number) {
  char name[64];
  std::snprintf(name, sizeof name, "photo_%07d-%04d.jpg", number, number);
  return name;
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
    names.emplace_back(p.folder + OldName(i), p.folder + NewName(i));
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

// From the tmpfs to where temporary files lie, which is mostly a disk.
class Move {
 public:
  double WithProgram() {
    Fill();
    Program& p = TheProgram();
    p.form.scan.ScanFolder(from_);
    const auto set = [&](const char* name, const std::string& value) {
      p.form.screen.Find(name)->SetValueText(value);
    };
    set("Txt_MoveTo", to_);
    set("TransferMethod", "1");
    set("Check_MoveEnable", "1");
    const double seconds = Seconds([&] { p.form.run.RenameFiles(0, {}); });
    set("Check_MoveEnable", "0");
    Expect(std::filesystem::file_size(to_ + NewName(moveCount)) == moveSize, "nothing was moved");
    return seconds;
  }

  double Bare() {
    Fill();
    return Seconds([this] {
      for (int i = 1; i <= moveCount; ++i) {
        const std::string source = from_ + OldName(i);
        const int from = open(source.c_str(), O_RDONLY);
        const int to = open((to_ + NewName(i)).c_str(), O_WRONLY | O_CREAT | O_EXCL, 0666);
        // The kernel's own copy between files refuses two kinds of file systems.
        if (copy_file_range(from, nullptr, to, nullptr, moveSize, 0) < 0) {
          [[maybe_unused]] const auto sent = sendfile(to, from, nullptr, moveSize);
        }
        close(to);
        close(from);
        unlink(source.c_str());
      }
    });
  }

 private:
  static constexpr int moveCount = 5000;
  static constexpr std::size_t moveSize = 100 << 10;

  void Fill() {
    EmptyFolder(from_);
    EmptyFolder(to_);
    sync();
    const std::string bytes(moveSize, 'x');
    for (int i = 1; i <= moveCount; ++i) {
      std::ofstream(from_ + OldName(i), std::ios::binary) << bytes;
    }
  }

  const std::string from_ = NewFolder();
  const std::string to_ = NewFolderIn(std::filesystem::temp_directory_path());
};

Move& TheMove() {
  static Move move;
  return move;
}

[[maybe_unused]] const bool registered = [] {
  Register({"rename-100k", RenameWithProgram, RenameBare});
  Register({"move-5k", [] { return TheMove().WithProgram(); }, [] { return TheMove().Bare(); }});
  return true;
}();

}  // namespace
}  // namespace tallowbrook::bench
