// The images of commands as they lie beside the program.
#include "desktop/icons.h"

#include <gtest/gtest.h>

#include <set>

#include "desktop/contrast.h"
#include "desktop/theme.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {

namespace {

// How many of the image's pixels stand out from a ground: 1.6 is what flat shapes of middling
// brightness keep on white as on black.
int CountVisible(const QImage& image, const QColor& ground) {
  int visible = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor colour = image.pixelColor(x, y);
      visible += colour.alpha() > 200 && Contrast(colour, ground) > 1.6;
    }
  }
  return visible;
}

}  // namespace

TEST(Icons, EveryNumberHasAnImageOfItsOwnThatShowsOnLightAndDark) {
  std::set<QByteArray> seen;
  std::vector<int> numbers(std::begin(stripNumbers), std::end(stripNumbers));
  numbers.push_back(systemIconNumber);
  for (const int number : numbers) {
    const QIcon icon = CommandIcon(number);
    for (const int ratio : {1, 2}) {
      const QPixmap pixmap = icon.pixmap(QSize(iconEdge, iconEdge), ratio);
      EXPECT_EQ(pixmap.size(), QSize(iconEdge, iconEdge) * ratio) << number;
      const QImage image = pixmap.toImage();
      EXPECT_EQ(image.devicePixelRatio(), ratio) << number;
      for (const QColor& ground : {QColor(255, 255, 255), Theme().window}) {
        EXPECT_GT(CountVisible(image, ground), 100 * ratio * ratio)
            << number << ground.name().toStdString();
      }
      seen.insert(
          QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
    }
  }
  EXPECT_EQ(seen.size(), 2 * numbers.size());
}

TEST(Icons, WhatIsMissingIsNoImage) {
  for (const int number : {0, -1, 500000, 3000}) EXPECT_TRUE(CommandIcon(number).isNull());
  const TemporaryFolder folder;
  const QString path = QString::fromStdString(folder.Path("strip"));
  const int numbers[] = {7, 8};
  EXPECT_TRUE(IconStrip(path, iconEdge, numbers).Icon(7).isNull());
  folder.Write("strip.png", "no image");
  QImage twoCells(4 * iconEdge, 2 * iconEdge, QImage::Format_ARGB32);
  twoCells.fill(Qt::red);
  ASSERT_TRUE(twoCells.copy(0, 0, 100, 2 * iconEdge).save(path + QStringLiteral("@2x.png")));
  const IconStrip strip(path, iconEdge, numbers);
  EXPECT_EQ(strip.Icon(7).availableSizes().size(), 1);
  EXPECT_TRUE(strip.Icon(8).isNull()) << "half a cell";
  EXPECT_TRUE(strip.Icon(9).isNull());
}

}  // namespace tallowbrook
