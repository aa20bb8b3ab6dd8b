#include "shell/blinker.h"

namespace tallowbrook {

namespace {
constexpr std::size_t mostControls = 11;
constexpr int ticks = 6;
}  // namespace

void Blinker::BlinkControl(Control& control, bool reset) {
  Light(false);
  if (reset) controls_.clear();
  if (controls_.size() < mostControls) controls_.push_back(&control);
  countdown_ = ticks;
  if (started) started();
}

void Blinker::RestoreBlinkColours() {
  Light(false);
  controls_.clear();
  countdown_ = 0;
}

void Blinker::Tick() {
  if (!Running()) return;
  --countdown_;
  if (countdown_ == 0) {
    RestoreBlinkColours();
  } else {
    Light(countdown_ % 2 == 1);
  }
}

void Blinker::Light(bool on) {
  for (Control* control : controls_) control->SetHighlighted(on);
}

}  // namespace tallowbrook
