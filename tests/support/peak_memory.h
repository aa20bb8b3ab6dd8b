// How much memory a piece of work takes at most, measured on a child process.
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace tallowbrook {

// Allocators of sanitizers keep what is freed.
#ifdef __SANITIZE_ADDRESS__
constexpr bool memoryIsMeasurable = false;
#else
constexpr bool memoryIsMeasurable = true;
#endif

// Megabytes beyond what this process has. Nothing that the work does stays but its files.
inline long PeakMegabytes(const std::function<void()>& work) {
  const auto peak = [](const std::function<void()>& child) {
    const pid_t id = fork();
    if (id == 0) {
      child();
      _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    rusage usage{};
    wait4(id, &status, 0, &usage);
    EXPECT_EQ(status, 0);
    return usage.ru_maxrss;
  };
  return (peak(work) - peak([] {})) / 1024;
}

}  // namespace tallowbrook
