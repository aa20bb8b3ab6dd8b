// Files that were given out, with a look at the rules before each call.
#include "tests/support/faulty_files.h"

namespace tallowbrook {

class FaultyFiles::Listed : public FolderListing {
 public:
  Listed(FaultyFiles& faults, std::string path, std::unique_ptr<FolderListing> listing)
      : faults_(faults), path_(std::move(path)), listing_(std::move(listing)) {}
  std::size_t Size() const override { return listing_->Size(); }
  std::string_view Name(std::size_t index) const override { return listing_->Name(index); }
  EntryKind Kind(std::size_t index) const override { return listing_->Kind(index); }
  std::optional<FileFacts> Facts(std::size_t index) const override {
    if (faults_.Fails(FileCall::EntryFacts, path_)) return std::nullopt;
    return listing_->Facts(index);
  }

 private:
  FaultyFiles& faults_;
  std::string path_;
  std::unique_ptr<FolderListing> listing_;
};

class FaultyFiles::OpenedForAppend : public AppendFile {
 public:
  OpenedForAppend(FaultyFiles& faults, std::string path, std::unique_ptr<AppendFile> file)
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

class FaultyFiles::Opened : public RandomAccessFile {
 public:
  Opened(FaultyFiles& faults, std::string path, std::unique_ptr<RandomAccessFile> file)
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

FileError FaultyFiles::Enter(FileCall call, const std::string& path, const std::string& otherPath) {
  const int n = ++counts_[static_cast<std::size_t>(call)];
  if (++all_ == any_.first) return any_.second;
  for (const Rule& rule : rules_) {
    const bool isPath = rule.path.empty() || rule.path == path || rule.path == otherPath;
    if (rule.call == call && rule.first <= n && n <= rule.last && isPath) return rule.error;
  }
  return FileError::None;
}

bool FaultyFiles::Fails(FileCall call, const std::string& path, FileError* error) {
  const FileError fault = Enter(call, path);
  if (fault != FileError::None && error != nullptr) *error = fault;
  return fault != FileError::None;
}

std::unique_ptr<FolderListing> FaultyFiles::ListFolder(const std::string& path, FileError* error) {
  if (Fails(FileCall::List, path, error)) return nullptr;
  auto listing = files_.ListFolder(path, error);
  return listing ? std::make_unique<Listed>(*this, path, std::move(listing)) : nullptr;
}

std::unique_ptr<AppendFile> FaultyFiles::OpenForAppend(const std::string& path,
                                                       std::string_view wholeEnds,
                                                       FileError* error) {
  if (Fails(FileCall::Append, path, error)) return nullptr;
  auto file = files_.OpenForAppend(path, wholeEnds, error);
  return file ? std::make_unique<OpenedForAppend>(*this, path, std::move(file)) : nullptr;
}

std::unique_ptr<RandomAccessFile> FaultyFiles::Open(const std::string& path, FileAccess access,
                                                    FileError* error) {
  if (Fails(FileCall::Open, path, error)) return nullptr;
  auto file = files_.Open(path, access, error);
  return file ? std::make_unique<Opened>(*this, path, std::move(file)) : nullptr;
}

}  // namespace tallowbrook
