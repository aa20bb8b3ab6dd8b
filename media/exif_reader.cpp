#include "media/exif_reader.h"

#include <algorithm>
#include <bitset>
#include <charconv>
#include <vector>

#include "base/code_page.h"
#include "base/decimal.h"
#include "base/guards.h"
#include "base/text.h"
#include "media/file_failure.h"

namespace tallowbrook {
namespace {

constexpr std::size_t entrySize = 12;
constexpr std::string_view reader = "ExifReader";

enum Format : std::int32_t {
  formatByte = 1,
  formatAscii = 2,
  formatShort = 3,
  formatLong = 4,
  formatRational = 5,
  formatSignedByte = 6,
  formatUndefined = 7,
  formatSignedShort = 8,
  formatSignedLong = 9,
  formatSignedRational = 10,
};

// Bytes a component; 0 for a format that has no value here.
int ComponentSize(std::int32_t format) {
  static constexpr int sizes[] = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8};
  const auto index = static_cast<std::size_t>(format);
  return index < std::size(sizes) ? sizes[index] : 0;
}

void AppendDecimals(std::string& text, std::span<const char> bytes) {
  for (const char byte : bytes) text += std::to_string(static_cast<unsigned char>(byte));
}

}  // namespace

unsigned ExifReader::Byte(std::int64_t at) const {
  if (at < 0 || at >= std::ssize(Image())) Raise(failureSubscript, reader);
  return static_cast<unsigned char>(image_[static_cast<std::size_t>(at)]);
}

std::int32_t ExifReader::Short(std::int64_t at) const {
  const unsigned first = Byte(at);
  const unsigned second = Byte(at + 1);
  return static_cast<std::int32_t>(littleEndian_ ? second << 8 | first : first << 8 | second);
}

// The signed formats are no exception: a value with its top bit set fails.
std::int32_t ExifReader::Long(std::int64_t at) const {
  const auto first = static_cast<std::uint32_t>(Short(at));
  const auto second = static_cast<std::uint32_t>(Short(at + 2));
  const std::uint32_t value = littleEndian_ ? second << 16 | first : first << 16 | second;
  if (value > INT32_MAX) Raise(failureOverflow, reader);
  return static_cast<std::int32_t>(value);
}

void ExifReader::Load(std::string_view path) {
  if (picFile.empty()) picFile = path;
  if (picFile.empty()) return;
  ReadHead();
  loaded_ = false;
  if (!Attempt([this] { CheckHead(); })) return;
  littleEndian_ = Byte(tiffStart_) == 0x49;
  const std::int64_t first = std::int64_t{tiffStart_} + Long(tiffStart_ + 4);
  loaded_ = true;
  Short(first);
  Attempt([&] { WalkDirectories(first); });
}

void ExifReader::ReadHead() {
  FileError error = FileError::None;
  const std::unique_ptr<RandomAccessFile> file =
      files_.Open(picFile, FileAccess::ReadOrCreate, &error);
  RaiseOnError(error, reader);
  imageSize_ = static_cast<std::size_t>(std::min<std::int64_t>(file->Size() + 1, longestHead));
  std::size_t got = 0;
  FileError readError = FileError::None;
  if (file->Size() > 0) readError = file->Read(0, {image_.data(), imageSize_}, got);
  std::fill(image_.data() + got, image_.data() + imageSize_, '\0');
  RaiseOnError(readError, reader);
}

// A start marker of which either byte is right will do. The first FF E1 in the head is taken for
// the segment's marker, whatever segment it stands in. Both are wanted.
void ExifReader::CheckHead() {
  if (Byte(1) != 0xD8 && Byte(0) != 0xFF) Raise(failureInvalidArgument, reader);
  const std::string_view head(image_.data(), imageSize_);
  const std::size_t found = head.find("\xFF\xE1", 2);
  const std::size_t marker = found != std::string_view::npos ? found : 0;
  tiffStart_ = static_cast<std::int32_t>(marker) + 10;
  if (head.size() < marker + 8 || head.substr(marker + 4, 4) != "Exif") {
    Raise(failureInvalidArgument, reader);
  }
}

// The main directory, those chained behind it, and last the Exif directory. A chain that comes back
// to a directory that it has walked ends there.
void ExifReader::WalkDirectories(std::int64_t position) {
  std::bitset<longestHead> walked;
  bool inExif = false;
  for (;;) {
    const std::int32_t count = Short(position);
    recordCount_ += count;
    if (!inExif) walked[static_cast<std::size_t>(position)] = true;
    for (std::int32_t i = 0; i < count; ++i) {
      ReadEntry(position + 2 + static_cast<std::int64_t>(entrySize) * i);
    }
    std::int64_t next = inExif ? 0 : Long(position + 2 + std::int64_t{entrySize} * count);
    const auto place = static_cast<std::size_t>(tiffStart_ + next);
    if (next != 0 && place < walked.size() && walked[place]) next = 0;
    if (next == 0 && !inExif) {
      next = exifIfd_;
      inExif = true;
    }
    if (next == 0) return;
    position = tiffStart_ + next;
  }
}

void ExifReader::ReadEntry(std::int64_t at) {
  const std::int32_t number = Short(at);
  // The first entry of a number hides those behind it.
  TagRecord hidden;
  const auto [place, isFirst] = records_.try_emplace(number);
  TagRecord& record = isFirst ? place->second : hidden;
  record.Format = Short(at + 2);
  record.Components = Long(at + 4);
  if (ComponentSize(record.Format) != 0) {
    if (ByOffset(record)) record.Offset = Long(at + 8);
    record.at = ByOffset(record) ? std::int64_t{tiffStart_} + record.Offset : at + 8;
    CheckValue(record);
    record.hasValue = true;
  }
  if (number == exif_tag::exifIfd) exifIfd_ = AsNumber(record);
}

// Fails where making up the value would.
void ExifReader::CheckValue(const TagRecord& record) const {
  Byte(record.at);
  if (!ByOffset(record)) {
    Byte(record.at + 3);
    if (ComponentSize(record.Format) == 4) Long(record.at);
  } else if (ComponentSize(record.Format) == 8) {
    Long(record.at);
    Long(record.at + 4);
  } else {
    Byte(record.at + record.Components - 1);
  }
}

bool ExifReader::ByOffset(const TagRecord& record) {
  return std::int64_t{ComponentSize(record.Format)} * record.Components > 4;
}

ExifValue ExifReader::ValueOf(const TagRecord& record) const {
  // A second load may have read a shorter file.
  if (!record.hasValue || !Attempt([&] { CheckValue(record); })) return {};
  return ByOffset(record) ? FarValue(record) : InlineValue(record);
}

// Numbers are run together without anything between, and of shorts and longs only as many bytes are
// taken as there are components. It must be so.
ExifValue ExifReader::FarValue(const TagRecord& record) const {
  const Head bytes = Image().subspan(static_cast<std::size_t>(record.at));
  const auto components = static_cast<std::size_t>(record.Components);
  std::string text;
  switch (record.Format) {
    case formatAscii:
    case formatUndefined:
      return std::string(bytes.data(), components);
    case formatRational:
    case formatSignedRational:
      return std::to_string(Long(record.at)) + "/" + std::to_string(Long(record.at + 4));
    case formatShort:
    case formatSignedShort:
      if (littleEndian_) break;
      for (std::size_t i = components; i > 0; --i) AppendDecimals(text, bytes.subspan(i - 1, 1));
      return text;
    default:
      break;
  }
  AppendDecimals(text, bytes.first(components));
  return text;
}

// All four bytes, however many components there are; of a little-endian file from last to first, so
// that a text reads backwards.
ExifValue ExifReader::InlineValue(const TagRecord& record) const {
  std::string bytes(image_.data() + record.at, 4);
  if (littleEndian_) std::reverse(bytes.begin(), bytes.end());
  switch (record.Format) {
    case formatAscii:
    case formatUndefined:
      return bytes;
    case formatShort:
    case formatSignedShort:
      return Short(record.at) + Short(record.at + 2);
    case formatLong:
    case formatSignedLong:
      return Long(record.at);
    case formatByte:
    case formatSignedByte:
      break;
    default:
      return {};
  }
  std::string digits;
  for (const char c : bytes) {
    static constexpr char hex[] = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    digits += {hex[byte >> 4], hex[byte & 15]};
  }
  return digits;
}

// A text can be a number too; one of so many bytes isn't looked at, since a head can hold many such
// entries.
std::int32_t ExifReader::AsNumber(const TagRecord& record) const {
  constexpr std::int32_t mostBytes = 32;
  if (ByOffset(record) && record.Components > mostBytes) {
    Raise(failureInvalidArgument, reader);
  }
  const ExifValue value = ValueOf(record);
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  const auto* text = std::get_if<std::string>(&value);
  if (text == nullptr) return 0;
  const std::optional<std::int32_t> whole = WholeNumber(*text);
  if (!whole) Raise(failureInvalidArgument, reader);
  return *whole;
}

ExifValue ExifReader::Tag(std::int32_t number) const {
  if (!loaded_) return {};
  if (number == 0) return recordCount_ > 0 ? ExifValue(recordCount_) : ExifValue();
  const auto found = records_.find(number);
  return found != records_.end() ? ValueOf(found->second) : ExifValue();
}

ExifValue ExifReader::MakerNoteTag(std::int32_t) const {
  return {};
}

std::string ExifText(const ExifValue& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
  const auto* bytes = std::get_if<std::string>(&value);
  return bytes != nullptr ? FromCodePage(TrimBlanks(*bytes)) : std::string();
}

std::string ReadExifTag(Files& files, const std::string& path, std::int32_t number) {
  ExifReader exif(files);
  exif.Load(path);
  return ExifText(exif.Tag(number));
}

// "2024:02:09 07:05:03" as nearly all cameras write it; nothing for whatever is written otherwise.
std::optional<Date> ParseUsualDate(std::string_view text) {
  constexpr std::string_view form = "0000:00:00 00:00:00";
  if (text.size() != form.size()) return std::nullopt;
  for (std::size_t i = 0; i < form.size(); ++i) {
    if (form[i] == '0' ? !IsDigit(text[i]) : text[i] != form[i]) return std::nullopt;
  }
  const auto number = [text](std::size_t at, std::size_t digits) {
    int value = 0;
    for (const char c : text.substr(at, digits)) value = value * 10 + (c - '0');
    return value;
  };
  return MakeDate(
      {number(0, 4), number(5, 2), number(8, 2), number(11, 2), number(14, 2), number(17, 2)});
}

Date ParseExifDate(std::string_view text) {
  // A date alone ends in the NUL that belongs to the time otherwise.
  text = text.substr(0, text.find_last_not_of('\0') + 1);
  if (const std::optional<Date> usual = ParseUsualDate(text)) return *usual;
  const std::size_t blank = text.find(' ');
  const std::vector<std::string_view> numbers = Split(text.substr(0, blank), ':');
  if (numbers.size() < 3) return {};
  std::string joined;
  for (const std::size_t part : {1U, 2U, 0U}) {  // month, day, year
    std::int16_t value = 0;
    const std::string_view digits = numbers[part];
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end) return {};
    joined.append(std::to_string(value)) += part == 0 ? ' ' : '/';
  }
  if (blank != std::string_view::npos) {
    std::string_view time = text.substr(blank + 1);
    time = time.substr(0, time.find(' '));
    for (const char c : time) joined += c == '\0' ? ' ' : c;
  }
  return ParseDateText(joined).value_or(Date{});
}

}  // namespace tallowbrook
