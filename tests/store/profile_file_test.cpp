// The grammar of profile.cfg, its odd thresholds included.
#include "store/profile_file.h"

#include <gtest/gtest.h>

namespace tallowbrook {
namespace {

std::string Block(int id, const std::string& name) {
  ProfileWriter writer(id);
  writer.Add("ProfileName=", name);
  writer.Add("ProfileID=", std::to_string(id));
  writer.Add("Text_Prefix=", std::string(120, 'x'));
  return std::move(writer).Finish();
}

// clang-format off
TEST(ProfileFile, AValueIsFoundByItsKeysFirstPlace) {
  constexpr std::string_view text = "A=1\r\nName=Check_Prefix=7\r\nB=  two words \nCheck_Prefix=0\r\nE=   \r\nlast=z";
  const struct { std::string_view key, value; } rows[] = {
      {"A=", "1"}, {"B=", "two words"}, {"last=", "z"}, {"a=", "default"}, {"E=", "default"}, {"none=", "default"},
      {"Check_Prefix=", "7"},  // hidden by a value that holds it
  };
  for (const auto& row : rows) EXPECT_EQ(GetVar(text, row.key, "default"), row.value) << row.key;
  EXPECT_EQ(GetVar("", "A=", "d"), "d");
}

TEST(ProfileFile, BlocksAreFoundListedAndTakenOut) {
  const std::string text = Block(3, "third") + Block(1, "first") + Block(0, "last state") + Block(12, "");
  EXPECT_TRUE(HasProfile(text, 1));
  EXPECT_FALSE(HasProfile(text, 2));
  EXPECT_EQ(CountProfiles(text), 4);
  EXPECT_EQ(AvailableProfileID(text), 2);
  EXPECT_EQ(AvailableProfileID(""), 1);
  std::string full;
  for (int id = 1; id <= 9999; ++id) full += "<<<Start Profile " + std::to_string(id) + ">>>";
  EXPECT_EQ(AvailableProfileID(full), 0);
  EXPECT_EQ(GetVar(ProfileBlock(text, 1), "ProfileName=", ""), "first");
  EXPECT_EQ(ProfileBlock(text, 2), "");
  const std::vector<ProfileEntry> all = ListProfiles(text);
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(all[0].name + all[1].name + all[2].name, "thirdfirst");
  EXPECT_EQ(all[2].id, 12);

  // The first block goes without a trace, any other leaves one "<", and what is left is found.
  EXPECT_EQ(WithoutProfile(text, 3), text.substr(Block(3, "third").size()));
  const std::string rest = WithoutProfile(text, 1);
  EXPECT_EQ(rest, Block(3, "third") + "<" + Block(0, "last state") + Block(12, ""));
  EXPECT_EQ(GetVar(ProfileBlock(rest, 0), "ProfileName=", ""), "last state");
  EXPECT_EQ(WithoutProfile(text, 12), Block(3, "third") + Block(1, "first") + Block(0, "last state") + "<");
  EXPECT_EQ(WithoutProfile(text, 7), text);
}

// What is too short for a block is dropped with the block beside it; the limits are exact.
TEST(ProfileFile, ShortRestsGoWithABlock) {
  const std::string block = Block(1, "one");
  const std::string endMarker = "<<<End Profile 1>>>\r\n";
  const struct { std::size_t before, behind, kept; } rows[] = {
      {119, 0, 0}, {120, 0, 121},                                          // the marker is at 120, at 121
      {0, 121 - endMarker.size(), 0}, {0, 122 - endMarker.size(), 122 - endMarker.size()},
  };
  for (const auto& row : rows) {
    const std::string text = std::string(row.before, 'b') + block + std::string(row.behind, 'a');
    EXPECT_EQ(WithoutProfile(text, 1).size(), row.kept) << row.before << " " << row.behind;
  }
}

// Markers in any case, cut files, and values that would be markers.
TEST(ProfileFile, WhatIsDamagedKeepsTheRest) {
  const std::string cut = Block(1, "one").substr(0, 60) + Block(2, "two");
  EXPECT_EQ(GetVar(ProfileBlock(cut, 1), "ProfileName=", ""), "one");
  EXPECT_EQ(GetVar(ProfileBlock(cut, 2), "ProfileName=", ""), "two");
  EXPECT_EQ(WithoutProfile(cut, 1), Block(2, "two"));
  EXPECT_EQ(ListProfiles(cut).size(), 2U);
  // Nor does a later block of the same profile take those between with it.
  EXPECT_EQ(WithoutProfile(cut + Block(1, "again"), 1), Block(2, "two") + Block(1, "again"));
  EXPECT_TRUE(HasProfile("<<<START profile 5>>>", 5));
  for (const char* value : {"/x/<<<End Profile 1>>>/y", "<<<start profile 9>>>"}) {
    ProfileWriter writer(1);
    writer.Add("LastDirectory=", value);
    writer.Add("Text_Prefix=", "two\r\nlines=1");
    const std::string block = std::move(writer).Finish();
    EXPECT_EQ(block, "<<<Start Profile 1>>>\r\nLastDirectory=\r\nText_Prefix=two\r\n<<<End Profile 1>>>\r\n");
  }
}

}  // namespace
}  // namespace tallowbrook
