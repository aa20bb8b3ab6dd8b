// What is done while faults happen, each declared once, whether a call fails, the program is killed
// or the disk is full; and the world that it is done in.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tests/support/faulty_files.h"
#include "tests/support/test_world.h"

namespace tallowbrook {

using Texts = std::map<std::string, std::string>;  // by name
// The files of a folder that nobody hid, songs or others.
Texts Visible(const TemporaryFolder& folder, bool songs);

// Files with contents of their own each, so that one that is lost, doubled, torn or replaced shows.
// All questions are confirmed, but for the one that would clear the log.
class Stage : public TestWorld, public Dialogs {
 public:
  // All lies in the folder for temporary files, but what is moved goes below `targetIn`. `rows`
  // files are to be renamed; one meets a taken name, one an older file in the target.
  Stage(int rows, const std::string& targetIn);

  Answer Ask(const MessageBox& box) override;
  // The program, loaded.
  std::unique_ptr<Form1> Start();
  // The log and the configuration, the stage's own folders in them named alike.
  Texts OwnFiles() const;
  Texts Songs() const { return Visible(home, true); }
  // The names in all folders.
  std::set<std::string> Hidden() const;

  TemporaryFolder target, temporary;
  TemporaryFilesIn temporaryFilesIn{temporary.Path()};
  FaultyFiles faulty{files};
  int callsBefore = 0;  // of `faulty`, when the fault began
  // By contents: the paths at which a file may stand, the original one first.
  std::map<std::string, std::vector<std::string>> places;
  std::string replaceable;  // the older file in the target
  FakeEvents events;
  std::string said;  // to the user, last
};

struct Scenario {
  const char* name;
  void (*prepare)(Stage& stage);
  // Calls `begin` when all is ready and faults may happen.
  void (*act)(Stage& stage, Form1& form, const std::function<void()>& begin);
  bool runs = false;
  bool undoes = false;
  const char* saysWhenFull = "";  // on a full disk; nothing is expected of an empty one
};
const std::vector<Scenario>& Scenarios();
inline void PrintTo(const Scenario& scenario, std::ostream* out) {
  *out << scenario.name;
}

constexpr char logNotWritten[] = "The log file could not be written";
// What a song has between its tags, and what all its boxes say when it is saved.
inline const std::string sound(5000, 's');
constexpr char savedTag[] = "Louder";

}  // namespace tallowbrook
