// Where the monkey plays: a folder of copies, folders for all that a program of a desktop writes,
// and a guard folder in which nothing may change. Every file of the copies bears a mark of its own,
// which tells at the end whether something was lost that nobody gave away.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace tallowbrook {

// The marks that stand in a file; none in what isn't one.
std::set<int> MarksIn(const std::string& path);

class Playground {
 public:
  // Points HOME, the folders of the desktop's base directory rules and the one for temporary files
  // into itself, and makes the guard folder the current one: relative paths end there. `program` is
  // the folder of the executable, which is guarded as well.
  explicit Playground(const std::string& program);
  ~Playground();

  // All with "/" at their ends and links in them resolved.
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

 private:
  std::map<std::string, std::string> Guarded() const;
  void Put(const std::string& name);

  TemporaryFolder folder_;
  std::string world_, program_;
  std::map<std::string, std::string> guarded_;
  int marks_ = 0;
};

}  // namespace tallowbrook
