#include "desktop/icons.h"

#include <QCoreApplication>
#include <algorithm>

#include "shell/commands.h"

namespace tallowbrook {

namespace {

// Commands without a cell of their own, and whose cell stands for them.
constexpr std::pair<int, int> standIns[] = {
    {commandSaveProfile, 4008},
    {commandSaveProfileAs, 4009},
    {commandExit, 57609},
};

}  // namespace

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
  if (number == systemIconNumber) return system.Icon(number);
  const auto* standIn = std::ranges::find(standIns, number, &std::pair<int, int>::first);
  return strip.Icon(standIn == std::end(standIns) ? number : standIn->second);
}

}  // namespace tallowbrook
