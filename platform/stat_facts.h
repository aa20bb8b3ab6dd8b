// The facts of one file, by one call.
#pragma once

#include <optional>

#include "platform/files.h"

namespace tallowbrook {

// Of what `path`, relative to an open folder or AT_FDCWD, leads to. Nothing if nothing is there.
std::optional<FileFacts> StatFacts(int folder, const char* path);

}  // namespace tallowbrook
