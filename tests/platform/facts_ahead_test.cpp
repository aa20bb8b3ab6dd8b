// The two threads of FactsAhead: whoever asks, each entry gets its own facts.
#include "platform/facts_ahead.h"

#include <gtest/gtest.h>

#include <chrono>
#include <numeric>

namespace tallowbrook {
namespace {

constexpr std::size_t count = 10'000;

// Every seventh entry has gone; the others tell their number as their size.
std::optional<FileFacts> Ask(std::size_t entry) {
  FileFacts facts;
  facts.size = static_cast<std::int64_t>(entry);
  return entry % 7 == 0 ? std::nullopt : std::optional(facts);
}

void ExpectFactsOf(std::size_t entry, const std::optional<FileFacts>& facts) {
  ASSERT_EQ(facts.has_value(), entry % 7 != 0) << entry;
  if (facts) {
    ASSERT_EQ(facts->size, static_cast<std::int64_t>(entry));
  }
}

TEST(FactsAhead, TellsEachEntryItsOwnFactsWhoeverAsked) {
  std::vector<std::size_t> odd(count);
  std::iota(odd.begin(), odd.end(), 0U);
  for (std::size_t& entry : odd) entry = 2 * entry + 1;
  std::atomic<std::size_t> asked = 0;
  const auto counted = [&](std::size_t entry) {
    ++asked;
    return Ask(entry);
  };
  const auto wait = [] { std::this_thread::sleep_for(std::chrono::milliseconds(1)); };
  for (const std::size_t slowness : {std::size_t{50}, count}) {
    asked = 0;
    FactsAhead ahead(counted, odd);
    for (std::size_t i = 0; i < count; ++i) {
      if (i % slowness == 0) wait();
      ExpectFactsOf(odd[i], ahead.Of(odd[i]));
      if (i == 100) ExpectFactsOf(8, ahead.Of(8));
    }
    // Where they meet, a few entries may be asked by both.
    EXPECT_GE(asked, count + 1);
    EXPECT_LE(asked, count + 100);
  }
}

TEST(FactsAhead, EndsAtOnceWhenTheRowsAreNotWantedAnyMore) {
  std::atomic<std::size_t> asked = 0;
  {
    std::vector<std::size_t> all(1'000'000);
    const auto slowly = [&](std::size_t entry) {
      ++asked;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      return Ask(entry);
    };
    FactsAhead ahead(slowly, all);
    ExpectFactsOf(0, ahead.Of(0));
  }
  EXPECT_LT(asked, 1'000'000U);  // a quarter of an hour
}

}  // namespace
}  // namespace tallowbrook
