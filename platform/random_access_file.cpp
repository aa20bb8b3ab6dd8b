// Files that are read and written in places, as readers of tags do: one call to open, one for the
// facts, one for each read.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/file_descriptor.h"
#include "platform/files.h"

namespace tallowbrook {
namespace {

class SystemRandomAccessFile : public RandomAccessFile {
 public:
  SystemRandomAccessFile(FileDescriptor file, std::int64_t size)
      : file_(std::move(file)), size_(size) {}

  std::int64_t Size() const override { return size_; }

  FileError Read(std::int64_t at, std::span<char> bytes, std::size_t& got) override {
    got = 0;
    while (got < bytes.size()) {
      const ssize_t count = pread(file_.Number(), bytes.data() + got, bytes.size() - got,
                                  at + static_cast<off_t>(got));
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return FromErrno(errno);
      got += static_cast<std::size_t>(count);
      // Short of the end that opening found: the next read may still give something.
      if (count == 0 || at + static_cast<std::int64_t>(got) >= size_) break;
    }
    return FileError::None;
  }

  FileError Write(std::int64_t at, std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t count = pwrite(file_.Number(), bytes.data(), bytes.size(), at);
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) return FromErrno(count < 0 ? errno : EIO);
      bytes.remove_prefix(static_cast<std::size_t>(count));
      at += count;
    }
    return FileError::None;
  }

 private:
  FileDescriptor file_;
  std::int64_t size_;
};

// A pipe without a writer would hold up a blocking open for ever. A file that exists is opened
// without a word of creating, which some folders don't allow for the files of others; and a link
// that leads nowhere makes no file where it leads.
FileDescriptor OpenRegular(const std::string& path, FileAccess access) {
  const int flags =
      O_NONBLOCK | O_NOCTTY | O_CLOEXEC | (access == FileAccess::WriteOrCreate ? O_RDWR : O_RDONLY);
  const int file = open(path.c_str(), flags);
  if (file >= 0 || errno != ENOENT || access == FileAccess::Read) return FileDescriptor(file);
  const int made = open(path.c_str(), flags | O_CREAT | O_EXCL, 0666);
  // Such a link, or somebody made the file this moment.
  if (made < 0 && errno == EEXIST) return FileDescriptor(open(path.c_str(), flags));
  return FileDescriptor(made);
}

FileError CheckRegular(int file, struct stat& facts) {
  if (fstat(file, &facts) != 0) return FromErrno(errno);
  if (S_ISDIR(facts.st_mode)) return FileError::IsFolder;
  return S_ISREG(facts.st_mode) ? FileError::None : FileError::Other;
}

}  // namespace

std::unique_ptr<RandomAccessFile> SystemFiles::Open(const std::string& path, FileAccess access,
                                                    FileError* error) {
  FileDescriptor file = OpenRegular(path, access);
  struct stat facts;
  const FileError found = file.IsOpen() ? CheckRegular(file.Number(), facts) : FromErrno(errno);
  if (found == FileError::None) {
    return std::make_unique<SystemRandomAccessFile>(std::move(file), facts.st_size);
  }
  if (error != nullptr) *error = found;
  return nullptr;
}

}  // namespace tallowbrook
