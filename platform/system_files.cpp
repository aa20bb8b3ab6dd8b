// The short operations of the Linux file system: facts, existence, deletion, reading whole.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/file_bytes.h"
#include "platform/file_descriptor.h"
#include "platform/files.h"
#include "platform/stat_facts.h"

namespace tallowbrook {
namespace {

bool IsFolder(const std::string& path) {
  struct stat facts;
  return lstat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

}  // namespace

std::optional<FileFacts> SystemFiles::Facts(const std::string& path) {
  return StatFacts(AT_FDCWD, path.c_str());
}

bool SystemFiles::Exists(const std::string& path) {
  struct stat facts;
  return lstat(path.c_str(), &facts) == 0;
}

FileError SystemFiles::Delete(const std::string& path) {
  if (unlink(path.c_str()) == 0) return FileError::None;
  const int error = errno;
  // POSIX lets unlink call a folder a thing that is not permitted.
  return error == EPERM && IsFolder(path) ? FileError::IsFolder : FromErrno(error);
}

std::optional<std::string> SystemFiles::ReadWhole(const std::string& path) {
  const FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat facts;
  if (!file.IsOpen() || fstat(file.Number(), &facts) != 0) return std::nullopt;
  if (!S_ISREG(facts.st_mode)) return std::nullopt;
  std::string bytes;
  const auto size = static_cast<std::size_t>(facts.st_size);
  if (ReadToEnd(file.Number(), size, bytes) != 0) return std::nullopt;
  return bytes;
}

}  // namespace tallowbrook
