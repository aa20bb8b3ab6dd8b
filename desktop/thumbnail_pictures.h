// ThumbnailSource for real: the pictures that the toolkit's image readers know.
#pragma once

#include "platform/thumbnail_source.h"

namespace tallowbrook {

class ThumbnailPictures : public ThumbnailSource {
 public:
  std::optional<PackedBitmap> Extract(const std::string& path, const FileFacts& facts, int width,
                                      int height) override;
};

}  // namespace tallowbrook
