// A real folder, and what the tests of calls to the disk include all alike.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>

#include "platform/files.h"
#include "tests/platform/refused_calls.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {

using NameList = std::vector<std::string>;

class DiskTest : public testing::Test {
 protected:
  // Of the entry itself, be it a link.
  struct stat StatOf(const std::string& name) {
    struct stat facts {};
    fstatat(AT_FDCWD, folder_.Path(name).c_str(), &facts, AT_SYMLINK_NOFOLLOW);
    return facts;
  }

  TemporaryFolder folder_;
  SystemFiles files_;
};

// Whether files can be moved to and from /dev/shm, and then only by a copy.
inline bool HasOtherFileSystem(const std::string& folder) {
  struct stat here, there;
  return stat(folder.c_str(), &here) == 0 && stat("/dev/shm", &there) == 0 &&
         here.st_dev != there.st_dev && access("/dev/shm", W_OK) == 0;
}

}  // namespace tallowbrook
