// Names for files that live for a moment beside the user's own.
#pragma once

#include <string>

namespace tallowbrook {

// A fresh name: hidden, short whatever it stands in for, and differing from call to call and from
// process to process. Whoever uses it still opens or renames without replacing.
std::string TemporaryName();

}  // namespace tallowbrook
