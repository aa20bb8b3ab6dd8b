#include "platform/signals.h"

#include <csignal>

namespace tallowbrook {

void IgnoreWriteSignals() {
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace tallowbrook
