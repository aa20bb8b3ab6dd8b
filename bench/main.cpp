// Runs the jobs by Google Benchmark, five times each, program and limit in turn, and prints one
// line a job: NAME VALUE UNIT RATIO-TO-LIMIT, of the medians.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <fstream>
#include <set>
#include <vector>

#include "bench/job.h"

namespace tallowbrook::bench {

namespace {

constexpr int repetitions = 5;
constexpr double millisecondsPerSecond = 1000;

struct Measured {
  Job job;
  std::vector<double> program, limit;
};
// A deque, since the registered functions point into it.
std::deque<Measured>& Jobs() {
  static std::deque<Measured> jobs;
  return jobs;
}

std::vector<std::string>& Folders() {
  static std::vector<std::string> folders;
  return folders;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void Print(const Measured& job) {
  const double program = Median(job.program);
  std::printf("%s %.1f ms %.2f\n", job.job.name.c_str(), program * millisecondsPerSecond,
              program / Median(job.limit));
  if (job.job.footnote) job.job.footnote();
  std::fflush(stdout);
}

// Google Benchmark's own report is left out: the lines above are the report.
class Silent : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>&) override {}
};

void RunOnce(benchmark::State& state, Measured& job) {
  for ([[maybe_unused]] auto iteration : state) {
    job.program.push_back(job.job.program());
    job.limit.push_back(job.job.limit());
    state.SetIterationTime(job.program.back());
  }
  if (job.program.size() == repetitions) Print(job);
}

// By its own name or by the first words of it: "sort-1m" is "sort-1m-name" and "sort-1m-size".
bool IsWanted(const std::string& name, const std::set<std::string>& wanted) {
  if (wanted.empty() || wanted.contains(name)) return true;
  return std::ranges::any_of(wanted, [&](const auto& w) { return name.starts_with(w + "-"); });
}

}  // namespace

void Register(Job job) {
  Jobs().push_back({std::move(job), {}, {}});
}

void Expect(bool holds, const std::string& message) {
  if (holds) return;
  std::fprintf(stderr, "%s\n", message.c_str());
  std::exit(1);
}

double Seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::string NewFolder() {
  return NewFolderIn(std::filesystem::is_directory("/dev/shm")
                         ? "/dev/shm"
                         : std::filesystem::temp_directory_path());
}

std::string NewFolderIn(const std::filesystem::path& base) {
  std::string name = (base / "tallowbrook-bench-XXXXXX").string();
  if (!mkdtemp(name.data())) {
    std::perror("mkdtemp");
    std::exit(1);
  }
  Folders().push_back(name);
  return name + "/";
}

void FillFolder(const std::string& folder, int count) {
  char name[32];
  for (int i = 1; i <= count; ++i) {
    std::snprintf(name, sizeof name, "photo_%07d.jpg", i);
    std::ofstream(folder + name);
  }
}

void EmptyFolder(const std::string& folder) {
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::filesystem::remove_all(entry.path());
  }
}

}  // namespace tallowbrook::bench

int main(int argc, char** argv) {
  using namespace tallowbrook::bench;
  const std::set<std::string> wanted(argv + 1, argv + argc);
  Folders();  // first, so that they are still there
  std::atexit([] {
    for (const std::string& folder : Folders()) std::filesystem::remove_all(folder);
  });
  for (auto& job : Jobs()) {
    if (!IsWanted(job.job.name, wanted)) continue;
    benchmark::RegisterBenchmark(job.job.name.c_str(),
                                 [&job](benchmark::State& state) { RunOnce(state, job); })
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(repetitions);
  }
  int noArguments = 1;
  benchmark::Initialize(&noArguments, argv);
  Silent silent;
  benchmark::RunSpecifiedBenchmarks(&silent);
}
