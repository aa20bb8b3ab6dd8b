#include "desktop/ribbon_keys.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>

namespace tallowbrook {

RibbonKeys::RibbonKeys(RibbonBar& ribbon, QWidget& window, std::function<bool()> isBusy)
    : QObject(&ribbon), ribbon_(ribbon), window_(window), isBusy_(std::move(isBusy)) {
  QApplication::instance()->installEventFilter(this);
}

bool RibbonKeys::eventFilter(QObject* watched, QEvent* event) {
  WatchAlt(*event);
  auto* widget = qobject_cast<QWidget*>(watched);
  // A key that nobody takes comes by again for each widget around the one that has the focus.
  if (!widget || widget != QApplication::focusWidget() || widget->window() != &window_) {
    return false;
  }
  if (event->type() == QEvent::KeyPress) return Press(*static_cast<QKeyEvent*>(event));
  const bool isAlt =
      event->type() == QEvent::KeyRelease && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt;
  if (isAlt && altAlone_) {
    altAlone_ = false;
    Turn();
  }
  return false;
}

// A key that is a shortcut comes by as a question only, before it is acted upon.
void RibbonKeys::WatchAlt(const QEvent& event) {
  switch (event.type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress: {
      const auto& key = static_cast<const QKeyEvent&>(event);
      altAlone_ = key.key() == Qt::Key_Alt && (altAlone_ || !key.isAutoRepeat()) &&
                  (key.modifiers() & ~Qt::AltModifier) == 0;
      break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::WindowDeactivate:
      altAlone_ = false;
      break;
    default:
      break;
  }
}

bool RibbonKeys::Press(const QKeyEvent& key) {
  if ((key.modifiers() & ~Qt::ShiftModifier) != 0) return false;
  if (key.key() == Qt::Key_F10 && key.modifiers() == 0) {
    Turn();
    return true;
  }
  if (!ribbon_.HasKeyboard()) return false;
  if (key.key() == Qt::Key_Escape) return ribbon_.GiveKeyboardBack() && !isBusy_();
  return key.text().size() == 1 && ribbon_.PressLetter(key.text()[0]);
}

void RibbonKeys::Turn() {
  if (!ribbon_.GiveKeyboardBack()) ribbon_.TakeKeyboard();
}

}  // namespace tallowbrook
