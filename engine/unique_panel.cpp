#include "engine/unique_panel.h"

#include <initializer_list>

#include "base/letter_case.h"
#include "engine/unique_parameter.h"

namespace tallowbrook {

UniquePanel::UniquePanel(Screen& screen, RenameSettings& settings, Dialogs& dialogs,
                         std::function<void()> refreshSample)
    : Frame_Numbers(screen, {.name = "Frame_Numbers"}),
      Frame_Date(screen, {.name = "Frame_Date"}, false),
      Frame_Unique_Other(screen, {.name = "Frame_Unique_Other"}, false),
      Lbl_RandomTo(screen, {.name = "Lbl_RandomTo", .caption = "Random to:"}),
      settings_(settings),
      dialogs_(dialogs),
      refreshSample_(std::move(refreshSample)) {
  settings_.Check_Unique.rule = [this] { UniqueTicked(); };
  settings_.Combo_Unique.rule = [this] { UniqueClicked(); };
  settings_.Combo_Direction.rule = [this] { DirectionClicked(); };
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
  s.Text_UniqueIncrement.SetVisible(!random && direction != DirectionKeep);
  s.Txt_RandomTo.SetVisible(random);
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
