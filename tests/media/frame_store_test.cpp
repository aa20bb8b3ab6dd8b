// The order and the numbers of frames and texts, and many of them.
#include "media/frame_store.h"

#include <gtest/gtest.h>

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
  Add(store, "a", ""), Add(store, "", "x"), Add(store, "A", "9");
  EXPECT_EQ(Listed(store), "A:5,6,3,8,9 a: :x");
  for (const int place : {0, 4, -1}) EXPECT_THROW(store.Id(place), Failure) << place;
}

}  // namespace
}  // namespace tallowbrook
