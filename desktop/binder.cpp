#include "desktop/binder.h"

#include <QButtonGroup>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/exact_text_edit.h"
#include "desktop/lines_binding.h"
#include "desktop/mask_edit.h"
#include "desktop/spin_arrows.h"
#include "desktop/text.h"

namespace tallowbrook {

Binder::Binder(Screen& screen) : screen_(screen) {
  screen_.changed = [this](Control& control) { Changed(control); };
  screen_.focusRequested = [this](Control& control) { Focus(control); };
}

Binder::~Binder() {
  screen_.changed = nullptr;
  screen_.focusRequested = nullptr;
  // Widgets that go later have events on their way out: those reach no control any more.
  for (const auto& [control, bindings] : bindings_) {
    for (const QPointer<Binding>& binding : bindings) delete binding.data();
  }
}

QCheckBox* Binder::Add(Tick& tick, QWidget* parent, char accessKey) {
  auto* box = new QCheckBox(parent);
  Keep(tick, new TickBinding(tick, *box, accessKey));
  return box;
}

QLineEdit* Binder::Add(Text& text, QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  Keep(text, new TextBinding(text, *edit));
  return edit;
}

QPlainTextEdit* Binder::Add(TextLines& text, QWidget* parent) {
  auto* edit = new ExactTextEdit(parent);
  Keep(text, new LinesBinding(text, *edit));
  return edit;
}

MaskEdit* Binder::Add(MaskText& mask, QWidget* parent) {
  auto* edit = new MaskEdit(parent);
  Keep(mask, new MaskBinding(mask, *edit));
  return edit;
}

QLineEdit* Binder::Add(Text& text, Spin& spin, QWidget* parent) {
  QLineEdit* line = Add(text, parent);
  Keep(spin, new SpinBinding(spin, *new SpinArrows(*line)));
  return line;
}

QuietCombo* Binder::Add(TextWithItems& text, QWidget* parent) {
  auto* box = new QuietCombo(parent);
  Keep(text, new TextWithItemsBinding(text, *box));
  return box;
}

QuietCombo* Binder::Add(List& list, QWidget* parent) {
  auto* box = new QuietCombo(parent);
  box->SetWidth(QuietCombo::Width::OfItems);
  Keep(list, new ListBinding(list, *box));
  return box;
}

QRadioButton* Binder::Add(Option& option, QWidget* parent, char accessKey) {
  auto* button = new QRadioButton(parent);
  auto known = groups_.find(option.Group());
  if (known == groups_.end()) {
    known = groups_.emplace(option.Group(), new QButtonGroup(parent)).first;
  }
  known->second->addButton(button);
  Keep(option, new OptionBinding(option, *button, accessKey));
  return button;
}

QDateEdit* Binder::Add(DateField& date, QWidget* parent) {
  auto* edit = new QDateEdit(parent);
  edit->setCalendarPopup(true);
  edit->setDisplayFormat(QStringLiteral("d MMMM yyyy"));
  // As legible as the other days, whatever the style.
  for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
    edit->calendarWidget()->setWeekdayTextFormat(day, QTextCharFormat());
  }
  Keep(date, new DateBinding(date, *edit));
  return edit;
}

QPushButton* Binder::Add(Button& button, QWidget* parent, char accessKey) {
  auto* push = new QPushButton(parent);
  Keep(button, new ButtonBinding(button, *push, accessKey));
  return push;
}

QLabel* Binder::Add(Label& label, QWidget* parent) {
  auto* shown = new QLabel(parent);
  Keep(label, new CaptionBinding(label, *shown, 0));
  return shown;
}

QLabel* Binder::AddCaption(Control& control, QWidget* field, char accessKey) {
  auto* label = new QLabel(field->parentWidget());
  label->setBuddy(field);
  Keep(control, new CaptionBinding(control, *label, accessKey));
  // The field bears the control's name, so that it is the one found by it.
  if (control.Kind() != ControlKind::Label) label->setObjectName(QString());
  return label;
}

void Binder::BindPanel(Control& control, QWidget* panel) {
  Keep(control, new Binding(control, *panel));
}

void Binder::Watch(const Control& control, std::function<void()> react) {
  watchers_[&control].push_back(std::move(react));
}

void Binder::Keep(const Control& control, Binding* binding) {
  bindings_[&control].push_back(binding);
  binding->Refresh();
}

void Binder::Changed(const Control& control) {
  if (const auto found = bindings_.find(&control); found != bindings_.end()) {
    for (const QPointer<Binding>& binding : found->second) {
      if (binding) binding->Refresh();
    }
  }
  if (const auto found = watchers_.find(&control); found != watchers_.end()) {
    for (const std::function<void()>& react : found->second) react();
  }
}

void Binder::Focus(const Control& control) {
  const auto found = bindings_.find(&control);
  if (found == bindings_.end()) return;
  for (const QPointer<Binding>& binding : found->second) {
    if (binding && !qobject_cast<QLabel*>(&binding->Widget())) return binding->TakeFocus();
  }
}

}  // namespace tallowbrook
