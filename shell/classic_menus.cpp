#include "shell/classic_menus.h"

#include <stdexcept>

#include "shell/commands.h"

namespace tallowbrook {

namespace {

// clang-format off
constexpr ClassicItem items[] = {
    {"mnu_File", "File", "", 0},
    {"mnu_Exit", "Exit", "mnu_File", commandExit},
    {"mnuTools", "Tools", "", 0},
    {"mnuOptions", "Options", "mnuTools", commandOptions},
    {"mnu_ResetSettings", "Reset Renaming Settings to Default", "mnuTools", commandReset},
    {"mnu_Log", "", "", 0},
    {"mnu_ViewLog", "View Log", "mnu_Log", commandViewLog},
    {"mnu_Profiles", "Profiles", "", 0},
    {"mnu_SaveProfile", "Save Profile", "mnu_Profiles", commandSaveProfile},
    {"mnu_SaveProfileAs", "Save Profile As", "mnu_Profiles", commandSaveProfileAs},
    {"mnu_ManageProfiles", "Manage Profiles", "mnu_Profiles", commandManageProfiles},
    {"mnu_Help", "Help", "", 0},
    {"mnu_Website", "Visit our website", "mnu_Help", commandWebsite},
    {"mnu_CheckUpdates", "Check for Updates", "mnu_Help", commandCheckForUpdates},
    {"mnu_ReportBug", "Report a bug", "mnu_Help", commandReportBug},
    {"mnu_NewFeature", "Suggest a new feature", "mnu_Help", commandSuggestFeature},
    {"mnu_StartupTips", "Startup Tips", "mnu_Help", 0},
    {"mnu_About", "About", "mnu_Help", commandAbout},
    {"mnu_Shortcut", "ShortcutKeys", "", 0},
    {"mnu_SC_ManualRename", "Manual Rename", "mnu_Shortcut", 0},
    {"RightClick", "RightClick", "", 0},
};
// clang-format on

}  // namespace

ClassicMenus::ClassicMenus(Screen& screen, const std::function<void(int)>& dispatch)
    : screen_(screen), dispatch_(dispatch) {
  for (const ClassicItem& item : items) {
    items_.push_back(
        std::make_unique<Button>(screen, ControlFacts{.name = item.name, .caption = item.caption}));
    if (item.number != 0) items_.back()->rule = [this, &item] { dispatch_(item.number); };
  }
  Item("mnu_Shortcut").SetVisible(false);
  Item("mnu_SC_ManualRename").SetVisible(false);
  AddProfile();
}

std::span<const ClassicItem> ClassicMenus::Items() {
  return items;
}

Button& ClassicMenus::Item(std::string_view name) const {
  for (const auto& item : items_) {
    if (item->Name() == name) return *item;
  }
  throw std::out_of_range("no such menu item");
}

void ClassicMenus::AddProfile() {
  const int number = profileCommands + static_cast<int>(profiles_.size());
  profiles_.push_back(std::make_unique<Button>(
      screen_, ControlFacts{.name = "mnu_ProfileArray", .caption = "ProfileArray"}));
  profiles_.back()->SetVisible(false);
  profiles_.back()->rule = [this, number] { dispatch_(number); };
}

void ClassicMenus::ShowProfiles(const std::vector<std::string>& names) {
  while (profiles_.size() < names.size()) AddProfile();
  for (std::size_t i = 1; i < profiles_.size(); ++i) {
    profiles_[i]->SetVisible(i < names.size());
    if (i < names.size()) profiles_[i]->SetCaption(names[i]);
  }
}

}  // namespace tallowbrook
