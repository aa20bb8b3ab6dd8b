#include "desktop/packed_picture.h"

#include <QBuffer>
#include <QColorSpace>
#include <QPainter>

namespace tallowbrook {

namespace {

constexpr int jpegQuality = 90;
constexpr qsizetype longestPng = 14 << 10;

// Of a picture with 32 bits a pixel.
bool HasTransparentPixel(const QImage& picture) {
  for (int y = 0; y < picture.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    for (int x = 0; x < picture.width(); ++x) {
      if (qAlpha(line[x]) != 255) return true;
    }
  }
  return false;
}

QByteArray Saved(const QImage& picture, const char* format, int quality) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  return picture.save(&buffer, format, quality) ? bytes : QByteArray();
}

QImage OnWhite(const QImage& picture) {
  QImage opaque(picture.size(), QImage::Format_RGB32);
  opaque.fill(Qt::white);
  QPainter(&opaque).drawImage(0, 0, picture);
  return opaque;
}

QByteArray Bytes(const QImage& picture) {
  if (!picture.hasAlphaChannel() || !HasTransparentPixel(picture)) {
    return Saved(picture, "JPEG", jpegQuality);
  }
  const QByteArray png = Saved(picture, "PNG", -1);
  return png.size() <= longestPng ? png : Saved(OnWhite(picture), "JPEG", jpegQuality);
}

}  // namespace

QSize FittedSize(QSize picture, QSize room) {
  if (picture.width() <= room.width() && picture.height() <= room.height()) return picture;
  const QSizeF exact = QSizeF(picture).scaled(room, Qt::KeepAspectRatio);
  return exact.toSize().expandedTo({1, 1});
}

QImage Fitted(const QImage& picture, QSize room) {
  const QSize size = FittedSize(picture.size(), room);
  if (size == picture.size()) return picture;
  return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage PlainPicture(QImage picture) {
  if (picture.isNull()) return {};
  picture.convertTo(picture.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  const QColorSpace colours = picture.colorSpace();
  const QColorSpace usual = QColorSpace::SRgb;
  if (colours.isValid() && colours != usual) picture.convertToColorSpace(usual);
  return QImage(picture.constBits(), picture.width(), picture.height(), picture.bytesPerLine(),
                picture.format())
      .copy();
}

std::optional<PackedBitmap> Pack(const QImage& picture) {
  const QByteArray bytes = picture.isNull() ? QByteArray() : Bytes(PlainPicture(picture));
  if (bytes.isEmpty()) return {};
  return PackedBitmap{picture.width(), picture.height(), bytes.toStdString()};
}

QImage Unpack(const PackedBitmap& packed) {
  const char* format = packed.bytes.starts_with("\xFF\xD8") ? "JPEG" : "PNG";
  return QImage::fromData(reinterpret_cast<const uchar*>(packed.bytes.data()),
                          static_cast<int>(packed.bytes.size()), format);
}

}  // namespace tallowbrook
