// Renaming where the file system ignores case.
//
// Few machines have such a file system to mount, so this program answers the two system calls
// that would tell the difference itself while a test asks for it: a name is found by any of its
// cases, as the kernel would find it. Else they pass through.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "base/letter_case.h"
#include "platform/files.h"
#include "tests/support/temporary_folder.h"

namespace {

bool caseIgnored = false;
int renamesUntilFailure = -1;  // below 0: none fails

// The entry that a path leads to when case is ignored; the path itself if there is none.
std::string AnyCase(const char* path) {
  if (!caseIgnored) return path;
  const std::filesystem::path wanted(path);
  for (const auto& entry : std::filesystem::directory_iterator(wanted.parent_path())) {
    const std::string name = entry.path().filename();
    if (tallowbrook::EqualIgnoringCase(name, wanted.filename().string())) return entry.path();
  }
  return path;
}

}  // namespace

extern "C" int lstat(const char* path, struct stat* found) noexcept {
  return fstatat(AT_FDCWD, AnyCase(path).c_str(), found, AT_SYMLINK_NOFOLLOW);
}

extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) noexcept {
  if (renamesUntilFailure >= 0 && renamesUntilFailure-- == 0) {
    errno = EIO;
    return -1;
  }
  return static_cast<int>(syscall(SYS_renameat2, fromFolder, AnyCase(from).c_str(), toFolder,
                                  AnyCase(to).c_str(), flags));
}

namespace tallowbrook {
namespace {

using NameList = std::vector<std::string>;

class RenameIgnoringCase : public testing::Test {
 protected:
  RenameIgnoringCase() {
    folder_.Write("ma\xC3\xA4r.jpg", "1");
    folder_.Write("other.jpg", "2");
    caseIgnored = true;
  }
  ~RenameIgnoringCase() override {
    caseIgnored = false;
    renamesUntilFailure = -1;
  }

  TemporaryFolder folder_;
  SystemFiles files_;
};

TEST_F(RenameIgnoringCase, ChangesTheCaseOfAName) {
  EXPECT_EQ(files_.Rename(folder_.Path(), "ma\xC3\xA4r.jpg", "MA\xC3\x84R.JPG"), FileError::None);
  EXPECT_EQ(folder_.Names(), (NameList{"MA\xC3\x84R.JPG", "other.jpg"}));
}

TEST_F(RenameIgnoringCase, StillCollidesWithAnotherFile) {
  EXPECT_EQ(files_.Rename(folder_.Path(), "other.jpg", "MA\xC3\xA4r.jpg"),
            FileError::AlreadyExists);
  EXPECT_EQ(folder_.Names(), (NameList{"ma\xC3\xA4r.jpg", "other.jpg"}));
}

TEST_F(RenameIgnoringCase, PutsTheOldNameBackWhenTheSecondStepFails) {
  renamesUntilFailure = 2;
  EXPECT_EQ(files_.Rename(folder_.Path(), "other.jpg", "Other.jpg"), FileError::Io);
  EXPECT_EQ(folder_.Names(), (NameList{"ma\xC3\xA4r.jpg", "other.jpg"}));
}

}  // namespace
}  // namespace tallowbrook
