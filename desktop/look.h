// The look of the window: one palette, one sheet of shapes, and the distances that every region
// keeps.
#pragma once

#include <QPoint>

class QApplication;
class QColor;
class QLineEdit;
class QWidget;
class QString;
class QIcon;

namespace tallowbrook {

// 1440 to the inch, 96 pixels to the inch: sizes that are kept in twips.
inline constexpr int twipsPerPixel = 15;
inline constexpr int margin = 8;
inline constexpr int spacing = 6;
// From the corner of the main window to that of a dialog over it: 1000 twips.
inline constexpr QPoint windowOffset(67, 67);
// The same for the options: 500 twips.
inline constexpr QPoint optionsOffset(33, 33);

void ApplyLook(QApplication& application);
// The program's icon, from the images beside the executable.
QIcon ProgramIcon();

// The blue of keywords in a mask on such a ground, or the shade nearest to it that is legible
// there: a contrast of 4.5 as of WCAG 2.
QColor KeywordColour(const QColor& ground);

// A line just wide enough for some digits.
void FitDigits(QLineEdit* edit, int digits);
// A white card that fills the page; it gets its layout from whoever fills it.
QWidget* AddCard(QWidget* page);
// The widget leaves its place empty when it hides, so that nothing moves.
template <typename Widget>
Widget* KeepPlace(Widget* widget) {
  auto policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
  return widget;
}

}  // namespace tallowbrook
