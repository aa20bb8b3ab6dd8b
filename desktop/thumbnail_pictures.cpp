#include "desktop/thumbnail_pictures.h"

#include <QBuffer>
#include <QImageReader>
#include <QTransform>
#include <algorithm>
#include <cmath>

#include "desktop/file_device.h"
#include "desktop/packed_picture.h"
#include "media/icon_directory.h"
#include "media/png_chunks.h"

namespace tallowbrook {

namespace {

using namespace std::string_view_literals;

constexpr int allocationLimit = 200;  // MiB, of one image

// Pixels that may be decoded. Of what needs a few rows in memory at a time they bound the time, a
// second or two, of all else the memory too. Each scan of a photo takes the time of all its pixels.
constexpr qint64 mostByRows = 250'000'000;
constexpr qint64 mostAtOnce = 40'000'000;
constexpr qint64 mostScanned = 16 * mostAtOnce;

// What a reader is handed of a file.
struct Source {
  const char* format;  // the toolkit's
  qint64 mostPixels;
  FileParts parts;
  int image = 0;  // of several
};

struct Format {
  const char* name;  // the toolkit's
  std::size_t at;
  std::string_view mark;
  qint64 mostBytes;  // some readers take in all of a file, whatever is in it
  qint64 mostPixels;
  Source (*source)(const Format& format, RandomAccessFile& file, const JpegHead* head);
};

FilePart All(const RandomAccessFile& file) {
  return {0, file.Size()};
}

Source WholeFile(const Format& format, RandomAccessFile& file, const JpegHead*) {
  return {format.name, format.mostPixels, {All(file)}};
}

Source PhotoSource(const Format& format, RandomAccessFile& file, const JpegHead* head) {
  if (!head || head->pixels.empty()) return {format.name, 0, {}};
  if (head->decodesByRows) return {format.name, format.mostPixels, head->pixels};
  const std::optional<int> scans = CountScans(file, head->pixels.back().at);
  if (scans.value_or(0) == 0) return {format.name, 0, {}};
  return {format.name, std::min(mostAtOnce, mostScanned / *scans), head->pixels};
}

Source PngSource(const Format& format, RandomAccessFile& file, const JpegHead*) {
  return {format.name, format.mostPixels, PngParts(file, All(file))};
}

// A PNG file in it goes to its own reader, as elsewhere.
Source IconSource(const Format& format, RandomAccessFile& file, const JpegHead*) {
  const std::optional<IconPlace> icon = LargestIcon(file);
  if (!icon) return {format.name, 0, {}};
  if (icon->isBitmap) return {format.name, format.mostPixels, {All(file)}, icon->index};
  return {"png", format.mostPixels, PngParts(file, icon->bytes)};
}

constexpr qint64 MB = 1'000'000;

// A file is what its bytes say, whatever its name. Formats of drawings aren't among these: what is
// in them may name other files. Nor are those that no bytes tell from others.
// clang-format off
constexpr Format formats[] = {
    {"jpeg", 0, "\xFF\xD8\xFF"sv, 250 * MB, mostByRows, PhotoSource},
    {"png", 0, "\x89PNG\r\n\x1A\n"sv, 400 * MB, mostAtOnce, PngSource},
    {"gif", 0, "GIF8"sv, 100 * MB, mostAtOnce, WholeFile},
    {"webp", 8, "WEBP"sv, 100 * MB, mostAtOnce, WholeFile},
    {"tiff", 0, "II*\0"sv, 250 * MB, mostAtOnce, WholeFile},
    {"tiff", 0, "MM\0*"sv, 250 * MB, mostAtOnce, WholeFile},
    {"tiff", 0, "II+\0"sv, 250 * MB, mostAtOnce, WholeFile},
    {"tiff", 0, "MM\0+"sv, 250 * MB, mostAtOnce, WholeFile},
    {"bmp", 0, "BM"sv, 250 * MB, mostAtOnce, WholeFile},
    {"ico", 0, "\0\0\1\0"sv, 10 * MB, mostAtOnce, IconSource},
    {"cur", 0, "\0\0\2\0"sv, 10 * MB, mostAtOnce, IconSource},
    {"xpm", 0, "/* XPM"sv, 10 * MB, mostAtOnce, WholeFile},
    {"ppm", 0, "P1"sv, 250 * MB, mostAtOnce, WholeFile},
    {"ppm", 0, "P2"sv, 250 * MB, mostAtOnce, WholeFile},
    {"ppm", 0, "P3"sv, 250 * MB, mostAtOnce, WholeFile},
    {"ppm", 0, "P4"sv, 250 * MB, mostAtOnce, WholeFile},
    {"ppm", 0, "P5"sv, 250 * MB, mostAtOnce, WholeFile},
    {"ppm", 0, "P6"sv, 250 * MB, mostAtOnce, WholeFile},
};
// clang-format on

// Null for what is none of them, or too long.
const Format* FormatOf(RandomAccessFile& file) {
  char start[16];
  std::size_t got = 0;
  if (file.Read(0, start, got) != FileError::None) return nullptr;
  const std::string_view bytes(start, got);
  const auto* found = std::ranges::find_if(formats, [&](const Format& format) {
    return bytes.size() > format.at && bytes.substr(format.at).starts_with(format.mark);
  });
  return found == std::end(formats) || file.Size() > found->mostBytes ? nullptr : found;
}

qint64 Pixels(QSize size) {
  return qint64(size.width()) * size.height();
}

bool TurnsSideways(int orientation) {
  return orientation >= 5;
}

// By EXIF's orientation.
QImage Upright(const QImage& picture, int orientation) {
  using Handler = QImageIOHandler;
  static constexpr Handler::Transformation turns[] = {
      Handler::TransformationNone,      Handler::TransformationNone,
      Handler::TransformationMirror,    Handler::TransformationRotate180,
      Handler::TransformationFlip,      Handler::TransformationFlipAndRotate90,
      Handler::TransformationRotate90,  Handler::TransformationMirrorAndRotate90,
      Handler::TransformationRotate270,
  };
  const Handler::Transformation turn = turns[orientation];
  if (turn == Handler::TransformationNone) return picture;
  const QImage mirrored =
      picture.mirrored(turn & Handler::TransformationMirror, turn & Handler::TransformationFlip);
  if (!(turn & Handler::TransformationRotate90)) return mirrored;
  return mirrored.transformed(QTransform().rotate(90));
}

// Whether one is the other made smaller, as far as whole pixels can tell. One with bars at two of
// its sides, or of what a picture was before it was cut, isn't.
bool HasSameShape(QSize small, QSize picture) {
  if (picture.width() < picture.height())
    return HasSameShape(small.transposed(), picture.transposed());
  const double height = double(small.width()) * picture.height() / picture.width();
  return std::abs(small.height() - height) <= std::clamp(height * 0.03, 1.0, 2.0);
}

QByteArray Joined(const std::string& bytes, const FileParts& parts) {
  QByteArray joined;
  for (const FilePart& part : parts) joined.append(bytes.data() + part.at, part.size);
  return joined;
}

// The camera's own small picture, if it is one of this picture and needs no scaling up.
QImage FromHead(const JpegHead& head, QSize room) {
  constexpr qint64 mostPixels = 400'000;
  const QSize picture(head.width, head.height);
  const std::optional<JpegHead> inner = ParseJpegHead(head.thumbnail);
  if (!inner || !inner->decodesByRows || picture.isEmpty()) return {};
  const QSize small(inner->width, inner->height);
  if (small.isEmpty() || Pixels(small) > mostPixels) return {};
  const QSize wanted =
      FittedSize(picture, TurnsSideways(head.orientation) ? room.transposed() : room);
  const bool isLarge = small.width() >= wanted.width() || small.height() >= wanted.height();
  if (!isLarge || !HasSameShape(small, picture)) return {};
  QBuffer buffer;
  buffer.setData(Joined(head.thumbnail, inner->pixels));
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, "jpeg");
  reader.setAutoDetectImageFormat(false);
  if (reader.size() != small) return {};
  reader.setScaledSize(wanted);
  return Upright(reader.read(), head.orientation);
}

bool IsPaletted(QImage::Format format) {
  return format == QImage::Format_Mono || format == QImage::Format_MonoLSB ||
         format == QImage::Format_Indexed8;
}

}  // namespace

ThumbnailPictures::ThumbnailPictures(Files& files, const std::string& cacheHome)
    : files_(files), cache_(files, cacheHome) {
  QImageReader::setAllocationLimit(allocationLimit);
}

std::optional<PackedBitmap> ThumbnailPictures::Extract(const std::string& path,
                                                       const FileFacts& facts, int width,
                                                       int height) {
  const QSize room(width, height);
  if (room.isEmpty() || facts.size == 0) return {};
  const std::optional<JpegHead> head = ReadJpegHead(files_, path);
  QImage picture = head ? FromHead(*head, room) : QImage();
  if (picture.isNull()) picture = cache_.Find(path, facts);
  if (picture.isNull()) {
    picture = Decode(path, facts, head ? &*head : nullptr);
    if (picture.isNull()) return {};
    cache_.Store(path, facts, picture);
  }
  return Pack(Fitted(picture, room));
}

// Large enough for the cache. Null for what is no picture, is too large, or can't be read to its
// end. A picture that can't be decoded isn't tried again.
QImage ThumbnailPictures::Decode(const std::string& path, const FileFacts& facts,
                                 const JpegHead* head) {
  constexpr QSize room(ThumbnailCache::storedSize, ThumbnailCache::storedSize);
  const std::unique_ptr<RandomAccessFile> file = files_.Open(path, FileAccess::Read);
  const Format* format = file ? FormatOf(*file) : nullptr;
  if (!format || cache_.HasFailed(path, facts)) return {};
  const Source source = format->source(*format, *file, head);
  FileDevice device(*file, source.parts);
  QImageReader reader(&device, source.format);
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  if (source.image > 0) reader.jumpToImage(source.image);
  const QSize size = reader.size();
  if (size.isEmpty() || Pixels(size) > source.mostPixels) return {};
  const QSize scaled = FittedSize(size, room);
  // Scaled by the reader, a picture of a few colours would be one of the same few colours.
  const bool hasPalette = IsPaletted(reader.imageFormat());
  if (scaled != size && !hasPalette) reader.setScaledSize(scaled);
  QImage picture = reader.read();
  if (hasPalette) picture = Fitted(PlainPicture(std::move(picture)), room);
  if (device.HasFailed()) return {};
  if (picture.isNull()) cache_.StoreFailure(path, facts);
  return head ? Upright(picture, head->orientation) : picture;
}

}  // namespace tallowbrook
