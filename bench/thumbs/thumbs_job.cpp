// Filling the list with thumbnails: decoded from whole photos, taken from the small pictures within
// them, and taken from the desktop's cache.
#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QImageReader>
#include <cstdio>
#include <fstream>
#include <memory>

#include "bench/program.h"
#include "desktop/thumbnail_pictures.h"
#include "tests/support/jpeg_bytes.h"

namespace tallowbrook::bench {
namespace {

constexpr int photoCount = 300;
constexpr int differentPhotos = 10;
constexpr QSize photoSize(4000, 3000), smallSize(160, 120), storedSize(128, 96);

// Slopes and noise, which a camera's file has as well.
QImage Scene(QSize size, int number) {
  QImage picture(size, QImage::Format_RGB32);
  std::uint32_t noise = 1;
  for (int y = 0; y < size.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < size.width(); ++x) {
      noise = noise * 1664525 + 1013904223;
      const int grain = static_cast<int>(noise >> 28);
      line[x] = qRgb(x * 200 / size.width() + grain, y * 200 / size.height() + grain,
                     number * 20 + grain);
    }
  }
  return picture;
}

std::string AsJpeg(const QImage& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  Expect(picture.save(&buffer, "JPEG", 85), "no JPEG can be written");
  return bytes.toStdString();
}

class Photos {
 public:
  explicit Photos(bool hasSmallPictures) {
    program_.form.scan.SetThumbnailMode(true);
    for (int i = 0; i < differentPhotos; ++i) {
      const std::string whole = AsJpeg(Scene(photoSize, i));
      small_.push_back(AsJpeg(Scene(smallSize, i)));
      const std::string head = PhotoWithThumbnail(ByteOrder::Big, 1, small_.back());
      std::ofstream(PathOf(i), std::ios::binary)
          << (hasSmallPictures ? head + whole.substr(2) : whole);
    }
    for (int i = differentPhotos; i < photoCount; ++i) {
      std::filesystem::create_hard_link(PathOf(i % differentPhotos), PathOf(i));
    }
  }

  double Fill(bool isCached) {
    if (!isCached) EmptyFolder(cache_);
    FolderScan& scan = program_.form.scan;
    if (isCached && !cacheFilled_) scan.ScanFolder(folder_);
    cacheFilled_ = true;
    const double seconds = Seconds([&] { scan.ScanFolder(folder_); });
    Expect(program_.form.ListView1.Count() == photoCount, "a photo has no thumbnail");
    return seconds;
  }
  double DecodeScaled() const {
    return Seconds([this] {
      for (int i = 0; i < photoCount; ++i) {
        QImageReader reader(QString::fromStdString(PathOf(i)), "jpeg");
        reader.setScaledSize(storedSize);
        Expect(!reader.read().isNull(), "a photo can't be decoded");
      }
    });
  }
  double DecodeSmall() const {
    return Seconds([this] {
      for (std::size_t i = 0; i < photoCount; ++i) {
        const std::string& bytes = small_[i % differentPhotos];
        const auto size = static_cast<int>(bytes.size());
        Expect(
            !QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), size, "JPEG").isNull(),
            "a small picture can't be decoded");
      }
    });
  }
  double DecodeCached() {
    const ThumbnailCache places(program_.files, cache_);
    return Seconds([&] {
      for (int i = 0; i < photoCount; ++i) {
        const QImage picture(QString::fromStdString(places.PlaceOf(PathOf(i), "normal")), "PNG");
        Expect(!picture.isNull(), "a cached picture can't be decoded");
      }
    });
  }

 private:
  std::string PathOf(int number) const {
    return folder_ + "photo_" + std::to_string(1000 + number) + ".jpg";
  }

  const std::string folder_ = NewFolder(), cache_ = NewFolder();
  std::vector<std::string> small_;
  SystemFiles files_;
  ThumbnailPictures pictures_{files_, cache_};
  Program program_{&pictures_};
  bool cacheFilled_ = false;
};

Photos& Large() {
  static Photos photos(false);
  return photos;
}
Photos& WithSmall() {
  static Photos photos(true);
  return photos;
}

[[maybe_unused]] const bool registered = [] {
  Register({"thumbs-300-decoded", [] { return Large().Fill(false); },
            [] { return Large().DecodeScaled(); }});
  Register({"thumbs-300-embedded", [] { return WithSmall().Fill(false); },
            [] { return WithSmall().DecodeSmall(); }});
  Register({"thumbs-300-cached", [] { return Large().Fill(true); },
            [] { return Large().DecodeCached(); }});
  return true;
}();

}  // namespace
}  // namespace tallowbrook::bench
