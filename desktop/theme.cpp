#include "desktop/theme.h"

#include <QCoreApplication>
#include <algorithm>
#include <optional>

#include "base/text.h"
#include "desktop/text.h"
#include "platform/files.h"

namespace tallowbrook {

namespace {

constexpr std::int64_t largestFile = 1 << 16;

const ThemeRole* FindRole(std::string_view name) {
  const auto found = std::ranges::find(ThemeRoles(), name, &ThemeRole::name);
  return found == ThemeRoles().end() ? nullptr : &*found;
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r";
  const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<QColor> ReadColour(std::string_view text) {
  constexpr std::string_view digits = "0123456789abcdefABCDEF";
  if (text.size() != 7 || text.front() != '#') return {};
  if (text.find_first_not_of(digits, 1) != std::string_view::npos) return {};
  return QColor(QLatin1String(text.data(), 7));
}

void ReadLine(std::string_view line, Theme& theme) {
  line = line.substr(0, line.find(';'));
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return;
  const ThemeRole* role = FindRole(Trimmed(line.substr(0, equals)));
  const std::optional<QColor> colour = ReadColour(Trimmed(line.substr(equals + 1)));
  if (role && colour) theme.*role->colour = *colour;
}

// Nothing for what is no file, or one that is too large to be a style.
std::optional<std::string> ReadFile(Files& files, const std::string& path) {
  const std::optional<FileFacts> facts = files.Facts(path);
  if (!facts || facts->kind != EntryKind::File || facts->size > largestFile) return {};
  return files.ReadWhole(path);
}

std::string PathInProgram(std::string_view path) {
  const std::size_t behindFolders = path.find_last_of("/\\") + 1;
  return ToBytes(QCoreApplication::applicationDirPath()) + "/Styles/" +
         std::string(path.substr(behindFolders));
}

}  // namespace

std::span<const ThemeRole> ThemeRoles() {
  using T = Theme;
  using enum RoleKind;
  // clang-format off
  static const ThemeRole roles[] = {
      // Grounds.
      {"window", &T::window, 0x1f2226, Ground, {}},
      {"field", &T::field, 0x17191c, Ground, {}},
      {"alternateRow", &T::alternateRow, 0x1c1f23, Ground, {}},
      {"fixedField", &T::fixedField, 0x292d32, Ground, {}},
      {"card", &T::card, 0x292d32, Ground, {}},
      {"page", &T::page, 0x24272c, Ground, {}},
      {"tab", &T::tab, 0x1a1c20, Ground, {}},
      {"tabHover", &T::tabHover, 0x2a2e34, Ground, {}},
      {"header", &T::header, 0x2a2e34, Ground, {}},
      {"headerHover", &T::headerHover, 0x363b42, Ground, {}},
      {"status", &T::status, 0x17191c, Ground, {}},
      {"button", &T::button, 0x353a41, Ground, {}},
      {"buttonHover", &T::buttonHover, 0x414851, Ground, {}},
      {"buttonPressed", &T::buttonPressed, 0x2a2e34, Ground, {}},
      {"buttonDisabled", &T::buttonDisabled, 0x26292e, Ground, {}},
      {"accent", &T::accent, 0x2f74bd, Ground, {}},
      {"accentHover", &T::accentHover, 0x3478c2, Ground, {}},
      {"accentPressed", &T::accentPressed, 0x275f9b, Ground, {}},
      {"accentDisabled", &T::accentDisabled, 0x333a43, Ground, {}},
      {"highlight", &T::highlight, 0x2f74bd, Ground, {}},
      {"rowHighlight", &T::rowHighlight, 0x27425e, Ground, {}},
      {"tip", &T::tip, 0x363b42, Ground, {}},
      {"badge", &T::badge, 0x454b54, Ground, {}},
      {"alert", &T::alert, 0xffff00, Ground, {}},
      {"ribbon", &T::ribbon, 0x141619, Ground, {}},
      {"ribbonPanel", &T::ribbonPanel, 0x24272c, Ground, {}},
      {"ribbonHover", &T::ribbonHover, 0x2a2e34, Ground, {}},
      {"ribbonPressed", &T::ribbonPressed, 0x363b42, Ground, {}},
      // Texts.
      {"text", &T::text, 0xe4e7eb, Text, {&T::window, &T::field, &T::alternateRow, &T::fixedField,
        &T::card, &T::page, &T::status, &T::rowHighlight}},
      {"mutedText", &T::mutedText, 0xa5adb7, Text, {&T::window, &T::field, &T::fixedField, &T::card,
        &T::page}},
      {"disabledText", &T::disabledText, 0x6d757f, Faint, {&T::window, &T::field, &T::fixedField, &T::card,
        &T::page, &T::buttonDisabled, &T::ribbonPanel}},
      {"caption", &T::caption, 0xa9c8ea, Text, {&T::window, &T::page, &T::card}},
      {"headerText", &T::headerText, 0xc5cdd6, Text, {&T::header, &T::headerHover}},
      {"tabText", &T::tabText, 0xa9b1bb, Text, {&T::tab, &T::tabHover}},
      {"selectedTabText", &T::selectedTabText, 0xffffff, Text, {&T::page}},
      {"buttonText", &T::buttonText, 0xe4e7eb, Text, {&T::button, &T::buttonHover, &T::buttonPressed}},
      {"accentText", &T::accentText, 0xffffff, Text, {&T::accent, &T::accentHover, &T::accentPressed}},
      {"accentDisabledText", &T::accentDisabledText, 0x7d8692, Faint, {&T::accentDisabled}},
      {"highlightText", &T::highlightText, 0xffffff, Text, {&T::highlight}},
      {"tipText", &T::tipText, 0xe4e7eb, Text, {&T::tip}},
      {"badgeText", &T::badgeText, 0xe0e0e0, Text, {&T::badge}},
      {"alertText", &T::alertText, 0x1a1a1a, Text, {&T::alert}},
      {"ribbonText", &T::ribbonText, 0xd5dae0, Text, {&T::ribbon, &T::ribbonPanel, &T::ribbonHover,
        &T::ribbonPressed}},
      {"ribbonCaption", &T::ribbonCaption, 0xa9b1bb, Text, {&T::ribbonPanel}},
      {"link", &T::link, 0x7fb8f2, Text, {&T::window, &T::field, &T::card, &T::page}},
      // Lines.
      {"border", &T::border, 0x3a4048, Line, {}},
      {"fieldBorder", &T::fieldBorder, 0x5d6772, Line, {}},
      {"buttonBorder", &T::buttonBorder, 0x4d545e, Line, {}},
      {"buttonHoverBorder", &T::buttonHoverBorder, 0x6b7682, Line, {}},
      {"buttonDisabledBorder", &T::buttonDisabledBorder, 0x31363d, Line, {}},
      {"focus", &T::focus, 0x5ba0e6, Line, {}},
      {"accentBorder", &T::accentBorder, 0x4187cf, Line, {}},
      {"accentFocus", &T::accentFocus, 0xcfe4fa, Line, {}},
      {"ribbonBorder", &T::ribbonBorder, 0x3a4048, Line, {}},
      {"splitterHover", &T::splitterHover, 0x3a4048, Line, {}},
      {"splitterDragged", &T::splitterDragged, 0x000000, Line, {}},
  };
  // clang-format on
  static_assert(std::size(roles) * sizeof(QColor) == sizeof(Theme), "a role for each colour");
  return roles;
}

Theme::Theme() {
  for (const ThemeRole& role : ThemeRoles()) this->*role.colour = QColor(role.builtIn);
}

Theme ReadTheme(std::string_view text) {
  Theme theme;
  for (const std::string_view line : Split(text, '\n')) ReadLine(line, theme);
  return theme;
}

Theme LoadTheme(Files& files, const std::string& path) {
  for (const std::string& place : {path, PathInProgram(path)}) {
    if (const auto text = ReadFile(files, place)) return ReadTheme(*text);
  }
  return {};
}

}  // namespace tallowbrook
