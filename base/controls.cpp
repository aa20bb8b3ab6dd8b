// What controls do when they are set: compare, store, tell the screen, run the rule.
//
// Every kind takes its value through one Set or Select, by code and by text alike, so that its rule
// runs whoever sets it. Only new items of a list take the selection away without one. A value that
// is there already is no change.
#include "base/controls.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

#include "base/text.h"

namespace tallowbrook {
namespace {

std::optional<int> ParseWholeNumber(std::string_view text) {
  int value = 0;
  const char* end = text.data() + text.size();
  auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc{} || stop != end) return std::nullopt;
  return value;
}

bool IsTickValue(int value) {
  return value == 0 || value == 1;
}

bool IsSixteenBit(int value) {
  using Limits = std::numeric_limits<std::int16_t>;
  return value >= Limits::min() && value <= Limits::max();
}

// Whether an index names an item or, as -1, none.
bool IsSelectable(int index, const std::vector<std::string>& items) {
  return index == -1 || (index >= 0 && static_cast<std::size_t>(index) < items.size());
}

}  // namespace

Control::Control(Screen& screen, ControlKind kind, const ControlFacts& facts)
    : screen_(screen),
      kind_(kind),
      facts_(facts),
      name_(facts.name),
      caption_(facts.caption),
      tip_(facts.tip) {
  screen_.Add(*this);
}

void Control::SetCaption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  LookChanged();
}

void Control::SetEnabled(bool enabled) {
  if (std::exchange(enabled_, enabled) != enabled) LookChanged();
}

void Control::SetVisible(bool visible) {
  if (std::exchange(visible_, visible) != visible) LookChanged();
}

void Control::SetReadOnly(bool readOnly) {
  if (std::exchange(readOnly_, readOnly) != readOnly) LookChanged();
}

void Control::SetHighlighted(bool highlighted) {
  if (highlighted_ == highlighted) return;
  highlighted_ = highlighted;
  LookChanged();
}

void Control::ValueChanged() {
  LookChanged();
  if (rule) rule();
}

void Control::LookChanged() {
  if (screen_.changed) screen_.changed(*this);
}

void Tick::Set(int value) {
  if (value == value_ || !IsTickValue(value)) return;
  value_ = value;
  ValueChanged();
}

std::string Tick::ValueText() const {
  return std::to_string(value_);
}

bool Tick::SetValueText(std::string_view text) {
  const std::optional<int> value = ParseWholeNumber(text);
  if (!value || !IsTickValue(*value)) return false;
  Set(*value);
  return true;
}

void Text::Set(std::string_view text) {
  if (text_ == text) return;
  text_ = text;
  ValueChanged();
}

bool Text::SetValueText(std::string_view text) {
  Set(text);
  return true;
}

void MaskText::Set(std::string_view text) {
  if (text != Value()) Type(text, start_);
}

// The keywords of the old text go with it: the rule finds those of the new one.
void MaskText::Type(std::string_view text, std::size_t caret) {
  if (text == Value()) return Select(caret, 0);
  const std::size_t before = std::exchange(start_, std::min(caret, CountCharacters(text)));
  length_ = 0;
  keywords_.clear();
  Text::Set(text);
  if (start_ != before && caretMoved) caretMoved();
}

void MaskText::Select(std::size_t start, std::size_t length) {
  const std::size_t end = CountCharacters(Value());
  start = std::min(start, end);
  length = std::min(length, end - start);
  if (start == start_ && length == length_) return;
  start_ = start;
  length_ = length;
  LookChanged();
  if (caretMoved) caretMoved();
}

void MaskText::SetKeywords(std::vector<ColourSpan> keywords) {
  if (keywords_ == keywords) return;
  keywords_ = std::move(keywords);
  LookChanged();
}

void TextWithItems::SetItems(std::vector<std::string> items) {
  if (items_ == items) return;
  items_ = std::move(items);
  LookChanged();
}

void TextWithItems::AddItem(std::string_view item) {
  items_.emplace_back(item);
  LookChanged();
}

void TextWithItems::ClearItems() {
  SetItems({});
}

void TextWithItems::SelectItem(std::size_t index) {
  if (index >= items_.size()) return;
  // A copy: the rule may change the items.
  Set(std::string(items_[index]));
  if (picked) picked();
}

std::string FreeList::StoredText() const {
  const auto found = std::find(Items().begin(), Items().end(), Value());
  return std::to_string(found == Items().end() ? -1 : found - Items().begin());
}

bool FreeList::SetStoredText(std::string_view text) {
  const std::optional<int> index = ParseWholeNumber(text);
  if (!index || !IsSelectable(*index, Items())) return false;
  if (*index >= 0) SelectItem(static_cast<std::size_t>(*index));
  return true;
}

List::List(Screen& screen, const ControlFacts& facts, std::vector<std::string> items, int index)
    : Control(screen, ControlKind::List, facts),
      items_(std::move(items)),
      index_(IsSelectable(index, items_) ? index : -1) {}

const std::string& List::ItemText() const {
  static const std::string none;
  return index_ < 0 ? none : items_[static_cast<std::size_t>(index_)];
}

void List::Select(int index) {
  if (index == index_ || !IsSelectable(index, items_)) return;
  index_ = index;
  ValueChanged();
}

void List::SetItems(std::vector<std::string> items) {
  items_ = std::move(items);
  index_ = -1;
  LookChanged();
}

void List::AddItem(std::string_view item) {
  items_.emplace_back(item);
  LookChanged();
}

std::string List::ValueText() const {
  return std::to_string(index_);
}

bool List::SetValueText(std::string_view text) {
  const std::optional<int> index = ParseWholeNumber(text);
  if (!index || !IsSelectable(*index, items_)) return false;
  Select(*index);
  return true;
}

Option::Option(Screen& screen, const ControlFacts& facts, std::string_view group, bool on)
    : Control(screen, ControlKind::Option, facts), group_(group), on_(on) {}

void Option::Choose() {
  if (on_) return;
  // Whoever is told finds exactly one option on.
  std::vector<Option*> turnedOff;
  for (Control* control : Owner().Controls()) {
    auto* other = dynamic_cast<Option*>(control);
    if (!other || !other->on_ || other->group_ != group_) continue;
    other->on_ = false;
    turnedOff.push_back(other);
  }
  on_ = true;
  for (Option* other : turnedOff) other->LookChanged();
  ValueChanged();
}

bool Option::SetValueText(std::string_view text) {
  const bool on = text == "True" || text == "1";
  if (!on && text != "False" && text != "0") return false;
  if (on) Choose();
  return true;
}

void DateField::Set(Date date) {
  if (date_ == date) return;
  date_ = date;
  ValueChanged();
}

std::string DateField::ValueText() const {
  return GeneralDateText(date_);
}

bool DateField::SetValueText(std::string_view text) {
  const std::optional<Date> date = ParseDateText(text);
  if (!date) return false;
  Set(*date);
  return true;
}

void Spin::Set(int value) {
  value = std::clamp(value, lowest_, highest_);
  if (value == value_) return;
  value_ = value;
  ValueChanged();
}

void Number::Set(int value) {
  if (value == value_ || !IsSixteenBit(value)) return;
  value_ = value;
  ValueChanged();
}

std::string Number::ValueText() const {
  return std::to_string(value_);
}

bool Number::SetValueText(std::string_view text) {
  const std::optional<int> value = ParseWholeNumber(text);
  if (!value || !IsSixteenBit(*value)) return false;
  Set(*value);
  return true;
}

void Button::Press() {
  if (Enabled() && rule) rule();
}

Control* Screen::Find(std::string_view name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : found->second;
}

void Screen::RequestFocus(Control& control) const {
  if (focusRequested) focusRequested(control);
}

void Screen::Add(Control& control) {
  controls_.push_back(&control);
  if (!control.Name().empty()) byName_.emplace(control.Name(), &control);
}

}  // namespace tallowbrook
