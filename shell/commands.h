// The commands by number, with their captions, as the ribbon place shows them.
#pragma once

#include <span>
#include <string_view>

namespace tallowbrook {

struct Command {
  int number;
  std::string_view caption;
  std::string_view tip;
};

inline constexpr int commandReset = 150003;
inline constexpr int commandViewLog = 113002;
inline constexpr int commandExit = 57665;

// In the order in which the window shows them.
std::span<const Command> Commands();

}  // namespace tallowbrook
