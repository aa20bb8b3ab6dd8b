#include "desktop/window_keys.h"

#include <QApplication>
#include <QKeyEvent>

namespace tallowbrook {

WindowKeys::WindowKeys(Form1& form, QWidget& window)
    : QObject(&window), form_(form), window_(window) {
  QApplication::instance()->installEventFilter(this);
}

bool WindowKeys::eventFilter(QObject* watched, QEvent* event) {
  const bool asked = event->type() == QEvent::ShortcutOverride;
  if (!asked && event->type() != QEvent::KeyPress) return false;
  auto* widget = qobject_cast<QWidget*>(watched);
  if (!widget || widget->window() != &window_) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  const bool toAddress = key->key() == Qt::Key_D && key->modifiers() == Qt::AltModifier;
  if (asked) {
    // Before the access key of the address's label, which would select the text.
    if (toAddress) event->accept();
    return toAddress;
  }
  if (key->key() == Qt::Key_Escape) form_.EscapeKey();
  // A key that nobody takes comes by once for each widget around the one that has the focus.
  const bool isFirst = widget == QApplication::focusWidget();
  if (key->key() == Qt::Key_Delete && isFirst) form_.DeleteKey();
  if (toAddress) form_.AddressShortcut();
  return toAddress;
}

}  // namespace tallowbrook
