// What the head of a JPEG file tells a thumbnail view: the picture's size, which way up it is, and
// the small picture that cameras put beside it.
//
// Segments as of ITU-T T.81, annex B; directories of TIFF 6.0 in an APP1 segment, the thumbnail in
// the second one (CIPA DC-008, 4.5.4 and 4.6.3).
#pragma once

#include <optional>
#include <string>
#include <string_view>

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
};

// Of the first 128 KiB, read through one open. Nothing for what can't be read or doesn't begin as
// a JPEG file; what is broken further on is left out. Never throws for what a file holds.
std::optional<JpegHead> ReadJpegHead(Files& files, const std::string& path);
// Of a JPEG file's first bytes.
std::optional<JpegHead> ParseJpegHead(std::string_view bytes);

}  // namespace tallowbrook
