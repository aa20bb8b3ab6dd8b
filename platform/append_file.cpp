// A file that lines are appended to, and that stays readable whatever ended a program or filled a
// disk half way through a line: the next line always begins on its own. When the file is replaced
// by a rewritten one, the lines go on there (file_handover.h).
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <vector>

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
  off_t openedAt;               // the size then: marks of its replacement stand behind
  nlink_t links;                // replacing or deleting the file takes one away
  std::string_view missingEnd;  // what the last line lacks; it goes out with the next write
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
  bool IsInPlace();
  FileError Follow(const Tail& old);

  std::string path_;
  std::string wholeEnds_;
  std::optional<Tail> tail_;
  bool isAlone_ = false;  // and stays so where the file was replaced
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
    UnlockFile(file.Number());
    const nlink_t links = std::max<nlink_t>(facts.st_nlink, 1);
    tail_.emplace(Tail{std::move(file), facts.st_size, links, missingEnd});
    if (isAlone_) isAlone_ = IsAlone();
    return FileError::None;
  }
}

// A file that isn't in place any more stays locked until what stood in it has arrived in one that
// is: else another writer of it could overtake its own earlier lines.
FileError SystemAppendFile::Write(std::string_view bytes) {
  FileError error = tail_ ? FileError::None : Open(O_CREAT);
  if (error == FileError::None) error = WriteFully(bytes);
  std::vector<Tail> left;
  while (error == FileError::None && !IsInPlace()) {
    left.push_back(std::move(*tail_));
    tail_.reset();
    error = Follow(left.back());
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

// A lock of the first byte (F_OFD_SETLK of fcntl(2)): it goes with the open file, and those that
// guard a rewrite are of another kind.
bool SystemAppendFile::IsAlone() {
  if (!tail_) return true;
  struct flock first {};
  first.l_type = F_WRLCK;
  first.l_whence = SEEK_SET;
  first.l_len = 1;
  isAlone_ =
      fcntl(tail_->file.Number(), F_OFD_SETLK, &first) == 0 || (errno != EAGAIN && errno != EACCES);
  return isAlone_;
}

// The number of links tells of a replacement without a look at the path, also for a file that has
// another hard link, as a backup may be. Nothing else is asked for: a file whose times were asked
// for gets new ones with the next write, which would take twice as long. In the middle of a
// replacement the number has fallen while the path still leads here: so a lower one is never what
// later ones are compared with.
bool SystemAppendFile::IsInPlace() {
  struct statx now;
  const int file = tail_->file.Number();
  if (statx(file, "", AT_EMPTY_PATH, STATX_NLINK, &now) != 0) return true;
  if (now.stx_nlink == tail_->links) return true;
  tail_->links = std::max(tail_->links, nlink_t{now.stx_nlink});
  struct stat facts;
  return fstat(file, &facts) != 0 || LeadsTo(path_, facts);
}

// Goes on in the file at the path, with what nobody has carried over from the old one. That may be
// lines of other writers too, which wait for the lock to see what became of them.
FileError SystemAppendFile::Follow(const Tail& old) {
  const int from = old.file.Number();
  LockFile(from);
  const std::optional<off_t> start = PlaceBehindMark(from, old.openedAt);
  if (!start) return FileError::NotFound;
  FileError error = Open(0);
  if (error == FileError::None) {
    const auto rest = ReadRange(from, *start, AppendMark(from, Mark::Carried));
    if (!rest) error = FileError::Io;
    if (rest && !rest->empty()) error = WriteFully(*rest);
  }
  if (error != FileError::None) AppendMark(from, Mark::Dropped);
  return error;
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
