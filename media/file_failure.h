// Failures of the disk, as the metadata readers raise them.
#pragma once

#include <string>
#include <string_view>

#include "base/failure.h"
#include "platform/file_error.h"

namespace tallowbrook {

// Throws the Failure of an error of the disk that a reader met, unless there is none.
void RaiseOnError(FileError error, std::string_view reader);

// Throws one of our own numbers with its usual text.
[[noreturn]] void Raise(std::uint32_t number, std::string_view reader);

// What raises: the name of the running program, then ".cMP3ID3v1" or whatever `reader` is.
std::string SourceOf(std::string_view reader);

}  // namespace tallowbrook
