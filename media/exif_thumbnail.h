// What the head of a JPEG file tells a thumbnail view: the picture's size, which way up it is, and
// the small picture that cameras put beside it.
//
// Segments as of ITU-T T.81, annex B; directories of TIFF 6.0 in an APP1 segment, the thumbnail in
// the second one (CIPA DC-008, 4.5.4 and 4.6.3).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "media/file_parts.h"
#include "platform/files.h"

namespace tallowbrook {

struct JpegHead {
  // Pixels as stored, before any turning; 0 if the head doesn't reach to where they stand.
  int width = 0;
  int height = 0;
  // Whether a decoder needs only a few rows of the picture in memory at a time. False where the
  // head doesn't tell: a picture of several scans is held as a whole.
  bool decodesByRows = false;
  // Tag 274: 1 upright, 2 to 8 mirrored or turned; 1 for anything else.
  int orientation = 1;
  // A whole JPEG file; empty without one.
  std::string thumbnail;
  // The file without what has no say in its pixels, such as texts, which decoders keep all of; the
  // last part begins with the first scan. Since it holds nothing but segments that were looked at,
  // a decoder can't take it for another picture. Empty if no scan was found.
  FileParts pixels;
};

// Looks at segments as far back as they go, up to some thousands, through one open. Nothing for
// what can't be read or doesn't begin as a JPEG file; what is broken further on is left out. Never
// throws for what a file holds.
std::optional<JpegHead> ReadJpegHead(Files& files, const std::string& path);
// Of a whole JPEG file.
std::optional<JpegHead> ParseJpegHead(std::string_view bytes);

// How many scans a file has from a place on, in which the first one begins; nothing if it can't be
// read.
std::optional<int> CountScans(RandomAccessFile& file, std::int64_t at);

}  // namespace tallowbrook
