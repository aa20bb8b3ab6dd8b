#include "filelist/check_pattern.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"

namespace tallowbrook {

namespace {

// The number at the start of a text; 0 without one, the largest where it has no room.
std::int32_t BoxNumber(std::string_view text) {
  std::int32_t value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  return result.ec == std::errc::result_out_of_range ? INT32_MAX : value;
}

}  // namespace

CheckPattern::CheckPattern(FileList& list, ListPane& pane)
    : list_(list),
      start_{pane.Text_StartCheck, pane.VScroll1, 1, 5000},
      step_{pane.Text_Step, pane.VScroll2, 0, 500} {
  pane.SelectAll.Does([this] { list_.SetAllChecks(1); });
  pane.SelectNone.Does([this] { list_.SetAllChecks(2); });
  pane.SelectInverse.Does([this] { list_.SetAllChecks(3); });
  Wire(start_);
  Wire(step_);
}

void CheckPattern::Wire(Box& box) {
  box.value = BoxNumber(box.text.Value());
  box.text.takesKey = IsDigitKey;
  box.text.rule = [this, &box] {
    box.value = box.text.Value().empty() ? 1 : BoxNumber(box.text.Value());
    ApplyCheckPattern();
  };
  box.text.focusLost = [&box] {
    // First, so that the rule of the arrows finds no step.
    box.lastPosition = box.rest;
    box.spin.Set(box.rest);
  };
  // With room on both sides from the start.
  box.text.focusLost();
  box.spin.rule = [this, &box] { Step(box); };
}

void CheckPattern::Step(Box& box) {
  const int position = box.spin.Value();
  if (position == box.lastPosition) return;
  const std::int64_t stepped = std::int64_t{box.value} + (position > box.lastPosition ? 1 : -1);
  box.lastPosition = position;
  box.value = static_cast<std::int32_t>(std::clamp<std::int64_t>(stepped, box.lowest, INT32_MAX));
  box.text.Set(std::to_string(box.value));
  // Its rule has done so, but not where the number was at its end already.
  ApplyCheckPattern();
}

void CheckPattern::ApplyCheckPattern() {
  if (step_.text.Value().empty()) step_.text.Set("0");
  list_.ApplyPattern(BoxNumber(start_.text.Value()), BoxNumber(step_.text.Value()));
}

}  // namespace tallowbrook
