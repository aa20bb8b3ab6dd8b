// A seccomp filter in a child process.
#include "tests/platform/refused_calls.h"

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>

namespace tallowbrook {
namespace {

constexpr int noFilter = 255;

bool InstallFilter(const std::vector<RefusedCall>& calls) {
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

}  // namespace

std::optional<FileError> RunRefusing(const std::vector<RefusedCall>& calls,
                                     const std::function<FileError()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(InstallFilter(calls) ? static_cast<int>(work()) : noFilter);
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return std::nullopt;
  if (WEXITSTATUS(status) == noFilter) return std::nullopt;
  return static_cast<FileError>(WEXITSTATUS(status));
}

}  // namespace tallowbrook
