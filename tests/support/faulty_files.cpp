// The forwarding, with a look at the rules before each call.
#include "tests/support/faulty_files.h"

namespace tallowbrook {
namespace {

class FaultyAppendFile : public AppendFile {
 public:
  FaultyAppendFile(FaultyFiles& faults, std::string path, std::unique_ptr<AppendFile> file)
      : faults_(faults), path_(std::move(path)), file_(std::move(file)) {}
  FileError Write(std::string_view bytes) override {
    const FileError error = faults_.Enter(FileCall::Write, path_);
    return error != FileError::None ? error : file_->Write(bytes);
  }
  bool IsAlone() override { return file_->IsAlone(); }

 private:
  FaultyFiles& faults_;
  std::string path_;
  std::unique_ptr<AppendFile> file_;
};

class FaultyRandomAccessFile : public RandomAccessFile {
 public:
  FaultyRandomAccessFile(FaultyFiles& faults, std::string path,
                         std::unique_ptr<RandomAccessFile> file)
      : faults_(faults), path_(std::move(path)), file_(std::move(file)) {}
  std::int64_t Size() const override { return file_->Size(); }
  FileError Read(std::int64_t at, std::span<char> bytes, std::size_t& got) override {
    got = 0;
    const FileError error = faults_.Enter(FileCall::Read, path_);
    return error != FileError::None ? error : file_->Read(at, bytes, got);
  }
  FileError Write(std::int64_t at, std::string_view bytes) override {
    const FileError error = faults_.Enter(FileCall::WriteAt, path_);
    return error != FileError::None ? error : file_->Write(at, bytes);
  }

 private:
  FaultyFiles& faults_;
  std::string path_;
  std::unique_ptr<RandomAccessFile> file_;
};

}  // namespace

FileError FaultyFiles::Enter(FileCall call, const std::string& path, const std::string& otherPath) {
  const int n = ++counts_[static_cast<std::size_t>(call)];
  for (const Rule& rule : rules_) {
    const bool isPath = rule.path.empty() || rule.path == path || rule.path == otherPath;
    if (rule.call == call && rule.first <= n && n <= rule.last && isPath) return rule.error;
  }
  return FileError::None;
}

std::unique_ptr<FolderListing> FaultyFiles::ListFolder(const std::string& path, FileError* error) {
  const FileError fault = Enter(FileCall::List, path);
  if (fault == FileError::None) return files_.ListFolder(path, error);
  if (error != nullptr) *error = fault;
  return nullptr;
}

FileError FaultyFiles::Rename(const std::string& folder, const std::string& name,
                              const std::string& newName) {
  const FileError fault =
      Enter(FileCall::Rename, JoinPath(folder, name), JoinPath(folder, newName));
  return fault != FileError::None ? fault : files_.Rename(folder, name, newName);
}

FileError FaultyFiles::MovePath(const std::string& path, const std::string& newPath) {
  const FileError fault = Enter(FileCall::Move, path, newPath);
  return fault != FileError::None ? fault : files_.MovePath(path, newPath);
}

FileError FaultyFiles::Rewrite(const std::string& path, const FileEdit& edit) {
  const FileError fault = Enter(FileCall::Rewrite, path);
  return fault != FileError::None ? fault : files_.Rewrite(path, edit);
}

FileError FaultyFiles::Copy(const std::string& source, const std::string& target) {
  const FileError fault = Enter(FileCall::Copy, source, target);
  return fault != FileError::None ? fault : files_.Copy(source, target);
}

FileError FaultyFiles::Delete(const std::string& path) {
  const FileError fault = Enter(FileCall::Delete, path);
  return fault != FileError::None ? fault : files_.Delete(path);
}

std::unique_ptr<AppendFile> FaultyFiles::OpenForAppend(const std::string& path,
                                                       std::string_view wholeEnds,
                                                       FileError* error) {
  const FileError fault = Enter(FileCall::Append, path);
  if (fault == FileError::None) {
    auto file = files_.OpenForAppend(path, wholeEnds, error);
    if (file == nullptr) return nullptr;
    return std::make_unique<FaultyAppendFile>(*this, path, std::move(file));
  }
  if (error != nullptr) *error = fault;
  return nullptr;
}

std::unique_ptr<RandomAccessFile> FaultyFiles::Open(const std::string& path, FileAccess access,
                                                    FileError* error) {
  const FileError fault = Enter(FileCall::Open, path);
  if (fault == FileError::None) {
    auto file = files_.Open(path, access, error);
    if (file == nullptr) return nullptr;
    return std::make_unique<FaultyRandomAccessFile>(*this, path, std::move(file));
  }
  if (error != nullptr) *error = fault;
  return nullptr;
}

FileError FaultyFiles::CopyPadded(const std::string& path, std::int64_t padding, PaddedCopy& copy) {
  const FileError fault = Enter(FileCall::CopyPadded, path);
  return fault != FileError::None ? fault : files_.CopyPadded(path, padding, copy);
}

std::optional<FileTimes> FaultyFiles::SetTime(const std::string& path,
                                              std::optional<FileTime> which,
                                              std::int64_t posixSeconds) {
  if (Enter(FileCall::SetTime, path) != FileError::None) return std::nullopt;
  return files_.SetTime(path, which, posixSeconds);
}

}  // namespace tallowbrook
