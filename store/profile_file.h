// The grammar of profile.cfg: blocks of key lines, one a profile, the one saved last in front.
//
//   <<<Start Profile 3>>>
//   ProfileName=Holiday photos
//   ProfileID=3
//   Check_Prefix=1
//   <<<End Profile 3>>>
//
// Lines end in CR LF. A value is what stands behind its key up to the line's end, less outer
// blanks: it can't be empty where a missing one has a default. Everything here works on the text
// of the whole file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tallowbrook {

struct ProfileEntry {
  std::string name;
  std::int32_t id = 0;
};

// The value behind the first place where `key` stands, case counting: a value that holds the key
// of a later line hides that line. The default if there is no such key or the value is empty.
std::string_view GetVar(std::string_view text, std::string_view key, std::string_view defaultValue);

bool HasProfile(std::string_view text, std::int32_t id);
// From the start of the profile's block up to its end marker, or, in a file that was cut, to the
// next block. Empty without such a block.
std::string_view ProfileBlock(std::string_view text, std::int32_t id);
// The text less one block. Of a block that isn't the first the marker's first "<" stays behind, and
// what is left of 120 bytes or less before or behind the block goes with it, since no block is that
// short. Both are wanted: markers are found behind further "<".
std::string WithoutProfile(std::string_view text, std::int32_t id);
std::int32_t CountProfiles(std::string_view text);
// The first ID from 1 to 9999 that is free, 0 without one.
std::int32_t AvailableProfileID(std::string_view text);
// All blocks but that of the last state (ID 0), in the file's order.
std::vector<ProfileEntry> ListProfiles(std::string_view text);

// A block, line by line.
class ProfileWriter {
 public:
  explicit ProfileWriter(std::int32_t id);
  // Of a value of several lines the first is kept; one that holds a marker of blocks is left
  // empty, so that no name of a folder can take other blocks apart.
  void Add(std::string_view key, std::string_view value);
  std::string Finish() &&;

 private:
  std::int32_t id_;
  std::string text_;
};

}  // namespace tallowbrook
