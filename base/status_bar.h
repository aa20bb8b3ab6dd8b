// The status bar and its two panes: messages, and how many rows there are. There is one for
// everybody.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace tallowbrook {

class StatusBar {
 public:
  // Costs a copy into memory that is already there; long work calls it for every row. The
  // window decides how often it paints.
  void Set(std::size_t pane, std::string_view text) {
    panes_.at(pane).assign(text);
    if (changed) changed(pane);
  }
  const std::string& Pane(std::size_t pane) const { return panes_.at(pane); }

  std::function<void(std::size_t pane)> changed;

 private:
  std::array<std::string, 2> panes_;
};

}  // namespace tallowbrook
