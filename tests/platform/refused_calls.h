// Running code under a kernel that refuses chosen system calls.
//
// Old kernels, odd file systems and full disks can't be mounted in a test; but a process can ask
// the kernel to answer some of its calls with an error, without any privilege. It can't take that
// back, so the code runs in a process of its own and what it leaves on the disk is looked at
// afterwards.
#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "platform/file_error.h"

namespace tallowbrook {

struct RefusedCall {
  int number;  // SYS_...
  int error;   // errno; 0 lets the call return 0 without doing anything
};

inline constexpr int noFilter = 255;

inline bool InstallFilter(const std::vector<RefusedCall>& calls) {
  std::vector<sock_filter> program{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
  for (const RefusedCall& call : calls) {
    const auto number = static_cast<unsigned>(call.number);
    const auto answer = SECCOMP_RET_ERRNO | static_cast<unsigned>(call.error);
    program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1));
    program.push_back(BPF_STMT(BPF_RET | BPF_K, answer));
  }
  program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
  return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

// What `work` returned. Nothing where the machine allows no such filter.
inline std::optional<FileError> RunRefusing(const std::vector<RefusedCall>& calls,
                                            const std::function<FileError()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(InstallFilter(calls) ? static_cast<int>(work()) : noFilter);
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return std::nullopt;
  if (WEXITSTATUS(status) == noFilter) return std::nullopt;
  return static_cast<FileError>(WEXITSTATUS(status));
}

}  // namespace tallowbrook
