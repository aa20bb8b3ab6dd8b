// Running code under a kernel that refuses chosen system calls.
//
// Old kernels, odd file systems and full disks can't be mounted in a test; but a process can ask
// the kernel to answer some of its calls with an error, without any privilege. It can't take that
// back, so the code runs in a process of its own and what it leaves on the disk is looked at
// afterwards.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/file_error.h"

namespace tallowbrook {

struct RefusedCall {
  int number;  // SYS_...
  int error;   // errno; 0 lets the call return 0 without doing anything
};

// What `work` returned. Nothing where the machine allows no such filter.
std::optional<FileError> RunRefusing(const std::vector<RefusedCall>& calls,
                                     const std::function<FileError()>& work);

}  // namespace tallowbrook
