// The Mersenne twister, begun by the machine's entropy and stirred by the clock.
#include "platform/random.h"

#include <bit>
#include <cstdint>

namespace tallowbrook {
namespace {

std::mt19937_64 SeededByEntropy() {
  std::random_device entropy;
  std::seed_seq seeds{entropy(), entropy(), entropy(), entropy(),
                      entropy(), entropy(), entropy(), entropy()};
  return std::mt19937_64(seeds);
}

}  // namespace

SystemRandom::SystemRandom() : engine_(SeededByEntropy()) {}

// How many values are skipped depends on the clock; the state itself is never set back, so that
// one second doesn't give one value again and again.
void SystemRandom::Reseed(double secondsSinceMidnight) {
  constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;  // 2^64 over the golden ratio
  engine_.discard(std::bit_cast<std::uint64_t>(secondsSinceMidnight) * spread >> 60);
}

double SystemRandom::Next() {
  return static_cast<double>(engine_() >> 11) * 0x1p-53;
}

}  // namespace tallowbrook
