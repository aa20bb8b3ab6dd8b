// A drop-down box that changes only when the user means it: the mouse wheel passes it by unless
// it has the focus, and one that takes no typing offers no items either.
//
// It says itself how wide it wants to be. The toolkit's own policies for that make the window that
// drops down together with the box; with all boxes of the first page that is a tenth of the
// program's start.
#pragma once

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>
#include <optional>

namespace tallowbrook {

class QuietCombo : public QComboBox {
 public:
  enum class Width {
    OfFirstItems,  // as the toolkit has it: of the items that are there when it first shows
    OfItems,       // of the widest item, and of `characters` at least
    OfCharacters,  // of `characters`, whatever the items are
  };

  explicit QuietCombo(QWidget* parent);
  void SetWidth(Width width, int characters = 0);
  // Takes typing from now on.
  void MakeEditable();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override {
    return width_ == Width::OfFirstItems ? QComboBox::minimumSizeHint() : sizeHint();
  }
  void showPopup() override {
    if (!Locked()) QComboBox::showPopup();
  }

 protected:
  void changeEvent(QEvent* event) override;
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

  int WidestItem() const;

  Width width_ = Width::OfFirstItems;
  int characters_ = 0;
  // Layouts ask often; measured anew when items or the font change.
  mutable std::optional<int> widestItem_;
};

}  // namespace tallowbrook
