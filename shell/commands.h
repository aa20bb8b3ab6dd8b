// The commands: every number that a control can carry, and what it does.
//
// One table, in commands.cpp, gives each number its action and its tip. Ribbon, menus and whatever
// else carries a number dispatch it; what no control carries today stays dispatchable for a ribbon
// that offers it.
#pragma once

#include <span>
#include <string_view>

namespace tallowbrook {

class Form1;

struct Command {
  int number;
  std::string_view tip;
  // Is handed the number: some commands share an action.
  void (*action)(Form1& form, int number);
};

// The entries of the profile list carry this and their index.
inline constexpr int profileCommands = 500000;

inline constexpr int commandSelectTab = 2006;
inline constexpr int commandStyleBlue = 3000;
inline constexpr int commandStyleBlack = 3001;
inline constexpr int commandStyleAqua = 3002;
inline constexpr int commandStyleSilver = 3003;
inline constexpr int commandExit = 57665;
inline constexpr int commandWebsite = 112002;
inline constexpr int commandCheckForUpdates = 112003;
inline constexpr int commandAbout = 112004;
inline constexpr int commandReportBug = 112011;
inline constexpr int commandSuggestFeature = 112012;
inline constexpr int commandViewLog = 113002;
inline constexpr int commandSaveProfile = 114002;
inline constexpr int commandSaveProfileAs = 114003;
inline constexpr int commandLoadProfile = 114102;
inline constexpr int commandManageProfiles = 114201;
inline constexpr int commandAutoUpdate = 150001;
inline constexpr int commandStartupTips = 150002;
inline constexpr int commandReset = 150003;
inline constexpr int commandDateCreated = 150010;
inline constexpr int commandExifDate = 150011;
inline constexpr int commandDateModified = 150012;
inline constexpr int commandLoadSettings = 150020;
inline constexpr int commandOptions = 150050;

// In ascending order.
std::span<const Command> Commands();
// Null for a number that no command bears.
const Command* FindCommand(int number);

// A style by its command.
struct StyleChoice {
  int number;
  std::string_view caption;
  std::string_view file;  // in the program's folder of styles
};
// As the styles' menu shows them.
std::span<const StyleChoice> Styles();

}  // namespace tallowbrook
