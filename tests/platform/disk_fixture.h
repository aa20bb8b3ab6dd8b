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
#include "tests/support/system_calls.h"
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

}  // namespace tallowbrook
