// Files that were given out, with a look at the rules before each call.
#include "tests/support/faulty_files.h"

namespace tallowbrook {

template <typename Interface>
class FaultyFiles::Wrapped : public Interface {
 public:
  Wrapped(FaultyFiles& faults, std::string path, std::unique_ptr<Interface> real)
      : faults_(faults), path_(std::move(path)), real_(std::move(real)) {}

 protected:
  FaultyFiles& faults_;
  std::string path_;
  std::unique_ptr<Interface> real_;
};

class FaultyFiles::Listed : public Wrapped<FolderListing> {
 public:
  using Wrapped::Wrapped;
  std::size_t Size() const override { return real_->Size(); }
  std::string_view Name(std::size_t index) const override { return real_->Name(index); }
  EntryKind Kind(std::size_t index) const override { return real_->Kind(index); }
  std::optional<FileFacts> Facts(std::size_t index) const override {
    return faults_.Fails(FileCall::EntryFacts, path_) ? std::nullopt : real_->Facts(index);
  }
  void ExpectFacts(std::vector<std::size_t> entries) override {
    real_->ExpectFacts(std::move(entries));
  }
};

class FaultyFiles::OpenedForAppend : public Wrapped<AppendFile> {
 public:
  using Wrapped::Wrapped;
  FileError Write(std::string_view bytes) override {
    return faults_.Try(FileCall::Write, path_, [&] { return real_->Write(bytes); });
  }
  bool IsAlone() override { return real_->IsAlone(); }
};

class FaultyFiles::Opened : public Wrapped<RandomAccessFile> {
 public:
  using Wrapped::Wrapped;
  std::int64_t Size() const override { return real_->Size(); }
  FileError Read(std::int64_t at, std::span<char> bytes, std::size_t& got) override {
    got = 0;
    return faults_.Try(FileCall::Read, path_, [&] { return real_->Read(at, bytes, got); });
  }
  FileError Write(std::int64_t at, std::string_view bytes) override {
    return faults_.Try(FileCall::WriteAt, path_, [&] { return real_->Write(at, bytes); });
  }
};

FileError FaultyFiles::Enter(FileCall call, const std::string& path, const std::string& otherPath) {
  const int n = ++counts_[static_cast<std::size_t>(call)];
  if (++all_ == any_.first) return any_.second;
  for (const Rule& rule : rules_) {
    const bool isPath = rule.path.empty() || rule.path == path || rule.path == otherPath;
    if (rule.call == call && rule.first <= n && n <= rule.last && isPath) return rule.error;
  }
  return guard ? guard(call, path, otherPath) : FileError::None;
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
  const bool makes = access != FileAccess::Read && !files_.Exists(path);
  if (Fails(FileCall::Open, path, error) || (makes && Fails(FileCall::Make, path, error))) {
    return nullptr;
  }
  auto file = files_.Open(path, access, error);
  return file ? std::make_unique<Opened>(*this, path, std::move(file)) : nullptr;
}

}  // namespace tallowbrook
