#include "desktop/thumbnail_cache.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>
#include <algorithm>
#include <filesystem>

#include "desktop/file_device.h"
#include "desktop/packed_picture.h"
#include "media/png_chunks.h"
#include "platform/private_file.h"

namespace tallowbrook {

namespace {

using namespace std::string_view_literals;

constexpr int largestSize = 256;
constexpr std::int64_t mostBytes = 4 << 20;
constexpr auto uriKey = "Thumb::URI"sv;
constexpr auto timeKey = "Thumb::MTime"sv;
constexpr auto sizeKey = "Thumb::Size"sv;
constexpr std::string_view keys[] = {uriKey, timeKey, sizeKey};

// By whatever path it is reached.
std::string RealPath(const std::string& path) {
  std::error_code error;
  const std::filesystem::path found = std::filesystem::canonical(path, error);
  return error ? path : found.string();
}

// The same for all ways to write a path.
std::string PlainPath(const std::string& path) {
  constexpr std::string_view detours[] = {"//"sv, "/./"sv, "/../"sv};
  const auto isIn = [&](std::string_view detour) { return path.find(detour) != path.npos; };
  return std::ranges::any_of(detours, isIn) ? RealPath(path) : path;
}

// Other programs escape the same characters: those that no path of an address may hold, and ";".
QByteArray Uri(const std::string& path) {
  const QByteArray bytes = QByteArray::fromStdString(PlainPath(path));
  return "file://" + bytes.toPercentEncoding("!$&'()*+,:=@/");
}

// Photos of one second that swap their names differ in nothing but their sizes, which not every
// program stores.
bool IsOf(const QImage& picture, const std::string& path, const FileFacts& facts) {
  const auto text = [&](std::string_view key) {
    return picture.text(QString::fromLatin1(key.data(), std::ssize(key))).toStdString();
  };
  const std::string size = text(sizeKey);
  return text(uriKey) == Uri(path).toStdString() &&
         text(timeKey) == std::to_string(facts.modified) &&
         (size.empty() || size == std::to_string(facts.size));
}

}  // namespace

std::string ThumbnailCache::PlaceOf(const std::string& path, const char* kind) const {
  const QByteArray hash = QCryptographicHash::hash(Uri(path), QCryptographicHash::Md5);
  return folder_ + kind + "/" + hash.toHex().toStdString() + ".png";
}

QImage ThumbnailCache::Read(const std::string& place) const {
  const std::unique_ptr<RandomAccessFile> file = files_.Open(place, FileAccess::Read);
  if (!file || file->Size() > mostBytes) return {};
  FileDevice device(*file, PngParts(*file, {0, file->Size()}, keys));
  QImageReader reader(&device, "png");
  reader.setAutoDetectImageFormat(false);
  const QSize size = reader.size();
  return size.width() <= largestSize && size.height() <= largestSize ? reader.read() : QImage();
}

QImage ThumbnailCache::FindIn(const char* kind, const std::string& path,
                              const FileFacts& facts) const {
  QImage picture = Read(PlaceOf(path, kind));
  return !picture.isNull() && IsOf(picture, path, facts) ? picture : QImage();
}

QImage ThumbnailCache::Find(const std::string& path, const FileFacts& facts) const {
  QImage picture = FindIn("normal", path, facts);
  return picture.isNull() ? FindIn("large", path, facts) : picture;
}

bool ThumbnailCache::HasFailed(const std::string& path, const FileFacts& facts) const {
  return !FindIn(failures, path, facts).isNull();
}

// A file that lies in the cache gets none.
void ThumbnailCache::StoreIn(const char* kind, const std::string& path, const FileFacts& facts,
                             const QImage& picture) const {
  constexpr int quick = 80;  // of the compression, a second for every few hundred pictures
  if (IsInside(path)) return;
  QByteArray pixels;
  QBuffer buffer(&pixels);
  buffer.open(QIODevice::WriteOnly);
  if (!picture.save(&buffer, "PNG", quick)) return;
  const std::pair<std::string_view, std::string> texts[] = {
      {uriKey, Uri(path).toStdString()},
      {timeKey, std::to_string(facts.modified)},
      {sizeKey, std::to_string(facts.size)},
      {"Software"sv, "Tallowbrook"}};
  WritePrivateFile(PlaceOf(path, kind), PngWithTexts(pixels.toStdString(), texts));
}

void ThumbnailCache::Store(const std::string& path, const FileFacts& facts,
                           const QImage& picture) const {
  StoreIn("normal", path, facts, PlainPicture(Fitted(picture, {storedSize, storedSize})));
}

void ThumbnailCache::StoreFailure(const std::string& path, const FileFacts& facts) const {
  QImage nothing(1, 1, QImage::Format_RGB32);
  nothing.fill(Qt::black);
  StoreIn(failures, path, facts, nothing);
}

bool ThumbnailCache::IsInside(const std::string& path) const {
  return path.starts_with(folder_) || RealPath(path).starts_with(WithSlash(RealPath(folder_)));
}

}  // namespace tallowbrook
