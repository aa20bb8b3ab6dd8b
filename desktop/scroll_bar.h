// A scroll bar in the colours of our own style.
//
// The style underneath draws its long lines pixel by pixel, and the toolkit hands each such line
// out to threads: fifty times a bar, with each step of scrolling and a tenth of the program's
// start. All of this one is filled rectangles.
#pragma once

class QPainter;
class QStyle;
class QStyleOptionSlider;
class QWidget;

namespace tallowbrook {

// `style` says where the bar's parts are, and draws its arrows.
void DrawScrollBar(const QStyle& style, const QStyleOptionSlider& bar, QPainter& painter,
                   const QWidget* widget);

}  // namespace tallowbrook
