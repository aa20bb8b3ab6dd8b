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

// What a line that ends in `last` lacks of its end.
std::string_view MissingEnd(char last) {
  return last == '\r' ? lineEnd.substr(1) : lineEnd;
}

class SystemAppendFile : public AppendFile {
 public:
  // `missingEnd` is what the last line in the file lacks; it goes out with the first write.
  SystemAppendFile(FileDescriptor file, std::string_view missingEnd)
      : file_(std::move(file)), missingEnd_(missingEnd) {}

  FileError Write(std::string_view bytes) override {
    if (missingEnd_.empty()) return WriteFully(bytes);
    return WriteFully(std::string(missingEnd_).append(bytes));
  }

 private:
  FileError WriteFully(std::string_view bytes);

  FileDescriptor file_;
  std::string_view missingEnd_;
};

FileError SystemAppendFile::WriteFully(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file_.Number(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return written < 0 ? FromErrno(errno) : FileError::Io;
    const auto length = static_cast<std::size_t>(written);
    missingEnd_ = length == bytes.size() ? std::string_view() : MissingEnd(bytes[length - 1]);
    bytes.remove_prefix(length);
  }
  return FileError::None;
}

// Nothing for an empty file, and for one whose end can't be read.
std::string_view MissingEndOf(int file, std::string_view wholeEnds) {
  struct stat facts;
  char last;
  if (fstat(file, &facts) != 0 || facts.st_size == 0) return {};
  if (pread(file, &last, 1, facts.st_size - 1) != 1) return {};
  return wholeEnds.find(last) != std::string_view::npos ? std::string_view() : MissingEnd(last);
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
  if (!file.IsOpen()) {
    if (error != nullptr) *error = FromErrno(errno);
    return nullptr;
  }
  const std::string_view missingEnd = MissingEndOf(file.Number(), wholeEnds);
  return std::make_unique<SystemAppendFile>(std::move(file), missingEnd);
}

}  // namespace tallowbrook
