// Names for temporary files: the process, a count, and the time against leftovers of a process
// that had the same number.
#include "platform/temporary_name.h"

#include <unistd.h>

#include <atomic>
#include <chrono>

namespace tallowbrook {

std::string TemporaryName() {
  static std::atomic<unsigned> count{0};
  const auto ticks = std::chrono::system_clock::now().time_since_epoch().count();
  return ".tallowbrook-" + std::to_string(getpid()) + "-" + std::to_string(ticks) + "-" +
         std::to_string(count++);
}

}  // namespace tallowbrook
