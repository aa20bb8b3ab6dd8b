// Pending events, for real: lets the window's input through in the middle of long work.
#pragma once

#include <chrono>

#include "base/pending_events.h"

namespace tallowbrook {

class WindowEvents : public PendingEvents {
 public:
  // Asked every few rows, it lets events through every 15 ms; in between it is one look at the
  // clock.
  void Yield() override;

 private:
  std::chrono::steady_clock::time_point last_;
};

}  // namespace tallowbrook
