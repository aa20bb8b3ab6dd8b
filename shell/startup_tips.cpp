#include "shell/startup_tips.h"

#include <cmath>

#include "base/code_page.h"
#include "base/text.h"

namespace tallowbrook {

namespace {

constexpr char separator = '~';
constexpr std::int64_t secondsPerDay = 86400;

std::string Trimmed(std::string_view text) {
  constexpr std::string_view space = " \t\r\n";
  const std::size_t start = text.find_first_not_of(space);
  if (start == std::string_view::npos) return {};
  return std::string(text.substr(start, text.find_last_not_of(space) - start + 1));
}

}  // namespace

StartupTips::StartupTips(Files& files, Clock& clock, RandomSource& random, int& displayStartupTips)
    : Lbl_Tip(screen, {.name = "Lbl_Tip"}),
      Cmd_Next(screen, {.name = "Cmd_Next", .caption = "Next Tip"}),
      Cmd_Previous(screen, {.name = "Cmd_Previous", .caption = "Previous Tip"}),
      Cmd_Close(screen, {.name = "Cmd_Close", .caption = "Close"}),
      Check1(screen, {.name = "Check1", .caption = "Show these tips at startup"}),
      files_(files),
      clock_(clock),
      random_(random),
      displayStartupTips_(displayStartupTips) {
  Cmd_Next.rule = [this] { Show(index_ + 1 < tips_.size() ? index_ + 1 : 1); };
  Cmd_Previous.rule = [this] { Show(index_ > 1 ? index_ - 1 : tips_.size() - 1); };
  Cmd_Close.rule = [this] {
    displayStartupTips_ = Check1.Value();
    if (close) close();
  };
}

bool StartupTips::Load(const std::string& path) {
  std::string text = files_.ReadWhole(path).value_or("");
  if (!IsValidUtf8(text)) text = FromCodePage(text);
  tips_.clear();
  for (const std::string_view tip : Split(text, separator)) tips_.push_back(Trimmed(tip));
  if (tips_.size() < 2) return false;
  Check1.Set(displayStartupTips_ == 1 ? 1 : 0);
  random_.Reseed(static_cast<double>(clock_.Now().seconds % secondsPerDay));
  const double tipCount = static_cast<double>(tips_.size() - 1);
  Show(1 + static_cast<std::size_t>(std::floor(random_.Next() * tipCount)));
  return true;
}

void StartupTips::Show(std::size_t index) {
  if (index >= tips_.size()) return;
  index_ = index;
  Lbl_Tip.SetCaption(tips_[index]);
}

}  // namespace tallowbrook
