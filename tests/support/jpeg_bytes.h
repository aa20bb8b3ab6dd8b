// Photos built byte by byte: a start marker, an APP1 segment, and directories in it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tallowbrook {

enum class ByteOrder { Little, Big };

inline std::string Bytes(ByteOrder order, std::uint32_t value, int size) {
  std::string bytes;
  for (int i = 0; i < size; ++i) {
    const int place = order == ByteOrder::Little ? i : size - 1 - i;
    bytes += static_cast<char>(value >> (8 * place) & 0xFF);
  }
  return bytes;
}

// Up to four bytes of data stand in the entry, filled up with zeros; more stand behind the
// directory.
struct ExifEntry {
  std::uint32_t tag;
  std::uint32_t format;
  std::uint32_t components;
  std::string data;
};
using ExifEntries = std::vector<ExifEntry>;

// A directory that stands `at` bytes behind the TIFF start.
inline std::string Directory(ByteOrder order, const ExifEntries& entries, std::size_t at,
                             std::uint32_t next) {
  std::string directory = Bytes(order, static_cast<std::uint32_t>(entries.size()), 2);
  std::string behind;
  const std::size_t end = at + 2 + 12 * entries.size() + 4;
  for (const ExifEntry& entry : entries) {
    directory += Bytes(order, entry.tag, 2) + Bytes(order, entry.format, 2) +
                 Bytes(order, entry.components, 4);
    if (entry.data.size() > 4) {
      directory += Bytes(order, static_cast<std::uint32_t>(end + behind.size()), 4);
      behind += entry.data;
    } else {
      directory += entry.data + std::string(4 - entry.data.size(), '\0');
    }
  }
  return directory + Bytes(order, next, 4) + behind;
}

// Around what stands behind the TIFF header of 8 bytes.
inline std::string Jpeg(ByteOrder order, const std::string& directories) {
  const std::string tiff = (order == ByteOrder::Little ? "II" : "MM") + Bytes(order, 42, 2) +
                           Bytes(order, 8, 4) + directories;
  const auto length = static_cast<std::uint32_t>(tiff.size() + 8);
  return "\xFF\xD8\xFF\xE1" + Bytes(ByteOrder::Big, length, 2) + std::string("Exif\0\0", 6) + tiff;
}

// A main directory of `main` and a pointer to the Exif directory.
inline std::string Photo(ByteOrder order, ExifEntries main, const ExifEntries& exif) {
  main.push_back({34665, 4, 1, Bytes(order, 0, 4)});
  const std::size_t exifAt = 8 + Directory(order, main, 8, 0).size();
  main.back().data = Bytes(order, static_cast<std::uint32_t>(exifAt), 4);
  return Jpeg(order, Directory(order, main, 8, 0) + Directory(order, exif, exifAt, 0));
}

// A photo as a camera writes it, taken at "YYYY:MM:DD HH:MM:SS".
inline std::string PhotoTakenAt(const std::string& date, ByteOrder order = ByteOrder::Little) {
  const auto ratio = [&](std::uint32_t value) {
    return Bytes(order, value, 4) + Bytes(order, 1, 4);
  };
  return Photo(order, {{282, 5, 1, ratio(72)}, {283, 5, 1, ratio(300)}},
               {{36867, 2, static_cast<std::uint32_t>(date.size() + 1), date + '\0'},
                {40962, 3, 1, Bytes(order, 4000, 2)},
                {40963, 4, 1, Bytes(order, 3000, 4)}});
}

// A photo's start with an orientation and a small picture in its second directory. What follows
// the segments, such as JpegFrame, comes behind it.
inline std::string PhotoWithThumbnail(ByteOrder order, std::uint32_t orientation,
                                      const std::string& thumbnail) {
  const auto size = static_cast<std::uint32_t>(thumbnail.size());
  ExifEntries small = {{259, 3, 1, Bytes(order, 6, 2)},
                       {513, 4, 1, Bytes(order, 0, 4)},
                       {514, 4, 1, Bytes(order, size, 4)}};
  const ExifEntries main = {{274, 3, 1, Bytes(order, orientation, 2)}};
  const auto secondAt = static_cast<std::uint32_t>(8 + Directory(order, main, 8, 0).size());
  const std::size_t end = secondAt + Directory(order, small, secondAt, 0).size();
  small[1].data = Bytes(order, static_cast<std::uint32_t>(end), 4);
  return Jpeg(order, Directory(order, main, 8, secondAt) + Directory(order, small, secondAt, 0) +
                         thumbnail);
}

// A frame header of three components, and the start of a scan of some of them.
inline std::string JpegFrame(int marker, std::uint32_t width, std::uint32_t height,
                             int scanned = 3) {
  const auto big = [](std::uint32_t value) { return Bytes(ByteOrder::Big, value, 2); };
  const auto byte = [](int value) { return std::string(1, static_cast<char>(value)); };
  std::string frame =
      "\xFF" + byte(marker) + big(17) + byte(8) + big(height) + big(width) + byte(3);
  for (int i = 1; i <= 3; ++i) frame += byte(i) + byte(0x11) + byte(0);
  std::string scan = "\xFF\xDA" + big(static_cast<std::uint32_t>(6 + 2 * scanned)) + byte(scanned);
  for (int i = 1; i <= scanned; ++i) scan += byte(i) + byte(0);
  return frame + scan + byte(0) + byte(63) + byte(0);
}

}  // namespace tallowbrook
