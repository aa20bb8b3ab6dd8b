// The order and the numbers of frames and texts, and many of them.
#include "media/frame_store.h"

#include <gtest/gtest.h>

#include <list>

#include "base/failure.h"

namespace tallowbrook {
namespace {

std::uint32_t Add(FrameStore& store, std::string_view id, std::string_view text) {
  try {
    store.Add(id, text);
  } catch (const Failure& failure) {
    return failure.number;
  }
  return 0;
}

// "A:1,2 B:3", a "?" for a frame without a count.
std::string Listed(const FrameStore& store) {
  std::string text;
  store.Visit(
      [&](std::string_view id, std::int32_t count) {
        text.append(text.empty() ? "" : " ").append(id).append(count < 0 ? "?" : ":");
      },
      [&](std::string_view each) { text.append(text.back() == ':' ? "" : ",").append(each); });
  return text;
}

TEST(FrameStore, NumbersTextsWithinTheirFrameAndPutsAFrameThatComesBackAtTheEnd) {
  FrameStore store;
  for (const auto& [id, text] : std::initializer_list<std::pair<const char*, const char*>>{
           {"A", "1"}, {"", "x"}, {"B", "2"}, {"A", "3"}, {"a", ""}, {"longer", "4"}, {"", "y"}}) {
    EXPECT_EQ(Add(store, id, text), 0u);
  }
  EXPECT_EQ(Listed(store), "A:1,3 :x,y B:2 a: longer:4");
  EXPECT_TRUE(store.Remove("A"));
  EXPECT_FALSE(store.Remove("A"));
  EXPECT_EQ(store.CountTexts("A"), 0);
  EXPECT_EQ(Add(store, "A", "5"), 0u);
  EXPECT_TRUE(store.Remove("B"));
  EXPECT_EQ(Listed(store), ":x,y a: longer:4 A:5");
  EXPECT_EQ(store.Count(), 4);
  EXPECT_EQ(store.Id(4), "A");
  for (const int place : {0, 5, -1}) EXPECT_THROW(store.Id(place), Failure) << place;
}

// Texts behind one that was taken away outlive their frame and get into the way of the next one.
TEST(FrameStore, FrameThatLostATextHasNoCountUntilItIsRemoved) {
  FrameStore store;
  for (const char* text : {"1", "2", "3", "4"}) Add(store, "A", text);
  for (const int number : {0, 5}) EXPECT_FALSE(store.RemoveText("A", number)) << number;
  EXPECT_FALSE(store.RemoveText("B", 1));
  EXPECT_TRUE(store.RemoveText("A", 2));
  EXPECT_FALSE(store.RemoveText("A", 2));
  EXPECT_EQ(Listed(store).substr(0, 2), "A?");
  EXPECT_EQ(Add(store, "A", "x"), failureInvalidArgument);
  EXPECT_TRUE(store.Remove("A"));
  // The waste of other frames: what is left over has to live through the clearing.
  for (int i = 0; i < 20000; ++i) {
    Add(store, "B", "some text");
    store.Remove("B");
  }
  EXPECT_EQ(store.Count(), 0);
  EXPECT_TRUE(store.RemoveText("A", 4));
  for (const char* text : {"5", "6"}) EXPECT_EQ(Add(store, "A", text), 0u);
  EXPECT_EQ(Add(store, "A", "7"), failureDuplicateKey);
  EXPECT_EQ(Listed(store), "A:5,6,3") << "the third is left over, and counted";
  EXPECT_EQ(Add(store, "A", "8"), 0u);
  EXPECT_EQ(Listed(store), "A:5,6,3,8");
}

// A list that is searched from end to end behaves the same.
TEST(FrameStore, BehavesAsAPlainListUnderAnyOrderOfCalls) {
  FrameStore store;
  std::list<std::pair<std::string, int>> plain;
  std::uint32_t state = 1;
  const auto chance = [&](std::uint32_t below) {
    return (state = state * 1664525 + 1013904223) / 65536 % below;
  };
  const auto at = [&](int place) { return std::next(plain.begin(), place - 1); };
  for (int i = 0; i < 20000; ++i) {
    const std::string id = "T" + std::to_string(chance(60));
    const auto found =
        std::find_if(plain.begin(), plain.end(), [&](const auto& p) { return p.first == id; });
    const int place =
        plain.empty() ? 0 : static_cast<int>(1 + chance(static_cast<std::uint32_t>(plain.size())));
    if (chance(2) == 0) {
      ASSERT_EQ(Add(store, id, "some text"), 0u);
      found != plain.end() ? ++found->second : (plain.emplace_back(id, 1), 0);
    } else if (chance(2) == 0) {
      ASSERT_EQ(store.Remove(id), found != plain.end()) << i;
      if (found != plain.end()) plain.erase(found);
    } else if (place > 0) {
      ASSERT_TRUE(store.Remove(std::string(store.Id(place)))) << i;
      plain.erase(at(place));
    }
    ASSERT_EQ(store.Count(), static_cast<std::int32_t>(plain.size())) << i;
    const int asked =
        plain.empty() ? 0 : static_cast<int>(1 + chance(static_cast<std::uint32_t>(plain.size())));
    if (asked == 0) continue;
    ASSERT_EQ(store.Id(asked), at(asked)->first) << i;
    ASSERT_EQ(store.CountTexts(at(asked)->first), at(asked)->second) << i;
  }
}

}  // namespace
}  // namespace tallowbrook
