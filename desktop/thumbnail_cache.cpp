#include "desktop/thumbnail_cache.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>
#include <filesystem>

#include "desktop/file_device.h"
#include "desktop/packed_picture.h"
#include "platform/private_file.h"

namespace tallowbrook {

namespace {

constexpr int largestSize = 256;
const QString uriKey = QStringLiteral("Thumb::URI");
const QString timeKey = QStringLiteral("Thumb::MTime");
const QString sizeKey = QStringLiteral("Thumb::Size");

// Other programs escape the same characters: those that no path of an address may hold, and ";".
QByteArray Uri(const std::string& path) {
  const QByteArray bytes(path.data(), static_cast<qsizetype>(path.size()));
  return "file://" + bytes.toPercentEncoding("!$&'()*+,:=@/");
}

// Photos of one second that swap their names differ in nothing but their sizes, which not every
// program stores.
bool IsOf(const QImage& picture, const std::string& path, const FileFacts& facts) {
  const QString size = picture.text(sizeKey);
  return picture.text(uriKey) == QString::fromLatin1(Uri(path)) &&
         picture.text(timeKey) == QString::number(facts.modified) &&
         (size.isEmpty() || size == QString::number(facts.size));
}

}  // namespace

std::string ThumbnailCache::PlaceOf(const std::string& path, const char* size) const {
  const QByteArray hash = QCryptographicHash::hash(Uri(path), QCryptographicHash::Md5);
  return folder_ + size + "/" + hash.toHex().toStdString() + ".png";
}

QImage ThumbnailCache::Read(const std::string& place) const {
  FileDevice file(files_, place);
  if (!file.isOpen()) return {};
  QImageReader reader(&file, "png");
  reader.setAutoDetectImageFormat(false);
  const QSize size = reader.size();
  return size.width() <= largestSize && size.height() <= largestSize ? reader.read() : QImage();
}

QImage ThumbnailCache::Find(const std::string& path, const FileFacts& facts) const {
  for (const char* size : {"normal", "large"}) {
    QImage picture = Read(PlaceOf(path, size));
    if (!picture.isNull() && IsOf(picture, path, facts)) return picture;
  }
  return {};
}

void ThumbnailCache::Store(const std::string& path, const FileFacts& facts,
                           const QImage& picture) const {
  constexpr int quick = 80;  // of the compression, a second for every few hundred pictures
  if (IsInside(path)) return;
  QImage stored = PlainPicture(Fitted(picture, {storedSize, storedSize}));
  stored.setText(uriKey, QString::fromLatin1(Uri(path)));
  stored.setText(timeKey, QString::number(facts.modified));
  stored.setText(sizeKey, QString::number(facts.size));
  stored.setText(QStringLiteral("Software"), QStringLiteral("Tallowbrook"));
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!stored.save(&buffer, "PNG", quick)) return;
  WritePrivateFile(PlaceOf(path, "normal"),
                   {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

// By whatever path it is reached.
bool ThumbnailCache::IsInside(const std::string& path) const {
  const auto real = [](const std::string& place) {
    std::error_code error;
    const std::filesystem::path found = std::filesystem::canonical(place, error);
    return error ? place : found.string();
  };
  return path.starts_with(folder_) || real(path).starts_with(WithSlash(real(folder_)));
}

}  // namespace tallowbrook
