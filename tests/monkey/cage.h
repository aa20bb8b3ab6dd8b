// The disk as the monkey may have it: real, but only below some folders.
//
// Whatever lies elsewhere can't be listed and doesn't change; who tries is told so, and it counts
// as a fault unless a user may have asked for it. Every file of the copies bears a mark of its own,
// by which the cage tells at the end whether something was lost that nobody gave away.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"

namespace tallowbrook {

// The mark of a file: "<mark 17>".
std::string MarkText(int number);
// Those that stand in a file; none in what isn't one.
std::set<int> MarksIn(const std::string& path);

class Cage : public Files {
 public:
  // Folders with all links in their paths resolved: the user's, and those for the program alone.
  Cage(const std::string& copies, const std::vector<std::string>& others)
      : copies_(copies), others_(others) {}

  std::vector<std::string> faults;
  // How often what was done, refusals included.
  std::map<std::string, int> deeds;
  // Whether the user's last answer to a question was yes.
  std::function<bool()> saidYes;
  // Marks of files that the user had deleted or replaced.
  std::set<int> given;

  std::unique_ptr<FolderListing> ListFolder(const std::string& path, FileError* error) override;
  std::optional<FileFacts> Facts(const std::string& path) override { return disk_.Facts(path); }
  bool Exists(const std::string& path) override { return disk_.Exists(path); }
  FileError Rename(const std::string& folder, const std::string& name,
                   const std::string& newName) override;
  FileError MovePath(const std::string& path, const std::string& newPath) override;
  FileError Copy(const std::string& source, const std::string& target) override;
  FileError Delete(const std::string& path) override;
  std::unique_ptr<AppendFile> OpenForAppend(const std::string& path, std::string_view wholeEnds,
                                            FileError* error) override;
  FileError Rewrite(const std::string& path, const FileEdit& edit) override;
  std::optional<std::string> ReadWhole(const std::string& path) override {
    return disk_.ReadWhole(path);
  }
  std::unique_ptr<RandomAccessFile> Open(const std::string& path, FileAccess access,
                                         FileError* error) override;
  FileError CopyPadded(const std::string& path, std::int64_t padding, PaddedCopy& copy) override;
  std::optional<FileTimes> SetTime(const std::string& path, std::optional<FileTime> which,
                                   std::int64_t posixSeconds) override;

 private:
  enum class Links { Follow, Stay };
  static bool IsBelow(const std::string& path, const std::string& folder, Links links);
  // Whether a change may go on. One elsewhere is a fault.
  bool MayChange(const std::string& path, Links links) const;
  bool Allows(const char* deed, const std::string& path, Links links);
  FileError Done(const char* deed, FileError error);

  SystemFiles disk_;
  std::string copies_;
  std::vector<std::string> others_;
  std::string lastCopy_;
};

}  // namespace tallowbrook
