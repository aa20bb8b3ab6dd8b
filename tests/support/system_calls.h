// The system calls that the core makes on files, each asked about before it is made.
//
// Old kernels, odd file systems and full disks can't be mounted in a test; but the linker leads the
// core's calls here first (-Wl,--wrap). Closing and seeking pass: nothing is ever lost by them.
#pragma once

#include <functional>
#include <map>
#include <string_view>

namespace tallowbrook::system_calls {

struct Call {
  std::string_view name;
  const char* path;             // the first one, null for a call on an open file
  int file;                     // below 0 for a call on a path
  bool needsRoom;               // on the disk
  std::size_t* size = nullptr;  // of what is to be written; may be made less
};

// While set, and in its thread: 0 passes the call on, else that is the error with which it fails
// and does nothing.
inline thread_local std::function<int(const Call&)> guard;

// Refuses all calls of those names, for as long as it lives.
struct Refusing {
  explicit Refusing(const std::map<std::string_view, int>& errors) {
    guard = [=](const Call& call) {
      const auto found = errors.find(call.name);
      return found == errors.end() ? 0 : found->second;
    };
  }
  ~Refusing() { guard = nullptr; }
  Refusing(const Refusing&) = delete;
  Refusing& operator=(const Refusing&) = delete;
};

}  // namespace tallowbrook::system_calls
