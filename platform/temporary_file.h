// A file that is written out of sight and then moved into place as a whole.
#pragma once

#include <fcntl.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include "platform/careful_rename.h"
#include "platform/file_descriptor.h"
#include "platform/temporary_name.h"

namespace tallowbrook {

// Where the last name of a path begins; 0 without a slash.
inline std::size_t NameStart(const std::string& path) {
  return path.rfind('/') + 1;
}

// Stands beside its target, for its owner only, and goes away with its object unless it was moved
// into place.
class TemporaryFile {
 public:
  // `flags` of open(2) besides those that make a new file.
  TemporaryFile(const std::string& target, int flags)
      : name_(TemporaryName()),
        path_(target.substr(0, NameStart(target)) + name_),
        file_(open(path_.c_str(), flags | O_CREAT | O_EXCL | O_CLOEXEC, 0600)),
        mustRemove_(file_.IsOpen()) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (mustRemove_) unlink(path_.c_str());
  }

  bool IsOpen() const { return file_.IsOpen(); }
  int Number() const { return file_.Number(); }
  const std::string& Name() const { return name_; }
  // Its path; it stays there after its object's end.
  const std::string& Keep() {
    mustRemove_ = false;
    return path_;
  }
  // Each 0 or errno.
  int Close() { return file_.Close(); }
  int MoveOver(const std::string& target) {
    return Moved(rename(path_.c_str(), target.c_str()) == 0 ? 0 : errno);
  }
  int MoveToFree(const std::string& target) { return Moved(RenameWithoutReplacing(path_, target)); }

 private:
  int Moved(int error) {
    if (error == 0) mustRemove_ = false;
    return error;
  }

  std::string name_;
  std::string path_;
  FileDescriptor file_;
  bool mustRemove_;
};

}  // namespace tallowbrook
