// A file that lines are appended to, and that stays readable whatever ended a program or filled a
// disk half way through a line: the next line always begins on its own. When the file is replaced
// by a rewritten one, the lines go on there (file_handover.h).
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

#include "platform/file_bytes.h"
#include "platform/file_descriptor.h"
#include "platform/file_handover.h"
#include "platform/files.h"

namespace tallowbrook {
namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr int mostTries = 1000;

// What a line that ends in `last` lacks of its end.
std::string_view MissingEnd(char last) {
  return last == '\r' ? lineEnd.substr(1) : lineEnd;
}

// Nothing for an empty file, and for one whose end can't be read.
std::string_view MissingEndOf(int file, off_t size, std::string_view wholeEnds) {
  char last;
  if (size == 0 || pread(file, &last, 1, size - 1) != 1) return {};
  return wholeEnds.find(last) != std::string_view::npos ? std::string_view() : MissingEnd(last);
}

FileDescriptor OpenAppending(const std::string& path, int flags) {
  flags |= O_APPEND | O_CLOEXEC;
  const int file = open(path.c_str(), O_RDWR | flags, 0666);
  if (file >= 0 || errno != EACCES) return FileDescriptor(file);
  return FileDescriptor(open(path.c_str(), O_WRONLY | flags, 0666));
}

// An open file, and what was so when it was last known to stand at its path.
struct Tail {
  FileDescriptor file;
  struct stat facts;            // then: the mark of its replacement stands behind that size
  std::string_view missingEnd;  // what the last line lacks; it goes out with the next write
  std::chrono::steady_clock::time_point asked;  // when it was known to stand there
  bool isWaitedFor = true;  // until that was in vain: its replacement, where announced
};

class SystemAppendFile : public AppendFile {
 public:
  SystemAppendFile(std::string path, std::string_view wholeEnds)
      : path_(std::move(path)), wholeEnds_(wholeEnds) {}

  // Opens what stands at the path now; `flags` is O_CREAT or 0.
  FileError Open(int flags);
  FileError Write(std::string_view bytes) override;
  bool IsAlone() override;

 private:
  FileError WriteFully(std::string_view bytes);
  bool IsKnownInPlace();
  FileError Follow(const Tail& old, std::string_view bytes);

  std::string path_;
  std::string wholeEnds_;
  std::optional<Tail> tail_;
  std::optional<FileDescriptor> guard_;  // the folder, locked, of one who is alone
};

// Waits for a rewrite that is under way: what it hands over stands before what comes through here.
// Opens again what was replaced until then; a file system that never finds its own files again
// mustn't hold us for ever.
FileError SystemAppendFile::Open(int flags) {
  for (int tries = 0;; ++tries) {
    FileDescriptor file = OpenAppending(path_, flags);
    if (!file.IsOpen()) return FromErrno(errno);
    LockFile(file.Number());
    struct stat facts;
    if (fstat(file.Number(), &facts) != 0) return FromErrno(errno);
    if (!LeadsTo(path_, facts) && tries < mostTries) continue;
    const auto missingEnd = MissingEndOf(file.Number(), facts.st_size, wholeEnds_);
    const auto now = std::chrono::steady_clock::now();
    UnlockFile(file.Number());
    tail_.emplace(Tail{std::move(file), facts, missingEnd, now});
    return FileError::None;
  }
}

FileError SystemAppendFile::Write(std::string_view bytes) {
  FileError error = tail_ ? FileError::None : Open(O_CREAT);
  if (error == FileError::None) error = WriteFully(bytes);
  while (error == FileError::None && !IsKnownInPlace()) {
    const Tail old(std::move(*tail_));
    tail_.reset();
    error = Follow(old, bytes);
  }
  return error;
}

FileError SystemAppendFile::WriteFully(std::string_view bytes) {
  std::string ended(tail_->missingEnd);
  if (!ended.empty()) bytes = ended.append(bytes);
  std::size_t written = 0;
  const int error = WriteAll(tail_->file.Number(), bytes, written);
  if (written == bytes.size()) {
    tail_->missingEnd = {};
  } else if (written > 0) {
    tail_->missingEnd = MissingEnd(bytes[written - 1]);
  }
  return FromErrno(error);
}

// Told by a lock of the folder: one of the file would stay behind where the file is replaced or
// deleted, and whoever opens the new one first would find nobody there.
bool SystemAppendFile::IsAlone() {
  if (guard_) return true;
  const std::string folder = path_.substr(0, path_.rfind('/') + 1);
  FileDescriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (flock(opened.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
  guard_.emplace(std::move(opened));
  return true;
}

// Asks once in a few hundred records (file_handover.h). Where a replacement is announced and
// doesn't come, each record asks: it may come at any time, and who announced it waits for nobody
// any more.
bool SystemAppendFile::IsKnownInPlace() {
  const auto now = std::chrono::steady_clock::now();
  if (now - tail_->asked < mostUnasked) return true;
  const bool isAnnounced = IsReplacementAnnounced(tail_->file.Number());
  if (isAnnounced && tail_->isWaitedFor) {
    tail_->isWaitedFor = LockFile(tail_->file.Number());
    UnlockFile(tail_->file.Number());
  }
  if (!LeadsTo(path_, tail_->facts)) return false;
  if (!isAnnounced) tail_->asked = now;
  return true;
}

// Goes on in the file at the path. `bytes` are what this writer wrote last to the old one; they are
// written again unless they have been carried over.
FileError SystemAppendFile::Follow(const Tail& old, std::string_view bytes) {
  const int from = old.file.Number();
  // Appending leaves the descriptor behind what it wrote, whatever others append since.
  const off_t end = lseek(from, 0, SEEK_CUR);
  LockFile(from);
  const std::optional<off_t> carried = CarriedUpTo(from, old.facts.st_size);
  if (!carried) return FileError::NotFound;
  const FileError error = Open(0);
  if (error != FileError::None) MarkDropped(from);
  return error == FileError::None && end > *carried ? WriteFully(bytes) : error;
}

}  // namespace

std::unique_ptr<AppendFile> SystemFiles::OpenForAppend(const std::string& path,
                                                       std::string_view wholeEnds,
                                                       FileError* error) {
  auto file = std::make_unique<SystemAppendFile>(path, wholeEnds);
  const FileError opened = file->Open(O_CREAT);
  if (opened == FileError::None) return file;
  if (error != nullptr) *error = opened;
  return nullptr;
}

}  // namespace tallowbrook
