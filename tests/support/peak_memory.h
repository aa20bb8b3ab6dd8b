// How much memory a piece of work takes at most.
#pragma once

#include <fstream>
#include <functional>
#include <optional>
#include <string>

namespace tallowbrook {

// Megabytes, from a line of /proc/self/status (proc(5)).
inline long MemoryFigure(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != name) continue;
    long kilobytes = 0;
    status >> kilobytes;
    return kilobytes / 1024;
  }
  return 0;
}

// Megabytes beyond what the process has before. Nothing where the system keeps no such account, or
// an allocator of sanitizers holds on to what is freed.
inline std::optional<long> PeakMegabytes(const std::function<void()>& work) {
#ifdef __SANITIZE_ADDRESS__
  constexpr bool isMeasurable = false;
#else
  constexpr bool isMeasurable = true;
#endif
  constexpr char resetPeak[] = "5";
  const bool isReset =
      static_cast<bool>(std::ofstream("/proc/self/clear_refs") << resetPeak << std::flush);
  const long before = MemoryFigure("VmRSS:");
  work();
  if (!isMeasurable || !isReset) return {};
  return MemoryFigure("VmHWM:") - before;
}

}  // namespace tallowbrook
