// The thumbnail view's one way to a picture of a file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/files.h"
#include "platform/thumbnail_source.h"

namespace tallowbrook {

// What an extractor of thumbnails may be asked for. Ours always keep the aspect ratio and draw no
// border, so that no choice among these changes a picture.
namespace thumbnail_option {
inline constexpr std::int32_t aspect = 4;
inline constexpr std::int32_t offline = 8;
inline constexpr std::int32_t screen = 32;
inline constexpr std::int32_t noBorder = 256;
}  // namespace thumbnail_option

class cThumbnailGenerator {
 public:
  // Both outlive it.
  cThumbnailGenerator(ThumbnailSource& source, Files& files) : source_(source), files_(files) {}

  std::int32_t Options =
      thumbnail_option::offline | thumbnail_option::screen | thumbnail_option::noBorder;
  std::int32_t DesiredWidth = 100;  // pixels
  std::int32_t DesiredHeight = 100;
  std::string Filename;  // full path

  // A picture of the file, no larger than desired. Nothing for what is no regular file, for a file
  // that holds no picture, and for whatever goes wrong.
  std::optional<PackedBitmap> GetThumbnail();

 private:
  ThumbnailSource& source_;
  Files& files_;
};

}  // namespace tallowbrook
