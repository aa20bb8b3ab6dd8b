// Where a version 2 tag stands in a file.
#pragma once

#include <cstdint>

#include "media/buffered_file.h"

namespace tallowbrook {

// The place directly behind the first "ID3", from 1; 0 without one. Nothing is looked at that
// follows it, and it may stand anywhere before the audio. Throws Failure: of the disk, or
// failureInvalidArgument for an empty file.
std::int64_t FindTagPosition(BufferedFile& file);

}  // namespace tallowbrook
