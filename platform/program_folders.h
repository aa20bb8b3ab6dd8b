// Where the program's files lie: what it reads and what it writes.
#pragma once

#include <string>

namespace tallowbrook {

struct ProgramFolders {
  // The executable's folder, with "/" at the end: styles, images, genres and tips are read here.
  std::string program;
  // Where the log, the profiles and the configuration are written: the program's folder, or,
  // where that can't be written or is an installation's, "tallowbrook/" in $XDG_DATA_HOME
  // (~/.local/share without it), made when missing. This is the one place that decides it.
  std::string data;
};

ProgramFolders FindProgramFolders();
// The same decision for a given program folder, data home and home.
ProgramFolders ChooseFolders(const std::string& program, const std::string& xdgDataHome,
                             const std::string& home);

// The name of the running program's file, without its extension.
std::string ProgramName();

// $HOME, else the password database's entry, else "/"; with "/" at the end.
std::string HomeFolder();

}  // namespace tallowbrook
