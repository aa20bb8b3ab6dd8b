// The times of a file: read, and one of them set.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/file_descriptor.h"
#include "platform/files.h"

namespace tallowbrook {
namespace {

// A folder can't be opened for writing; whether it could be written in is asked instead.
FileDescriptor OpenForTimes(const std::string& path) {
  constexpr int flags = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  const int file = open(path.c_str(), O_RDWR | flags);
  if (file >= 0 || errno != EISDIR) return FileDescriptor(file);
  if (faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) return FileDescriptor(-1);
  return FileDescriptor(open(path.c_str(), O_RDONLY | O_DIRECTORY | flags));
}

}  // namespace

std::optional<FileTimes> SystemFiles::SetTime(const std::string& path,
                                              std::optional<FileTime> which,
                                              std::int64_t posixSeconds) {
  constexpr unsigned wanted = STATX_ATIME | STATX_MTIME | STATX_BTIME;
  const FileDescriptor file = OpenForTimes(path);
  struct statx found;
  if (!file.IsOpen() || statx(file.Number(), "", AT_EMPTY_PATH, wanted, &found) != 0) {
    return std::nullopt;
  }
  FileTimes before{found.stx_btime.tv_sec, found.stx_mtime.tv_sec, found.stx_atime.tv_sec};
  if ((found.stx_mask & STATX_BTIME) == 0 || before.created == 0) before.created = before.modified;
  if (which == FileTime::Modified || which == FileTime::Accessed) {
    const timespec changed{.tv_sec = posixSeconds, .tv_nsec = 0};
    const timespec kept{.tv_sec = 0, .tv_nsec = UTIME_OMIT};
    const bool isModified = which == FileTime::Modified;
    const timespec times[] = {isModified ? kept : changed, isModified ? changed : kept};
    futimens(file.Number(), times);
  }
  return before;
}

}  // namespace tallowbrook
