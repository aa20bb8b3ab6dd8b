// The folder that the tour works on: a home of its own with a folder of odd names, gone at the end.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tallowbrook {

class SampleFiles {
 public:
  // Throws if it can't be made.
  SampleFiles();
  ~SampleFiles();
  SampleFiles(const SampleFiles&) = delete;
  SampleFiles& operator=(const SampleFiles&) = delete;

  // With "/" at their ends.
  std::string Home() const { return root_ + "home/"; }
  std::string Photos() const { return Home() + photosName + "/"; }
  std::string Data() const { return root_ + "data/"; }
  // What is in the folder of photos now, sorted by bytes.
  std::vector<std::string> Names() const;
  // The same folder by name: contents and time of modification in nanoseconds.
  using State = std::map<std::string, std::pair<std::string, std::int64_t>>;
  State Photographed() const;

  static constexpr char photosName[] = "Holiday photos";

 private:
  std::string root_;
};

// One line on the terminal: bytes that aren't text as \xHH.
std::string Printable(const std::string& bytes);

}  // namespace tallowbrook
