#include "bench/program.h"

#include <memory>

namespace tallowbrook::bench {

Program& TheProgram() {
  static auto program = std::make_unique<Program>();
  return *program;
}

}  // namespace tallowbrook::bench
