// The two guards of code that may be abandoned half way.
#pragma once

#include <utility>

namespace tallowbrook {

// Runs a step; one that throws, whatever it is, is abandoned, and its caller goes on with the
// next. False then.
template <typename Step>
bool Attempt(Step step) {
  try {
    step();
    return true;
  } catch (...) {
    return false;
  }
}

// Runs when its scope ends, however that comes about.
template <typename Action>
class Finally {
 public:
  explicit Finally(Action action) : action_(std::move(action)) {}
  ~Finally() { action_(); }
  Finally(const Finally&) = delete;
  Finally& operator=(const Finally&) = delete;

 private:
  Action action_;
};

}  // namespace tallowbrook
