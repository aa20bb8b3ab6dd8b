// Small pictures of files: what the thumbnail view needs of the machine.
#pragma once

#include <optional>
#include <string>

#include "platform/files.h"

namespace tallowbrook {

// A small picture as a list of thousands holds it: compressed, in a form that only the source of
// it and the view know.
struct PackedBitmap {
  int width = 0;  // pixels
  int height = 0;
  std::string bytes;
};

class ThumbnailSource {
 public:
  virtual ~ThumbnailSource() = default;
  // A picture of the file that fits into width x height pixels and keeps the aspect ratio, upright;
  // nothing for a file that isn't one, or that is too large to be read in bounded memory. `facts`
  // are the file's. Doesn't throw for anything that a file holds.
  virtual std::optional<PackedBitmap> Extract(const std::string& path, const FileFacts& facts,
                                              int width, int height) = 0;
};

}  // namespace tallowbrook
