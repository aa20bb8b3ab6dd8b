// Copying of one file as a whole or not at all.
//
// The bytes go into a temporary file beside the target, which takes the target's place only when
// it is complete: a full disk or a failing read leaves the old target and no litter. The kernel
// copies where it can, and holes stay holes. When the bytes reach the medium is left to the
// system, as for every program that copies; a power cut soon after may cost the copy.
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "platform/file_copy.h"
#include "platform/file_descriptor.h"
#include "platform/files.h"
#include "platform/temporary_file.h"

namespace tallowbrook {
namespace {

constexpr off_t untilEnd = std::numeric_limits<off_t>::max();
constexpr off_t kernelChunk = off_t{1} << 30;
constexpr std::size_t bufferSize = std::size_t{1} << 18;
constexpr mode_t permissionBits = 0777;

int WriteFully(int to, const char* bytes, std::size_t size, off_t at) {
  while (size > 0) {
    const ssize_t written = pwrite(to, bytes, size, at);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return written < 0 ? errno : EIO;
    bytes += written;
    size -= static_cast<std::size_t>(written);
    at += written;
  }
  return 0;
}

// What the copying routines work on: two open files, how much further behind the bytes stand in the
// second, and the next place in the first.
struct CopyState {
  int from;
  int to;
  off_t shift;
  off_t at = 0;
};

// Reads and writes up to `end` or the source's end. 0 or errno.
int CopyThroughMemory(CopyState& state, off_t end) {
  std::string buffer(bufferSize, '\0');
  while (state.at < end) {
    const off_t wanted = std::min(end - state.at, static_cast<off_t>(bufferSize));
    const ssize_t got =
        pread(state.from, buffer.data(), static_cast<std::size_t>(wanted), state.at);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return got < 0 ? errno : 0;
    const int error =
        WriteFully(state.to, buffer.data(), static_cast<std::size_t>(got), state.at + state.shift);
    if (error != 0) return error;
    state.at += got;
  }
  return 0;
}

bool KernelCannotCopy(int error) {
  return error == EXDEV || error == EINVAL || error == ENOSYS || error == EOPNOTSUPP ||
         error == EBADF;
}

// Files that the kernel makes up (below /proc) copy as nothing; so the end that copy_file_range
// finds counts only when reading finds it too.
int CopyBytes(CopyState& state, off_t end) {
  while (state.at < end) {
    off_t readAt = state.at;
    off_t writeAt = state.at + state.shift;
    const auto wanted = static_cast<std::size_t>(std::min(end - state.at, kernelChunk));
    const ssize_t copied = copy_file_range(state.from, &readAt, state.to, &writeAt, wanted, 0);
    if (copied < 0 && errno == EINTR) continue;
    if (copied < 0 && !KernelCannotCopy(errno)) return errno;
    if (copied <= 0) return CopyThroughMemory(state, end);
    state.at += copied;
  }
  return 0;
}

// Goes to the next stretch of data. Its end, 0 if no data follows, untilEnd where the file system
// knows no holes.
off_t NextData(CopyState& state) {
  const off_t data = lseek(state.from, state.at, SEEK_DATA);
  if (data < 0) return errno == ENXIO ? 0 : untilEnd;
  const off_t hole = lseek(state.from, data, SEEK_HOLE);
  state.at = data;
  return hole < 0 ? untilEnd : hole;
}

// The file is our own; a refusal means that its file system keeps no such thing.
bool IsNotKept(int error) {
  return error == EPERM || error == EOPNOTSUPP || error == ENOSYS;
}

int CopyAttributes(const struct stat& source, int to) {
  const timespec times[] = {source.st_atim, source.st_mtim};
  if (int error = CopyPermissions(source, to); error != 0) return error;
  return futimens(to, times) == 0 || IsNotKept(errno) ? 0 : errno;
}

FileError CheckSource(int source, struct stat& facts) {
  if (fstat(source, &facts) != 0) return FromErrno(errno);
  if (S_ISDIR(facts.st_mode)) return FileError::IsFolder;
  return S_ISREG(facts.st_mode) ? FileError::None : FileError::Other;
}

// Only a regular file may lose its place to the copy, never a device or a folder.
FileError CheckTarget(const std::string& target, const struct stat& source) {
  struct stat facts;
  if (stat(target.c_str(), &facts) != 0) {
    return errno == ENOENT ? FileError::None : FromErrno(errno);
  }
  if (S_ISDIR(facts.st_mode)) return FileError::IsFolder;
  if (facts.st_dev == source.st_dev && facts.st_ino == source.st_ino) return FileError::SameFile;
  return S_ISREG(facts.st_mode) ? FileError::None : FileError::Other;
}

bool IsAsBefore(int file, const struct stat& before) {
  struct stat now;
  return fstat(file, &now) == 0 && IsUnchanged(now, before);
}

// Two views of one folder, as of a network mount of this very machine, give a file two identities.
// What appears beside the source when something is made beside the target tells.
bool IsSameByAnotherView(const std::string& source, const std::string& target,
                         const std::string& temporaryName) {
  if (source.substr(NameStart(source)) != target.substr(NameStart(target))) return false;
  struct stat found;
  return lstat((source.substr(0, NameStart(source)) + temporaryName).c_str(), &found) == 0;
}

}  // namespace

// All stretches of data; a hole at the end comes from setting the size. A file that says it is
// empty is read to its end nevertheless: some file systems don't know their files' sizes.
int CopyContents(int from, off_t size, int to, off_t shift) {
  CopyState state{from, to, shift};
  if (size == 0) return CopyThroughMemory(state, untilEnd);
  for (;;) {
    const off_t end = NextData(state);
    if (end == 0) break;
    if (int error = CopyBytes(state, end); error != 0) return error;
    if (state.at < end) return 0;  // the source's very end, or it was cut meanwhile
  }
  struct stat source, copy;
  if (fstat(from, &source) != 0 || fstat(to, &copy) != 0) return errno;
  const off_t wanted = source.st_size + shift;
  if (copy.st_size >= wanted) return 0;
  return ftruncate(to, wanted) == 0 ? 0 : errno;
}

bool IsUnchanged(const struct stat& now, const struct stat& before) {
  return now.st_dev == before.st_dev && now.st_ino == before.st_ino &&
         now.st_size == before.st_size && now.st_mtim.tv_sec == before.st_mtim.tv_sec &&
         now.st_mtim.tv_nsec == before.st_mtim.tv_nsec;
}

int CopyOwner(const struct stat& source, int to) {
  const gid_t sameGroup = static_cast<gid_t>(-1);
  const uid_t sameOwner = static_cast<uid_t>(-1);
  // EINVAL: an owner that this namespace or server has no number for.
  const auto isRefused = [](int error) { return IsNotKept(error) || error == EINVAL; };
  if (fchown(to, sameOwner, source.st_gid) != 0 && !isRefused(errno)) return errno;
  return fchown(to, source.st_uid, sameGroup) == 0 || isRefused(errno) ? 0 : errno;
}

int CopyPermissions(const struct stat& source, int to) {
  return fchmod(to, source.st_mode & permissionBits) == 0 || IsNotKept(errno) ? 0 : errno;
}

FileError WriteCopy(int from, const struct stat& facts, const std::string& source,
                    const std::string& target, CopyPlace place) {
  TemporaryFile copy(target, O_WRONLY);
  if (!copy.IsOpen()) return FromErrno(errno);
  if (IsSameByAnotherView(source, target, copy.Name())) return FileError::SameFile;
  int error = CopyContents(from, facts.st_size, copy.Number(), 0);
  // Somebody wrote to it meanwhile: the copy may be of neither state.
  if (error == 0 && !IsAsBefore(from, facts)) error = EBUSY;
  if (error == 0) error = CopyAttributes(facts, copy.Number());
  if (error == 0 && place == CopyPlace::FreeOnly && fsync(copy.Number()) != 0) error = errno;
  if (error == 0) error = copy.Close();
  if (error == 0) {
    error = place == CopyPlace::OverTarget ? copy.MoveOver(target) : copy.MoveToFree(target);
  }
  return FromErrno(error);
}

FileError SystemFiles::Copy(const std::string& source, const std::string& target) {
  // A pipe without a writer would hold up a blocking open for ever.
  FileDescriptor from(open(source.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!from.IsOpen()) return FromErrno(errno);
  struct stat facts;
  FileError error = CheckSource(from.Number(), facts);
  if (error == FileError::None) error = CheckTarget(target, facts);
  if (error != FileError::None) return error;
  return WriteCopy(from.Number(), facts, source, target, CopyPlace::OverTarget);
}

}  // namespace tallowbrook
