// What copying a file consists of, for those that put a file's bytes into a new one.
#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/file_error.h"

namespace tallowbrook {

// Into a free place a copy comes flushed: it is to take the source's place for good.
enum class CopyPlace { OverTarget, FreeOnly };

// Copies an open regular file: bytes, permissions, times. The target appears when it is complete.
// AlreadyExists if it must be free and isn't; SameFile if both paths turn out to be one file; Other
// if the source was written to meanwhile.
FileError WriteCopy(int from, const struct stat& facts, const std::string& source,
                    const std::string& target, CopyPlace place);

// Copies the first `size` bytes and more, up to the end that reading finds, to `shift` bytes behind
// their places; holes stay holes. 0 or errno.
int CopyContents(int from, off_t size, int to, off_t shift);

// Whether both are of one file that nobody wrote to in between.
bool IsUnchanged(const struct stat& now, const struct stat& before);

// Gives an own new file the owner and the group of another, each if we may. 0 or errno.
int CopyOwner(const struct stat& source, int to);

// Gives an own new file the permissions of another, as far as its file system keeps any. 0 or
// errno.
int CopyPermissions(const struct stat& source, int to);

}  // namespace tallowbrook
