#include "desktop/binding.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <limits>

#include "base/guards.h"
#include "desktop/look.h"
#include "desktop/quiet_combo.h"
#include "desktop/spin_arrows.h"
#include "desktop/text.h"

namespace tallowbrook {

namespace {

QStringList ToTexts(const std::vector<std::string>& items) {
  QStringList texts;
  texts.reserve(static_cast<qsizetype>(items.size()));
  for (const std::string& item : items) texts += ToText(item);
  return texts;
}

bool SameItems(const QComboBox& box, const QStringList& items) {
  if (box.count() != items.size()) return false;
  for (int at = 0; at < box.count(); ++at) {
    if (box.itemText(at) != items[at]) return false;
  }
  return true;
}

void ShowItems(QComboBox& box, const std::vector<std::string>& items) {
  const QStringList texts = ToTexts(items);
  if (SameItems(box, texts)) return;
  box.clear();
  box.addItems(texts);
}

// The caret stays where it is, as far as the new text goes.
void ShowText(QLineEdit& edit, const std::string& bytes) {
  const QString text = ToText(bytes);
  if (edit.text() == text) return;
  const bool atEnd = edit.cursorPosition() == edit.text().size();
  const int caret = edit.cursorPosition();
  edit.setText(text);
  if (!atEnd) edit.setCursorPosition(caret);
}

void ShowReadOnly(QLineEdit& edit, bool readOnly) {
  if (edit.isReadOnly() == readOnly) return;
  edit.setReadOnly(readOnly);
  ShowLine(edit, readOnly ? LineLook::Muted : LineLook::Usual);
}

// A menu over the widget only borrows the keyboard.
bool IsFocusLost(const QEvent& event) {
  return event.type() == QEvent::FocusOut &&
         static_cast<const QFocusEvent&>(event).reason() != Qt::PopupFocusReason;
}

}  // namespace

Binding::Binding(Control& control, QWidget& widget)
    : QObject(&widget), control_(control), widget_(widget) {
  widget.setObjectName(ToText(control.Name()));
}

void Binding::Refresh() {
  if (showing_) return;
  showing_ = true;
  const Finally done([this] { showing_ = false; });
  ShowValue();
  ShowLook();
}

void Binding::ShowLook() {
  widget_.setEnabled(control_.Enabled());
  if (!control_.Tip().empty()) widget_.setToolTip(PlainToolTip(ToText(control_.Tip())));
  if (highlighted_ != control_.Highlighted()) {
    highlighted_ = control_.Highlighted();
    ShowAlert(widget_, highlighted_);
  }
  // Only a change is passed on: a widget that has no window yet must not become one.
  if (shown_ != control_.Visible()) {
    shown_ = control_.Visible();
    widget_.setVisible(shown_);
  }
}

TickBinding::TickBinding(Tick& tick, QCheckBox& box, char accessKey)
    : Binding(tick, box), tick_(tick), box_(box), accessKey_(accessKey) {
  connect(&box, &QCheckBox::clicked, this, [this](bool on) {
    tick_.Set(on ? 1 : 0);
    Refresh();
  });
}

void TickBinding::ShowValue() {
  box_.setText(WithAccessKey(tick_.Caption(), accessKey_));
  box_.setChecked(tick_.On());
}

TypedBinding::TypedBinding(Text& text, QWidget& widget) : Binding(text, widget), text_(text) {
  widget.installEventFilter(this);
}

bool TypedBinding::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::KeyPress) return IsRefused(*static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::InputMethod) KeepTaken(*static_cast<QInputMethodEvent*>(event));
  if (IsFocusLost(*event) && text_.focusLost) text_.focusLost();
  return false;
}

bool TypedBinding::Takes(QStringView typed) const {
  return !text_.takesKey || text_.takesKey(ToBytes(typed));
}

// Keys that don't type, such as those that edit, carry no text, a control character, or Ctrl.
bool TypedBinding::IsRefused(const QKeyEvent& key) const {
  const Qt::KeyboardModifiers held = key.modifiers() & ~Qt::ShiftModifier & ~Qt::KeypadModifier;
  const QString typed = key.text();
  const bool types = held != Qt::ControlModifier && !typed.isEmpty() &&
                     typed[0].category() != QChar::Other_Control;
  return types && !Takes(typed);
}

void TypedBinding::KeepTaken(QInputMethodEvent& input) const {
  const QString& typed = input.commitString();
  QString taken;
  for (qsizetype at = 0; at < typed.size();) {
    const qsizetype length = typed[at].isHighSurrogate() ? 2 : 1;
    const QStringView character = QStringView(typed).mid(at, length);
    if (Takes(character)) taken += character;
    at += length;
  }
  if (taken != typed) {
    input.setCommitString(taken, input.replacementStart(), input.replacementLength());
  }
}

TextBinding::TextBinding(Text& text, QLineEdit& edit)
    : TypedBinding(text, edit), text_(text), edit_(edit) {
  edit.setMaxLength(std::numeric_limits<int>::max());
  connect(&edit, &QLineEdit::textChanged, this, [this](const QString& typed) {
    if (Showing()) return;
    text_.Set(ToBytes(typed));
    Refresh();
  });
}

void TextBinding::TakeFocus() {
  Binding::TakeFocus();
  edit_.end(false);
}

void TextBinding::ShowValue() {
  ShowText(edit_, text_.Value());
  ShowReadOnly(edit_, text_.ReadOnly());
}

SpinBinding::SpinBinding(Spin& spin, SpinArrows& arrows)
    : Binding(spin, arrows), spin_(spin), line_(arrows.Line()) {
  arrows.pressed = [self = QPointer(this)](bool up) {
    if (self) self->Step(up);
  };
  line_.installEventFilter(this);
}

void SpinBinding::Step(bool up) {
  if (!spin_.Visible() || !Widget().isEnabled() || line_.isReadOnly()) return;
  up ? spin_.StepUp() : spin_.StepDown();
}

bool SpinBinding::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::KeyPress) return Key(*static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::Wheel) return Wheel(*static_cast<QWheelEvent*>(event));
  if (IsFocusLost(*event)) {
    turned_ = 0;
    if (spin_.focusLost) spin_.focusLost();
  }
  return false;
}

bool SpinBinding::Key(const QKeyEvent& key) {
  const bool up = key.key() == Qt::Key_Up;
  if ((!up && key.key() != Qt::Key_Down) || key.modifiers() & ~Qt::KeypadModifier) return false;
  Step(up);
  return true;
}

// Fine wheels turn by less than a notch at a time.
bool SpinBinding::Wheel(const QWheelEvent& wheel) {
  constexpr int notch = 120;
  if (!line_.hasFocus()) return false;
  turned_ += wheel.angleDelta().y();
  for (; turned_ >= notch; turned_ -= notch) Step(true);
  for (; turned_ <= -notch; turned_ += notch) Step(false);
  return true;
}

ListBinding::ListBinding(List& list, QComboBox& box) : Binding(list, box), list_(list), box_(box) {
  connect(&box, &QComboBox::activated, this, [this](int index) {
    if (index != list_.Index()) list_.Select(index);
    Refresh();
  });
}

void ListBinding::ShowValue() {
  const QSignalBlocker silent(box_);
  ShowItems(box_, list_.Items());
  box_.setCurrentIndex(list_.Index());
}

TextWithItemsBinding::TextWithItemsBinding(TextWithItems& text, QuietCombo& box)
    : TypedBinding(text, box), text_(text), box_(box) {
  box.MakeEditable();
  box.setInsertPolicy(QComboBox::NoInsert);
  box.setDuplicatesEnabled(true);
  box.setCompleter(nullptr);
  box.lineEdit()->setMaxLength(std::numeric_limits<int>::max());
  connect(&box, &QComboBox::editTextChanged, this, [this](const QString& typed) {
    if (Showing()) return;
    if (std::string bytes = ToBytes(typed); bytes != text_.Value()) text_.Set(bytes);
    Refresh();
  });
  // The text has changed by now, and its rule may have filled the list with other items.
  connect(&box, &QComboBox::activated, this, [this](int index) {
    const auto item = static_cast<std::size_t>(index);
    const std::vector<std::string>& items = text_.Items();
    if (item < items.size() && items[item] == text_.Value()) text_.SelectItem(item);
    Refresh();
  });
}

void TextWithItemsBinding::TakeFocus() {
  Binding::TakeFocus();
  box_.lineEdit()->end(false);
}

void TextWithItemsBinding::ShowValue() {
  QLineEdit& edit = *box_.lineEdit();
  const bool sameItems = SameItems(box_, ToTexts(text_.Items()));
  // The keys step from the item that reads as the text.
  const auto item = std::ranges::find(text_.Items(), text_.Value());
  const int index =
      item == text_.Items().end() ? -1 : static_cast<int>(item - text_.Items().begin());
  if (!sameItems || index != box_.currentIndex()) {
    // Neither filling the list nor choosing from it must write into the text that is being typed.
    const int caret = edit.cursorPosition();
    const QString typed = edit.text();
    const QSignalBlocker silent(box_);
    if (!sameItems) ShowItems(box_, text_.Items());
    box_.setCurrentIndex(index);
    edit.setText(typed);
    edit.setCursorPosition(caret);
  }
  ShowText(edit, text_.Value());
  ShowReadOnly(edit, text_.ReadOnly());
}

OptionBinding::OptionBinding(Option& option, QRadioButton& button, char accessKey)
    : Binding(option, button), option_(option), button_(button), accessKey_(accessKey) {
  connect(&button, &QRadioButton::toggled, this, [this](bool on) {
    if (Showing() || !on) return;
    if (!option_.On()) option_.Choose();
    Refresh();
  });
}

void OptionBinding::ShowValue() {
  button_.setText(WithAccessKey(option_.Caption(), accessKey_));
  if (option_.On()) button_.setChecked(true);
}

DateBinding::DateBinding(DateField& date, QDateEdit& edit)
    : Binding(date, edit), date_(date), edit_(edit) {
  edit.setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
  connect(&edit, &QDateEdit::dateChanged, this, [this](QDate picked) {
    if (Showing()) return;
    DateFields fields = FieldsOf(date_.Value());
    fields.year = picked.year();
    fields.month = picked.month();
    fields.day = picked.day();
    if (const std::optional<Date> made = MakeDate(fields)) date_.Set(*made);
    Refresh();
  });
}

void DateBinding::ShowValue() {
  const DateFields fields = FieldsOf(date_.Value());
  edit_.setDate(QDate(fields.year, fields.month, fields.day));
}

ButtonBinding::ButtonBinding(Button& button, QPushButton& push, char accessKey)
    : Binding(button, push), button_(button), push_(push), accessKey_(accessKey) {
  connect(&push, &QPushButton::clicked, this, [this] { button_.Press(); });
}

void ButtonBinding::ShowValue() {
  push_.setText(WithAccessKey(button_.Caption(), accessKey_));
}

CaptionBinding::CaptionBinding(Control& control, QLabel& label, char accessKey)
    : Binding(control, label), control_(control), label_(label), accessKey_(accessKey) {}

void CaptionBinding::ShowValue() {
  // Only a label with a buddy knows access keys; any other shows "&" as it stands.
  label_.setTextFormat(Qt::PlainText);
  label_.setText(label_.buddy() ? WithAccessKey(control_.Caption(), accessKey_)
                                : VisibleText(control_.Caption()));
}

}  // namespace tallowbrook
