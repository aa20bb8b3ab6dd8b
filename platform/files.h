// What we need of the file system: listing, facts, rename, copy, delete, appending, bytes, times.
//
// Files is the one way to the disk. The program hands out SystemFiles; a test may wrap it in a
// forwarding Files that fails a chosen call. Paths are bytes, "/" separates, a folder's path ends
// in "/" wherever it is called `folder`. No routine throws for anything the disk does.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_error.h"

namespace tallowbrook {

enum class EntryKind : std::uint8_t {
  File,  // a regular file or a link to one
  Folder,
  FolderLink,  // a symbolic link to a folder
  Other,       // sockets, devices, links to nothing
};

// Times are POSIX seconds.
struct FileFacts {
  EntryKind kind = EntryKind::Other;
  std::int64_t size = 0;
  std::int64_t modified = 0;
  std::int64_t created = 0;  // the birth time; the modification time where there is none
};

// One open folder and its entries, read once, by name ignoring case (equal ones by bytes).
// "." and ".." are not among them, nor are hidden entries: names with a leading dot.
class FolderListing {
 public:
  virtual ~FolderListing() = default;
  virtual std::size_t Size() const = 0;
  // Valid as long as the listing. The name is followed by a NUL byte.
  virtual std::string_view Name(std::size_t index) const = 0;
  virtual EntryKind Kind(std::size_t index) const = 0;
  // One statx, relative to the open folder, of what the entry leads to. Nothing if it has gone.
  virtual std::optional<FileFacts> Facts(std::size_t index) const = 0;
  // Tells that the facts of these entries will be asked for, in this order; from now on some may
  // be asked of the disk ahead of that.
  virtual void ExpectFacts(std::vector<std::size_t> /*entries*/) {}
};

// A file that is only ever appended to, each Write one write(2), and two quick questions whether
// the file is being replaced or was.
class AppendFile {
 public:
  virtual ~AppendFile() = default;
  // Where the file has been rewritten meanwhile, in whatever process, the bytes go into the new
  // one. Where it is gone, something else stands in its place, or whoever rewrote it was killed
  // over it: NotFound, nothing is known to be written, and the next Write opens or begins the file
  // at the path. That is asked every two milliseconds at most: what is written in between, after
  // somebody deleted the file, goes with it.
  virtual FileError Write(std::string_view bytes) = 0;
  // Whether nobody else, in this program or another, who appends to a file of this folder was told
  // so before. True where that can't be known.
  virtual bool IsAlone() = 0;
};

// What Open does with a file that is missing, and what the open file may be asked for.
enum class FileAccess {
  Read,
  ReadOrCreate,   // a missing file is made, empty; one that exists may be read-only
  WriteOrCreate,  // read and written; a missing file is made, empty
};

// An open regular file, read and written at any place. It is closed with its object.
class RandomAccessFile {
 public:
  virtual ~RandomAccessFile() = default;
  // In bytes, at the time of opening.
  virtual std::int64_t Size() const = 0;
  // Fills `bytes` from a place on; `got` tells how many there were before the file's end.
  virtual FileError Read(std::int64_t at, std::span<char> bytes, std::size_t& got) = 0;
  // Writes at a place, growing the file where it ends before.
  virtual FileError Write(std::int64_t at, std::string_view bytes) = 0;
};

enum class FileTime { Created, Modified, Accessed };

// All three in POSIX seconds; creation as in FileFacts.
struct FileTimes {
  std::int64_t created = 0;
  std::int64_t modified = 0;
  std::int64_t accessed = 0;
};

// A copy that is to take its original's place.
struct PaddedCopy {
  std::string path;
  // Where it belongs: the original's path, links followed.
  std::string original;
};

using FileEdit = std::function<std::string(std::string_view bytes)>;

class Files {
 public:
  virtual ~Files() = default;

  // Null, and *error set if given, if the folder can't be opened and read.
  virtual std::unique_ptr<FolderListing> ListFolder(const std::string& path,
                                                    FileError* error = nullptr) = 0;
  // Of what the path leads to, links followed.
  virtual std::optional<FileFacts> Facts(const std::string& path) = 0;
  // True if anything stands at the path, a dangling link included.
  virtual bool Exists(const std::string& path) = 0;

  // Renames within one folder and never replaces. A link is renamed itself. InvalidName for a
  // name that IsValidName refuses. To its own name: None if it is there. A change of case only
  // works on a file system that ignores case; a second hard link is a collision.
  virtual FileError Rename(const std::string& folder, const std::string& name,
                           const std::string& newName) = 0;
  // Renames a path to a path, in whatever folders, and never replaces. A path to itself: None if
  // anything stands there. Between file systems a regular file is copied, as by Copy but over
  // nothing, and then deleted; anything else is OtherFileSystem. A name may be any that the file
  // system takes; InvalidName for a path that doesn't begin at the root or holds a NUL.
  virtual FileError MovePath(const std::string& path, const std::string& newPath) = 0;
  // Copies a file's bytes, permissions and modification time; a target is replaced as a whole or
  // not at all. SameFile if both paths lead to one file, IsFolder for a folder.
  virtual FileError Copy(const std::string& source, const std::string& target) = 0;
  // Files and links, for good; IsFolder for a folder.
  virtual FileError Delete(const std::string& path) = 0;

  // Creates the file if it is missing. Null, and *error set if given, on failure. A last line
  // that a killed program left without its end gets one with the first write, so that what is
  // written stands on a line of its own; a file that ends in one of `wholeEnds` needs none. Waits
  // for a rewrite that is under way.
  virtual std::unique_ptr<AppendFile> OpenForAppend(const std::string& path,
                                                    std::string_view wholeEnds,
                                                    FileError* error = nullptr) = 0;
  // Replaces a file by what `edit` makes of its bytes: as a whole or not at all, flushed to the
  // medium, permissions kept. What other programs append meanwhile through OpenForAppend is kept
  // behind it, and two rewrites wait for each other. A missing file counts as an empty one, and is
  // one if this fails. The bytes may end within a text that is just being appended: its rest will
  // stand right behind what `edit` returns. `edit` is asked again if the file was replaced or
  // deleted while it worked; it mustn't open or rewrite the file itself. What it throws passes;
  // nothing has happened then.
  virtual FileError Rewrite(const std::string& path, const FileEdit& edit) = 0;
  // The whole file. Nothing if it can't be read.
  virtual std::optional<std::string> ReadWhole(const std::string& path) = 0;

  // Null, and *error set if given, for what isn't a regular file or can't be opened.
  virtual std::unique_ptr<RandomAccessFile> Open(const std::string& path, FileAccess access,
                                                 FileError* error = nullptr) = 0;
  // Makes a hidden file of `padding` zero bytes and the file's bytes behind them, with the
  // file's permissions and, where allowed, its owner, flushed to the medium. It lies where one
  // rename brings it to the original's path: in the folder for temporary files if that is of the
  // same mount, otherwise beside the original. On an error nothing is left of it.
  virtual FileError CopyPadded(const std::string& path, std::int64_t padding, PaddedCopy& copy) = 0;
  // The times that a file or folder had, links followed; `which`, if any, is then set to a full
  // second, and the others keep their nanoseconds. The time of creation can't be set: that changes
  // nothing, as a refusal by the system does. Nothing if it can't be opened for writing.
  virtual std::optional<FileTimes> SetTime(const std::string& path, std::optional<FileTime> which,
                                           std::int64_t posixSeconds) = 0;
};

// 1 to 255 bytes, not "." nor "..", no "/", no "?", no control character.
bool IsValidName(std::string_view name);

// True for a leading dot.
bool IsHiddenName(std::string_view name);

// Wildcards of a file name filter: "*" any run of characters, "?" one character, case ignored
// beyond ASCII too. A name without a dot has an empty extension: "*.*" matches every name,
// "readme.*" matches "readme", and "*." only names without a dot.
bool MatchesPattern(std::string_view name, std::string_view pattern);

// The path of `name` in `folder`, with one "/" between.
std::string JoinPath(std::string_view folder, std::string_view name);
// The path with a "/" at its end; an empty path stays empty.
std::string WithSlash(std::string_view path);
// The path without slashes at its end; the root stays.
std::string WithoutSlash(std::string_view path);

// The Linux file system.
class SystemFiles : public Files {
 public:
  std::unique_ptr<FolderListing> ListFolder(const std::string& path, FileError* error) override;
  std::optional<FileFacts> Facts(const std::string& path) override;
  bool Exists(const std::string& path) override;
  FileError Rename(const std::string& folder, const std::string& name,
                   const std::string& newName) override;
  FileError MovePath(const std::string& path, const std::string& newPath) override;
  FileError Copy(const std::string& source, const std::string& target) override;
  FileError Delete(const std::string& path) override;
  std::unique_ptr<AppendFile> OpenForAppend(const std::string& path, std::string_view wholeEnds,
                                            FileError* error) override;
  FileError Rewrite(const std::string& path, const FileEdit& edit) override;
  std::optional<std::string> ReadWhole(const std::string& path) override;
  std::unique_ptr<RandomAccessFile> Open(const std::string& path, FileAccess access,
                                         FileError* error) override;
  FileError CopyPadded(const std::string& path, std::int64_t padding, PaddedCopy& copy) override;
  std::optional<FileTimes> SetTime(const std::string& path, std::optional<FileTime> which,
                                   std::int64_t posixSeconds) override;
};

}  // namespace tallowbrook
