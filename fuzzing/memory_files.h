// A disk of a few small files in memory, for code that reads and writes in places.
#pragma once

#include <algorithm>
#include <map>

#include "fuzzing/no_files.h"

namespace tallowbrook {

class MemoryFiles : public NoFiles {
 public:
  // Their bytes, by path. An open file keeps its bytes when it is deleted.
  std::map<std::string, std::shared_ptr<std::string>> files;
  int reads = 0;

  std::string& Put(const std::string& path, std::string_view bytes) {
    files[path] = std::make_shared<std::string>(bytes);
    return *files[path];
  }
  std::unique_ptr<RandomAccessFile> Open(const std::string& path, FileAccess access,
                                         FileError* error) override {
    if (!files.contains(path) && access != FileAccess::Read) Put(path, {});
    if (files.contains(path)) return std::make_unique<OpenFile>(files[path], reads);
    if (error != nullptr) *error = FileError::NotFound;
    return nullptr;
  }
  // The disk is soon full.
  FileError CopyPadded(const std::string& path, std::int64_t padding, PaddedCopy& copy) override {
    constexpr std::int64_t room = 1 << 20;
    if (!files.contains(path)) return FileError::NotFound;
    if (padding > room) return FileError::NoSpace;
    copy = {path + " padded", path};
    Put(copy.path, std::string(static_cast<std::size_t>(padding), '\0') + *files[path]);
    return FileError::None;
  }
  FileError Delete(const std::string& path) override {
    return files.erase(path) != 0 ? FileError::None : FileError::NotFound;
  }
  FileError MovePath(const std::string& path, const std::string& newPath) override {
    if (!files.contains(path)) return FileError::NotFound;
    if (files.contains(newPath)) return FileError::AlreadyExists;
    files[newPath] = files[path];
    files.erase(path);
    return FileError::None;
  }

 private:
  class OpenFile : public RandomAccessFile {
   public:
    OpenFile(std::shared_ptr<std::string> bytes, int& reads)
        : bytes_(std::move(bytes)), size_(std::ssize(*bytes_)), reads_(reads) {}

    std::int64_t Size() const override { return size_; }
    FileError Read(std::int64_t at, std::span<char> bytes, std::size_t& got) override {
      ++reads_;
      if (at < 0) return FileError::Other;
      const auto from = std::min(static_cast<std::size_t>(at), bytes_->size());
      got = bytes_->copy(bytes.data(), bytes.size(), from);
      return FileError::None;
    }
    FileError Write(std::int64_t at, std::string_view bytes) override {
      if (at < 0) return FileError::Other;
      const auto from = static_cast<std::size_t>(at);
      if (from + bytes.size() > bytes_->size()) bytes_->resize(from + bytes.size());
      bytes_->replace(from, bytes.size(), bytes);
      return FileError::None;
    }

   private:
    std::shared_ptr<std::string> bytes_;
    std::int64_t size_;
    int& reads_;
  };
};

}  // namespace tallowbrook
