#include "filelist/thumbnail_generator.h"

#include "base/guards.h"

namespace tallowbrook {

std::optional<PackedBitmap> cThumbnailGenerator::GetThumbnail() {
  std::optional<PackedBitmap> picture;
  Attempt([&] {
    const std::optional<FileFacts> facts = files_.Facts(Filename);
    if (!facts || facts->kind != EntryKind::File) return;
    picture = source_.Extract(Filename, *facts, DesiredWidth, DesiredHeight);
  });
  return picture;
}

}  // namespace tallowbrook
