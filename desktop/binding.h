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
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tallowbrook {

// Lives as long as its widget.
class Binding : public QObject {
 public:
  // Names the widget after the control.
  Binding(Control& control, QWidget& widget);

  QWidget& Widget() const { return widget_; }
  // Shows value, items and look of the control. Does nothing while it is at it.
  void Refresh();
  // Puts the keyboard focus on the widget, a caret at the end of its text.
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

class TextBinding : public Binding {
 public:
  TextBinding(Text& text, QLineEdit& edit);
  void TakeFocus() override;

 protected:
  void ShowValue() override;

 private:
  Text& text_;
  QLineEdit& edit_;
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
class TextWithItemsBinding : public Binding {
 public:
  TextWithItemsBinding(TextWithItems& text, QComboBox& box);
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
