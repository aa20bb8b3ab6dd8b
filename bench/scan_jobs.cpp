// Listing one large folder, and a tree of many small ones.
#include <dirent.h>
#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>

#include <cstdio>

#include "bench/program.h"

namespace tallowbrook::bench {
namespace {

// What a scan of a tree can't do without: each folder read once, and one statx a file.
void StatBelow(int parent, const char* name) {
  DIR* folder = fdopendir(openat(parent, name, O_RDONLY | O_DIRECTORY));
  const int number = dirfd(folder);
  struct statx facts;
  while (const dirent* entry = readdir(folder)) {
    if (entry->d_type == DT_REG) {
      statx(number, entry->d_name, 0, STATX_BASIC_STATS | STATX_BTIME, &facts);
    } else if (entry->d_name[0] != '.') {
      StatBelow(number, entry->d_name);
    }
  }
  closedir(folder);
}

// A folder with `files` files in each of its folders: in itself, and `wide` x `deep` below it.
struct Tree {
  const char* name;
  int files, wide, deep;
};

class ScannedTree {
 public:
  explicit ScannedTree(const Tree& tree) : tree_(tree) {
    FillFolder(folder_, tree.files);
    for (int i = 0; i < tree.wide; ++i) {
      for (int k = 0; k < tree.deep; ++k) {
        const std::string leaf = folder_ + std::to_string(i) + "/" + std::to_string(k) + "/";
        std::filesystem::create_directories(leaf);
        FillFolder(leaf, tree.files);
      }
    }
  }

  double Program() {
    tallowbrook::bench::Program& p = TheProgram();
    p.form.ListView1.Clear();
    p.form.scan.LastScanFolder = folder_;
    const double seconds = Seconds([&] { Scan(p); });
    const auto rows = static_cast<std::size_t>(tree_.files * (1 + tree_.wide * tree_.deep));
    Expect(p.form.ListView1.Count() == rows, "the list hasn't all files");
    return seconds;
  }
  double Bare() {
    return Seconds([this] { StatBelow(AT_FDCWD, folder_.c_str()); });
  }
  // Of the heap, in a program that has listed nothing before.
  void PrintBytesARow() {
    tallowbrook::bench::Program p;
    p.form.scan.LastScanFolder = folder_;
    const std::size_t before = InUse();
    Scan(p);
    std::printf("%s-bytes-a-row %zu B\n", tree_.name,
                (InUse() - before) / p.form.ListView1.Count());
  }

 private:
  static std::size_t InUse() {
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
  }
  void Scan(tallowbrook::bench::Program& p) const {
    tree_.wide ? p.form.pane.ScanSub.classic.Press() : p.form.scan.ScanFolder(folder_);
  }

  const Tree& tree_;
  const std::string folder_ = NewFolder();
};

constexpr Tree trees[] = {
    {"scan-100k", 100'000, 0, 0}, {"scan-1m", 1'000'000, 0, 0}, {"scan-tree", 20, 100, 100}};

[[maybe_unused]] const bool registered = [] {
  for (const Tree& tree : trees) {
    const auto scanned = MadeOnDemand<ScannedTree>(tree);
    Register({tree.name, [=] { return scanned().Program(); }, [=] { return scanned().Bare(); },
              [=] { scanned().PrintBytesARow(); }});
  }
  return true;
}();

}  // namespace
}  // namespace tallowbrook::bench
