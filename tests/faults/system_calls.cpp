#include "tests/faults/system_calls.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace tallowbrook::system_calls {
namespace {

struct Watched {
  bool isOn = false;
  int calls = 0;
  int n = 0;
  Ending ending = Ending::Refused;
  int error = 0;
};
Watched watched;

// 0 for a call to pass on, else its error, which errno has too.
int Refusal(bool needsRoom) {
  Watched& w = watched;
  if (!w.isOn) return 0;
  const bool isMeant = ++w.calls == w.n;
  if (isMeant && w.ending == Ending::Killed) raise(SIGKILL);
  const bool isFull = w.ending == Ending::OutOfSpaceFromNow && w.n > 0 && w.calls >= w.n;
  const bool isRefused = w.ending == Ending::Refused ? isMeant : isFull && needsRoom;
  if (isRefused) errno = w.error;
  return isRefused ? w.error : 0;
}

}  // namespace

void Watch(int n, Ending ending, int error) {
  watched = {true, 0, n, ending, error};
}

int Counted() {
  watched.isOn = false;
  return watched.calls;
}

}  // namespace tallowbrook::system_calls

using tallowbrook::system_calls::Refusal;

#define WRAP(result, failed, needsRoom, name, parameters, arguments)   \
  result __real_##name parameters;                                     \
  result __wrap_##name parameters {                                    \
    return Refusal(needsRoom) != 0 ? failed : __real_##name arguments; \
  }

// clang-format off
extern "C" {
WRAP(ssize_t, -1, true, write, (int file, const void* from, size_t size), (file, from, size))
WRAP(ssize_t, -1, true, pwrite, (int file, const void* from, size_t size, off_t at), (file, from, size, at))
WRAP(ssize_t, -1, true, copy_file_range, (int from, off_t* at, int to, off_t* toAt, size_t size, unsigned flags),
     (from, at, to, toAt, size, flags))
WRAP(int, -1, true, ftruncate, (int file, off_t size), (file, size))
WRAP(int, errno, true, posix_fallocate, (int file, off_t at, off_t size), (file, at, size))
WRAP(int, -1, true, fsync, (int file), (file))
WRAP(ssize_t, -1, false, read, (int file, void* to, size_t size), (file, to, size))
WRAP(ssize_t, -1, false, pread, (int file, void* to, size_t size, off_t at), (file, to, size, at))
WRAP(int, -1, false, unlink, (const char* path), (path))
WRAP(int, -1, false, rename, (const char* from, const char* to), (from, to))
WRAP(int, -1, false, renameat2, (int in, const char* from, int to, const char* name, unsigned flags),
     (in, from, to, name, flags))
WRAP(int, -1, false, link, (const char* from, const char* to), (from, to))
WRAP(int, -1, false, stat, (const char* path, struct stat* facts), (path, facts))
WRAP(int, -1, false, lstat, (const char* path, struct stat* facts), (path, facts))
WRAP(int, -1, false, fstat, (int file, struct stat* facts), (file, facts))
WRAP(int, -1, false, statx, (int in, const char* path, int flags, unsigned mask, struct statx* facts),
     (in, path, flags, mask, facts))
WRAP(int, -1, false, access, (const char* path, int mode), (path, mode))
WRAP(int, -1, false, fchmod, (int file, mode_t mode), (file, mode))
WRAP(int, -1, false, fchown, (int file, uid_t owner, gid_t group), (file, owner, group))
WRAP(int, -1, false, futimens, (int file, const timespec times[2]), (file, times))
WRAP(char*, nullptr, false, realpath, (const char* path, char* to), (path, to))
WRAP(DIR*, nullptr, false, opendir, (const char* path), (path))
WRAP(dirent*, nullptr, false, readdir, (DIR* folder), (folder))

int __real_open(const char* path, int flags, ...);
int __wrap_open(const char* path, int flags, ...) {
  const bool makes = (flags & O_CREAT) != 0;
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = makes ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return Refusal(makes) != 0 ? -1 : __real_open(path, flags, mode);
}
}
// clang-format on
