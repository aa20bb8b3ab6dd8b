// The folders that the tour works on: a home of its own with odd names, songs and pictures, gone at
// the end.
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
  // Ten songs, and some pictures of a camera, each with what it knows of itself.
  std::string Music() const { return Home() + "Music/"; }
  std::string Camera() const { return Home() + "Camera/"; }

  static constexpr char photosName[] = "Holiday photos";

 private:
  std::string root_;
};

// What is in a folder now, sorted by bytes.
std::vector<std::string> NamesIn(const std::string& folder);
// The same by name: contents and time of modification in nanoseconds.
using FolderState = std::map<std::string, std::pair<std::string, std::int64_t>>;
FolderState Photographed(const std::string& folder);

// One line on the terminal: bytes that aren't text as \xHH.
std::string Printable(const std::string& bytes);

}  // namespace tallowbrook
