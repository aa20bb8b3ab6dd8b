#include "desktop/look.h"

#include <QApplication>
#include <QIcon>
#include <QLineEdit>
#include <QPalette>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <cctype>
#include <string_view>
#include <unordered_map>

#include "desktop/outline_style.h"
#include "desktop/png_file.h"
#include "desktop/theme.h"

namespace tallowbrook {

namespace {

// Shapes that a palette can't say, "@" and a role standing for the role's colour. Everything else
// is painted by the toolkit's style.
constexpr char sheet[] = R"(
QFrame#RibbonBar { background: @ribbon; border-bottom: 1px solid @ribbonBorder; }
QFrame#RibbonBar > QStackedWidget { background: @ribbonPanel; border-top: 1px solid @ribbonBorder; }
QFrame#RibbonBar QLabel { color: @ribbonText; }
QFrame#RibbonGroup { border: 1px solid @ribbonBorder; border-radius: 4px; }
QFrame#RibbonGroup QLabel#RibbonCaption { color: @ribbonCaption; }
QFrame#RibbonBar QToolButton {
  border: 1px solid transparent; border-radius: 4px; padding: 3px 6px; color: @ribbonText;
}
QFrame#RibbonGroup QToolButton { padding: 2px 3px; }
QFrame#RibbonBar QToolButton:hover { background: @ribbonHover; border-color: @ribbonBorder; }
QFrame#RibbonBar QToolButton:pressed { background: @ribbonPressed; }
QFrame#RibbonBar QToolButton:focus { border-color: @focus; }
QFrame#RibbonBar QToolButton:disabled { color: @disabledText; }
QFrame#RibbonBar QToolButton#SystemButton {
  background: @accent; color: @accentText; border-color: @accentBorder; padding: 3px 10px;
}
QFrame#RibbonBar QToolButton#SystemButton:hover { background: @accentHover; }
QFrame#RibbonBar QToolButton#SystemButton:pressed { background: @accentPressed; }
QFrame#RibbonBar QToolButton#SystemButton:focus { border-color: @accentFocus; }
QFrame#RibbonBar QToolButton#SystemButton::menu-indicator { image: none; }
QFrame#RibbonBar QToolButton#StylesButton { padding-right: 18px; }
QFrame#RibbonBar QToolButton#StylesButton::menu-indicator {
  subcontrol-origin: padding; subcontrol-position: center right; right: 5px;
}
QTabBar#RibbonTabs { outline: none; }
QTabBar#RibbonTabs::tab {
  background: transparent; color: @ribbonText; border: 1px solid transparent; border-bottom: none;
  padding: 4px 14px; margin: 0 1px;
}
QTabBar#RibbonTabs::tab:hover { background: @ribbonHover; }
QTabBar#RibbonTabs::tab:selected {
  background: @ribbonPanel; border-color: @ribbonBorder; border-top: 2px solid @accent;
}
QTabBar#RibbonTabs::tab:selected:focus { border: 1px solid @focus; border-top: 2px solid @focus; }

QGroupBox {
  background: @card; border: 1px solid @border; border-radius: 5px;
  margin-top: 1.4em;
}
QGroupBox::title {
  subcontrol-origin: margin; subcontrol-position: top left; left: 2px; color: @caption;
}
QScrollArea#TipCard { background: @card; }
QScrollArea#TipCard QLabel { background: @card; }
QFrame#Card { background: @card; border: 1px solid @border; border-radius: 5px; }

QTabWidget::pane { border: 1px solid @border; border-radius: 5px; top: -1px; background: @page; }
QTabBar::tab {
  background: @tab; border: 1px solid @border; padding: 6px 14px; margin-right: 2px;
  border-top-left-radius: 5px; border-top-right-radius: 5px; color: @tabText;
}
QTabBar::tab:hover { background: @tabHover; }
QTabBar::tab:selected { background: @page; border-bottom-color: @page; color: @selectedTabText; }

QTableView, QTreeView, QListView#ListView1_Icons { selection-background-color: @rowHighlight; selection-color: @text; }
QHeaderView::section {
  background: @header; color: @headerText; padding: 4px 3px;
  border: none; border-right: 1px solid @border; border-bottom: 1px solid @border;
}
QHeaderView::section:hover { background: @headerHover; }

QLineEdit[look="fixed"], QLineEdit[look="muted"] { background: @fixedField; }
QLineEdit[look="muted"] { color: @mutedText; }

QPushButton {
  background: @button; color: @buttonText;
  border: 1px solid @buttonBorder; border-radius: 4px; padding: 4px 12px; min-width: 44px;
}
QPushButton:hover { background: @buttonHover; border-color: @buttonHoverBorder; }
QPushButton:pressed { background: @buttonPressed; }
QPushButton:focus { border-color: @focus; }
QPushButton:disabled {
  background: @buttonDisabled; border-color: @buttonDisabledBorder; color: @disabledText;
}
QPushButton#PushButton_Apply {
  background: @accent; border-color: @accentBorder; color: @accentText; font-weight: bold;
}
QPushButton#PushButton_Apply:hover { background: @accentHover; }
QPushButton#PushButton_Apply:pressed { background: @accentPressed; }
QPushButton#PushButton_Apply:focus { border: 2px solid @accentFocus; padding: 3px 11px; }
QPushButton#PushButton_Apply:disabled {
  background: @accentDisabled; border-color: @buttonDisabledBorder; color: @accentDisabledText;
}
QPushButton[link="true"] {
  background: transparent; color: @link; border: 1px solid transparent; padding: 1px 0;
  text-align: left; text-decoration: underline;
}
QPushButton[link="true"]:hover { color: @text; }
QPushButton[link="true"]:focus { border-color: @focus; }

QToolTip { background: @tip; color: @tipText; border: 1px solid @border; padding: 2px; }
QStatusBar { background: @status; border-top: 1px solid @border; }
QStatusBar::item { border: none; }
QSplitter::handle { background: transparent; }
QSplitter::handle:hover { background: @splitterHover; }
QSplitter::handle:pressed { background: @splitterDragged; }
)";

// Each "@role" of the sheet becomes its colour.
QString SheetOf(const Theme& theme) {
  std::unordered_map<std::string_view, const ThemeRole*> roles;
  for (const ThemeRole& role : ThemeRoles()) roles.emplace(role.name, &role);
  QString filled;
  std::string_view rest = sheet;
  for (std::size_t at; (at = rest.find('@')) != std::string_view::npos;) {
    filled += QLatin1String(rest.data(), static_cast<qsizetype>(at));
    rest.remove_prefix(at + 1);
    const auto isLetter = [](char c) { return std::isalpha(static_cast<unsigned char>(c)); };
    const auto length =
        static_cast<std::size_t>(std::ranges::find_if_not(rest, isLetter) - rest.begin());
    const auto found = roles.find(rest.substr(0, length));
    if (found != roles.end()) filled += (theme.*found->second->colour).name();
    rest.remove_prefix(length);
  }
  return filled + QLatin1String(rest.data(), static_cast<qsizetype>(rest.size()));
}

// The colours that bevels need follow from those of window and button.
QPalette PaletteOf(const Theme& theme) {
  QPalette palette(theme.button, theme.window);
  const std::pair<QPalette::ColorRole, QColor> colours[] = {
      {QPalette::WindowText, theme.text},
      {QPalette::Base, theme.field},
      {QPalette::AlternateBase, theme.alternateRow},
      {QPalette::Text, theme.text},
      {QPalette::ButtonText, theme.buttonText},
      {QPalette::Highlight, theme.highlight},
      {QPalette::HighlightedText, theme.highlightText},
      {QPalette::PlaceholderText, theme.mutedText},
      {QPalette::ToolTipBase, theme.tip},
      {QPalette::ToolTipText, theme.tipText},
      {QPalette::Link, theme.link},
      {QPalette::LinkVisited, theme.link}};
  for (const auto& [role, colour] : colours) palette.setColor(role, colour);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, theme.disabledText);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, theme.fixedField);
  return palette;
}

Theme& Applied() {
  static Theme applied;
  return applied;
}

// The sheet asks for a property only when a widget is polished.
void SetLook(QWidget& widget, const char* property, const QVariant& value) {
  if (widget.property(property) == value) return;
  widget.setProperty(property, value);
  widget.style()->unpolish(&widget);
  widget.style()->polish(&widget);
}

}  // namespace

void ApplyLook() {
  QApplication::setStyle(new OutlineStyle);
  ApplyTheme({});
}

void ApplyTheme(const Theme& theme) {
  Applied() = theme;
  QPalette palette = PaletteOf(theme);
  QApplication::setPalette(palette);
  // Menus lie above everything, as cards do.
  palette.setColor(QPalette::Base, theme.card);
  QApplication::setPalette(palette, "QMenu");
  qApp->setStyleSheet(SheetOf(theme));
}

const Theme& CurrentTheme() {
  return Applied();
}

void ShowLine(QLineEdit& line, LineLook look) {
  constexpr const char* names[] = {"", "fixed", "muted"};
  SetLook(line, "look", QLatin1String(names[static_cast<std::size_t>(look)]));
}

// By a sheet of the widget's own: a rule for any widget is tried on every one.
void ShowAlert(QWidget& widget, bool on) {
  const Theme& theme = CurrentTheme();
  const QString rule = QStringLiteral("#%1 { background: %2; color: %3; }")
                           .arg(widget.objectName(), theme.alert.name(), theme.alertText.name());
  widget.setStyleSheet(on ? rule : QString());
}

QIcon ProgramIcon() {
  return QIcon(QPixmap::fromImage(ReadPngFile(QCoreApplication::applicationDirPath() +
                                              QLatin1String("/Images/tallowbrook.png"))));
}

QWidget* AddCard(QWidget* page) {
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(margin, margin, margin, margin);
  auto* card = new QFrame(page);
  card->setObjectName(QStringLiteral("Card"));
  column->addWidget(card);
  return card;
}

void FitDigits(QLineEdit* edit, int digits) {
  const int frame = edit->sizeHint().height() * 3 / 4 + edit->textMargins().right();
  edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits + frame);
}

}  // namespace tallowbrook
