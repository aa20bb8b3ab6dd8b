#include "desktop/png_file.h"

#include <png.h>

#include <QFile>

namespace tallowbrook {

QImage ReadPngFile(const QString& path) {
  // A handful of pictures beside the executable; larger ones are none of them.
  constexpr unsigned largestEdge = 4096;
  png_image file{};
  file.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&file, QFile::encodeName(path).constData())) return {};
  QImage image;
  if (file.width <= largestEdge && file.height <= largestEdge) {
    file.format = PNG_FORMAT_RGBA;
    image = QImage(static_cast<int>(file.width), static_cast<int>(file.height),
                   QImage::Format_RGBA8888);
  }
  const bool isRead = !image.isNull() &&
                      png_image_finish_read(&file, nullptr, image.bits(),
                                            static_cast<png_int_32>(image.bytesPerLine()), nullptr);
  png_image_free(&file);
  return isRead ? image : QImage();
}

}  // namespace tallowbrook
