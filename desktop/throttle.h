// Throttle: repainting that follows long work, at most 20 times a second.
//
// Touch() is what a row costs: a look at a flag. The work that it stands for runs once at the end
// of the present event, or, when it ran just before, once its 50 ms are over; during long work
// the pending events let it through.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <functional>

namespace tallowbrook {

class Throttle {
 public:
  static constexpr int interval = 50;  // ms

  explicit Throttle(std::function<void()> work) : work_(std::move(work)) {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Now(); });
  }

  void Touch() {
    if (waiting_) return;
    waiting_ = true;
    timer_.start(Left());
  }
  // True if the interval since the last time is over.
  bool Due() const { return Left() == 0; }
  void Now() {
    waiting_ = false;
    timer_.stop();
    since_.start();
    work_();
  }

 private:
  // Of the interval, in ms. One look at the clock: it goes on between two, and a timer that is to
  // wait for less than nothing never runs.
  int Left() const {
    if (!since_.isValid()) return 0;
    return static_cast<int>(std::max<qint64>(0, interval - since_.elapsed()));
  }

  std::function<void()> work_;
  QTimer timer_;
  QElapsedTimer since_;
  bool waiting_ = false;
};

}  // namespace tallowbrook
