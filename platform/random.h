// The random source: uniform values, reseeded from the clock before each draw.
#pragma once

#include <random>

namespace tallowbrook {

class RandomSource {
 public:
  virtual ~RandomSource() = default;
  // Stirs the seconds since midnight into the state, which goes on running: draws within one
  // second still differ.
  virtual void Reseed(double secondsSinceMidnight) = 0;
  // Uniform in [0, 1).
  virtual double Next() = 0;
};

// Begins at a state of the machine's own entropy.
class SystemRandom : public RandomSource {
 public:
  SystemRandom();
  void Reseed(double secondsSinceMidnight) override;
  double Next() override;

 private:
  std::mt19937_64 engine_;
};

}  // namespace tallowbrook
