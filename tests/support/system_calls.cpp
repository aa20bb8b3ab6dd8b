#include "tests/support/system_calls.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace {

// 0 for a call to pass on, else its error, which errno has too.
int Refusal(const char* name, const char* path, int file, bool needsRoom, size_t* size = nullptr) {
  namespace calls = tallowbrook::system_calls;
  const int error = calls::guard ? calls::guard({name, path, file, needsRoom, size}) : 0;
  if (error != 0) errno = error;
  return error;
}
int Refusal(const char* name, const char* path, bool needsRoom) {
  return Refusal(name, path, -1, needsRoom);
}
int Refusal(const char* name, int file, bool needsRoom) {
  return Refusal(name, nullptr, file, needsRoom);
}
int Refusal(const char* name, int file, size_t* size) {
  return Refusal(name, nullptr, file, true, size);
}

}  // namespace

// `first` is the path or the file that it is about; `room` tells whether it needs any, or where
// that stands.
#define WRAP(result, failed, name, first, room, parameters, arguments)          \
  result __real_##name parameters;                                              \
  result __wrap_##name parameters {                                             \
    return Refusal(#name, first, room) != 0 ? failed : __real_##name arguments; \
  }

// clang-format off
extern "C" {
WRAP(ssize_t, -1, write, file, &size, (int file, const void* from, size_t size), (file, from, size))
WRAP(ssize_t, -1, pwrite, file, &size, (int file, const void* from, size_t size, off_t at), (file, from, size, at))
WRAP(ssize_t, -1, copy_file_range, to, &size,
     (int from, off_t* at, int to, off_t* toAt, size_t size, unsigned flags), (from, at, to, toAt, size, flags))
WRAP(int, -1, ftruncate, file, true, (int file, off_t size), (file, size))
WRAP(int, errno, posix_fallocate, file, true, (int file, off_t at, off_t size), (file, at, size))
WRAP(int, -1, fsync, file, true, (int file), (file))
WRAP(ssize_t, -1, read, file, false, (int file, void* to, size_t size), (file, to, size))
WRAP(ssize_t, -1, pread, file, false, (int file, void* to, size_t size, off_t at), (file, to, size, at))
WRAP(int, -1, unlink, path, false, (const char* path), (path))
WRAP(int, -1, rename, from, false, (const char* from, const char* to), (from, to))
WRAP(int, -1, renameat2, from, false, (int in, const char* from, int to, const char* name, unsigned flags),
     (in, from, to, name, flags))
WRAP(int, -1, link, from, false, (const char* from, const char* to), (from, to))
WRAP(int, -1, stat, path, false, (const char* path, struct stat* facts), (path, facts))
WRAP(int, -1, lstat, path, false, (const char* path, struct stat* facts), (path, facts))
WRAP(int, -1, fstat, file, false, (int file, struct stat* facts), (file, facts))
WRAP(int, -1, statx, path, false, (int in, const char* path, int flags, unsigned mask, struct statx* facts),
     (in, path, flags, mask, facts))
WRAP(int, -1, access, path, false, (const char* path, int mode), (path, mode))
WRAP(int, -1, flock, file, false, (int file, int operation), (file, operation))
WRAP(int, -1, fchmod, file, false, (int file, mode_t mode), (file, mode))
WRAP(int, -1, fchown, file, false, (int file, uid_t owner, gid_t group), (file, owner, group))
WRAP(int, -1, futimens, file, false, (int file, const timespec times[2]), (file, times))
WRAP(char*, nullptr, realpath, path, false, (const char* path, char* to), (path, to))
WRAP(DIR*, nullptr, opendir, path, false, (const char* path), (path))
WRAP(dirent*, nullptr, readdir, dirfd(folder), false, (DIR* folder), (folder))

int __real_open(const char* path, int flags, ...);
int __wrap_open(const char* path, int flags, ...) {
  const bool makes = (flags & O_CREAT) != 0;
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = makes ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return Refusal("open", path, makes) != 0 ? -1 : __real_open(path, flags, mode);
}
}
// clang-format on
