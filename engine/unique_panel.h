// The panel "Unique Parameter": which of its frames and fields show, what may be typed, how its
// arrows step a value, and how a start value follows from numbers to letters and back.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "base/dialogs.h"
#include "engine/rename_settings.h"
#include "platform/clock.h"

namespace tallowbrook {

class UniquePanel {
 public:
  UniquePanel(Screen& screen, RenameSettings& settings, Dialogs& dialogs, Clock& clock,
              std::function<void()> refreshSample);

  Frame Frame_Numbers;
  Frame Frame_Date;
  Frame Frame_Unique_Other;  // no kind of unique parameter shows it
  Label Lbl_RandomTo;
  // The arrows beside Text_UniqueStart, Txt_RandomTo and Text_UniqueIncrement.
  Spin Spin_UniqueStart;
  Spin Spin_RandomTo;
  Spin Spin_UniqueIncrement;

  // The values that the first two step from, and where they stood last. A third slot is kept and
  // serves nothing.
  std::array<std::int32_t, 3> SpinValue{};
  std::array<int, 3> SpinPosition{};
  std::int32_t IncrementValue = 1;
  int IncrementPosition = 5000;

  // Part of a reset: the arrows go to rest, their values follow the texts.
  void PrepareSpinners();

  // The rules of Check_Unique, Combo_Unique and Combo_Direction; start-up runs the second.
  void UniqueTicked();
  void UniqueClicked();
  void DirectionClicked();

 private:
  // A field and the arrows beside it.
  struct Stepped {
    Text& text;
    Spin& spin;
    std::size_t slot;
  };
  void WireStart(const Stepped& stepped);
  void Rest(Spin& spin, std::size_t slot);
  void WireIncrement();
  void WireDate();
  void ShowStart();
  // By the kind: digits or letters.
  bool TakesNumbers() const { return settings_.Combo_Unique.Index() == UniqueNumbers; }
  void StartTyped(const Text& text);
  bool TakesStartKey(const Text& text, std::string_view character) const;
  void Step(const Stepped& stepped);
  void StepIncrement();
  void KeepDayInMonth();

  RenameSettings& settings_;
  Dialogs& dialogs_;
  Clock& clock_;
  std::function<void()> refreshSample_;
};

}  // namespace tallowbrook
