// PNG files chunk by chunk: what a decoder needs of one, and texts that every program can read.
//
// Chunks as of ISO/IEC 15948, clauses 5 and 11.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "media/file_parts.h"
#include "platform/files.h"

namespace tallowbrook {

// The parts of a PNG file, itself a part of `file`, that make its pixels and their colours, and
// of its texts the first of each of `keys`, if it is short: decoders unpack all texts that they
// are handed, a thousandfold. Nothing for what isn't such a file, can't be read, or has too many
// chunks; of one that is cut what is there.
FileParts PngParts(RandomAccessFile& file, FilePart png,
                   std::span<const std::string_view> keys = {});

// A PNG file with texts added in front of its pixels, uncompressed: other programs look for them
// so. Keys of 1 to 79 characters; both Latin-1.
std::string PngWithTexts(std::string_view png,
                         std::span<const std::pair<std::string_view, std::string>> texts);

}  // namespace tallowbrook
