#include "desktop/thumbnail_pictures.h"

namespace tallowbrook {

std::optional<PackedBitmap> ThumbnailPictures::Extract(const std::string&, const FileFacts&, int,
                                                       int) {
  return {};
}

}  // namespace tallowbrook
