#include "desktop/look.h"

#include <QApplication>
#include <QIcon>
#include <QLineEdit>
#include <QPalette>
#include <QStyleFactory>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace tallowbrook {

namespace {

// Shapes that a palette can't say. Everything else is painted by the style.
constexpr char sheet[] = R"(
QWidget#RibbonPlace {
  background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #ffffff, stop:1 #e9eef5);
  border-bottom: 1px solid #c9d3df;
}
QWidget#RibbonPlace QLabel#ProgramName { color: #1f4e79; font-weight: bold; font-size: 13pt; }
QWidget#RibbonPlace QToolButton {
  border: 1px solid transparent; border-radius: 4px; padding: 5px 10px; color: #243447;
}
QWidget#RibbonPlace QToolButton:hover { background: #dbe8f6; border-color: #b6cde6; }
QWidget#RibbonPlace QToolButton:pressed { background: #c7dbf0; }
QWidget#RibbonPlace QToolButton:focus { border-color: #7fa9d4; }

QGroupBox {
  background: #ffffff; border: 1px solid #d2dae4; border-radius: 5px;
  margin-top: 1.4em;
}
QGroupBox::title {
  subcontrol-origin: margin; subcontrol-position: top left; left: 2px; color: #3b556f;
}
QFrame#Card { background: #ffffff; border: 1px solid #d2dae4; border-radius: 5px; }

QTabWidget::pane { border: 1px solid #d2dae4; border-radius: 5px; top: -1px; background: #f8fafc; }
QTabBar::tab {
  background: #e8edf3; border: 1px solid #d2dae4; padding: 6px 14px; margin-right: 2px;
  border-top-left-radius: 5px; border-top-right-radius: 5px; color: #465a70;
}
QTabBar::tab:hover { background: #f1f5f9; }
QTabBar::tab:selected { background: #f8fafc; border-bottom-color: #f8fafc; color: #1f4e79; }

QHeaderView::section {
  background: #eef2f7; color: #3b556f; padding: 4px 3px;
  border: none; border-right: 1px solid #d8e0e9; border-bottom: 1px solid #d2dae4;
}
QHeaderView::section:hover { background: #e1e9f2; }

QPushButton {
  background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #ffffff, stop:1 #eff3f7);
  border: 1px solid #bac6d3; border-radius: 4px; padding: 4px 12px; min-width: 44px;
}
QPushButton:hover { background: #e6eff9; border-color: #8fb3d9; }
QPushButton:pressed { background: #d3e3f4; }
QPushButton:focus { border-color: #2b6cb0; }
QPushButton:disabled { background: #eef1f5; border-color: #d5dce4; color: #8a97a5; }
QPushButton#PushButton_Apply {
  background: #2b6cb0; border-color: #245a94; color: #ffffff; font-weight: bold;
}
QPushButton#PushButton_Apply:hover { background: #3277bf; }
QPushButton#PushButton_Apply:pressed { background: #245a94; }
QPushButton#PushButton_Apply:focus { border: 2px solid #12385f; padding: 3px 11px; }
QPushButton#PushButton_Apply:disabled { background: #b9c6d3; border-color: #aebbc8; }

QStatusBar { background: #eef2f7; border-top: 1px solid #d2dae4; }
QStatusBar::item { border: none; }
QSplitter::handle { background: transparent; }
QSplitter::handle:hover { background: #c9d9ea; }
QSplitter::handle:pressed { background: black; }
)";

QPalette LightPalette() {
  QPalette palette;
  const QColor ink(0x1f, 0x29, 0x33);
  const QColor paper(0xf3, 0xf6, 0xf9);
  const QColor faint(0x8a, 0x97, 0xa5);
  palette.setColor(QPalette::Window, paper);
  palette.setColor(QPalette::WindowText, ink);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, QColor(0xf7, 0xf9, 0xfc));
  palette.setColor(QPalette::Text, ink);
  palette.setColor(QPalette::Button, QColor(0xf6, 0xf8, 0xfb));
  palette.setColor(QPalette::ButtonText, ink);
  palette.setColor(QPalette::BrightText, Qt::white);
  palette.setColor(QPalette::Light, Qt::white);
  palette.setColor(QPalette::Midlight, QColor(0xe4, 0xea, 0xf0));
  palette.setColor(QPalette::Mid, QColor(0xc3, 0xcc, 0xd6));
  palette.setColor(QPalette::Dark, QColor(0xa3, 0xaf, 0xbc));
  palette.setColor(QPalette::Shadow, QColor(0x6b, 0x78, 0x86));
  palette.setColor(QPalette::Highlight, QColor(0x2b, 0x6c, 0xb0));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::PlaceholderText, faint);
  palette.setColor(QPalette::ToolTipBase, QColor(0xff, 0xfd, 0xf0));
  palette.setColor(QPalette::ToolTipText, ink);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xec, 0xf0, 0xf4));
  return palette;
}

// Relative luminance, WCAG 2.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace

QColor KeywordColour(const QColor& ground) {
  constexpr double legible = 4.5;
  constexpr int steps = 20;
  const auto isLegible = [&](const QColor& colour) { return Contrast(colour, ground) >= legible; };
  for (int step = 0; step < steps; ++step) {
    const int whiter = 255 * step / steps;
    if (const QColor colour(whiter, whiter, 255); isLegible(colour)) return colour;
  }
  for (int step = 0; step < steps; ++step) {
    if (const QColor colour(0, 0, 255 - 255 * step / steps); isLegible(colour)) return colour;
  }
  return Luminance(ground) < 0.18 ? Qt::white : Qt::black;
}

void ApplyLook(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(LightPalette());
  application.setStyleSheet(QLatin1String(sheet));
  QApplication::setWindowIcon(ProgramIcon());
}

QIcon ProgramIcon() {
  return QIcon(QCoreApplication::applicationDirPath() + QLatin1String("/Images/tallowbrook.png"));
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
