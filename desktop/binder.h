// Binder: the one listener of a screen. It makes the widgets of a window, a line a control, and
// brings each change of a control to what shows it.
#pragma once

#include <QPointer>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "desktop/binding.h"
#include "desktop/quiet_combo.h"

class QButtonGroup;
class QPlainTextEdit;

namespace tallowbrook {

class MaskEdit;

// Screen and Binder may end in either order. Widgets end with their parents; those that outlive the
// binder no longer reach their controls.
class Binder {
 public:
  explicit Binder(Screen& screen);
  ~Binder();
  Binder(const Binder&) = delete;
  Binder& operator=(const Binder&) = delete;

  // Each makes the widget for a control, bound both ways, with the control's name as its object
  // name. `accessKey` is a letter of the caption in lower case.
  QCheckBox* Add(Tick& tick, QWidget* parent, char accessKey = 0);
  QLineEdit* Add(Text& text, QWidget* parent);
  QPlainTextEdit* Add(TextLines& text, QWidget* parent);
  MaskEdit* Add(MaskText& mask, QWidget* parent);
  // The line of the text, with the arrows of `spin` in it.
  QLineEdit* Add(Text& text, Spin& spin, QWidget* parent);
  QuietCombo* Add(TextWithItems& text, QWidget* parent);
  QuietCombo* Add(List& list, QWidget* parent);
  QRadioButton* Add(Option& option, QWidget* parent, char accessKey = 0);
  QDateEdit* Add(DateField& date, QWidget* parent);
  QPushButton* Add(Button& button, QWidget* parent, char accessKey = 0);
  QLabel* Add(Label& label, QWidget* parent);

  // A label with the control's caption, whose access key puts the focus on `field`. It hides and
  // greys with the control.
  QLabel* AddCaption(Control& control, QWidget* field, char accessKey = 0);
  // Shows, hides, greys and names a panel as its control says.
  void BindPanel(Control& control, QWidget* panel);
  // Runs after each change of the control.
  void Watch(const Control& control, std::function<void()> react);

 private:
  void Keep(const Control& control, Binding* binding);
  void Changed(const Control& control);
  void Focus(const Control& control);

  Screen& screen_;
  std::unordered_map<const Control*, std::vector<QPointer<Binding>>> bindings_;
  std::unordered_map<const Control*, std::vector<std::function<void()>>> watchers_;
  std::map<std::string, QButtonGroup*, std::less<>> groups_;
};

}  // namespace tallowbrook
