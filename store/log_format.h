// The grammar of Logfile.txt: header, record and end of a batch, written and read side by side.
//
// docs/log_format.md has the whole of it. A path may hold any bytes; those that mean something to
// the grammar are escaped on the way in and turned back on the way out, so that no name can forge
// a record.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "engine/run_log.h"

namespace tallowbrook::log_format {

inline constexpr char recordEnd = 5;   // written behind each record, never read
inline constexpr char statusEnd = 6;   // between the status and the paths
inline constexpr char batchEnd = 7;    // ends a batch
inline constexpr char escape = 16;     // before two upper-case hex digits
inline constexpr char fieldEnd = '?';  // behind each path, and behind the detail
inline constexpr std::string_view lineBreak = "\r\n";

// Both without a line break at their end.
std::string Header(Date now);
// Replaces `line`.
void FormatRecord(const RunRecord& record, std::string& line);

// A path as it stands in a record, and back. Back is lenient: an escape that isn't followed by
// two hex digits stands for itself.
std::string Escaped(std::string_view path, bool keepQuestionMarks = false);
std::string Unescaped(std::string_view text);

struct Batch {
  std::string date;
  std::string time;
  // The lines of its text, split at line breaks; line 0 is empty if the batch begins with one.
  std::vector<std::string_view> lines;
};
// The batches' texts: what stands between the ends of batches. What stands behind the last end
// belongs to a run that didn't finish, and isn't one.
std::vector<std::string_view> SplitBatches(std::string_view log);
// Nothing for a batch whose header lacks one of its three blanks or the brackets of its time.
std::optional<Batch> ParseBatch(std::string_view text);

struct Entry {
  std::size_t line;  // its index in the batch's lines
  std::string status;
  std::string oldPath;
  std::string newPath;
  std::string detail;
};
// The entries between the batch's first line and its last. A line that holds none is passed over.
std::vector<Entry> ParseEntries(const Batch& batch);
// Nothing for a line that holds no entry: an empty one, a header, one of too few fields, or one
// that a full disk or a power cut left without its end.
std::optional<Entry> ParseRecord(std::string_view line);

}  // namespace tallowbrook::log_format
