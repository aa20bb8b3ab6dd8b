#include "desktop/thumbnail_pictures.h"

#include <QBuffer>
#include <QImageReader>
#include <QTransform>
#include <algorithm>
#include <cmath>

#include "desktop/file_device.h"
#include "desktop/packed_picture.h"

namespace tallowbrook {

namespace {

using namespace std::string_view_literals;

// Pixels that may be decoded: of what needs a few rows in memory at a time it bounds the time, a
// second or two, of all else the memory too.
constexpr qint64 mostByRows = 250'000'000;
constexpr qint64 mostAtOnce = 40'000'000;
constexpr int allocationLimit = 200;  // MiB, of one image

struct Format {
  const char* name;  // the toolkit's
  std::size_t at;
  std::string_view mark;
};

// A file is what its bytes say, whatever its name. Formats of drawings aren't among these: what is
// in them may name other files.
constexpr Format formats[] = {
    {"jpeg", 0, "\xFF\xD8\xFF"sv},
    {"png", 0, "\x89PNG\r\n\x1A\n"sv},
    {"gif", 0, "GIF8"sv},
    {"webp", 8, "WEBP"sv},
    {"tiff", 0, "II*\0"sv},
    {"tiff", 0, "MM\0*"sv},
    {"bmp", 0, "BM"sv},
    {"ico", 0, "\0\0\1\0"sv},
    {"ppm", 0, "P1\n"sv},
    {"ppm", 0, "P2\n"sv},
    {"ppm", 0, "P3\n"sv},
    {"ppm", 0, "P4\n"sv},
    {"ppm", 0, "P5\n"sv},
    {"ppm", 0, "P6\n"sv},
};

// Null for what is none of them.
const char* FormatOf(QIODevice& file) {
  const QByteArray start = file.peek(16);
  const std::string_view bytes(start.constData(), static_cast<std::size_t>(start.size()));
  const auto* found = std::ranges::find_if(formats, [&](const Format& format) {
    return bytes.size() > format.at && bytes.substr(format.at).starts_with(format.mark);
  });
  return found == std::end(formats) ? nullptr : found->name;
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
  constexpr double tolerance = 2;  // pixels
  const double ratio = double(picture.width()) / picture.height();
  return std::abs(small.width() - small.height() * ratio) <= tolerance ||
         std::abs(small.height() - small.width() / ratio) <= tolerance;
}

// The camera's own small picture, if it is one of this picture and needs no scaling up.
QImage FromHead(const JpegHead& head, QSize room) {
  constexpr int largest = 1024;
  const QSize picture(head.width, head.height);
  const std::optional<JpegHead> inner = ParseJpegHead(head.thumbnail);
  if (!inner || picture.isEmpty()) return {};
  const QSize small(inner->width, inner->height);
  if (small.isEmpty() || std::max(small.width(), small.height()) > largest) return {};
  const QSize wanted =
      FittedSize(picture, TurnsSideways(head.orientation) ? room.transposed() : room);
  const bool isLarge = small.width() >= wanted.width() || small.height() >= wanted.height();
  if (!isLarge || !HasSameShape(small, picture)) return {};
  const auto bytes =
      QByteArray::fromRawData(head.thumbnail.data(), static_cast<qsizetype>(head.thumbnail.size()));
  QBuffer buffer;
  buffer.setData(bytes);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, "jpeg");
  reader.setAutoDetectImageFormat(false);
  reader.setScaledSize(wanted);
  return Upright(reader.read(), head.orientation);
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
    picture = Decode(path, head);
    if (picture.isNull()) return {};
    cache_.Store(path, facts, picture);
  }
  return Pack(Fitted(picture, room));
}

// Large enough for the cache. Null for what is no picture or too large.
QImage ThumbnailPictures::Decode(const std::string& path, const std::optional<JpegHead>& head) {
  constexpr QSize room(ThumbnailCache::storedSize, ThumbnailCache::storedSize);
  FileDevice file(files_, path);
  const char* format = file.isOpen() ? FormatOf(file) : nullptr;
  if (!format) return {};
  QImageReader reader(&file, format);
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  const bool byRows = head && head->decodesByRows;
  if (size.isEmpty() || Pixels(size) > (byRows ? mostByRows : mostAtOnce)) return {};
  if (const QSize scaled = FittedSize(size, room); scaled != size) reader.setScaledSize(scaled);
  return reader.read();
}

}  // namespace tallowbrook
