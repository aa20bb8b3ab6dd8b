#include "shell/commands.h"

#include <array>

namespace tallowbrook {

namespace {
constexpr std::array<Command, 3> commands = {{
    {commandViewLog, "View Log", "Show what was renamed, and undo it"},
    {commandReset, "Reset Renaming settings to default",
     "Set the pages back to how a first start shows them"},
    {commandExit, "Exit Program", "Close Tallowbrook"},
}};
}  // namespace

std::span<const Command> Commands() {
  return commands;
}

}  // namespace tallowbrook
