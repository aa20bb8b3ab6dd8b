#include "media/exif_thumbnail.h"

#include <algorithm>
#include <cstdint>
#include <memory>

namespace tallowbrook {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view startOfImage = "\xFF\xD8\xFF"sv;
constexpr std::string_view exifMark = "Exif\0\0"sv;
constexpr std::size_t markSize = 4;  // a marker and the length of its segment
constexpr std::size_t entrySize = 12;

enum Marker : std::uint8_t {
  markerTem = 0x01,
  markerSof0 = 0xC0,
  markerSof1 = 0xC1,
  markerDht = 0xC4,
  markerJpg = 0xC8,
  markerDac = 0xCC,
  markerSof15 = 0xCF,
  markerRst0 = 0xD0,
  markerEoi = 0xD9,
  markerSos = 0xDA,
  markerApp1 = 0xE1,
};

enum Tag : std::uint32_t {
  tagOrientation = 274,
  tagThumbnailOffset = 513,  // JPEGInterchangeFormat
  tagThumbnailLength = 514,
};

constexpr std::uint32_t formatShort = 3;

// Numbers at any place; those beyond the end are 0, which stands for nothing in every field that is
// read here.
class Numbers {
 public:
  Numbers(std::string_view bytes, bool littleEndian) : bytes_(bytes), littleEndian_(littleEndian) {}

  std::uint32_t Byte(std::size_t at) const { return Number(at, 1); }
  std::uint32_t Short(std::size_t at) const { return Number(at, 2); }
  std::uint32_t Long(std::size_t at) const { return Number(at, 4); }
  std::string_view Bytes() const { return bytes_; }

 private:
  std::uint32_t Number(std::size_t at, std::size_t size) const {
    if (at > bytes_.size() || bytes_.size() - at < size) return 0;
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i) {
      const std::size_t place = littleEndian_ ? size - 1 - i : i;
      number = number << 8 | static_cast<unsigned char>(bytes_[at + place]);
    }
    return number;
  }

  std::string_view bytes_;
  bool littleEndian_;
};

// The value of an entry that holds one number; 0 without the entry.
std::uint32_t ValueOf(const Numbers& tiff, std::size_t directory, std::uint32_t tag) {
  const std::size_t count = tiff.Short(directory);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t entry = directory + 2 + i * entrySize;
    if (entry >= tiff.Bytes().size()) break;
    if (tiff.Short(entry) != tag) continue;
    return tiff.Short(entry + 2) == formatShort ? tiff.Short(entry + 8) : tiff.Long(entry + 8);
  }
  return 0;
}

void ReadExif(std::string_view bytes, JpegHead& head) {
  const Numbers tiff(bytes, bytes.starts_with("II"));
  const std::size_t main = tiff.Long(4);
  const std::uint32_t orientation = ValueOf(tiff, main, tagOrientation);
  if (orientation >= 1 && orientation <= 8) head.orientation = static_cast<int>(orientation);
  const std::size_t second = tiff.Long(main + 2 + tiff.Short(main) * entrySize);
  if (second == 0) return;
  const std::size_t at = ValueOf(tiff, second, tagThumbnailOffset);
  const std::size_t length = ValueOf(tiff, second, tagThumbnailLength);
  if (at > bytes.size() || length > bytes.size() - at) return;
  const std::string_view thumbnail = bytes.substr(at, length);
  if (thumbnail.starts_with(startOfImage)) head.thumbnail = thumbnail;
}

bool IsFrame(std::uint32_t marker) {
  return marker >= markerSof0 && marker <= markerSof15 && marker != markerDht &&
         marker != markerJpg && marker != markerDac;
}

bool StandsAlone(std::uint32_t marker) {
  return marker == markerTem || (marker >= markerRst0 && marker < markerEoi);
}

}  // namespace

// Whatever segment has been read to its end counts.
std::optional<JpegHead> ParseJpegHead(std::string_view bytes) {
  if (!bytes.starts_with(startOfImage)) return {};
  JpegHead head;
  const Numbers file(bytes, false);
  std::uint32_t frame = 0;  // its marker
  std::uint32_t components = 0;
  bool hasExif = false;
  for (std::size_t at = 2; file.Byte(at) == 0xFF;) {
    const std::uint32_t marker = file.Byte(at + 1);
    if (marker == 0xFF) {  // a byte that fills up
      ++at;
      continue;
    }
    if (StandsAlone(marker)) {
      at += 2;
      continue;
    }
    const std::size_t length = file.Short(at + 2);
    if (marker == markerEoi || length < 2 || bytes.size() - at - 2 < length) break;
    const std::string_view segment = bytes.substr(at + markSize, length - 2);
    if (IsFrame(marker) && frame == 0) {
      frame = marker;
      head.height = static_cast<int>(file.Short(at + 5));
      head.width = static_cast<int>(file.Short(at + 7));
      components = file.Byte(at + 9);
    } else if (marker == markerApp1 && !hasExif && segment.starts_with(exifMark)) {
      hasExif = true;
      ReadExif(segment.substr(exifMark.size()), head);
    } else if (marker == markerSos) {
      const bool isSequential = frame == markerSof0 || frame == markerSof1;
      head.decodesByRows = isSequential && file.Byte(at + 4) == components;
      break;
    }
    at += 2 + length;
  }
  return head;
}

std::optional<JpegHead> ReadJpegHead(Files& files, const std::string& path) {
  constexpr std::size_t most = 128 << 10;
  constexpr std::size_t first = 16;  // enough to tell a JPEG file from others
  const std::unique_ptr<RandomAccessFile> file = files.Open(path, FileAccess::Read);
  if (!file || file->Size() < std::ssize(startOfImage)) return {};
  const std::size_t size = std::min<std::size_t>(most, static_cast<std::size_t>(file->Size()));
  const auto bytes = std::make_unique_for_overwrite<char[]>(size);
  std::size_t got = 0;
  if (file->Read(0, {bytes.get(), std::min(first, size)}, got) != FileError::None ||
      !std::string_view(bytes.get(), got).starts_with(startOfImage)) {
    return {};
  }
  if (file->Read(0, {bytes.get(), size}, got) != FileError::None) return {};
  return ParseJpegHead({bytes.get(), got});
}

}  // namespace tallowbrook
