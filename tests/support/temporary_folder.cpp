// Making, filling and removing a test's folder.
#include "tests/support/temporary_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tallowbrook {
namespace {

void Require(bool done, const std::string& what, const std::string& path) {
  if (!done) throw std::runtime_error("can't " + what + " " + path);
}

}  // namespace

TemporaryFolder::TemporaryFolder() : TemporaryFolder(std::filesystem::temp_directory_path()) {}

TemporaryFolder::TemporaryFolder(const std::string& in) : path_(in + "/tallowbrook-test-XXXXXX") {
  Require(mkdtemp(path_.data()) != nullptr, "make", path_);
  path_ += '/';
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::Write(std::string_view name, std::string_view bytes) const {
  const std::string path = Path(name);
  std::ofstream file(path, std::ios::binary);
  file << bytes << std::flush;
  Require(file.good(), "write", path);
  return path;
}

std::string TemporaryFolder::Read(std::string_view name) const {
  const std::string path = Path(name);
  std::ifstream file(path, std::ios::binary);
  Require(file.good(), "read", path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string TemporaryFolder::MakeFolder(std::string_view name) const {
  const std::string path = Path(name);
  std::filesystem::create_directories(path);
  return path;
}

std::string TemporaryFolder::MakeLink(std::string_view name, std::string_view target) const {
  const std::string path = Path(name);
  std::filesystem::create_symlink(target, path);
  return path;
}

void TemporaryFolder::SetTime(std::string_view name, long long posixSeconds,
                              long nanoseconds) const {
  const std::string path = Path(name);
  const timespec times[] = {{0, UTIME_OMIT}, {posixSeconds, nanoseconds}};
  Require(utimensat(AT_FDCWD, path.c_str(), times, 0) == 0, "set the time of", path);
}

bool TemporaryFolder::Exists(std::string_view name) const {
  struct stat found;
  return lstat(Path(name).c_str(), &found) == 0;
}

std::vector<std::string> TemporaryFolder::Names(std::string_view subfolder) const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(Path(subfolder))) {
    names.push_back(entry.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string OtherFileSystem(const std::string& folder) {
  const std::string other = "/dev/shm";
  struct stat here, there;
  const bool isOther = stat(folder.c_str(), &here) == 0 && stat(other.c_str(), &there) == 0 &&
                       here.st_dev != there.st_dev && access(other.c_str(), W_OK) == 0;
  return isOther ? other : "";
}

TemporaryFilesIn::TemporaryFilesIn(const std::string& folder) {
  if (const char* before = std::getenv("TMPDIR"); before != nullptr) before_ = before;
  setenv("TMPDIR", folder.c_str(), 1);
}

TemporaryFilesIn::~TemporaryFilesIn() {
  before_ ? setenv("TMPDIR", before_->c_str(), 1) : unsetenv("TMPDIR");
}

}  // namespace tallowbrook
