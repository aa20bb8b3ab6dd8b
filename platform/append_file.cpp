// A file that lines are appended to, and that stays readable whatever ended a program or filled a
// disk half way through a line: the next line always begins on its own.
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/file_descriptor.h"
#include "platform/files.h"

namespace tallowbrook {
namespace {

constexpr std::string_view lineEnd = "\r\n";

class SystemAppendFile : public AppendFile {
 public:
  explicit SystemAppendFile(FileDescriptor file) : file_(std::move(file)) {}

  FileError Write(std::string_view bytes) override {
    if (!lineIsCut_) return WriteFully(bytes);
    const FileError error = WriteFully(std::string(lineEnd).append(bytes));
    if (error == FileError::None) lineIsCut_ = false;
    return error;
  }

 private:
  FileError WriteFully(std::string_view bytes);

  FileDescriptor file_;
  bool lineIsCut_ = false;  // the last line in the file lacks its rest
};

FileError SystemAppendFile::WriteFully(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file_.Number(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return written < 0 ? FromErrno(errno) : FileError::Io;
    bytes.remove_prefix(static_cast<std::size_t>(written));
    lineIsCut_ = !bytes.empty();
  }
  return FileError::None;
}

// True for an empty file, and for one whose end can't be read.
bool EndsWhole(int file, std::string_view wholeEnds) {
  struct stat facts;
  char last;
  if (fstat(file, &facts) != 0 || facts.st_size == 0) return true;
  if (pread(file, &last, 1, facts.st_size - 1) != 1) return true;
  return wholeEnds.find(last) != std::string_view::npos;
}

FileDescriptor OpenAppending(const std::string& path) {
  constexpr int flags = O_APPEND | O_CREAT | O_CLOEXEC;
  const int file = open(path.c_str(), O_RDWR | flags, 0666);
  if (file >= 0 || errno != EACCES) return FileDescriptor(file);
  return FileDescriptor(open(path.c_str(), O_WRONLY | flags, 0666));
}

}  // namespace

std::unique_ptr<AppendFile> SystemFiles::OpenForAppend(const std::string& path,
                                                       std::string_view wholeEnds,
                                                       FileError* error) {
  FileDescriptor file = OpenAppending(path);
  FileError outcome = file.IsOpen() ? FileError::None : FromErrno(errno);
  if (outcome == FileError::None) {
    const bool endsWhole = EndsWhole(file.Number(), wholeEnds);
    auto opened = std::make_unique<SystemAppendFile>(std::move(file));
    if (!endsWhole) outcome = opened->Write(lineEnd);
    if (outcome == FileError::None) return opened;
  }
  if (error != nullptr) *error = outcome;
  return nullptr;
}

}  // namespace tallowbrook
