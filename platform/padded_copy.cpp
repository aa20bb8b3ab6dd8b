// A copy of a file with room at its front, made where one rename can bring it home.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "platform/file_copy.h"
#include "platform/file_descriptor.h"
#include "platform/files.h"
#include "platform/temporary_file.h"

namespace tallowbrook {
namespace {

// One device can be mounted in two places, between which no rename leads.
bool AreOfOneMount(const std::string& one, const std::string& other) {
  struct statx a, b;
  constexpr unsigned wanted = STATX_TYPE | STATX_MNT_ID;
  if (statx(AT_FDCWD, one.c_str(), 0, wanted, &a) != 0) return false;
  if (statx(AT_FDCWD, other.c_str(), 0, wanted, &b) != 0) return false;
  return (a.stx_mask & b.stx_mask & STATX_MNT_ID) != 0 && a.stx_mnt_id == b.stx_mnt_id &&
         a.stx_dev_major == b.stx_dev_major && a.stx_dev_minor == b.stx_dev_minor;
}

// With "/" at its end.
std::string FolderForCopy(const std::string& original) {
  const char* named = std::getenv("TMPDIR");
  const std::string temporary = WithSlash(named != nullptr && named[0] == '/' ? named : "/tmp");
  std::string own = original.substr(0, NameStart(original));
  const bool fits = AreOfOneMount(temporary, own) && access(temporary.c_str(), W_OK | X_OK) == 0;
  return fits ? temporary : own;
}

// What is soon to be written over gets its room here, where a full disk harms nothing; the rest of
// a large padding stays a hole.
int WritePadding(int to, off_t padding) {
  constexpr off_t mostWrittenOver = 65536;
  if (ftruncate(to, padding) != 0) return errno;
  return padding > 0 ? posix_fallocate(to, 0, std::min(padding, mostWrittenOver)) : 0;
}

// Only now may others read it, as far as they might read the original: where the group can't be the
// same, no group may. A change of owner takes permissions away, and so comes first.
int CopyAccess(const struct stat& original, int to) {
  if (int error = CopyOwner(original, to); error != 0) return error;
  struct stat copy;
  if (fstat(to, &copy) != 0) return errno;
  struct stat allowed = original;
  if (copy.st_gid != original.st_gid) allowed.st_mode &= ~static_cast<mode_t>(S_IRWXG);
  return CopyPermissions(allowed, to);
}

int WritePadded(int from, const struct stat& facts, int to, off_t padding) {
  if (int error = WritePadding(to, padding); error != 0) return error;
  if (int error = CopyContents(from, facts.st_size, to, padding); error != 0) return error;
  if (fsync(to) != 0) return errno;
  if (int error = CopyAccess(facts, to); error != 0) return error;
  if (fsync(to) != 0) return errno;
  // Last of all, since flushing takes its time.
  struct stat now;
  return fstat(from, &now) == 0 && IsUnchanged(now, facts) ? 0 : EBUSY;
}

}  // namespace

FileError SystemFiles::CopyPadded(const std::string& path, std::int64_t padding, PaddedCopy& copy) {
  std::error_code unresolved;
  copy.original = std::filesystem::canonical(path, unresolved).string();
  if (unresolved) return FromErrno(unresolved.value());
  const FileDescriptor from(open(copy.original.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat facts;
  if (!from.IsOpen() || fstat(from.Number(), &facts) != 0) return FromErrno(errno);
  if (!S_ISREG(facts.st_mode)) return FileError::Other;
  TemporaryFile file(FolderForCopy(copy.original), O_WRONLY);
  if (!file.IsOpen()) return FromErrno(errno);
  int error = WritePadded(from.Number(), facts, file.Number(), padding);
  if (error == 0) error = file.Close();
  if (error == 0) copy.path = file.Keep();
  return FromErrno(error);
}

}  // namespace tallowbrook
