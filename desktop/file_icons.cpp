#include "desktop/file_icons.h"

#include <QApplication>
#include <QCache>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTextLayout>

#include "desktop/contrast.h"
#include "desktop/look.h"
#include "desktop/packed_picture.h"
#include "desktop/theme.h"

namespace tallowbrook {

namespace {

constexpr int pictureSide = 96;
constexpr int padding = 6;
constexpr int cellWidth = 140;
constexpr int radius = 4;
constexpr int textLines = 2;

// Where things are in a cell: the picture, the check box at its left, the text below.
QRect PictureSquare(const QRect& cell) {
  return {cell.center().x() - pictureSide / 2 + 1, cell.top() + padding, pictureSide, pictureSide};
}
QRect TextRoom(const QRect& cell) {
  const int top = PictureSquare(cell).bottom() + padding / 2;
  return {cell.left() + padding, top, cell.width() - 2 * padding, cell.bottom() - top};
}
QRect CheckBox(const QRect& cell, const QStyle& style) {
  return {cell.left() + padding / 2, cell.top() + padding,
          style.pixelMetric(QStyle::PM_IndicatorWidth),
          style.pixelMetric(QStyle::PM_IndicatorHeight)};
}

class IconDelegate : public QStyledItemDelegate {
 public:
  IconDelegate(FileList& list, QObject* parent) : QStyledItemDelegate(parent), list_(list) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {cellWidth, pictureSide + 2 * padding + textLines * option.fontMetrics.lineSpacing()};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    PaintGround(*painter, option, index);
    PaintPicture(*painter, option, index);
    PaintCheckBox(*painter, option, index);
    PaintText(*painter, option, index);
    painter->restore();
  }

 private:
  static void PaintGround(QPainter& painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) {
    const QRectF ground = QRectF(option.rect).adjusted(1, 1, -1, -1);
    painter.setPen(Qt::NoPen);
    if (option.state & QStyle::State_Selected) {
      painter.setBrush(option.palette.brush(QPalette::Highlight));
      painter.drawRoundedRect(ground, radius, radius);
    }
    if (index.data(FileTableModel::DropHighlightRole).toBool()) {
      PaintFrame(painter, ground, QPen(QApplication::palette().color(QPalette::Highlight), 2));
    }
    // Where the keyboard is; a highlight alone doesn't tell.
    if (option.state & QStyle::State_HasFocus) {
      PaintFrame(painter, ground.adjusted(0.5, 0.5, -0.5, -0.5), CurrentTheme().focus);
    }
  }
  static void PaintFrame(QPainter& painter, const QRectF& frame, const QPen& pen) {
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(frame, radius, radius);
  }

  // A hairline around it, so that white pictures have an edge. It is filled: a pen would take more
  // time than all the rest of the cell.
  void PaintPicture(QPainter& painter, const QStyleOptionViewItem& option,
                    const QModelIndex& index) const {
    const QRect square = PictureSquare(option.rect);
    KeepScreens(option.widget->size(), option.rect.size());
    const QPixmap* picture = Picture(static_cast<std::size_t>(index.row()) + 1);
    if (!picture || picture->isNull()) return;
    QRect place({}, FittedSize(picture->size(), square.size()));
    place.moveCenter(square.center());
    painter.drawPixmap(place, *picture);
    const QRect edge = place.adjusted(-1, -1, 1, 1);
    QColor shade = option.palette.color(QPalette::Text);
    shade.setAlpha(40);
    painter.fillRect(edge.left(), edge.top(), edge.width(), 1, shade);
    painter.fillRect(edge.left(), edge.bottom(), edge.width(), 1, shade);
    painter.fillRect(edge.left(), place.top(), 1, place.height(), shade);
    painter.fillRect(edge.right(), place.top(), 1, place.height(), shade);
  }

  static void PaintCheckBox(QPainter& painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
    const QStyle& style = *option.widget->style();
    QStyleOptionViewItem box = option;
    box.rect = CheckBox(option.rect, style);
    box.state &= ~QStyle::State_HasFocus;
    const bool isChecked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    box.state |= isChecked ? QStyle::State_On : QStyle::State_Off;
    style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, option.widget);
  }

  static void PaintText(QPainter& painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) {
    const QRect room = TextRoom(option.rect);
    const QString text = InLines(index.data().toString(), option, room.width());
    constexpr int flags = Qt::AlignHCenter | Qt::AlignTop;
    const QVariant badge = index.data(Qt::BackgroundRole);
    const QVariant colour = index.data(Qt::ForegroundRole);
    if (badge.isValid()) {
      const QRect box = option.fontMetrics.boundingRect(room, flags, text);
      painter.setPen(Qt::NoPen);
      painter.setBrush(badge.value<QColor>());
      painter.drawRoundedRect(box.adjusted(-3, 0, 3, 0), radius, radius);
    }
    const QColor ink =
        colour.isValid() ? colour.value<QColor>() : option.palette.color(QPalette::Text);
    const bool isSelected = option.state & QStyle::State_Selected;
    const QColor ground = option.palette.color(isSelected ? QPalette::Highlight : QPalette::Base);
    painter.setPen(badge.isValid() ? ink : LegibleShade(ink, {ground}));
    painter.drawText(room, flags, text);
  }

  // What doesn't fit is left out in the middle of the last line.
  static QString InLines(const QString& text, const QStyleOptionViewItem& option, int width) {
    const QFontMetrics& metrics = option.fontMetrics;
    if (metrics.horizontalAdvance(text) <= width) return text;
    QTextOption wrap;
    wrap.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(text, option.font);
    layout.setTextOption(wrap);
    layout.beginLayout();
    QTextLine first = layout.createLine();
    first.setLineWidth(width);
    layout.endLayout();
    const QString rest = text.mid(first.textLength());
    return text.left(first.textLength()).trimmed() + QChar::LineFeed +
           metrics.elidedText(rest, Qt::ElideMiddle, width);
  }

  // Those that were painted last stay unpacked.
  void KeepScreens(QSize view, QSize cell) const {
    constexpr int screens = 3;
    const int cells = (view.width() / cell.width() + 1) * (view.height() / cell.height() + 2);
    pictures_.setMaxCost(std::max(fewestKept, screens * cells));
  }

  // Null for a row without one.
  const QPixmap* Picture(std::size_t row) const {
    const PackedBitmap* packed = row <= list_.Count() ? list_.Image(row) : nullptr;
    if (!packed) return nullptr;
    const std::uint32_t number = list_.Row(row).image;
    if (const QPixmap* known = pictures_.object(number)) return known;
    pictures_.insert(number, new QPixmap(QPixmap::fromImage(Unpack(*packed))));
    return pictures_.object(number);
  }

  static constexpr int fewestKept = 500;

  FileList& list_;
  mutable QCache<std::uint32_t, QPixmap> pictures_{fewestKept};
};

}  // namespace

FileIcons::FileIcons(FileRows& rows, QWidget* parent) : FileView(rows, parent) {
  setObjectName(QStringLiteral("ListView1_Icons"));
  setItemDelegate(new IconDelegate(rows.List(), this));
  setFlow(LeftToRight);
  setWrapping(true);
  setResizeMode(Adjust);
  setUniformItemSizes(true);
  setMovement(Static);
  viewport()->setAcceptDrops(true);  // what doesn't move takes nothing by itself
  setVerticalScrollMode(ScrollPerPixel);
  verticalScrollBar()->setSingleStep(pictureSide / 2);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QRect FileIcons::CheckBoxRect(const QModelIndex& index) const {
  return CheckBox(visualRect(index), *style()).adjusted(-padding / 2, -padding / 2, 2, 2);
}

}  // namespace tallowbrook
