// Where the monkey plays: a folder of copies, folders for all that a program of a desktop writes,
// and a guard folder in which nothing may change.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/monkey/cage.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {

class Playground {
 public:
  // Points HOME, the folders of the desktop's base directory rules and the one for temporary files
  // into itself, and makes the guard folder the current one: relative paths end there. `program` is
  // the folder of the executable, which is guarded as well.
  explicit Playground(const std::string& program);
  ~Playground();

  // All with "/" at their ends.
  std::string Copies() const { return world_ + "copies/"; }
  const std::string& Program() const { return program_; }
  std::string Data() const { return world_ + "data/"; }
  std::string Temporary() const { return world_ + "tmp/"; }

  // Puts files into the copies until there are `least`: songs, photos, pictures, texts, odd names.
  void Fill(std::size_t least);
  // What lies below the copies, links not followed; folders end in "/".
  std::vector<std::string> Paths() const;
  int Marks() const { return marks_; }

  // What has changed that mustn't have, and which marks are missing that nobody gave away.
  std::vector<std::string> Faults(const std::set<int>& given) const;
  std::size_t GuardedFiles() const { return guarded_.size(); }

 private:
  using State = std::map<std::string, std::string>;
  State Guarded() const;
  void Put(const std::string& name, const std::string& kind);

  TemporaryFolder folder_;
  std::string world_, program_;
  State guarded_;
  int marks_ = 0;
};

}  // namespace tallowbrook
