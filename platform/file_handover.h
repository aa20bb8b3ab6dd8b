// How a file that is appended to can be replaced without losing what is appended meanwhile.
//
// A writer locks nothing to write: it appends, and one statx afterwards tells whether its file
// still stands at the path. Whoever replaces the file holds the old one's lock (flock(2)) from
// before it reads until all is handed over: with the new file in place it appends a mark to the old
// one and copies what came between its last reading and the mark. The new file is locked as long,
// and whoever opens it waits, so that nobody's lines come before earlier ones of the same writer.
//
// A writer that finds itself in an old file waits for its lock. What stands behind the last mark
// then is in no new file yet: the writer appends a mark of its own, so that nobody else takes the
// same bytes, copies what stands before it to the file now at the path, and goes on there. An old
// file without a mark was deleted; nothing of it is handed over. Where handing over fails, a mark
// of another kind says so to its other writers. Whoever holds a lock waits only for those of newer
// files.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

namespace tallowbrook {

// Waits for the lock, which else ends with the descriptor, for some seconds at most: whoever holds
// it longer was stopped, and nobody is to stand still with it. Passed over where the file system
// has none; false if the wait was in vain.
bool LockFile(int file);
void UnlockFile(int file);

// Whether the path, links followed, leads to the file of these facts.
bool LeadsTo(const std::string& path, const struct stat& facts);

// What came since the mark before is in a new file, or is in none: then each who still waits to
// hear of what it wrote there finds that out.
enum class Mark { Carried, Dropped };

// Where the mark begins, also if the disk had no room for all of it.
off_t AppendMark(int file, Mark mark);

// The place behind the last mark at or after `from`. Nothing if there is none, if it says Dropped,
// or if the file can't be read.
std::optional<off_t> PlaceBehindMark(int file, off_t from);

}  // namespace tallowbrook
