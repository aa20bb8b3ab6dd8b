#include "media/icon_directory.h"

#include <string_view>
#include <utility>

namespace tallowbrook {

namespace {

constexpr std::size_t headerSize = 6;
constexpr std::size_t entrySize = 16;
constexpr std::size_t mostEntries = 256;
constexpr std::uint32_t bitmapHeader = 40;

std::uint32_t LittleEndian(std::string_view bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) {
    number = number << 8 | static_cast<unsigned char>(bytes[i]);
  }
  return number;
}

// A side of 256 pixels is written as 0.
std::uint32_t Side(char byte) {
  return byte == 0 ? 256 : static_cast<unsigned char>(byte);
}

// Of one entry of the directory.
IconPlace Place(int index, std::string_view entry) {
  return {index, {LittleEndian(entry.substr(12, 4)), LittleEndian(entry.substr(8, 4))}};
}

bool IsBitmap(RandomAccessFile& file, std::int64_t at) {
  char bytes[4];
  std::size_t got = 0;
  return file.Read(at, bytes, got) == FileError::None && LittleEndian({bytes, got}) == bitmapHeader;
}

}  // namespace

std::optional<IconPlace> LargestIcon(RandomAccessFile& file) {
  char bytes[headerSize + mostEntries * entrySize];
  std::size_t got = 0;
  if (file.Read(0, bytes, got) != FileError::None || got < headerSize) return {};
  const std::string_view directory(bytes, got);
  const std::size_t count = LittleEndian(directory.substr(4, 2));
  std::optional<IconPlace> largest;
  std::pair<std::uint32_t, std::uint32_t> best;  // pixels, bits of each
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t at = headerSize + i * entrySize;
    if (at + entrySize > directory.size()) break;
    const std::string_view entry = directory.substr(at, entrySize);
    const std::pair value(Side(entry[0]) * Side(entry[1]), LittleEndian(entry.substr(6, 2)));
    if (largest && value <= best) continue;
    best = value;
    largest = Place(static_cast<int>(i), entry);
  }
  if (largest) largest->isBitmap = IsBitmap(file, largest->bytes.at);
  return largest;
}

}  // namespace tallowbrook
