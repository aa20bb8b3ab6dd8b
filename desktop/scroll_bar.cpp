#include "desktop/scroll_bar.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

#include "desktop/look.h"
#include "desktop/theme.h"

namespace tallowbrook {

namespace {

// The colour of a part as it lies, under the pointer, and pressed.
struct PartColours {
  QColor usual, hover, pressed;
};

QColor ColourOf(const QStyleOptionSlider& bar, QStyle::SubControl part,
                const PartColours& colours) {
  if (!(bar.activeSubControls & part)) return colours.usual;
  if (bar.state & QStyle::State_Sunken) return colours.pressed;
  return bar.state & QStyle::State_MouseOver ? colours.hover : colours.usual;
}

// Without its four corner pixels, which makes it look round.
void FillSoftly(QPainter& painter, const QRect& place, const QColor& colour) {
  painter.fillRect(place.adjusted(0, 1, 0, -1), colour);
  painter.fillRect(QRect(place.left() + 1, place.top(), place.width() - 2, 1), colour);
  painter.fillRect(QRect(place.left() + 1, place.bottom(), place.width() - 2, 1), colour);
}

QStyle::PrimitiveElement ArrowOf(const QStyleOptionSlider& bar, bool isBack) {
  if (bar.orientation == Qt::Vertical) {
    return isBack ? QStyle::PE_IndicatorArrowUp : QStyle::PE_IndicatorArrowDown;
  }
  const bool toLeft = isBack == (bar.direction == Qt::LeftToRight);
  return toLeft ? QStyle::PE_IndicatorArrowLeft : QStyle::PE_IndicatorArrowRight;
}

}  // namespace

void DrawScrollBar(const QStyle& style, const QStyleOptionSlider& bar, QPainter& painter,
                   const QWidget* widget) {
  const Theme& theme = CurrentTheme();
  const auto placeOf = [&](QStyle::SubControl part) {
    return style.subControlRect(QStyle::CC_ScrollBar, &bar, part, widget);
  };
  const bool canMove = bar.maximum > bar.minimum && bar.state & QStyle::State_Enabled;
  painter.fillRect(bar.rect, theme.window);
  for (const QStyle::SubControl line : {QStyle::SC_ScrollBarSubLine, QStyle::SC_ScrollBarAddLine}) {
    QStyleOption arrow;
    arrow.direction = bar.direction;
    arrow.palette = bar.palette;
    arrow.state = bar.state;
    arrow.state.setFlag(QStyle::State_Enabled, canMove);
    arrow.rect = placeOf(line).adjusted(3, 3, -3, -3);
    if (canMove) {
      painter.fillRect(placeOf(line),
                       ColourOf(bar, line, {theme.window, theme.buttonHover, theme.buttonPressed}));
    }
    style.drawPrimitive(ArrowOf(bar, line == QStyle::SC_ScrollBarSubLine), &arrow, &painter,
                        widget);
  }
  if (!canMove) return;
  constexpr int across = 3, along = 1;
  const bool isUpright = bar.orientation == Qt::Vertical;
  const QRect slider = placeOf(QStyle::SC_ScrollBarSlider);
  FillSoftly(painter,
             isUpright ? slider.adjusted(across, along, -across, -along)
                       : slider.adjusted(along, across, -along, -across),
             ColourOf(bar, QStyle::SC_ScrollBarSlider,
                      {theme.disabledText, theme.mutedText, theme.focus}));
}

}  // namespace tallowbrook
