// The classic menu tree: named items beside the ribbon, which do what its numbers do. Its menu bar
// is never shown.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/controls.h"

namespace tallowbrook {

struct ClassicItem {
  std::string_view name;
  std::string_view caption;
  std::string_view parent;
  int number;  // of the command that it stands for; 0 for a menu, or an item with a rule of its own
};

class ClassicMenus {
 public:
  // `dispatch` is handed the number of an item that was pressed.
  ClassicMenus(Screen& screen, const std::function<void(int)>& dispatch);

  static std::span<const ClassicItem> Items();
  Button& Item(std::string_view name) const;

  // mnu_ProfileArray: an element for each entry of the profile list. Element 0 stays hidden, and
  // elements are hidden rather than removed.
  const std::vector<std::unique_ptr<Button>>& ProfileArray() const { return profiles_; }
  void ShowProfiles(const std::vector<std::string>& names);

 private:
  void AddProfile();

  Screen& screen_;
  std::function<void(int)> dispatch_;
  std::vector<std::unique_ptr<Button>> items_;
  std::vector<std::unique_ptr<Button>> profiles_;
};

}  // namespace tallowbrook
