// Genres: the fixed names that go with the numbers of tags, and the lists from which the tag editor
// is filled. The two may disagree, and each keeps its own texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace tallowbrook {

// Empty for a number without a name: 123, and 148 and above.
std::string_view GenreName(std::uint8_t number);

// What the tag editor offers, from the file id3genre.cfg. Of each list index 0 holds nothing (an
// empty name, number 0); entry 1 is the file's first.
struct GenreLists {
  std::vector<std::string> GenreNamesV1{{}};
  std::vector<std::int16_t> GenreIdsV1{0};
  std::vector<std::string> GenreNamesV2{{}};
  std::vector<std::int16_t> GenreIdsV2{0};

  // Reads "<folder>id3genre.cfg": lines "number,name", ended by CR LF, in two sections that "~"
  // separates. The last line of a section isn't read, nor the second one's first. A missing file is
  // made, empty. Throws Failure for a file that can't be read (its own number), lacks a section or
  // holds a line without a comma (failureSubscript), or a number beyond 16 bits (failureOverflow);
  // the lists then hold what was read until there.
  void LoadGenreLists(Files& files, const std::string& folder);
};

}  // namespace tallowbrook
