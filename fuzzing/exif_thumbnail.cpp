// The head of a JPEG file: any bytes as one.
//
// Aborts if a number is none that such a file can bear, or if the small picture or what a decoder
// is handed aren't stretches of the file.
#include "media/exif_thumbnail.h"

#include <cstdint>

#include "fuzzing/memory_files.h"
#include "fuzzing/require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tallowbrook;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  MemoryFiles disk;
  disk.Put("p.jpg", bytes);
  const std::optional<JpegHead> head = ReadJpegHead(disk, "p.jpg");
  Require(disk.reads <= 2 || bytes.size() > 128 << 10);
  Require(head.has_value() == bytes.starts_with("\xFF\xD8\xFF"));
  if (!head) return 0;
  Require(head->orientation >= 1 && head->orientation <= 8);
  Require(head->width >= 0 && head->width <= 65535 && head->height >= 0 && head->height <= 65535);
  Require(head->thumbnail.empty() || head->thumbnail.starts_with("\xFF\xD8\xFF"));
  Require(bytes.find(head->thumbnail) != std::string_view::npos);
  std::int64_t end = 0;
  for (const FilePart& part : head->pixels) {
    Require(part.at >= end && part.size > 0);
    end = part.at + part.size;
  }
  Require(head->pixels.empty() || end == std::ssize(bytes));
  return 0;
}
