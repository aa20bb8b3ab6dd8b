// Reading and writing through an open descriptor until all is done.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>

namespace tallowbrook {

// From where the descriptor stands up to the end that reading finds; the size is only a guess. 0
// or errno; then `bytes` holds what could be read.
int ReadToEnd(int file, std::size_t sizeGuess, std::string& bytes);
// What stands between two places, less where the file ends before. Nothing on an error.
std::optional<std::string> ReadRange(int file, off_t from, off_t to);
// At the descriptor's place, or at the end for one that appends; mostly one write. 0 or errno;
// `written` counts the bytes that went out even so.
int WriteAll(int file, std::string_view bytes, std::size_t& written);
// A rename is on the medium when its folder is. Not every file system can say that.
void FlushFolderOf(const std::string& path);

}  // namespace tallowbrook
