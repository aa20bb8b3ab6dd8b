// Replacing a file by an edited one while others go on appending to it (file_handover.h).
//
// The new file is written out of sight, flushed, and renamed over the old one. It is locked before
// anybody can see it, so that the next rewriter waits until it also has what others appended to the
// old one meanwhile.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>

#include "platform/file_bytes.h"
#include "platform/file_copy.h"
#include "platform/file_descriptor.h"
#include "platform/file_handover.h"
#include "platform/files.h"
#include "platform/temporary_file.h"

namespace tallowbrook {
namespace {

// A file locked against other rewriters, and its path without links, for a link to stay one.
struct LockedFile {
  FileDescriptor file;
  std::string path;
  struct stat facts;
};

std::string WithoutLinks(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> found(realpath(path.c_str(), nullptr),
                                                          &std::free);
  return found ? found.get() : "";
}

// 0 or errno; ESTALE if the file doesn't stand at the path any more once it is locked.
int OpenLocked(const std::string& path, std::optional<LockedFile>& opened) {
  // Not waiting, in case a pipe stands there.
  constexpr int flags = O_RDWR | O_APPEND | O_CREAT | O_NONBLOCK | O_CLOEXEC;
  FileDescriptor file(open(path.c_str(), flags, 0666));
  if (!file.IsOpen()) return errno;
  if (!LockFile(file.Number())) return EBUSY;
  struct stat facts;
  if (fstat(file.Number(), &facts) != 0) return errno;
  if (!S_ISREG(facts.st_mode)) return EINVAL;
  std::string place = WithoutLinks(path);
  if (!LeadsTo(place, facts)) return ESTALE;
  opened.emplace(LockedFile{std::move(file), std::move(place), facts});
  return 0;
}

// Owner and group as far as we may give them away; before the permissions, since a change of owner
// takes some of them. 0 or errno.
int TakeOver(const struct stat& old, int fresh) {
  constexpr auto sameOwner = static_cast<uid_t>(-1);
  [[maybe_unused]] const bool isKept =
      fchown(fresh, old.st_uid, old.st_gid) == 0 || fchown(fresh, sameOwner, old.st_gid) == 0;
  return CopyPermissions(old, fresh);
}

int WriteFresh(const LockedFile& old, std::string_view text, int fresh) {
  std::size_t written = 0;
  int error = WriteAll(fresh, text, written);
  if (error == 0) error = TakeOver(old.facts, fresh);
  if (error == 0 && fsync(fresh) != 0) error = errno;
  return error;
}

// Copies what writers have appended to the old file behind `from`, which moves on. 0 or errno.
int CatchUp(int old, off_t& from, off_t end, int fresh) {
  const std::optional<std::string> rest = ReadRange(old, from, end);
  if (!rest) return EIO;
  std::size_t written = 0;
  const int error = WriteAll(fresh, *rest, written);
  from += static_cast<off_t>(written);
  return error;
}

// The new file stands in place by now, so that nothing here is a failure of the rewrite: what can't
// be carried over, its writers find behind the mark.
void HandOver(int old, off_t from, int fresh) {
  CatchUp(old, from, lseek(old, 0, SEEK_END), fresh);
  MarkCarried(old, from);
}

// 0 or errno; ESTALE if somebody else replaced or deleted the file meanwhile.
int Replace(const LockedFile& old, const FileEdit& edit) {
  std::string bytes;
  const auto size = static_cast<std::size_t>(old.facts.st_size);
  if (int error = ReadToEnd(old.file.Number(), size, bytes); error != 0) return error;
  const std::string text = edit(bytes);
  TemporaryFile fresh(old.path, O_WRONLY | O_APPEND);
  if (!fresh.IsOpen()) return errno;
  LockFile(fresh.Number());
  off_t carried = static_cast<off_t>(bytes.size());
  int error = WriteFresh(old, text, fresh.Number());
  bool isAnnounced = false;
  // All that its writers take for written comes along here, also if we are killed behind the
  // rename.
  if (error == 0) {
    isAnnounced = AnnounceReplacement(old.file.Number());
    WaitForUnasked();
    const off_t end = lseek(old.file.Number(), 0, SEEK_END);
    error = CatchUp(old.file.Number(), carried, end, fresh.Number());
  }
  if (error == 0 && !LeadsTo(old.path, old.facts)) error = ESTALE;
  if (error == 0) error = fresh.MoveOver(old.path);
  if (error == 0 && !isAnnounced) WaitForUnasked();
  if (error == 0) HandOver(old.file.Number(), carried, fresh.Number());
  return error;
}

int RewriteOnce(const std::string& path, const FileEdit& edit) {
  std::string place;
  {
    std::optional<LockedFile> old;
    int error = OpenLocked(path, old);
    if (error == 0) error = Replace(*old, edit);
    if (error != 0) return error;
    place = old->path;
  }
  // Writers needn't wait for this.
  FlushFolderOf(place);
  return 0;
}

}  // namespace

FileError SystemFiles::Rewrite(const std::string& path, const FileEdit& edit) {
  // Each time but the last somebody else was faster; a file system that never finds its files
  // again mustn't hold us for ever.
  int error = ESTALE;
  for (int tries = 0; error == ESTALE && tries < 1000; ++tries) error = RewriteOnce(path, edit);
  return FromErrno(error);
}

}  // namespace tallowbrook
