// The EXIF reader: any bytes as a photo, every entry that they may hold asked for.
//
// Aborts if anything but a Failure is thrown, if the file is read more than once, or if a value is
// longer than the head of a file can make it.
#include <cstdint>

#include "base/failure.h"
#include "fuzzing/memory_files.h"
#include "fuzzing/require.h"
#include "media/exif_reader.h"

namespace {

using namespace tallowbrook;

// Three digits a byte of the head.
constexpr std::size_t longestValue = 3 * 7001;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  MemoryFiles disk;
  disk.Put("p.jpg", {reinterpret_cast<const char*>(data), size});
  ExifReader reader(disk);
  try {
    reader.Load("p.jpg");
  } catch (const Failure&) {
    Require(ExifText(reader.Tag(0)).empty());
  }
  Require(disk.reads <= 1);
  const std::size_t head = std::min<std::size_t>(size, 7001);
  for (std::size_t at = 0; at + 1 < head; ++at) {
    for (const int number : {data[at] << 8 | data[at + 1], data[at + 1] << 8 | data[at]}) {
      const ExifValue value = reader.Tag(number);
      if (const auto* text = std::get_if<std::string>(&value)) {
        Require(text->size() <= longestValue);
      }
    }
  }
  ParseExifDate(ExifText(reader.Tag(exif_tag::dateTimeOriginal)));
  return 0;
}
