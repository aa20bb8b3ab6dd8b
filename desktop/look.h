// The look of the window: one palette, one sheet of shapes, and the distances that every region
// keeps.
#pragma once

class QApplication;
class QLineEdit;
class QWidget;
class QString;
class QIcon;

namespace tallowbrook {

inline constexpr int margin = 8;
inline constexpr int spacing = 6;

void ApplyLook(QApplication& application);
// The program's icon, from the images beside the executable.
QIcon ProgramIcon();

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
