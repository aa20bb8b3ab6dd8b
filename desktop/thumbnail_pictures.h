// ThumbnailSource for real: the pictures that the toolkit's image readers know.
//
// The cheapest way to a picture comes first: the small one that a camera put into a photo, the one
// that the desktop's cache holds, and only then the file's own, which is then kept in the cache.
#pragma once

#include <QImage>
#include <QSize>

#include "desktop/thumbnail_cache.h"
#include "media/exif_thumbnail.h"
#include "platform/private_file.h"
#include "platform/thumbnail_source.h"

namespace tallowbrook {

class ThumbnailPictures : public ThumbnailSource {
 public:
  explicit ThumbnailPictures(Files& files, const std::string& cacheHome = CacheHome());

  std::optional<PackedBitmap> Extract(const std::string& path, const FileFacts& facts, int width,
                                      int height) override;

 private:
  QImage Decode(const std::string& path, const FileFacts& facts, const JpegHead* head);

  Files& files_;
  ThumbnailCache cache_;
};

}  // namespace tallowbrook
