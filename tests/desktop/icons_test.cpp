// The images of commands as they lie beside the program.
#include "desktop/icons.h"

#include <gtest/gtest.h>

#include <set>

#include "desktop/contrast.h"
#include "desktop/theme.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {

// 1.6 is what flat shapes of middling brightness keep on white as on black.
int CountVisible(const QImage& image, const QColor& ground) {
  int visible = 0;
  for (int i = 0; i < image.width() * image.height(); ++i) {
    const QColor colour = image.pixelColor(i % image.width(), i / image.width());
    visible += colour.alpha() > 200 && Contrast(colour, ground) > 1.6;
  }
  return visible;
}

TEST(Icons, EveryNumberHasAnImageOfItsOwnThatShowsOnLightAndDark) {
  std::set<QByteArray> seen;
  std::vector<int> numbers(std::begin(stripNumbers), std::end(stripNumbers));
  numbers.push_back(systemIconNumber);
  for (const int number : numbers) {
    for (const int ratio : {1, 2}) {
      const QImage image = CommandIcon(number).pixmap(QSize(iconEdge, iconEdge), ratio).toImage();
      EXPECT_EQ(image.size(), QSize(iconEdge, iconEdge) * ratio) << number;
      for (const QColor& ground : {QColor(255, 255, 255), Theme().window}) {
        EXPECT_GT(CountVisible(image, ground), 100 * ratio * ratio) << number;
      }
      seen.insert({reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()});
    }
  }
  EXPECT_EQ(seen.size(), 2 * numbers.size());
  EXPECT_TRUE(CommandIcon(0).isNull());
}

TEST(Icons, ABrokenStripHasTheCellsThatAreWhole) {
  const TemporaryFolder folder;
  const QString path = QString::fromStdString(folder.Path("strip"));
  folder.Write("strip.png", "no image");
  QImage cells(100, 2 * iconEdge, QImage::Format_ARGB32);
  ASSERT_TRUE(cells.save(path + QStringLiteral("@2x.png")));
  const int numbers[] = {7, 8};
  const IconStrip strip(path, iconEdge, numbers);
  EXPECT_EQ(strip.Icon(7).availableSizes().size(), 1);
  EXPECT_TRUE(strip.Icon(8).isNull()) << "half a cell";
}

}  // namespace tallowbrook
