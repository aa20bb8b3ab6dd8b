// A disk on which nothing is and nothing works. Targets override what they need.
#pragma once

#include "platform/files.h"

namespace tallowbrook {

class NoFiles : public Files {
 public:
  std::unique_ptr<FolderListing> ListFolder(const std::string&, FileError*) override { return {}; }
  std::optional<FileFacts> Facts(const std::string&) override { return {}; }
  bool Exists(const std::string&) override { return false; }
  FileError Rename(const std::string&, const std::string&, const std::string&) override {
    return FileError::Other;
  }
  FileError MovePath(const std::string&, const std::string&) override { return FileError::Other; }
  FileError Copy(const std::string&, const std::string&) override { return FileError::Other; }
  FileError Delete(const std::string&) override { return FileError::Other; }
  std::unique_ptr<AppendFile> OpenForAppend(const std::string&, std::string_view,
                                            FileError*) override {
    return {};
  }
  FileError Rewrite(const std::string&, const FileEdit&) override { return FileError::Other; }
  std::optional<std::string> ReadWhole(const std::string&) override { return {}; }
  std::unique_ptr<RandomAccessFile> Open(const std::string&, FileAccess, FileError*) override {
    return {};
  }
  FileError CopyPadded(const std::string&, std::int64_t, PaddedCopy&) override {
    return FileError::Other;
  }
  std::optional<FileTimes> SetTime(const std::string&, std::optional<FileTime>,
                                   std::int64_t) override {
    return {};
  }
};

}  // namespace tallowbrook
