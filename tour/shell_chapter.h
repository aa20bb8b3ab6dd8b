// The chapter of what outlives the program: profiles, styles, thumbnails, updates, a second start.
#pragma once

#include "tour/printed_dialogs.h"
#include "tour/steps.h"
#include "tour/update_server.h"

namespace tallowbrook {

// `server` is the one whose port the program was given.
void ShellChapter(Steps& steps, UpdateServer& server, PrintedDialogs& dialogs);
// Ends the program in a state that the next start is to find.
void LeaveProgram(Steps& steps);
// In a program that was started anew, with the hosts of a build that nobody configured.
void FindLastState(Steps& steps, PrintedDialogs& dialogs);

}  // namespace tallowbrook
