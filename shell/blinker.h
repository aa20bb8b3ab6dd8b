// Draws the eye to controls: they blink a few times and then stand as before.
#pragma once

#include <functional>
#include <vector>

#include "base/controls.h"

namespace tallowbrook {

class Blinker {
 public:
  static constexpr int intervalMilliseconds = 150;

  // Adds a control to those that blink, up to 11, and begins the countdown anew, with all of them
  // as they were. With `reset` the ones before are done with.
  void BlinkControl(Control& control, bool reset);
  // All controls as they were; nothing blinks any more.
  void RestoreBlinkColours();
  // Timer1's tick: odd counts light the controls up, even ones don't, 0 ends it.
  void Tick();
  bool Running() const { return countdown_ > 0; }
  // Starts Timer1, which ticks until nothing runs any more. Set by the window.
  std::function<void()> started;

 private:
  void Light(bool on);
  std::vector<Control*> controls_;
  int countdown_ = 0;
};

}  // namespace tallowbrook
