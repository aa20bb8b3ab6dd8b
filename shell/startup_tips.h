// The startup tips: one tip at a time out of a file, beside the main window.
//
// In startuptips.txt each tip stands behind a "~"; what stands before the first one isn't shown.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/controls.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/random.h"

namespace tallowbrook {

// frmTips. One for the whole run: a second opening reads the file again.
class StartupTips {
 public:
  StartupTips(Files& files, Clock& clock, RandomSource& random, int& displayStartupTips);

  Screen screen;
  Label Lbl_Tip;
  Button Cmd_Next;
  Button Cmd_Previous;
  Button Cmd_Close;
  Tick Check1;
  static constexpr std::string_view caption = "Startup Tips";

  // Reads the file and shows one tip by chance. False without a tip: nothing is to be shown then.
  bool Load(const std::string& path);
  // Closes the window; set by what shows it. The window's own close box calls nothing: only
  // Cmd_Close keeps what Check1 says.
  std::function<void()> close;

 private:
  void Show(std::size_t index);

  Files& files_;
  Clock& clock_;
  RandomSource& random_;
  int& displayStartupTips_;
  std::vector<std::string> tips_;
  std::size_t index_ = 0;  // of the tip on show
};

}  // namespace tallowbrook
