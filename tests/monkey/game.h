// What the parts of a game share: where it is played, who lives meanwhile, and what came of it.
#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdio>
#include <map>
#include <memory>
#include <random>

#include "shell/form1.h"
#include "tests/monkey/playground.h"
#include "tests/support/faulty_files.h"

namespace tallowbrook {

struct Game {
  const Playground& playground;
  std::mt19937 chance;
  std::FILE* trail = nullptr;  // where each act is told before it is done, if anywhere

  // The program that lives, and its main window; null while none does.
  Form1* form = nullptr;
  QPointer<QWidget> window{};
  bool isOver = false;
  // Whether the user's last answer to a question was yes.
  bool saidYes = false;

  int acts = 0;
  std::map<std::string, int> dialogs{};  // by name, how often each was entered
  std::map<std::string, int> deeds{};    // what was done to the disk how often, refusals included
  // Marks of files that the user had deleted or replaced.
  std::set<int> given{};
  std::vector<std::string> faults{};
};

// Fences the disk: it is real, but only below some folders.
//
// Whatever lies elsewhere can't be listed and doesn't change; who tries is told so, and it counts
// as a fault unless a user may have asked for it. What the user gives away is noted by its marks.
void Fence(FaultyFiles& files, Game& game);

// The monkey: clicks, keys, wheel, drags and drops by chance, into whatever is open, until the game
// is over. Whoever keeps it from acting for long ends the program.
//
// It acts from single shots of a timer, each of which orders the next one before it acts: so it
// goes on inside the loops of dialogs and menus that its own act has opened. Input goes in where
// the platform's would, so that popups and modal dialogs keep it from others as they do a user's.
std::unique_ptr<QObject> StartMonkey(Game& game);

}  // namespace tallowbrook
