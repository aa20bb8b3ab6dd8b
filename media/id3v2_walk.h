// The walk over the frames of a version 2 tag in a file.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "media/buffered_file.h"

namespace tallowbrook {

// Of the four bytes at the start of `bytes`, highest first: sizes are plain numbers here.
std::int32_t BigEndian(std::string_view bytes);

// Reads a tag from directly behind its "ID3" on and hands over each frame's id, of four letters or
// none, and its bytes without the zero ones. `version` is set to what the tag says; one that isn't
// 2, 3 or 4 has no frames. Throws Failure: of the disk, or failureInvalidArgument for a frame whose
// size reads as negative.
void WalkTag(BufferedFile& file, std::int64_t at, std::uint8_t& version,
             const std::function<void(std::string_view id, std::string_view text)>& frame);

}  // namespace tallowbrook
