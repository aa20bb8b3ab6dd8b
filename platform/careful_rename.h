// Renames that replace nothing, on every file system.
#pragma once

#include <string>

namespace tallowbrook {

// One renameat2(2) where the file system knows RENAME_NOREPLACE. 0 or errno; EEXIST if anything
// stands at the target.
int RenameWithoutReplacing(const std::string& from, const std::string& to);

// For a rename within a folder that met something at its target: if that is the entry itself,
// found by its name in another letter case, it gets the new name. 0 or errno; EEXIST, and nothing
// done, if it is another entry or another hard link.
int ChangeCase(const std::string& folder, const std::string& name, const std::string& newName);

}  // namespace tallowbrook
