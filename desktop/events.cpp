#include "desktop/events.h"

#include <QCoreApplication>

namespace tallowbrook {

void WindowEvents::Yield() {
  constexpr auto interval = std::chrono::milliseconds(15);
  if (std::chrono::steady_clock::now() - last_ < interval) return;
  QCoreApplication::processEvents();
  last_ = std::chrono::steady_clock::now();
}

}  // namespace tallowbrook
