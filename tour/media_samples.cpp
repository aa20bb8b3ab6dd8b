#include "tour/media_samples.h"

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QProcess>
#include <cmath>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "desktop/text.h"

namespace tallowbrook {

namespace {

struct Song {
  const char *artist, *title, *year;
};
constexpr Song songs[] = {
    {"Zo\xC3\xAB Lund", "First Light", "1999"},
    {"Zo\xC3\xAB Lund", "Harbour", "1999"},
    {"The Millers", "Grain", "2003"},
    {"The Millers", "Water & Wheel", "2003"},
    {"The Millers", "Sluice (live)", "2004"},
    {"Orchard", "Windfall", "1987"},
    {"Orchard", "No. 7", "1988"},
    {"Orchard", "Cr\xC3\xA8me", "1988"},
    {"Ada Quill", "Ink", "2011"},
    {"Ada Quill", "Blotting Paper", "2011"},
};

constexpr const char* taken[] = {"2023:07:15 09:05:33", "2023:07:15 18:40:02",
                                 "2024:02:29 23:59:59"};

std::string Run(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  const bool isDone = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit;
  if (!isDone || process.exitCode() != 0) {
    throw std::runtime_error(ToBytes(program) + ": " + process.errorString().toStdString() + " " +
                             process.readAllStandardError().toStdString());
  }
  return process.readAllStandardOutput().toStdString();
}

// Two digits behind the name.
std::string Numbered(const char* name, std::size_t number, const char* extension) {
  return name + std::string(number < 10 ? "0" : "") + std::to_string(number) + extension;
}

}  // namespace

void MakeSongs(const std::string& folder) {
  for (std::size_t i = 0; i < std::size(songs); ++i) {
    const std::string path = folder + Numbered("track", i + 1, ".mp3");
    // The head of a frame of sound, and something behind it.
    std::ofstream(path, std::ios::binary) << "\xFF\xFB\x90" << std::string(20000, '\x55');
    Run(QStringLiteral("id3v2"),
        {QStringLiteral("-a"), ToText(songs[i].artist), QStringLiteral("-t"),
         ToText(songs[i].title), QStringLiteral("-y"), ToText(songs[i].year), QStringLiteral("-g"),
         QStringLiteral("17"), QStringLiteral("-T"), QString::number(i + 1), ToText(path)});
  }
}

void MakePictures(const std::string& folder) {
  for (std::size_t i = 0; i < std::size(taken); ++i) {
    const QString path = ToText(folder + Numbered("DSC_00", i + 1, ".JPG"));
    QImage image(160, 120, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(static_cast<int>(i) * 90, 120, 200));
    if (!image.save(path, "JPEG")) throw std::runtime_error("can't save " + ToBytes(path));
    Run(QStringLiteral("exiv2"),
        {QStringLiteral("-Mset Exif.Photo.DateTimeOriginal ") + QLatin1String(taken[i]),
         QStringLiteral("-Mset Exif.Photo.PixelXDimension 160"),
         QStringLiteral("-Mset Exif.Photo.PixelYDimension 120"), path});
  }
}

namespace {

// Sky, sun, and hills one behind the other.
QImage Landscape(QSize size, int hue) {
  QImage image(size, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient sky(0, 0, 0, size.height());
  sky.setColorAt(0, QColor::fromHsv(hue, 150, 230));
  sky.setColorAt(1, QColor::fromHsv((hue + 60) % 360, 60, 250));
  painter.fillRect(image.rect(), sky);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(255, 244, 200));
  const int sun = size.height() / 6;
  painter.drawEllipse(size.width() * (hue % 70 + 15) / 100, size.height() / 6, sun, sun);
  for (int hill = 0; hill < 4; ++hill) {
    QPainterPath ground(QPointF(0, size.height()));
    for (int x = 0; x <= size.width(); x += 10) {
      const double at = double(x) / size.width() * (4 + hill) + hue + hill * 2;
      const double height = size.height() * (0.45 - 0.1 * hill) + std::sin(at) * size.height() / 14;
      ground.lineTo(x, size.height() - height);
    }
    ground.lineTo(size.width(), size.height());
    painter.setBrush(
        QColor::fromHsv((hue + 100 + 8 * hill) % 360, 90 + 25 * hill, 190 - 38 * hill));
    painter.drawPath(ground);
  }
  return image;
}

}  // namespace

std::size_t MakeGallery(const std::string& folder) {
  constexpr int count = 24;
  const QSize sizes[] = {{1600, 1200}, {1500, 1000}, {900, 1200}};
  const char* const kinds[] = {"jpg", "jpg", "png", "bmp"};
  QDir().mkpath(ToText(folder));
  for (int i = 0; i < count; ++i) {
    const std::string name = Numbered("IMG_", 2001 + static_cast<std::size_t>(i), ".");
    const QString path = ToText(folder + name + kinds[i % 4]);
    if (!Landscape(sizes[i % 3], i * 37 % 360).save(path)) {
      throw std::runtime_error("can't save " + ToBytes(path));
    }
  }
  std::ofstream(folder + "notes.txt") << "no picture";
  return count;
}

std::string TagsByTool(const std::string& path) {
  return Run(QStringLiteral("id3v2"), {QStringLiteral("-l"), ToText(path)});
}

}  // namespace tallowbrook
