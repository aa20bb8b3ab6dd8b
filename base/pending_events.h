// The points where long work lets the user's input through.
#pragma once

namespace tallowbrook {

class PendingEvents {
 public:
  virtual ~PendingEvents() = default;
  // May run any handler of the window before it returns: a stop, a second preview, even the end
  // of the program. The caller's list and settings may have changed afterwards.
  virtual void Yield() = 0;
};

}  // namespace tallowbrook
