// Binding: one control of a screen and the widget that shows it.
//
// There is one small class a kind of control. It hands the user's input to the control and shows
// what the control then holds; what code sets, it shows without handing it back.
#pragma once

#include <QObject>
#include <QWidget>

#include "base/controls.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QInputMethodEvent;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWheelEvent;

namespace tallowbrook {

class QuietCombo;
class SpinArrows;

// Lives as long as its widget or its binder, whichever ends first.
class Binding : public QObject {
 public:
  // Names the widget after the control.
  Binding(Control& control, QWidget& widget);

  QWidget& Widget() const { return widget_; }
  // Shows value, items and look of the control. Does nothing while it is at it.
  void Refresh();
  // Gives the widget the keyboard; a line is then typed on behind what stands in it.
  virtual void TakeFocus() { widget_.setFocus(Qt::OtherFocusReason); }

 protected:
  virtual void ShowValue() {}
  bool Showing() const { return showing_; }

 private:
  void ShowLook();

  Control& control_;
  QWidget& widget_;
  bool shown_ = true;
  bool highlighted_ = false;
  bool showing_ = false;
};

class TickBinding : public Binding {
 public:
  TickBinding(Tick& tick, QCheckBox& box, char accessKey);

 protected:
  void ShowValue() override;

 private:
  Tick& tick_;
  QCheckBox& box_;
  char accessKey_;
};

// A field that is typed into: asks the text which characters it takes, and tells it when the
// keyboard leaves.
class TypedBinding : public Binding {
 public:
  TypedBinding(Text& text, QWidget& widget);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Takes(QStringView typed) const;
  bool IsRefused(const QKeyEvent& key) const;
  void KeepTaken(QInputMethodEvent& input) const;

  Text& text_;
};

class TextBinding : public TypedBinding {
 public:
  TextBinding(Text& text, QLineEdit& edit);
  void TakeFocus() override;

 protected:
  void ShowValue() override;

 private:
  Text& text_;
  QLineEdit& edit_;
};

// The arrows in the line of a text. The line's keys Up and Down and, while it has the focus, the
// mouse wheel step as well.
class SpinBinding : public Binding {
 public:
  SpinBinding(Spin& spin, SpinArrows& arrows);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Step(bool up);
  bool Key(const QKeyEvent& key);
  bool Wheel(const QWheelEvent& wheel);

  Spin& spin_;
  QLineEdit& line_;
  int turned_ = 0;  // of the wheel, in eighths of a degree, since the last step
};

class ListBinding : public Binding {
 public:
  ListBinding(List& list, QComboBox& box);

 protected:
  void ShowValue() override;

 private:
  List& list_;
  QComboBox& box_;
};

// Free text over items: proposals or a history.
class TextWithItemsBinding : public TypedBinding {
 public:
  TextWithItemsBinding(TextWithItems& text, QuietCombo& box);
  void TakeFocus() override;

 protected:
  void ShowValue() override;

 private:
  TextWithItems& text_;
  QComboBox& box_;
};

class OptionBinding : public Binding {
 public:
  OptionBinding(Option& option, QRadioButton& button, char accessKey);

 protected:
  void ShowValue() override;

 private:
  Option& option_;
  QRadioButton& button_;
  char accessKey_;
};

// The time of day that the date holds stays as it is.
class DateBinding : public Binding {
 public:
  DateBinding(DateField& date, QDateEdit& edit);

 protected:
  void ShowValue() override;

 private:
  DateField& date_;
  QDateEdit& edit_;
};

class ButtonBinding : public Binding {
 public:
  ButtonBinding(Button& button, QPushButton& push, char accessKey);

 protected:
  void ShowValue() override;

 private:
  Button& button_;
  QPushButton& push_;
  char accessKey_;
};

// Shows a control's caption: that of a Label, or the words that stand beside a field.
class CaptionBinding : public Binding {
 public:
  CaptionBinding(Control& control, QLabel& label, char accessKey);

 protected:
  void ShowValue() override;

 private:
  Control& control_;
  QLabel& label_;
  char accessKey_;
};

}  // namespace tallowbrook
