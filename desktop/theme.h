// A style of the window: a colour for each role that a colour plays in it.
//
// A style is a text file of lines `role = #rrggbb`, whatever its name ends in. Blanks around the
// parts don't count, nor does what stands behind a ";". A line that says something else, or names
// a role that there isn't, is passed over; a role without a line has the colour of the built-in
// style, which is the dark one. Of two lines for a role the last one counts.
#pragma once

#include <QColor>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tallowbrook {

class Files;

struct Theme {
  // The built-in style.
  Theme();
  bool operator==(const Theme&) const = default;

  // Grounds.
  QColor window;        // behind everything
  QColor field;         // fields, lists and the rows of tables
  QColor alternateRow;  // every other row
  QColor fixedField;    // fields that are only read
  QColor card;          // group boxes, cards
  QColor page;          // a page of the tabs, and the tab in front
  QColor tab;           // a tab at the back
  QColor tabHover;
  QColor header;  // column headers
  QColor headerHover;
  QColor status;  // the status bar
  QColor button;
  QColor buttonHover;
  QColor buttonPressed;
  QColor buttonDisabled;
  QColor accent;  // the button that does the work
  QColor accentHover;
  QColor accentPressed;
  QColor accentDisabled;
  QColor highlight;     // selected text, items of menus
  QColor rowHighlight;  // highlighted rows of tables and trees
  QColor tip;           // tool tips
  QColor badge;         // behind a text that says why a row was left alone
  QColor alert;         // a control that blinks
  QColor ribbon;        // the row of tabs on top of the window
  QColor ribbonPanel;   // the tab in front, and its groups
  QColor ribbonHover;
  QColor ribbonPressed;
  // Texts.
  QColor text;
  QColor mutedText;  // examples, place holders, values that have no say
  QColor disabledText;
  QColor caption;  // titles of group boxes
  QColor headerText;
  QColor tabText;
  QColor selectedTabText;
  QColor buttonText;
  QColor accentText;
  QColor accentDisabledText;
  QColor highlightText;
  QColor tipText;
  QColor badgeText;
  QColor alertText;
  QColor ribbonText;
  QColor ribbonCaption;  // below a group
  QColor link;
  // Lines.
  QColor border;
  QColor fieldBorder;
  QColor buttonBorder;
  QColor buttonHoverBorder;
  QColor buttonDisabledBorder;
  QColor focus;  // what has the keyboard
  QColor accentBorder;
  QColor accentFocus;
  QColor ribbonBorder;
  QColor splitterHover;
  QColor splitterDragged;
};

enum class RoleKind : std::uint8_t {
  Ground,
  Text,   // legible on each of its grounds
  Faint,  // text of what can't be used, fainter on purpose
  Line,
};

struct ThemeRole {
  const char* name;
  QColor Theme::*colour;
  QRgb builtIn;
  RoleKind kind;
  // All that a text stands on.
  std::vector<QColor Theme::*> grounds;
};
// Every role, once.
std::span<const ThemeRole> ThemeRoles();

// What these colours say is the same in every style: a text has them where they are legible, and
// their nearest legible shade elsewhere.
inline constexpr QColor successInk(0, 0, 255);
inline constexpr QColor errorInk(255, 0, 0);
inline constexpr QColor shadowInk(128, 128, 128);
inline constexpr QColor keywordInk(0, 0, 255);

Theme ReadTheme(std::string_view text);
// The style in the file at the path. Where there is none, that of the file of the same name, behind
// "/" or "\\", that came with the program; without that the built-in style.
Theme LoadTheme(Files& files, const std::string& path);

}  // namespace tallowbrook
