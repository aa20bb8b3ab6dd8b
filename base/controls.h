// Named controls: what a screen is, without a window.
//
// A screen is a set of controls that bear names, hold values and tell when one of them changes.
// Rules hang on a control and run whenever its value changes, whether a user, a profile or a
// reset changed it. A window shows the controls and hands the user's input to them; a test sets
// them by name. Nothing here draws.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"

namespace tallowbrook {

class Screen;

enum class ControlKind {
  Tick,      // a check box: 0 or 1
  Text,      // a line of free text
  Lines,     // free text of several lines
  Mask,      // a line of free text with coloured keywords and a selection
  List,      // one of fixed items, by index from 0; -1 for none
  FreeList,  // free text over a list of proposals
  History,   // free text over the texts used before, newest first
  Option,    // one of several, of which one is on at any time
  Date,      // a calendar date
  Number,    // a whole number that no control edits
  Spin,      // two arrows that step a number kept elsewhere
  Label,     // a caption
  Button,    // something to press
  Frame,     // a panel that is shown or hidden
};

// What a control is before anybody touches it.
struct ControlFacts {
  std::string_view name;
  std::string_view caption = {};
  // The key under which a profile stores the value ("Check_Prefix="); empty: not stored.
  std::string_view key = {};
  // The value that a profile without that key stands for; many differ from the initial value.
  std::string_view keyDefault = {};
  // The key of a History's items.
  std::string_view itemsKey = {};
  std::string_view tip = {};
};

class Control {
 public:
  Control(Screen& screen, ControlKind kind, const ControlFacts& facts);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  ControlKind Kind() const { return kind_; }
  const std::string& Name() const { return name_; }
  const ControlFacts& Facts() const { return facts_; }

  const std::string& Caption() const { return caption_; }
  const std::string& Tip() const { return tip_; }
  bool Enabled() const { return enabled_; }
  bool Visible() const { return visible_; }
  // Shows its text, takes no typing.
  bool ReadOnly() const { return readOnly_; }
  void SetCaption(std::string_view caption);
  void SetEnabled(bool enabled);
  void SetVisible(bool visible);
  void SetReadOnly(bool readOnly);
  // Lit up for a moment, to draw the eye.
  bool Highlighted() const { return highlighted_; }
  void SetHighlighted(bool highlighted);

  // Runs after each change of the value. Set once, by the screen that owns the rule.
  std::function<void()> rule;
  // Runs when the keyboard leaves the control.
  std::function<void()> focusLost;

  // The value as text: "0"/"1" of a tick, the index of a list, "True"/"False" of an option, the
  // text itself, general date text.
  virtual std::string ValueText() const { return {}; }
  // Sets the value from such text as a user or a profile would. False, and nothing changed, if
  // the text is no value of this kind.
  virtual bool SetValueText(std::string_view) { return false; }

  // The same as a profile keeps it.
  virtual std::string StoredText() const { return ValueText(); }
  virtual bool SetStoredText(std::string_view text) { return SetValueText(text); }

 protected:
  // Tells the screen, then runs the rule.
  void ValueChanged();
  void LookChanged();
  Screen& Owner() const { return screen_; }

 private:
  Screen& screen_;
  ControlKind kind_;
  ControlFacts facts_;
  std::string name_;
  std::string caption_;
  std::string tip_;
  bool enabled_ = true;
  bool visible_ = true;
  bool readOnly_ = false;
  bool highlighted_ = false;
};

class Tick : public Control {
 public:
  Tick(Screen& screen, const ControlFacts& facts, int value = 0)
      : Control(screen, ControlKind::Tick, facts), value_(value) {}
  int Value() const { return value_; }
  bool On() const { return value_ == 1; }
  void Set(int value);
  std::string ValueText() const override;
  bool SetValueText(std::string_view text) override;

 private:
  int value_;
};

// Text, FreeList and History: a text, and items that a user can pick it from.
class Text : public Control {
 public:
  Text(Screen& screen, const ControlFacts& facts, std::string_view text = {},
       ControlKind kind = ControlKind::Text)
      : Control(screen, kind, facts), text_(text) {}
  const std::string& Value() const { return text_; }
  virtual void Set(std::string_view text);
  std::string ValueText() const override { return text_; }
  bool SetValueText(std::string_view text) override;

  // Whether a character may be typed, told in UTF-8; without it, all may. What is pasted or set by
  // code isn't asked about.
  std::function<bool(std::string_view character)> takesKey;

 private:
  std::string text_;
};

// Its lines end as they came; what a user has edited ends in "\r\n".
class TextLines : public Text {
 public:
  TextLines(Screen& screen, const ControlFacts& facts, std::string_view text = {})
      : Text(screen, facts, text, ControlKind::Lines) {}
};

// Counted in characters from 0.
struct ColourSpan {
  std::size_t start;
  std::size_t length;
  bool operator==(const ColourSpan&) const = default;
};

// A text that knows the editor's caret and selection, and which stretches of it are keywords. All
// else is plain. Places are in characters from 0.
class MaskText : public Text {
 public:
  MaskText(Screen& screen, const ControlFacts& facts, std::string_view text = {})
      : Text(screen, facts, text, ControlKind::Mask) {}

  // Nothing is selected afterwards; the caret stays where it is, as far as the text goes.
  void Set(std::string_view text) override;
  // What the user has typed, and where the caret is behind it.
  void Type(std::string_view text, std::size_t caret);

  // The caret, or the start of the selection; never behind the text's end.
  std::size_t SelStart() const { return start_; }
  std::size_t SelLength() const { return length_; }
  // What lies behind the text's end is left out.
  void Select(std::size_t start, std::size_t length);

  const std::vector<ColourSpan>& Keywords() const { return keywords_; }
  void SetKeywords(std::vector<ColourSpan> keywords);

  // Runs when the caret or the selection has moved, whoever moved it.
  std::function<void()> caretMoved;
  // Runs when a key that was pressed in the editor is released in it.
  std::function<void(bool isEnter)> keyReleased;

 private:
  std::size_t start_ = 0;
  std::size_t length_ = 0;
  std::vector<ColourSpan> keywords_;
};

class TextWithItems : public Text {
 public:
  using Text::Text;
  const std::vector<std::string>& Items() const { return items_; }
  void SetItems(std::vector<std::string> items);
  void AddItem(std::string_view item);
  void ClearItems();
  // Takes the item's text as the value, as a click on it does; an index beyond the list changes
  // nothing.
  void SelectItem(std::size_t index);
  // Runs after an item was picked, behind the rule.
  std::function<void()> picked;

 private:
  std::vector<std::string> items_;
};

class FreeList : public TextWithItems {
 public:
  FreeList(Screen& screen, const ControlFacts& facts, std::string_view text = {})
      : TextWithItems(screen, facts, text, ControlKind::FreeList) {}
  // The index of the item that the text is, -1 for any other text, which a profile can't keep: -1
  // leaves what is there.
  std::string StoredText() const override;
  bool SetStoredText(std::string_view text) override;
};

class History : public TextWithItems {
 public:
  History(Screen& screen, const ControlFacts& facts, std::string_view text = {})
      : TextWithItems(screen, facts, text, ControlKind::History) {}
};

class List : public Control {
 public:
  List(Screen& screen, const ControlFacts& facts, std::vector<std::string> items = {},
       int index = -1);
  int Index() const { return index_; }
  // The text of the selected item; empty without one.
  const std::string& ItemText() const;
  const std::vector<std::string>& Items() const { return items_; }
  // -1 selects nothing; any other index beyond the list changes nothing.
  void Select(int index);
  // Replaces the items; nothing is selected afterwards and no rule runs.
  void SetItems(std::vector<std::string> items);
  // Adds behind the present items; the selection stays.
  void AddItem(std::string_view item);
  std::string ValueText() const override;
  bool SetValueText(std::string_view text) override;

 private:
  std::vector<std::string> items_;
  int index_;
};

// Turning one option on turns the others of its group off; an option can't be turned off alone.
// The rule runs when the option goes on.
class Option : public Control {
 public:
  Option(Screen& screen, const ControlFacts& facts, std::string_view group, bool on = false);
  bool On() const { return on_; }
  void Choose();
  std::string_view Group() const { return group_; }
  std::string ValueText() const override { return on_ ? "True" : "False"; }
  // "False" is a value that changes nothing.
  bool SetValueText(std::string_view text) override;

 private:
  std::string_view group_;
  bool on_;
};

class DateField : public Control {
 public:
  DateField(Screen& screen, const ControlFacts& facts, Date date)
      : Control(screen, ControlKind::Date, facts), date_(date) {}
  Date Value() const { return date_; }
  void Set(Date date);
  std::string ValueText() const override;
  bool SetValueText(std::string_view text) override;

 private:
  Date date_;
};

// A signed 16-bit number.
class Number : public Control {
 public:
  Number(Screen& screen, const ControlFacts& facts, int value = 0)
      : Control(screen, ControlKind::Number, facts), value_(value) {}
  int Value() const { return value_; }
  void Set(int value);
  std::string ValueText() const override;
  bool SetValueText(std::string_view text) override;

 private:
  int value_;
};

// A position that only says which way the user stepped: a rule compares it with the last one and
// keeps the value itself. The upper arrow raises it.
class Spin : public Control {
 public:
  Spin(Screen& screen, const ControlFacts& facts, int lowest, int highest, int value)
      : Control(screen, ControlKind::Spin, facts),
        lowest_(lowest),
        highest_(highest),
        value_(value) {}
  int Value() const { return value_; }
  // The rule runs on a change; a position beyond the range becomes its end.
  void Set(int value);
  void StepUp() { Set(value_ + 1); }
  void StepDown() { Set(value_ - 1); }

 private:
  int lowest_, highest_, value_;
};

class Label : public Control {
 public:
  Label(Screen& screen, const ControlFacts& facts) : Control(screen, ControlKind::Label, facts) {}
  std::string ValueText() const override { return Caption(); }
};

class Button : public Control {
 public:
  Button(Screen& screen, const ControlFacts& facts) : Control(screen, ControlKind::Button, facts) {}
  // Runs the rule; a disabled button does nothing.
  void Press();
};

class Frame : public Control {
 public:
  Frame(Screen& screen, const ControlFacts& facts, bool visible = true)
      : Control(screen, ControlKind::Frame, facts) {
    SetVisible(visible);
  }
};

// The controls of one window. It knows them, their owners own them; a control stays registered
// for its whole life and must not outlive its screen.
class Screen {
 public:
  Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  // Null for a name that no control bears.
  Control* Find(std::string_view name) const;
  // In the order in which they were made.
  const std::vector<Control*>& Controls() const { return controls_; }

  // What shows the screen: told of each control whose value, items or look has changed.
  std::function<void(Control&)> changed;
  // Asks the window to put the focus on a control.
  std::function<void(Control&)> focusRequested;
  void RequestFocus(Control& control) const;

 private:
  friend class Control;
  friend class Option;
  void Add(Control& control);
  std::vector<Control*> controls_;
  std::map<std::string, Control*, std::less<>> byName_;
};

}  // namespace tallowbrook
