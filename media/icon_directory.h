// The directory of an icon or cursor file: one small picture in several sizes.
//
// An entry of 16 bytes a picture behind a header of 6 (reserved, type, count), little endian. A
// picture is a bitmap that begins with its header of 40 bytes, or a PNG file.
#pragma once

#include <optional>

#include "media/file_parts.h"
#include "platform/files.h"

namespace tallowbrook {

struct IconPlace {
  int index = 0;  // in the directory, from 0
  FilePart bytes;
  bool isBitmap = false;  // otherwise it is a PNG file, or none at all
};

// The largest picture, among those of one size the one of most colours; nothing without any, or
// if the file can't be read. Pictures behind the 256th don't count.
std::optional<IconPlace> LargestIcon(RandomAccessFile& file);

}  // namespace tallowbrook
