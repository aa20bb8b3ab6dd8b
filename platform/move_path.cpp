// Moving a path to any other path, never over anything.
//
// One system call does it within a file system. Between two of them a regular file is copied out
// of sight, the copy is put into its free place, and only then the source goes: whatever fails,
// one of the two paths leads to the whole file.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/careful_rename.h"
#include "platform/file_bytes.h"
#include "platform/file_copy.h"
#include "platform/file_descriptor.h"
#include "platform/files.h"
#include "platform/temporary_file.h"

namespace tallowbrook {
namespace {

bool IsWholePath(const std::string& path) {
  return path.starts_with('/') && path.find('\0') == std::string::npos;
}

int FactsOfEntry(const std::string& path, struct stat& facts) {
  return lstat(path.c_str(), &facts) == 0 ? 0 : errno;
}

FileError ChangeCaseOfPath(const std::string& path, const std::string& newPath) {
  const std::size_t start = NameStart(path);
  if (path.compare(0, start, newPath, 0, NameStart(newPath)) != 0) return FileError::AlreadyExists;
  return FromErrno(ChangeCase(path.substr(0, start), path.substr(start), newPath.substr(start)));
}

// Deletes what these facts are of, and nothing that somebody has put or written there since. 0 or
// errno.
int DeleteUnchanged(const std::string& path, const struct stat& before) {
  struct stat now;
  if (int error = FactsOfEntry(path, now); error != 0) return error;
  if (!IsUnchanged(now, before)) return EBUSY;
  return unlink(path.c_str()) == 0 ? 0 : errno;
}

// The copy is on the medium before its source goes. Where the source is refused to go and still
// stands there, the copy goes instead; where nobody can tell what became of the source, both stay:
// the copy may be the last one.
FileError CopyAndDelete(const std::string& path, const std::string& newPath) {
  // A device put here this moment would hold up a blocking open.
  const FileDescriptor from(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat source, copy, now;
  if (!from.IsOpen() || fstat(from.Number(), &source) != 0) return FromErrno(errno);
  if (!S_ISREG(source.st_mode)) return FileError::OtherFileSystem;
  const FileError error = WriteCopy(from.Number(), source, path, newPath, CopyPlace::FreeOnly);
  if (error != FileError::None) return error;
  const bool knowsCopy = FactsOfEntry(newPath, copy) == 0;
  FlushFolderOf(newPath);
  const int refused = DeleteUnchanged(path, source);
  if (refused == 0) return FileError::None;
  const int found = FactsOfEntry(path, now);
  if (found == ENOENT) return FileError::None;
  if (found == 0 && knowsCopy) DeleteUnchanged(newPath, copy);
  return FromErrno(refused);
}

FileError MoveToOtherFileSystem(const std::string& path, const std::string& newPath) {
  struct stat source, target;
  if (int error = FactsOfEntry(path, source); error != 0) return FromErrno(error);
  // Before a long copy; putting it into place finds out for certain.
  const int found = FactsOfEntry(newPath, target);
  if (found != ENOENT) return found == 0 ? FileError::AlreadyExists : FromErrno(found);
  return S_ISREG(source.st_mode) ? CopyAndDelete(path, newPath) : FileError::OtherFileSystem;
}

}  // namespace

FileError SystemFiles::MovePath(const std::string& path, const std::string& newPath) {
  if (!IsWholePath(path) || !IsWholePath(newPath)) return FileError::InvalidName;
  if (path == newPath) {
    struct stat facts;
    return FromErrno(FactsOfEntry(path, facts));
  }
  const int error = RenameWithoutReplacing(path, newPath);
  if (error == EEXIST) return ChangeCaseOfPath(path, newPath);
  if (error == EXDEV) return MoveToOtherFileSystem(path, newPath);
  // A name that the file system doesn't take, or a place within the moved folder itself.
  if (error == EINVAL) return FileError::InvalidName;
  return FromErrno(error);
}

}  // namespace tallowbrook
