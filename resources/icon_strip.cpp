// Draws icons as one row of square cells: icon_strip OUTPUT.png CELL ICON.svg...|FOLDER
//
// CELL is the edge of a cell in pixels. A folder is drawn by the numbers of the program's strip,
// each from NUMBER.svg. A part of the build: the images beside the executable are made here.
#include <QCoreApplication>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <cstdio>

#include "desktop/icons.h"

namespace {

QStringList FilesOf(const QStringList& sources) {
  if (!QFileInfo(sources.first()).isDir()) return sources;
  QStringList files;
  for (const int number : tallowbrook::stripNumbers) {
    files += QStringLiteral("%1/%2.svg").arg(sources.first()).arg(number);
  }
  return files;
}

// Null, with a message, for what can't be drawn.
QImage Draw(const QString& path, int cell) {
  QImageReader reader(path);
  reader.setScaledSize({cell, cell});
  QImage image = reader.read();
  if (image.isNull()) {
    std::fprintf(stderr, "icon_strip: %s: %s\n", qPrintable(path),
                 qPrintable(reader.errorString()));
  }
  return image;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  const int cell = arguments.value(2).toInt();
  if (arguments.size() < 4 || cell <= 0) {
    std::fprintf(stderr, "usage: icon_strip OUTPUT.png CELL ICON.svg...|FOLDER\n");
    return 2;
  }
  const QStringList files = FilesOf(arguments.mid(3));
  QImage strip(cell * static_cast<int>(files.size()), cell, QImage::Format_ARGB32);
  strip.fill(Qt::transparent);
  QPainter painter(&strip);
  int left = 0;
  for (const QString& file : files) {
    const QImage image = Draw(file, cell);
    if (image.isNull()) return 1;
    painter.drawImage(left, 0, image);
    left += cell;
  }
  painter.end();
  return strip.save(arguments[1]) ? 0 : 1;
}
