// Signals that would end the program where a failed write is meant.
#pragma once

namespace tallowbrook {

// From now on a write beyond the file size limit or into a closed pipe fails with EFBIG or EPIPE
// (setrlimit(2), pipe(7)), instead of ending the process. Called once, first thing.
void IgnoreWriteSignals();

}  // namespace tallowbrook
