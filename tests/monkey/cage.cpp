#include "tests/monkey/cage.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tallowbrook {

namespace fs = std::filesystem;

namespace {
constexpr std::string_view markStart = "<mark ";
}

std::string MarkText(int number) {
  return std::string(markStart) + std::to_string(number) + ">";
}

std::set<int> MarksIn(const std::string& path) {
  std::error_code ignored;
  if (!fs::is_regular_file(path, ignored)) return {};
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  std::set<int> marks;
  for (std::size_t at = 0; (at = bytes.find(markStart, at)) != std::string::npos;) {
    at += markStart.size();
    int number = 0;
    const auto end = std::from_chars(bytes.data() + at, bytes.data() + bytes.size(), number).ptr;
    if (end != bytes.data() + bytes.size() && *end == '>') marks.insert(number);
  }
  return marks;
}

// Not the folder itself.
bool Cage::IsBelow(const std::string& path, const std::string& folder, Links links) {
  if (!path.starts_with('/')) return false;
  std::error_code ignored;
  const fs::path whole(WithoutSlash(path));
  const fs::path real = links == Links::Follow
                            ? fs::weakly_canonical(whole, ignored)
                            : fs::weakly_canonical(whole.parent_path(), ignored) / whole.filename();
  return real.lexically_normal().string().starts_with(folder);
}

bool Cage::MayChange(const std::string& path, Links links) const {
  const auto isAround = [&](const std::string& folder) { return IsBelow(path, folder, links); };
  return isAround(copies_) || std::ranges::any_of(others_, isAround);
}

// Of a link among the copies that leads out a user may ask what he likes.
bool Cage::Allows(const char* deed, const std::string& path, Links links) {
  if (MayChange(path, links)) return true;
  if (MayChange(path, Links::Stay)) {
    ++deeds[std::string(deed) + " through a link (refused)"];
    return false;
  }
  faults.push_back(std::string(deed) + " outside: " + path);
  return false;
}

FileError Cage::Done(const char* deed, FileError error) {
  ++deeds[std::string(deed) + (error == FileError::None ? "" : " (failed)")];
  return error;
}

std::unique_ptr<FolderListing> Cage::ListFolder(const std::string& path, FileError* error) {
  const bool isInside = IsBelow(JoinPath(path, "any name"), copies_, Links::Follow);
  ++deeds[isInside ? "list" : "list (refused)"];
  if (isInside) return disk_.ListFolder(path, error);
  if (error != nullptr) *error = FileError::NotPermitted;
  return nullptr;
}

FileError Cage::Rename(const std::string& folder, const std::string& name,
                       const std::string& newName) {
  if (!Allows("rename", JoinPath(folder, name), Links::Stay)) return FileError::NotPermitted;
  return Done("rename", disk_.Rename(folder, name, newName));
}

FileError Cage::MovePath(const std::string& path, const std::string& newPath) {
  for (const std::string& either : {path, newPath}) {
    if (!Allows("move", either, Links::Stay)) return FileError::NotPermitted;
  }
  return Done("move", disk_.MovePath(path, newPath));
}

// The user names the target, which may lie anywhere, and knows that it replaces a file there.
FileError Cage::Copy(const std::string& source, const std::string& target) {
  if (!IsBelow(target, copies_, Links::Stay)) {
    ++deeds["copy (refused)"];
    return FileError::NotPermitted;
  }
  const std::set<int> replaced = MarksIn(target);
  const FileError error = disk_.Copy(source, target);
  if (error == FileError::None) {
    given.insert(replaced.begin(), replaced.end());
    lastCopy_ = target;
  }
  return Done("copy", error);
}

// Of the user's will, or of a file that was just copied: a move between folders, or a tag that
// grows.
FileError Cage::Delete(const std::string& path) {
  if (!Allows("delete", path, Links::Stay)) return FileError::NotPermitted;
  const std::set<int> marks = MarksIn(path);
  const bool isMoved = path != lastCopy_ && MarksIn(lastCopy_) == marks;
  if (!isMoved && !saidYes()) faults.push_back("deleted unasked: " + path);
  if (!isMoved) given.insert(marks.begin(), marks.end());
  return Done(isMoved ? "delete behind a copy" : "delete", disk_.Delete(path));
}

std::unique_ptr<AppendFile> Cage::OpenForAppend(const std::string& path, std::string_view wholeEnds,
                                                FileError* error) {
  if (!Allows("append", path, Links::Follow)) return nullptr;
  Done("open the log", FileError::None);
  return disk_.OpenForAppend(path, wholeEnds, error);
}

FileError Cage::Rewrite(const std::string& path, const FileEdit& edit) {
  if (!Allows("rewrite", path, Links::Follow)) return FileError::NotPermitted;
  return Done("rewrite", disk_.Rewrite(path, edit));
}

std::unique_ptr<RandomAccessFile> Cage::Open(const std::string& path, FileAccess access,
                                             FileError* error) {
  const bool isChange = access == FileAccess::WriteOrCreate ||
                        (access == FileAccess::ReadOrCreate && !disk_.Exists(path));
  if (isChange && !Allows("open", path, Links::Follow)) return nullptr;
  if (isChange) Done("open to write", FileError::None);
  return disk_.Open(path, access, error);
}

FileError Cage::CopyPadded(const std::string& path, std::int64_t padding, PaddedCopy& copy) {
  if (!Allows("copy", path, Links::Follow)) return FileError::NotPermitted;
  const FileError error = disk_.CopyPadded(path, padding, copy);
  if (error == FileError::None) lastCopy_ = copy.path;
  return Done("copy with room", error);
}

std::optional<FileTimes> Cage::SetTime(const std::string& path, std::optional<FileTime> which,
                                       std::int64_t posixSeconds) {
  if (!Allows("set the time", path, Links::Follow)) return std::nullopt;
  Done("set a time", FileError::None);
  return disk_.SetTime(path, which, posixSeconds);
}

}  // namespace tallowbrook
