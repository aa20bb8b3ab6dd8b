// ExifReader: the EXIF entries of a JPEG file, from the first 7001 bytes of it.
//
// The layout is that of TIFF 6.0 within an APP1 segment (CIPA DC-008). Values come out as the rest
// of the program wants them, which differs from the formats' own meaning in many places: see
// exif_reader.cpp.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>

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

  // Of several entries with that number the one that was met first counts; empty without one. 0
  // asks how many entries there are of all.
  ExifValue Tag(std::int32_t number) const;
  // Makers' notes aren't walked: always empty.
  ExifValue MakerNoteTag(std::int32_t number) const;

 private:
  // One entry as it was found. Its value is made up when asked for: a head of directories that
  // overlap would otherwise cost many times its bytes.
  struct TagRecord {
    std::int32_t Format = 0;
    std::int32_t Components = 0;
    std::int32_t Offset = 0;  // of the value, from the TIFF start; 0 if it lies in the entry
    std::int64_t at = 0;      // of the value, in the head
    bool hasValue = false;
  };

  // What is read of a file: its first bytes, and one zero byte behind a shorter file. What lies
  // further back isn't found; the bound keeps a folder of photos quick to list.
  static constexpr std::size_t longestHead = 7001;
  using Head = std::span<const char>;
  Head Image() const { return {image_.data(), imageSize_}; }

  void ReadHead();
  void CheckHead();
  void WalkDirectories(std::int64_t position);
  void ReadEntry(std::int64_t at);
  // Each throws failureSubscript outside of the head, Long failureOverflow beyond 31 bits.
  unsigned Byte(std::int64_t at) const;
  std::int32_t Short(std::int64_t at) const;
  std::int32_t Long(std::int64_t at) const;

  static bool ByOffset(const TagRecord& record);
  void CheckValue(const TagRecord& record) const;
  ExifValue ValueOf(const TagRecord& record) const;
  ExifValue FarValue(const TagRecord& record) const;
  ExifValue InlineValue(const TagRecord& record) const;
  std::int32_t AsNumber(const TagRecord& record) const;

  Files& files_;
  // The head, in memory that isn't asked for and cleared for each of a hundred thousand photos.
  std::array<char, longestHead> image_;
  std::size_t imageSize_ = 0;
  std::int32_t tiffStart_ = 0;
  bool littleEndian_ = false;
  bool loaded_ = false;
  std::int32_t exifIfd_ = 0;
  // The first entry of each number, and how many there are of all.
  std::unordered_map<std::int32_t, TagRecord> records_;
  std::int32_t recordCount_ = 0;
};

// A value as text, without blanks at its ends; empty without one.
std::string ExifText(const ExifValue& value);
// One tag of a file as such text. Throws as Load does.
std::string ReadExifTag(Files& files, const std::string& path, std::int32_t number);

// "YYYY:MM:DD HH:MM:SS" with NUL bytes behind; the zero date for anything else.
Date ParseExifDate(std::string_view text);

}  // namespace tallowbrook
