// Files with switches: passes every call on, counts it, and fails those that a test chose.
#pragma once

#include <array>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"

namespace tallowbrook {

// Write counts those of every AppendFile given out; Read and WriteAt those of every file opened;
// EntryFacts those of every listing; Make those of Open that make a missing file.
// clang-format off
enum class FileCall {
  List, Rename, Move, Copy, Delete, Append, Write, Rewrite, Open, Read, WriteAt, CopyPadded, SetTime, Facts,
  EntryFacts, Exists, Make, ReadWhole
};
// clang-format on

// Outlives what it gives out. A failing call never reaches the real files.
class FaultyFiles : public Files {
 public:
  explicit FaultyFiles(Files& files) : files_(files) {}

  int Count(FileCall call) const { return counts_[static_cast<std::size_t>(call)]; }
  int CountAll() const { return all_; }
  // The n-th call of that kind from 1; earlier calls count.
  void FailAt(FileCall call, int n, FileError error) { rules_.push_back({call, n, n, {}, error}); }
  // The n-th call of whatever kind from 1; earlier calls count.
  void FailAnyAt(int n, FileError error) { any_ = {n, error}; }
  // Every call on that path; of Rename, Move and Copy either path.
  void FailPath(FileCall call, const std::string& path, FileError error) {
    rules_.push_back({call, 1, std::numeric_limits<int>::max(), path, error});
  }

  // Asked before each call that no switch fails: None to pass it on, else its error.
  std::function<FileError(FileCall, const std::string& path, const std::string& otherPath)> guard;

  std::unique_ptr<FolderListing> ListFolder(const std::string& path, FileError* error) override;
  std::optional<FileFacts> Facts(const std::string& path) override {
    return Fails(FileCall::Facts, path) ? std::nullopt : files_.Facts(path);
  }
  bool Exists(const std::string& path) override {
    return !Fails(FileCall::Exists, path) && files_.Exists(path);
  }
  FileError Rename(const std::string& folder, const std::string& name,
                   const std::string& newName) override {
    const auto pass = [&] { return files_.Rename(folder, name, newName); };
    return Try(FileCall::Rename, JoinPath(folder, name), pass, JoinPath(folder, newName));
  }
  FileError MovePath(const std::string& path, const std::string& newPath) override {
    return Try(
        FileCall::Move, path, [&] { return files_.MovePath(path, newPath); }, newPath);
  }
  FileError Copy(const std::string& source, const std::string& target) override {
    return Try(
        FileCall::Copy, source, [&] { return files_.Copy(source, target); }, target);
  }
  FileError Delete(const std::string& path) override {
    return Try(FileCall::Delete, path, [&] { return files_.Delete(path); });
  }
  FileError Rewrite(const std::string& path, const FileEdit& edit) override {
    return Try(FileCall::Rewrite, path, [&] { return files_.Rewrite(path, edit); });
  }
  FileError CopyPadded(const std::string& path, std::int64_t padding, PaddedCopy& copy) override {
    return Try(FileCall::CopyPadded, path, [&] { return files_.CopyPadded(path, padding, copy); });
  }
  std::optional<std::string> ReadWhole(const std::string& path) override {
    return Fails(FileCall::ReadWhole, path) ? std::nullopt : files_.ReadWhole(path);
  }
  std::unique_ptr<AppendFile> OpenForAppend(const std::string& path, std::string_view wholeEnds,
                                            FileError* error) override;
  std::unique_ptr<RandomAccessFile> Open(const std::string& path, FileAccess access,
                                         FileError* error) override;
  std::optional<FileTimes> SetTime(const std::string& path, std::optional<FileTime> which,
                                   std::int64_t posixSeconds) override {
    if (Fails(FileCall::SetTime, path)) return std::nullopt;
    return files_.SetTime(path, which, posixSeconds);
  }

 private:
  template <typename Interface>
  class Wrapped;
  class Listed;
  class OpenedForAppend;
  class Opened;
  struct Rule {
    FileCall call;
    int first, last;
    std::string path;  // empty: any
    FileError error;
  };

  // Counts one call and gives the error that it has to fail with, None for a call to pass on.
  FileError Enter(FileCall call, const std::string& path, const std::string& otherPath = {});
  bool Fails(FileCall call, const std::string& path, FileError* error = nullptr);
  template <typename Pass>
  FileError Try(FileCall call, const std::string& path, Pass pass,
                const std::string& otherPath = {}) {
    const FileError fault = Enter(call, path, otherPath);
    return fault != FileError::None ? fault : pass();
  }

  Files& files_;
  std::array<int, static_cast<std::size_t>(FileCall::ReadWhole) + 1> counts_{};
  int all_ = 0;
  std::pair<int, FileError> any_{0, FileError::None};
  std::vector<Rule> rules_;
};

}  // namespace tallowbrook
