#include "engine/unique_panel.h"

#include <algorithm>
#include <initializer_list>

#include "base/letter_case.h"
#include "base/text.h"
#include "engine/unique_parameter.h"

namespace tallowbrook {

namespace {

constexpr int restPosition = 5000;

// What a start value counts from; an empty one counts from 1. Nothing for a number that is out of
// range.
std::optional<std::int32_t> ValueOf(std::string_view text) {
  if (text.empty()) return 1;
  const std::optional<Decimal> value = IsNumeric(text) ? Decimal::Parse(text) : ToNumber(text);
  return value ? value->ToInt32() : std::nullopt;
}

}  // namespace

UniquePanel::UniquePanel(Screen& screen, RenameSettings& settings, Dialogs& dialogs, Clock& clock,
                         std::function<void()> refreshSample)
    : Frame_Numbers(screen, {.name = "Frame_Numbers"}),
      Frame_Date(screen, {.name = "Frame_Date"}, false),
      Frame_Unique_Other(screen, {.name = "Frame_Unique_Other"}, false),
      Lbl_RandomTo(screen, {.name = "Lbl_RandomTo", .caption = "Random to:"}),
      Spin_UniqueStart(screen, {.name = "Spin_UniqueStart"}, 1, 10000, restPosition),
      Spin_RandomTo(screen, {.name = "Spin_RandomTo"}, 1, 10000, restPosition),
      Spin_UniqueIncrement(screen, {.name = "Spin_UniqueIncrement"}, 1, 10000, restPosition),
      settings_(settings),
      dialogs_(dialogs),
      clock_(clock),
      refreshSample_(std::move(refreshSample)) {
  settings_.Check_Unique.rule = [this] { UniqueTicked(); };
  settings_.Combo_Unique.rule = [this] { UniqueClicked(); };
  settings_.Combo_Direction.rule = [this] { DirectionClicked(); };
  WireStart({settings_.Text_UniqueStart, Spin_UniqueStart, 0});
  WireStart({settings_.Txt_RandomTo, Spin_RandomTo, 1});
  settings_.Text_UniqueStart.focusLost = [this] {
    if (settings_.Text_UniqueStart.Value().empty()) {
      settings_.Text_UniqueStart.Set(TakesNumbers() ? "1" : "a");
    }
    Rest(Spin_UniqueStart, 0);
  };
  settings_.Txt_RandomTo.focusLost = [this] { Rest(Spin_RandomTo, 1); };
  WireIncrement();
  WireDate();
  PrepareSpinners();
}

void UniquePanel::WireStart(const Stepped& stepped) {
  stepped.text.rule = [this, &text = stepped.text] {
    StartTyped(text);
    refreshSample_();
  };
  stepped.text.takesKey = [this, &text = stepped.text](std::string_view character) {
    return TakesStartKey(text, character);
  };
  stepped.spin.rule = [this, stepped] { Step(stepped); };
}

// The position first, so that the arrows' rule finds no step.
void UniquePanel::Rest(Spin& spin, std::size_t slot) {
  SpinPosition[slot] = restPosition;
  spin.Set(restPosition);
}

void UniquePanel::WireIncrement() {
  Text& text = settings_.Text_UniqueIncrement;
  text.rule = [this, &text] {
    if (const auto value = Decimal::Parse(text.Value().empty() ? "1" : text.Value())) {
      IncrementValue = value->ToInt32().value_or(IncrementValue);
    }
  };
  text.takesKey = IsDigitKey;
  text.focusLost = [&text] {
    if (text.Value().empty()) text.Set("1");
  };
  Spin_UniqueIncrement.rule = [this] { StepIncrement(); };
  Spin_UniqueIncrement.focusLost = [this] {
    IncrementPosition = restPosition;
    Spin_UniqueIncrement.Set(restPosition);
  };
}

void UniquePanel::WireDate() {
  RenameSettings& s = settings_;
  const auto clicked = [this] {
    KeepDayInMonth();
    refreshSample_();
  };
  s.Combo_UniqueDateStart0.rule = clicked;
  s.Combo_UniqueDateStart1.rule = clicked;
  // While a year is typed, nothing is known of its months.
  s.Combo_UniqueDateStart2.rule = [this] { refreshSample_(); };
  s.Combo_UniqueDateStart2.picked = clicked;
  s.Combo_UniqueDateStart2.takesKey = IsDigitKey;
  s.Combo_UniqueDateStart2.focusLost = [this] {
    FreeList& year = settings_.Combo_UniqueDateStart2;
    if (year.Value().empty()) year.Set(std::to_string(FieldsOf(clock_.Now()).year));
  };
}

void UniquePanel::PrepareSpinners() {
  SpinValue.fill(0);
  SpinPosition.fill(restPosition);
  IncrementPosition = restPosition;
  for (Spin* spin : {&Spin_UniqueStart, &Spin_RandomTo, &Spin_UniqueIncrement}) {
    spin->Set(restPosition);
  }
  // So that the first step goes on from what is shown.
  SpinValue[0] = ValueOf(settings_.Text_UniqueStart.Value()).value_or(0);
  SpinValue[1] = ValueOf(settings_.Txt_RandomTo.Value()).value_or(0);
}

// A typed bound counts as a typed start, too, while its own arrows know nothing of it. It must be
// so.
void UniquePanel::StartTyped(const Text& text) {
  if (const std::optional<std::int32_t> value = ValueOf(text.Value())) SpinValue[0] = *value;
}

// What stands there before the key decides, so that an eighth digit still passes and a ninth
// doesn't.
bool UniquePanel::TakesStartKey(const Text& text, std::string_view character) const {
  constexpr std::int64_t limit = 9'999'999;
  if (!(TakesNumbers() ? IsDigitKey(character) : IsLetterKey(character))) return false;
  const std::optional<Decimal> value = Decimal::Parse(text.Value());
  return IsNumeric(text.Value()) ? value && !(Decimal(limit) < *value) : true;
}

void UniquePanel::Step(const Stepped& stepped) {
  const int position = stepped.spin.Value();
  int& last = SpinPosition[stepped.slot];
  // Going back to rest is no step and writes nothing.
  if (position == last) return;
  const std::int64_t moved = std::int64_t{SpinValue[stepped.slot]} + (position > last ? 1 : -1);
  last = position;
  const std::int64_t lowest = TakesNumbers() ? 0 : 1;
  const auto value = static_cast<std::int32_t>(std::clamp<std::int64_t>(moved, lowest, INT32_MAX));
  SpinValue[stepped.slot] = value;
  const std::string number = std::to_string(value);
  stepped.text.Set(TakesNumbers() ? number : ToLower(ToAlpha(number).value_or(number)));
  // Also where the text is the same: the sample may wait for an earlier change of the direction.
  refreshSample_();
}

void UniquePanel::StepIncrement() {
  const int position = Spin_UniqueIncrement.Value();
  if (position == IncrementPosition) return;
  const std::int64_t moved = std::int64_t{IncrementValue} + (position > IncrementPosition ? 1 : -1);
  IncrementPosition = position;
  IncrementValue = static_cast<std::int32_t>(std::clamp<std::int64_t>(moved, 1, INT32_MAX));
  settings_.Text_UniqueIncrement.Set(std::to_string(IncrementValue));
}

void UniquePanel::KeepDayInMonth() {
  const std::string& year = settings_.Combo_UniqueDateStart2.Value();
  List& day = settings_.Combo_UniqueDateStart1;
  if (year.empty()) return;
  const std::optional<Date> first =
      ParseDateText(settings_.Combo_UniqueDateStart0.ItemText() + "/1/" + year);
  if (!first) return;
  const DateFields fields = FieldsOf(*first);
  const int last = DaysInMonth(fields.year, fields.month);
  if (day.Index() + 1 > last) day.Select(last - 1);
}

void UniquePanel::UniqueTicked() {
  RenameSettings& s = settings_;
  const bool on = s.Check_Unique.On();
  for (Control* field : std::initializer_list<Control*>{
           &s.Combo_Unique, &s.Combo_Direction, &s.Text_UniqueMask, &s.Text_UniqueStart,
           &s.Text_UniqueIncrement, &s.Text_UniqueDate1, &s.Text_UniqueDate2, &s.Combo_UniqueDate0,
           &s.Combo_UniqueDate1, &s.Combo_UniqueDate2}) {
    field->SetEnabled(on);
  }
  refreshSample_();
}

void UniquePanel::UniqueClicked() {
  const bool dates = settings_.Combo_Unique.Index() == UniqueDates;
  Frame_Numbers.SetVisible(!dates);
  Frame_Date.SetVisible(dates);
  Frame_Unique_Other.SetVisible(false);
  settings_.Combo_DateInterval.SetVisible(dates);
  settings_.Combo_Direction.SetVisible(true);
  settings_.Text_UniqueIncrement.SetVisible(true);
  Spin_UniqueIncrement.SetVisible(true);
  if (!dates) ShowStart();
  DirectionClicked();
  refreshSample_();
}

// The start value follows the kind: letters become their number, a number its letters.
void UniquePanel::ShowStart() {
  Text& start = settings_.Text_UniqueStart;
  const bool numeric = IsNumeric(start.Value());
  if (settings_.Combo_Unique.Index() == UniqueNumbers && !numeric) {
    if (const std::optional<Decimal> number = ToNumber(start.Value())) start.Set(number->ToText());
  }
  if (settings_.Combo_Unique.Index() == UniqueLetters && numeric) {
    if (const std::optional<std::string> letters = ToAlpha(start.Value())) {
      start.Set(ToLower(*letters));
    }
  }
}

void UniquePanel::DirectionClicked() {
  RenameSettings& s = settings_;
  const int direction = s.Combo_Direction.Index();
  if (s.Combo_Unique.Index() != UniqueNumbers && direction == DirectionRandom) {
    s.Combo_Direction.Select(DirectionIncrement);
    dialogs_.Ask({"Random is only available with numbers",
                  "The 'Random' feature is only available with numbers", Buttons::Ok});
    return;
  }
  const bool random = direction == DirectionRandom;
  const bool stepped = !random && direction != DirectionKeep;
  s.Text_UniqueIncrement.SetVisible(stepped);
  Spin_UniqueIncrement.SetVisible(stepped);
  s.Txt_RandomTo.SetVisible(random);
  Spin_RandomTo.SetVisible(random);
  Lbl_RandomTo.SetVisible(random);
  // "Don't Change" leaves the tick shown or hidden as it is.
  if (direction == DirectionKeep) {
    s.Combo_DateInterval.SetVisible(false);
    return;
  }
  s.Check_UniqueOnly.SetVisible(random);
  if (random) Frame_Numbers.SetVisible(true);
  s.Combo_DateInterval.SetVisible(s.Combo_Unique.Index() == UniqueDates);
}

}  // namespace tallowbrook
