#include "media/exif_thumbnail.h"

#include <algorithm>
#include <cstdint>
#include <memory>

namespace tallowbrook {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view startOfImage = "\xFF\xD8\xFF"sv;
constexpr std::string_view exifMark = "Exif\0\0"sv;
constexpr std::string_view profileMark = "ICC_PROFILE\0"sv;
constexpr std::string_view startOfScan = "\xFF\xDA"sv;
constexpr std::size_t markSize = 4;  // a marker and the length of its segment
constexpr std::size_t longestProfile = 1 << 20;
constexpr int mostSteps = 4096;
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
  markerSoi = 0xD8,
  markerEoi = 0xD9,
  markerSos = 0xDA,
  markerDqt = 0xDB,
  markerDri = 0xDD,
  markerApp0 = 0xE0,   // JFIF
  markerApp1 = 0xE1,   // EXIF
  markerApp2 = 0xE2,   // the profile of colours
  markerApp14 = 0xEE,  // how colours are encoded
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
  return marker == markerTem || (marker >= markerRst0 && marker < markerSoi);
}

// The bytes around the place that is looked at: a file needn't be in memory.
class Window {
 public:
  explicit Window(std::string_view whole) : size_(whole.size()), bytes_(whole) {}
  explicit Window(RandomAccessFile& file)
      : file_(&file), size_(static_cast<std::size_t>(std::max<std::int64_t>(file.Size(), 0))) {}

  std::size_t Size() const { return size_; }
  bool HasFailed() const { return hasFailed_; }

  // Fewer at the end of the file; none once it can't be read.
  std::string_view At(std::size_t at, std::size_t size) {
    if (at >= size_) return {};
    size = std::min(size, size_ - at);
    if (at < start_ || at + size > start_ + bytes_.size()) Load(at, std::max(size, ahead));
    return bytes_.substr(std::min(at - start_, bytes_.size()), size);
  }
  void Load(std::size_t at, std::size_t size) {
    if (!file_ || hasFailed_) return;
    if (size > room_) buffer_ = std::make_unique_for_overwrite<char[]>(room_ = size);
    std::size_t got = 0;
    hasFailed_ =
        file_->Read(static_cast<std::int64_t>(at), {buffer_.get(), size}, got) != FileError::None;
    start_ = at;
    bytes_ = {buffer_.get(), hasFailed_ ? 0 : got};
  }

 private:
  static constexpr std::size_t ahead = 4 << 10;

  RandomAccessFile* file_ = nullptr;
  std::size_t size_;
  std::size_t start_ = 0;
  std::string_view bytes_;
  std::unique_ptr<char[]> buffer_;
  std::size_t room_ = 0;
  bool hasFailed_ = false;
};

// From marker to marker. Whatever segment is there to its end counts.
class Walk {
 public:
  explicit Walk(Window& file) : file_(file) { AddPart(head_.pixels, {0, 2}); }

  JpegHead Head() && {
    for (int i = 0; i < mostSteps && Step(); ++i) {
    }
    if (!hasScan_) head_.pixels.clear();
    return std::move(head_);
  }

 private:
  struct Segment {
    std::uint32_t marker;
    std::size_t at;
    std::size_t size;        // with its marker
    std::string_view start;  // its first data
  };

  // False at the end.
  bool Step() {
    const std::string_view start = file_.At(at_, markSize + profileMark.size());
    const Numbers numbers(start, false);
    const std::uint32_t marker = numbers.Byte(1);
    if (start.size() < 2) return false;
    if (numbers.Byte(0) != 0xFF || marker == 0 || marker == 0xFF) {
      ++at_;  // fills up between segments
      return true;
    }
    if (StandsAlone(marker)) {
      at_ += 2;
      return true;
    }
    const std::size_t length = numbers.Short(2);
    if (marker < markerSof0 || marker == markerSoi || marker == markerEoi || length < 2 ||
        file_.Size() - at_ - 2 < length) {
      return false;
    }
    Take({marker, at_, 2 + length, start.substr(markSize)});
    at_ += 2 + length;
    return !hasScan_;
  }

  void Take(const Segment& segment) {
    switch (segment.marker) {
      case markerApp1:
        TakeExif(segment);
        return;
      case markerApp2:
        TakeProfile(segment);
        return;
      case markerSos:
        TakeScan(segment);
        return;
      case markerDht:
      case markerDac:
      case markerDqt:
      case markerDri:
      case markerApp0:
      case markerApp14:
        Keep(segment);
        return;
      default:
        if (IsFrame(segment.marker)) TakeFrame(segment);
    }
  }

  void TakeExif(const Segment& segment) {
    if (hasExif_ || !segment.start.starts_with(exifMark)) return;
    hasExif_ = true;
    const std::size_t before = markSize + exifMark.size();
    ReadExif(file_.At(segment.at + before, segment.size - before), head_);
  }
  void TakeProfile(const Segment& segment) {
    profileSize_ += segment.size;
    if (segment.start.starts_with(profileMark) && profileSize_ <= longestProfile) Keep(segment);
  }
  // A second one is none of this picture's.
  void TakeFrame(const Segment& segment) {
    if (frame_ != 0) return;
    const Numbers data(segment.start, false);
    frame_ = segment.marker;
    head_.height = static_cast<int>(data.Short(1));
    head_.width = static_cast<int>(data.Short(3));
    components_ = data.Byte(5);
    Keep(segment);
  }
  void TakeScan(const Segment& segment) {
    const bool isSequential = frame_ == markerSof0 || frame_ == markerSof1;
    head_.decodesByRows = isSequential && Numbers(segment.start, false).Byte(0) == components_;
    Keep({segment.marker, segment.at, file_.Size() - segment.at, {}});
    hasScan_ = true;
  }
  void Keep(const Segment& segment) {
    AddPart(head_.pixels,
            {static_cast<std::int64_t>(segment.at), static_cast<std::int64_t>(segment.size)});
  }

  Window& file_;
  JpegHead head_;
  std::size_t at_ = 2;
  std::uint32_t frame_ = 0;  // its marker
  std::uint32_t components_ = 0;
  std::size_t profileSize_ = 0;
  bool hasExif_ = false;
  bool hasScan_ = false;
};

}  // namespace

std::optional<JpegHead> ParseJpegHead(std::string_view bytes) {
  if (!bytes.starts_with(startOfImage)) return {};
  Window window(bytes);
  return Walk(window).Head();
}

std::optional<JpegHead> ReadJpegHead(Files& files, const std::string& path) {
  constexpr std::size_t first = 16;        // enough to tell a JPEG file from others
  constexpr std::size_t most = 128 << 10;  // the whole head of nearly every photo
  const std::unique_ptr<RandomAccessFile> file = files.Open(path, FileAccess::Read);
  if (!file) return {};
  Window window(*file);
  window.Load(0, first);
  if (!window.At(0, startOfImage.size()).starts_with(startOfImage)) return {};
  window.Load(0, std::min(most, window.Size()));
  JpegHead head = Walk(window).Head();
  return window.HasFailed() ? std::nullopt : std::optional(std::move(head));
}

// Within a scan a byte FF is followed by a zero or stands for a marker.
std::optional<int> CountScans(RandomAccessFile& file, std::int64_t at) {
  constexpr std::size_t blockSize = 64 << 10;
  const auto block = std::make_unique_for_overwrite<char[]>(blockSize);
  int scans = 0;
  std::size_t got = blockSize;
  for (; got == blockSize; at += static_cast<std::int64_t>(blockSize - 1)) {
    if (file.Read(at, {block.get(), blockSize}, got) != FileError::None) return {};
    const std::string_view bytes(block.get(), got);
    for (std::size_t i = 0; (i = bytes.find(startOfScan, i)) != bytes.npos; ++i) ++scans;
  }
  return scans;
}

}  // namespace tallowbrook
