#include "desktop/icons.h"

#include <QCoreApplication>
#include <algorithm>

namespace tallowbrook {

IconStrip::IconStrip(const QString& path, std::span<const int> numbers)
    : numbers_(numbers),
      images_{QImage(path + QLatin1String(".png")), QImage(path + QLatin1String("@2x.png"))} {}

QIcon IconStrip::Icon(int number) const {
  QIcon icon;
  const auto cell = static_cast<int>(std::ranges::find(numbers_, number) - numbers_.begin());
  if (cell == static_cast<int>(numbers_.size())) return icon;
  int ratio = 0;
  for (const QImage& strip : images_) {
    const int edge = iconEdge * ++ratio;
    const QRect place(cell * edge, 0, edge, edge);
    if (!strip.rect().contains(place)) continue;
    QPixmap image = QPixmap::fromImage(strip.copy(place));
    image.setDevicePixelRatio(ratio);
    icon.addPixmap(image);
  }
  return icon;
}

QIcon CommandIcon(int number) {
  const QString images = QCoreApplication::applicationDirPath() + QLatin1String("/res/");
  static const IconStrip strip(images + QLatin1String("SystemMenuLarge"), stripNumbers);
  static const IconStrip system(images + QLatin1String("tb_icon_small"), {&systemIconNumber, 1});
  return (number == systemIconNumber ? system : strip).Icon(number);
}

}  // namespace tallowbrook
