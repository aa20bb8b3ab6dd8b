// The look of the window: a palette and a sheet of shapes in the colours of a style, and the
// distances that every region keeps.
#pragma once

#include <QPoint>
#include <cstdint>

class QLineEdit;
class QWidget;
class QString;
class QIcon;

namespace tallowbrook {

struct Theme;

// 1440 to the inch, 96 pixels to the inch: sizes that are kept in twips.
inline constexpr int twipsPerPixel = 15;
inline constexpr int margin = 8;
inline constexpr int spacing = 6;
// From the corner of the main window to that of a dialog over it: 1000 twips.
inline constexpr QPoint windowOffset(67, 67);
// The same for the options: 500 twips.
inline constexpr QPoint optionsOffset(33, 33);

// The look of the program as it starts, in the built-in style.
void ApplyLook();
// Gives all windows, those that are open too, the colours of a style.
void ApplyTheme(const Theme& theme);
// What was applied last.
const Theme& CurrentTheme();
// The program's icon, from the images beside the executable.
QIcon ProgramIcon();

// A line to type in, one that is only read, and one whose text has no say for now either.
enum class LineLook : std::uint8_t { Usual, Fixed, Muted };
void ShowLine(QLineEdit& line, LineLook look);
// Draws the eye to a widget, or no longer.
void ShowAlert(QWidget& widget, bool on);

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
