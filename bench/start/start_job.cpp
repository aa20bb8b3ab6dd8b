// The start of the program up to its first painted window, beside that of an empty window.
//
// Each start is a process of its own, on the display that is set or else on the toolkit's
// off-screen one.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "bench/job.h"

namespace tallowbrook::bench {
namespace {

constexpr double millisecondsPerSecond = 1000;
constexpr double kibPerMb = 1e6 / 1024;

struct Start {
  double seconds = 0;
  double peakMb = 0;
};

struct Starts {
  std::string folder = NewFolder();
  Start program, bare;

  // A start as any but the first: nothing is asked.
  Starts() {
    std::ofstream(folder + "tallowbrook.cfg")
        << "FirstRun=False\r\nAutoUpdate=False\r\nDisplayStartupTipsNew=0\r\n";
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) {
      setenv("QT_QPA_PLATFORM", "offscreen", 0);
    }
  }

  Start Run(const char* what) const {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    const std::string command =
        self + "_start " + what + " " + std::to_string(now) + " " + folder + " 2>/dev/null";
    Start start;
    double milliseconds = 0, kib = 0;
    FILE* output = popen(command.c_str(), "r");
    if (!output || std::fscanf(output, "%lf %lf", &milliseconds, &kib) != 2) {
      std::fprintf(stderr, "start: %s didn't answer\n", what);
    }
    if (output) pclose(output);
    return {milliseconds / millisecondsPerSecond, kib / kibPerMb};
  }
};

void RegisterStart() {
  auto starts = std::make_shared<std::unique_ptr<Starts>>();
  const auto run = [starts](const char* what, Start Starts::*into) {
    if (!*starts) *starts = std::make_unique<Starts>();
    return ((**starts).*into = (*starts)->Run(what)).seconds;
  };
  Register({"start", [run] { return run("program", &Starts::program); },
            [run] { return run("bare", &Starts::bare); },
            [starts] {
              const Starts& last = **starts;
              std::printf("start-memory %.1f MB %.2f\n", last.program.peakMb,
                          last.program.peakMb / last.bare.peakMb);
            }});
}

const bool registered = (RegisterStart(), true);

}  // namespace
}  // namespace tallowbrook::bench
