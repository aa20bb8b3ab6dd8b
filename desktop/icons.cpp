#include "desktop/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>
#include <array>
#include <optional>

#include "desktop/png_file.h"
#include "shell/commands.h"

namespace tallowbrook {

namespace {

// Commands without a cell of their own, and whose cell stands for them.
constexpr std::pair<int, int> standIns[] = {
    {commandSaveProfile, 4008},
    {commandSaveProfileAs, 4009},
    {commandExit, 57609},
};

QString ImagePath(const char* name) {
  return QCoreApplication::applicationDirPath() + QLatin1String("/res/") + QLatin1String(name);
}

}  // namespace

class IconStrip::Images {
 public:
  Images(const QString& path, int edge) : path_(path), edge_(edge) {}

  // Of a cell, in points.
  int Edge() const { return edge_; }
  // One cell at `ratio` pixels a point, 1 or 2; of the other file where this one lacks it, and null
  // where both do.
  QImage Cell(int cell, int ratio) {
    const QImage image = CellOf(ratio, cell);
    return image.isNull() ? CellOf(3 - ratio, cell) : image;
  }
  QImage CellOf(int ratio, int cell) {
    std::optional<QImage>& strip = strips_[static_cast<std::size_t>(ratio - 1)];
    if (!strip) strip = ReadPngFile(path_ + QLatin1String(ratio == 1 ? ".png" : "@2x.png"));
    const int edge = edge_ * ratio;
    const QRect place(cell * edge, 0, edge, edge);
    return strip->rect().contains(place) ? strip->copy(place) : QImage();
  }

 private:
  QString path_;
  int edge_;
  std::array<std::optional<QImage>, 2> strips_;  // by the pixels a point, from 1
};

namespace {

// The icon of one cell.
class CellIcon : public QIconEngine {
 public:
  CellIcon(std::shared_ptr<IconStrip::Images> images, int cell)
      : images_(std::move(images)), cell_(cell) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal scale = painter->device()->devicePixelRatioF();
    const bool isSmooth = painter->testRenderHint(QPainter::SmoothPixmapTransform);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawPixmap(rect, scaledPixmap(rect.size() * scale, mode, state, scale));
    painter->setRenderHint(QPainter::SmoothPixmapTransform, isSmooth);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1);
  }
  // `size` in pixels. Larger than the larger file's it is that.
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal) override {
    QImage image = images_->Cell(cell_, size.width() > images_->Edge() ? 2 : 1);
    if (size.width() < image.width() || size.height() < image.height()) {
      image = image.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    const QPixmap pixmap = QPixmap::fromImage(image);
    // A selected row's icon stays as it is; the style would tint it like a text.
    if (mode != QIcon::Disabled) return pixmap;
    QStyleOption option;
    option.palette = QApplication::palette();
    return QApplication::style()->generatedIconPixmap(mode, pixmap, &option);
  }
  QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
    QList<QSize> sizes;
    for (const int ratio : {1, 2}) {
      const QImage image = images_->CellOf(ratio, cell_);
      if (!image.isNull()) sizes += image.size();
    }
    return sizes;
  }
  QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
    const int edge = std::min(size.width(), size.height());
    return {edge, edge};
  }
  QIconEngine* clone() const override { return new CellIcon(*this); }

 private:
  std::shared_ptr<IconStrip::Images> images_;
  int cell_;
};

}  // namespace

IconStrip::IconStrip(const QString& path, int edge, std::span<const int> numbers)
    : numbers_(numbers), images_(std::make_shared<Images>(path, edge)) {}

QIcon IconStrip::Icon(int number) const {
  const auto cell = static_cast<int>(std::ranges::find(numbers_, number) - numbers_.begin());
  const bool isThere = cell < static_cast<int>(numbers_.size()) && !images_->Cell(cell, 1).isNull();
  return isThere ? QIcon(new CellIcon(images_, cell)) : QIcon();
}

QIcon CommandIcon(int number) {
  static const IconStrip strip(ImagePath("SystemMenuLarge"), iconEdge, stripNumbers);
  static const IconStrip system(ImagePath("tb_icon_small"), iconEdge, {&systemIconNumber, 1});
  if (number == systemIconNumber) return system.Icon(number);
  const auto* standIn = std::ranges::find(standIns, number, &std::pair<int, int>::first);
  return strip.Icon(standIn == std::end(standIns) ? number : standIn->second);
}

QIcon FolderIcon(FolderPicture picture) {
  static const auto icons = [] {
    static constexpr int cells[] = {0, 1, 2, 3};
    const IconStrip strip(ImagePath("FolderTree"), folderIconEdge, cells);
    std::array<QIcon, std::size(cells)> made;
    std::ranges::transform(cells, made.begin(), [&](int cell) { return strip.Icon(cell); });
    return made;
  }();
  return icons[static_cast<std::size_t>(picture)];
}

}  // namespace tallowbrook
