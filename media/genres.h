// Genres, twice: the names that the program knows by number, and those that the tag editor offers,
// which a user may change in a file. Neither corrects the other.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace tallowbrook {

// Nothing goes by 123, nor by 148 and above: an empty text.
std::string_view GenreName(std::uint8_t number);

// What the tag editor offers, from the file id3genre.cfg. The lists count from 1; before that
// stands an empty name with number 0.
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
