// How a file that is appended to can be replaced without losing what is appended meanwhile.
//
// A writer locks nothing to write: it appends, and asks afterwards, unless it did a moment ago
// (`mostUnasked`), whether a replacement is announced and whether its file still stands at the
// path. Whoever replaces the file holds the old one's lock (flock(2)) from before it reads until
// all is handed over. It announces the replacement and, after more than that moment, reads a last
// time ahead of it: what writers didn't ask about is read then, and no writer takes a text for
// written that came behind that reading, until it is known what became of it. With the new file in
// place it copies what came since and appends a mark to the old one that says how far it got. The
// new file is locked as long, and whoever opens it waits, so that nobody's lines come before
// earlier ones of the same writer. The announcement ends with its process, whatever ended that.
//
// A writer that finds itself in an old file waits for its lock. What it wrote there behind the
// place that the mark names is in no new file: it writes that, its own text alone, to the file now
// at the path, and goes on there. An old file without a mark was deleted, or whoever replaced it
// was killed: the writer hears that its text isn't written. Where it finds no file at the path, a
// mark of another kind says so to the other writers. Whoever holds a lock waits only for those of
// newer files.
#pragma once

#include <sys/stat.h>

#include <chrono>
#include <optional>
#include <string>

namespace tallowbrook {

// How long behind its last question a writer may append without another, by the steady clock, which
// all processes share. Asking costs two system calls, half of what a rename takes.
inline constexpr auto mostUnasked = std::chrono::milliseconds(2);

// Waits for the lock, which else ends with the descriptor, for some seconds at most: whoever holds
// it longer was stopped, and nobody is to stand still with it. Passed over where the file system
// has none; false if the wait was in vain.
bool LockFile(int file);
void UnlockFile(int file);

// Whether the path, links followed, leads to the file of these facts.
bool LeadsTo(const std::string& path, const struct stat& facts);

// The announcement ends with the descriptor. False where the file system has no locks: then the
// writers don't hear of it, and what they didn't ask about may come up to `mostUnasked` behind the
// replacement.
bool AnnounceReplacement(int file);
// Until what the writers didn't ask about has been appended.
void WaitForUnasked();
// By another descriptor than this one.
bool IsReplacementAnnounced(int file);

// What stands before the place is in a new file.
void MarkCarried(int file, off_t upTo);
// Nothing of the file is in one.
void MarkDropped(int file);

// The place that the last mark at or after `from` names. Nothing if there is none, if it says
// Dropped, or if the file can't be read.
std::optional<off_t> CarriedUpTo(int file, off_t from);

}  // namespace tallowbrook
