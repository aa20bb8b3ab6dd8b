// A measured job and the bare system calls that bound it, timed in turn in one run.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace tallowbrook::bench {

struct Job {
  std::string name;
  // Each brings the files into their first state, unmeasured, and then does the measured work;
  // the work's seconds come back.
  std::function<double()> program;
  std::function<double()> limit;
  // Prints further lines behind the job's own.
  std::function<void()> footnote = {};
};

// Registers the job; main runs those that the command line names, or all.
void Register(Job job);

// Made when it is first asked for, so that a job that isn't run makes no files.
template <class Made, class From>
auto MadeOnDemand(const From& from) {
  return [&from, made = std::make_shared<std::unique_ptr<Made>>()]() -> Made& {
    if (!*made) *made = std::make_unique<Made>(from);
    return **made;
  };
}

// Ends the program with the message where a job didn't do what it is measured for.
void Expect(bool holds, const std::string& message);

// The seconds that `work` takes.
double Seconds(const std::function<void()>& work);

// A new empty folder with "/" at its end, on a tmpfs where there is one. Removed at the end.
std::string NewFolder();
std::string NewFolderIn(const std::filesystem::path& base);
// `count` empty files "photo_0000001.jpg" and so on.
void FillFolder(const std::string& folder, int count);
// Removes the folder's content.
void EmptyFolder(const std::string& folder);

}  // namespace tallowbrook::bench
