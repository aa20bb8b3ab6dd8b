// Icon files: any bytes as one. Aborts if the picture that is chosen isn't the one that its entry
// tells, if another one is larger, or if more is read than a directory and a number.
#include "media/icon_directory.h"

#include <cstdint>

#include "fuzzing/memory_files.h"
#include "fuzzing/require.h"
#include "media/png_chunks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tallowbrook;
  MemoryFiles disk;
  disk.Put("i", {reinterpret_cast<const char*>(data), size});
  const auto file = disk.Open("i", FileAccess::Read, nullptr);
  const std::optional<IconPlace> icon = LargestIcon(*file);
  Require(disk.reads <= 2);
  const std::size_t said = size < 6 ? 0 : data[4] + data[5] * std::size_t{256};
  const std::size_t entries = size < 6 ? 0 : std::min({said, (size - 6) / 16, std::size_t{256}});
  Require(icon.has_value() == (entries > 0));
  if (!icon) return 0;
  Require(icon->index >= 0 && icon->index < static_cast<int>(entries));
  const auto pixels = [&](std::size_t index) {
    const std::uint8_t* entry = data + 6 + 16 * index;
    return (entry[0] == 0 ? 256 : entry[0]) * (entry[1] == 0 ? 256 : entry[1]);
  };
  for (std::size_t i = 0; i < entries; ++i) {
    Require(pixels(i) <= pixels(static_cast<std::size_t>(icon->index)));
  }
  Require(icon->bytes.at >= 0 && icon->bytes.size >= 0);
  for (const FilePart& part : PngParts(*file, icon->bytes)) {
    Require(part.at >= icon->bytes.at && part.at < static_cast<std::int64_t>(size));
    Require(part.at + part.size <= icon->bytes.at + icon->bytes.size);
  }
  return 0;
}
