// The system calls that the core makes on files, counted, and one of them refused or the last.
//
// The linker leads the core's calls here (-Wl,--wrap). Closing, seeking and advisory locks pass:
// nothing is ever lost by them.
#pragma once

namespace tallowbrook::system_calls {

enum class Ending {
  Refused,            // the n-th call fails with the error and does nothing
  OutOfSpaceFromNow,  // from the n-th on, whatever needs room on the disk fails so
  Killed,             // SIGKILL right before the n-th call
};

// Counts from 1 anew. n 0 ends no call.
void Watch(int n, Ending ending = Ending::Refused, int error = 0);
// Of calls since Watch; that also ends the watch.
int Counted();

}  // namespace tallowbrook::system_calls
