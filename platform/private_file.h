// Files that are their owner's alone, such as those of the user's caches.
#pragma once

#include <string>
#include <string_view>

namespace tallowbrook {

// Writes a file of mode 0600 in the place of what stands there, as a whole or not at all: another
// program that reads it sees the old one or the new one. Missing folders of its path are made, of
// mode 0700. False if it can't be written; nothing but folders is left then. Not flushed to the
// medium: what a cache loses is made again.
bool WritePrivateFile(const std::string& path, std::string_view bytes);

// $XDG_CACHE_HOME, or ~/.cache where it isn't an absolute path (the desktop's base directory
// rules); with "/" at the end.
std::string CacheHome();

}  // namespace tallowbrook
