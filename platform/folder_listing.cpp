// Reading of one folder: a single pass over its entries, names in one arena.
//
// The folder stays open, so that facts of an entry are asked relative to it, without a walk down
// the path, and even after the folder itself was renamed.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/facts_ahead.h"
#include "platform/files.h"
#include "platform/name_order.h"
#include "platform/stat_facts.h"

namespace tallowbrook {
namespace {

struct CloseStream {
  void operator()(DIR* stream) const { closedir(stream); }
};
using FolderStream = std::unique_ptr<DIR, CloseStream>;

struct Entry {
  std::size_t start;     // in the arena
  std::uint32_t length;  // some file systems hold names of more than 255 bytes
  EntryKind kind;
};

EntryKind KindOfLink(int folder, const char* name) {
  struct stat target;
  if (fstatat(folder, name, &target, 0) != 0) return EntryKind::Other;
  if (S_ISDIR(target.st_mode)) return EntryKind::FolderLink;
  return S_ISREG(target.st_mode) ? EntryKind::File : EntryKind::Other;
}

// For file systems that don't tell the kind while reading a folder.
EntryKind KindByAsking(int folder, const char* name) {
  struct stat found;
  if (fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW) != 0) return EntryKind::Other;
  if (S_ISLNK(found.st_mode)) return KindOfLink(folder, name);
  if (S_ISDIR(found.st_mode)) return EntryKind::Folder;
  return S_ISREG(found.st_mode) ? EntryKind::File : EntryKind::Other;
}

EntryKind KindOf(int folder, const dirent& entry) {
  switch (entry.d_type) {
    case DT_REG:
      return EntryKind::File;
    case DT_DIR:
      return EntryKind::Folder;
    case DT_LNK:
      return KindOfLink(folder, entry.d_name);
    case DT_UNKNOWN:
      return KindByAsking(folder, entry.d_name);
    default:
      return EntryKind::Other;
  }
}

class SystemListing : public FolderListing {
 public:
  explicit SystemListing(FolderStream stream) : stream_(std::move(stream)) {}

  // 0 or errno.
  int Read();

  std::size_t Size() const override { return entries_.size(); }
  std::string_view Name(std::size_t index) const override {
    const Entry& entry = entries_[index];
    return {arena_.data() + entry.start, entry.length};
  }
  EntryKind Kind(std::size_t index) const override { return entries_[index].kind; }
  std::optional<FileFacts> Facts(std::size_t index) const override {
    return ahead_ ? ahead_->Of(index) : Ask(index);
  }
  void ExpectFacts(std::vector<std::size_t> entries) override {
    ahead_.emplace([this](std::size_t index) { return Ask(index); }, std::move(entries));
  }

 private:
  void Add(const dirent& entry);
  void Sort();
  std::optional<FileFacts> Ask(std::size_t index) const {
    return StatFacts(dirfd(stream_.get()), Name(index).data());
  }

  FolderStream stream_;
  std::string arena_;  // each name ended by a NUL
  std::vector<Entry> entries_;
  // Last, so that it ends before what it asks.
  mutable std::optional<FactsAhead> ahead_;
};

int SystemListing::Read() {
  for (;;) {
    errno = 0;
    const dirent* entry = readdir(stream_.get());
    if (entry == nullptr) break;
    if (!IsHiddenName(entry->d_name)) Add(*entry);
  }
  if (errno != 0) return errno;
  Sort();
  return 0;
}

void SystemListing::Add(const dirent& entry) {
  const std::string_view name = entry.d_name;
  const EntryKind kind = KindOf(dirfd(stream_.get()), entry);
  entries_.push_back({arena_.size(), static_cast<std::uint32_t>(name.size()), kind});
  arena_.append(name) += '\0';
}

void SystemListing::Sort() {
  std::vector<std::string_view> names;
  names.reserve(entries_.size());
  for (std::size_t i = 0; i < entries_.size(); ++i) names.push_back(Name(i));
  std::vector<Entry> sorted;
  sorted.reserve(entries_.size());
  for (std::uint32_t index : OrderOfNames(names)) sorted.push_back(entries_[index]);
  entries_ = std::move(sorted);
}

}  // namespace

std::unique_ptr<FolderListing> SystemFiles::ListFolder(const std::string& path, FileError* error) {
  FolderStream stream(opendir(path.c_str()));
  int number = errno;
  if (stream != nullptr) {
    auto listing = std::make_unique<SystemListing>(std::move(stream));
    number = listing->Read();
    if (number == 0) return listing;
  }
  if (error != nullptr) *error = FromErrno(number);
  return nullptr;
}

}  // namespace tallowbrook
