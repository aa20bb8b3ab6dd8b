// Renaming within a folder, never over anything.
//
// The system is asked to rename without replacing, in one call that can't lose a race. All else
// here serves the two cases in which that call alone can't tell: file systems that lack it, and
// file systems on which a name and its other case are one entry.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "base/letter_case.h"
#include "platform/careful_rename.h"
#include "platform/files.h"
#include "platform/temporary_name.h"

namespace tallowbrook {
namespace {

// A second name that replaces nothing, and then the first one's end: no race can lose a file. Where
// there are no links, as for folders, it looks and then renames: whoever creates the target between
// the two calls loses it.
int RenameInTwoSteps(const char* from, const char* to) {
  if (link(from, to) == 0) {
    if (unlink(from) == 0) return 0;
    const int error = errno;
    unlink(to);
    return error;
  }
  if (errno == EEXIST || errno == ENOENT || errno == EXDEV) return errno;
  struct stat found;
  if (lstat(to, &found) == 0) return EEXIST;
  if (errno != ENOENT) return errno;
  return rename(from, to) == 0 ? 0 : errno;
}

bool IsSameEntry(const std::string& a, const std::string& b) {
  struct stat factsOfA, factsOfB;
  if (lstat(a.c_str(), &factsOfA) != 0 || lstat(b.c_str(), &factsOfB) != 0) return false;
  return factsOfA.st_dev == factsOfB.st_dev && factsOfA.st_ino == factsOfB.st_ino;
}

// True as well if the folder can't be read: then nobody knows.
bool MayHoldEntry(const std::string& folder, const std::string& name) {
  DIR* stream = opendir(folder.empty() ? "." : folder.c_str());
  if (stream == nullptr) return true;
  errno = 0;
  const dirent* entry;
  while ((entry = readdir(stream)) != nullptr && entry->d_name != name) errno = 0;
  const bool mayHold = entry != nullptr || errno != 0;
  closedir(stream);
  return mayHold;
}

// Two names of one inode are mostly hard links. Only where the folder has no entry of the second
// name, though it is found, does the file system ignore case.
bool IsOtherCaseOfOneEntry(const std::string& folder, const std::string& name,
                           const std::string& newName) {
  return EqualIgnoringCase(name, newName) &&
         IsSameEntry(JoinPath(folder, name), JoinPath(folder, newName)) &&
         !MayHoldEntry(folder, newName);
}

int RenameThroughTemporary(const std::string& folder, const std::string& from,
                           const std::string& to) {
  const std::string between = JoinPath(folder, TemporaryName());
  if (int error = RenameWithoutReplacing(from, between); error != 0) return error;
  const int error = RenameWithoutReplacing(between, to);
  if (error != 0) RenameWithoutReplacing(between, from);
  return error;
}

// A name of one entry: a path that leads further would move a file between folders, and what
// stands behind a NUL would never reach the system.
bool IsOneEntry(const std::string& name) {
  return !name.empty() && name.find('/') == std::string::npos &&
         name.find('\0') == std::string::npos;
}

// A run asks for the same two paths again and again: their memory is kept.
const std::string& PathIn(std::string& kept, const std::string& folder, const std::string& name) {
  kept.assign(folder);
  if (!kept.empty() && kept.back() != '/') kept += '/';
  return kept.append(name);
}

FileError RenameError(int number) {
  // Here, what the file system finds invalid can only be the name.
  return number == EINVAL ? FileError::InvalidName : FromErrno(number);
}

}  // namespace

int RenameWithoutReplacing(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  const bool isUnknown = errno == EINVAL || errno == ENOSYS;
  return isUnknown ? RenameInTwoSteps(from.c_str(), to.c_str()) : errno;
}

int ChangeCase(const std::string& folder, const std::string& name, const std::string& newName) {
  return IsOtherCaseOfOneEntry(folder, name, newName)
             ? RenameThroughTemporary(folder, JoinPath(folder, name), JoinPath(folder, newName))
             : EEXIST;
}

FileError SystemFiles::Rename(const std::string& folder, const std::string& name,
                              const std::string& newName) {
  // An old name may be one that no file gets here any more; it may stay as it is.
  if (!IsOneEntry(name) || (name != newName && !IsValidName(newName)))
    return FileError::InvalidName;
  thread_local std::string from, to;
  int error = RenameWithoutReplacing(PathIn(from, folder, name), PathIn(to, folder, newName));
  if (error == EEXIST && name == newName) return FileError::None;
  if (error == EEXIST) error = ChangeCase(folder, name, newName);
  return RenameError(error);
}

}  // namespace tallowbrook
