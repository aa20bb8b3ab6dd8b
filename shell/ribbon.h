// The ribbon: which command stands where, and what its few controls show.
//
// Captions mark their access keys with "&". The layout is constant; the lists of profiles, the
// label and the check marks are state.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

#include "base/controls.h"

namespace tallowbrook {

enum class RibbonItemKind {
  Button,
  ProfileList,  // a list of all profiles
  Label,        // the current profile
};

struct RibbonItem {
  RibbonItemKind kind;
  int number;  // 0 for a label
  std::string_view caption;
};

// The number of a group, like that of the ribbon itself, is no command.
struct RibbonGroup {
  int number;
  std::string_view caption;
  std::span<const RibbonItem> items;
};

struct RibbonTab {
  std::string_view caption;
  std::span<const RibbonGroup> groups;
};

struct RibbonLayout {
  std::string_view name;
  std::string_view systemButton;  // opens the system menu
  int systemIcon;
  std::span<const RibbonItem> systemMenu;
  std::string_view profilesCaption;  // above the profiles in the system menu
  RibbonItem systemBottom;
  std::span<const RibbonTab> tabs;
  std::string_view stylesCaption;
  RibbonItem right;  // behind the styles
};

const RibbonLayout& Layout();

struct Ribbon {
  explicit Ribbon(Screen& screen);

  // The items are those of the profile list, its empty entry first.
  List LoadProfile;
  Label CurrentProfile;
  // Which of the switches are checked, by number.
  std::map<int, bool> Checked;
  // The tab that is in front, from 0.
  int SelectedTab = 0;

  void ToggleChecked(int number) { Checked[number] = !Checked[number]; }
};

}  // namespace tallowbrook
