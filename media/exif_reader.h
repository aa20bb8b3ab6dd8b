// ExifReader: the EXIF entries of a JPEG file, from the first 7001 bytes of it.
//
// The layout is that of TIFF 6.0 within an APP1 segment (CIPA DC-008). Values come out as the rest of
// the program wants them, which differs from the formats' own meaning in many places: see
// exif_reader.cpp.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/date.h"
#include "platform/files.h"

namespace tallowbrook {

namespace exif_tag {
inline constexpr std::int32_t exifIfd = 34665;
inline constexpr std::int32_t makerNote = 37500;
inline constexpr std::int32_t dateTimeOriginal = 36867;
inline constexpr std::int32_t pixelXDimension = 40962;
inline constexpr std::int32_t pixelYDimension = 40963;
inline constexpr std::int32_t xResolution = 282;
inline constexpr std::int32_t yResolution = 283;
}  // namespace exif_tag

// Nothing, a number, or bytes of text (in Windows-1252, zero bytes included).
using ExifValue = std::variant<std::monostate, std::int32_t, std::string>;

class ExifReader {
 public:
  explicit ExifReader(Files& files) : files_(files) {}

  // Load keeps a path that is already set.
  std::string picFile;

  // Reads the file's head and walks its directories. Nothing is told of a file that isn't as it
  // should be; what was read until there can be asked for. A missing file is made, empty. Throws
  // Failure if the file can't be opened or read, and failureSubscript if the first directory lies
  // behind the head. A second load appends its entries to those of the first.
  void Load(std::string_view path);

  // The value of the first entry with that number; empty if there is none. Number 0 gives how many
  // entries there are.
  ExifValue Tag(std::int32_t number) const;
  // No entry is ever marked as one of a maker's note: empty.
  ExifValue MakerNoteTag(std::int32_t number) const;

 private:
  struct TagRecord {
    std::int32_t Tag = 0;
    bool MakerNote = false;
    std::int32_t Format = 0;
    std::int32_t Components = 0;
    std::int32_t Offset = 0;
    ExifValue Value;
  };

  Files& files_;
  std::vector<char> image_;
  std::int32_t tiffStart_ = 0;
  bool littleEndian_ = false;
  bool loaded_ = false;
  std::vector<TagRecord> records_;
};

// One tag of a file as text, without blanks at its ends; empty without one. Throws as Load does.
std::string ReadExifTag(Files& files, const std::string& path, std::int32_t number);

// "YYYY:MM:DD HH:MM:SS" with NUL bytes behind; the zero date for anything else.
Date ParseExifDate(std::string_view text);

}  // namespace tallowbrook
