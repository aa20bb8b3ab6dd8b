#include "shell/ribbon.h"

#include "shell/commands.h"

namespace tallowbrook {

namespace {

using Kind = RibbonItemKind;

constexpr RibbonItem systemMenu[] = {
    {Kind::Button, commandSaveProfile, "&Save Profile"},
    {Kind::Button, commandSaveProfileAs, "Save Profile &As..."},
    {Kind::Button, commandManageProfiles, "Manage Profiles"},
    {Kind::Button, commandViewLog, "View Log"},
    {Kind::Button, commandExit, "Exit Program"},
};

constexpr RibbonItem manageProfiles[] = {
    {Kind::ProfileList, commandLoadProfile, "Load Profile"},
    {Kind::Button, commandSaveProfile, "Save Profile"},
    {Kind::Button, commandSaveProfileAs, "Save Profile As"},
    {Kind::Button, commandManageProfiles, "Manage Profiles"},
};
constexpr RibbonItem currentProfile[] = {{Kind::Label, 0, "Current Profile: None"}};
constexpr RibbonItem logInformation[] = {{Kind::Button, commandViewLog, "View Log"}};
constexpr RibbonItem generalOptions[] = {
    {Kind::Button, commandReset, "Reset Renaming settings to default"},
    {Kind::Button, commandOptions, "Change Options"},
};
constexpr RibbonItem online[] = {
    {Kind::Button, commandWebsite, "Visit our Website"},
    {Kind::Button, commandCheckForUpdates, "Check for Updates"},
};
constexpr RibbonItem improvements[] = {
    {Kind::Button, commandReportBug, "Report a Bug"},
    {Kind::Button, commandSuggestFeature, "Suggest a Feature"},
};
constexpr RibbonItem about[] = {{Kind::Button, commandAbout, "About"}};

constexpr RibbonGroup profileGroups[] = {
    {114001, "&Manage Profiles", manageProfiles},
    {114100, "Current Profile", currentProfile},
};
constexpr RibbonGroup logGroups[] = {{113001, "&Log Information", logInformation}};
constexpr RibbonGroup optionGroups[] = {{5001, "&General Options", generalOptions}};
constexpr RibbonGroup helpGroups[] = {
    {112001, "&Online", online},
    {112010, "&Improvements", improvements},
    {0, "About", about},
};

constexpr RibbonTab tabs[] = {
    {"&Profiles", profileGroups},
    {"&Logs", logGroups},
    {"&Options", optionGroups},
    {"&Help", helpGroups},
};

}  // namespace

const RibbonLayout& Layout() {
  static constexpr RibbonLayout layout = {
      .name = "The Ribbon",
      .systemButton = "&File",
      .systemIcon = 1200,
      .systemMenu = systemMenu,
      .profilesCaption = "Recently used profiles",
      .systemBottom = {Kind::Button, commandExit, "Exit"},
      .tabs = tabs,
      .stylesCaption = "Styles",
      .right = {Kind::Button, commandAbout, "&About"},
  };
  return layout;
}

Ribbon::Ribbon(Screen& screen)
    : LoadProfile(screen, {.name = "LoadProfile", .caption = "Load Profile"}, {""}),
      CurrentProfile(screen, {.name = "CurrentProfile", .caption = currentProfile[0].caption}) {}

}  // namespace tallowbrook
