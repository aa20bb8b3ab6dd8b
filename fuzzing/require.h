// What a target that finds a fault does.
#pragma once

#include <cstdlib>

#include "base/failure.h"

namespace tallowbrook {

inline void Require(bool holds) {
  if (!holds) std::abort();
}

// The number that a step raised, 0 for none. Anything else that is thrown ends the target.
template <typename Step>
std::uint32_t NumberOf(Step step) {
  try {
    step();
  } catch (const Failure& failure) {
    return failure.number;
  }
  return 0;
}

}  // namespace tallowbrook
