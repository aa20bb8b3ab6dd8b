// A drop-down box that changes only when the user means it: the mouse wheel passes it by unless
// it has the focus, and one that takes no typing offers no items either.
#pragma once

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

namespace tallowbrook {

class QuietCombo : public QComboBox {
 public:
  explicit QuietCombo(QWidget* parent) : QComboBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMaxVisibleItems(14);
  }

  // The toolkit keeps the least width of the time before the items came.
  QSize minimumSizeHint() const override {
    return sizeAdjustPolicy() == AdjustToContents ? sizeHint() : QComboBox::minimumSizeHint();
  }
  void showPopup() override {
    if (!Locked()) QComboBox::showPopup();
  }

 protected:
  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus() && !Locked()) {
      QComboBox::wheelEvent(event);
    } else {
      event->ignore();
    }
  }
  void keyPressEvent(QKeyEvent* event) override {
    const bool picks = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down ||
                       event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
    if (picks && Locked()) return;
    QComboBox::keyPressEvent(event);
  }

 private:
  bool Locked() const { return isEditable() && lineEdit()->isReadOnly(); }
};

}  // namespace tallowbrook
