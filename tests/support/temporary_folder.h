// A real folder for one test, gone with everything in it at the end of the test.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallowbrook {

class TemporaryFolder {
 public:
  // In the system's folder for temporary files; throws if it can't be made.
  TemporaryFolder();
  explicit TemporaryFolder(const std::string& in);
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // With "/" at the end.
  const std::string& Path() const { return path_; }
  std::string Path(std::string_view name) const { return path_ + std::string(name); }

  // Each throws if it fails. Names may lead into subfolders.
  std::string Write(std::string_view name, std::string_view bytes = {}) const;
  std::string Read(std::string_view name) const;
  std::string MakeFolder(std::string_view name) const;
  // A link to `target`, which need not exist.
  std::string MakeLink(std::string_view name, std::string_view target) const;
  // Sets the modification time.
  void SetTime(std::string_view name, long long posixSeconds, long nanoseconds = 0) const;

  // True for a dangling link as well.
  bool Exists(std::string_view name) const;
  // All entries of the folder or a subfolder, hidden ones included, sorted by bytes.
  std::vector<std::string> Names(std::string_view subfolder = {}) const;

 private:
  std::string path_;
};

// A folder on another file system than that of `folder`, to move files to by a copy; empty if there
// is none that may be written.
std::string OtherFileSystem(const std::string& folder);

// While it lives, temporary files are made in that folder.
class TemporaryFilesIn {
 public:
  explicit TemporaryFilesIn(const std::string& folder);
  ~TemporaryFilesIn();
  TemporaryFilesIn(const TemporaryFilesIn&) = delete;
  TemporaryFilesIn& operator=(const TemporaryFilesIn&) = delete;

 private:
  std::optional<std::string> before_;
};

}  // namespace tallowbrook
