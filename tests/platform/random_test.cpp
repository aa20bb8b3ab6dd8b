// The random source under reseeding, as the program uses it.
#include "platform/random.h"

#include <gtest/gtest.h>

#include <set>

namespace tallowbrook {
namespace {

TEST(SystemRandom, DrawsOfOneSecondDifferAndFillTheUnitInterval) {
  SystemRandom random;
  std::set<double> drawn;
  double sum = 0;
  constexpr int draws = 20000;
  for (int i = 0; i < draws; ++i) {
    random.Reseed(43200.0);
    const double value = random.Next();
    ASSERT_GE(value, 0.0);
    ASSERT_LT(value, 1.0);
    drawn.insert(value);
    sum += value;
  }
  EXPECT_EQ(drawn.size(), static_cast<std::size_t>(draws));
  EXPECT_NEAR(sum / draws, 0.5, 0.03);  // fourteen standard deviations
}

TEST(SystemRandom, TwoSourcesDiffer) {
  EXPECT_NE(SystemRandom().Next(), SystemRandom().Next());
}

}  // namespace
}  // namespace tallowbrook
