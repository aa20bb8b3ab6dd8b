// The grammar of Logfile.txt: header, record and end of a batch, written and read side by side.
//
// docs/log_format.md has the whole of it. A path may hold any bytes; those that mean something to
// the grammar are escaped on the way in and turned back on the way out, so that no name can forge
// a record.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "engine/run_log.h"

namespace tallowbrook::log_format {

inline constexpr char recordEnd = 5;   // closes a record for the eye; nothing looks for it
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

// The batches' texts: what stands between the ends of batches. What stands behind the last end
// belongs to a run that didn't finish, and isn't one.
std::vector<std::string_view> SplitBatches(std::string_view log);

struct BatchSummary {
  std::string date;
  std::string time;
  // Lines that are no headers, and those of them that begin with "0"; what they hold isn't looked
  // at.
  std::ptrdiff_t files = 0;
  std::ptrdiff_t errors = 0;
};
// Nothing for a batch whose header lacks one of its three blanks or the brackets of its time.
std::optional<BatchSummary> Summarize(std::string_view batch);

// The lines of a batch that may hold a record: those with a line break at both ends.
template <typename Visit>
void ForEachInnerLine(std::string_view batch, Visit visit) {
  std::size_t start = batch.find(lineBreak);
  while (start != std::string_view::npos) {
    start += lineBreak.size();
    const std::size_t end = batch.find(lineBreak, start);
    if (end != std::string_view::npos) visit(batch.substr(start, end - start));
    start = end;
  }
}

// The pieces of a record as they stand in the line, blanks around them trimmed, escapes kept.
struct RecordText {
  std::string_view status;
  std::string_view oldPath;
  std::string_view newPath;
  std::string_view detail;
};
// Nothing for a line that holds no record: an empty one, a header, one of too few fields, or one
// that a full disk or a power cut left without its end.
std::optional<RecordText> ParseRecord(std::string_view line);

// A batch's text and what takes its place; nothing takes the place of a deleted one.
struct BatchChange {
  std::string_view before;
  std::optional<std::string_view> after;
  // How many batches that read alike stand before it.
  std::size_t twinsBefore = 0;
};
// The log with some batches changed, each batch followed by its end. A change finds its batch by
// the text; all other batches stay, and so does one without its end behind them. `*applied`, if
// given, is set to how many of the changes found their batch.
std::string Rewritten(std::string_view log, const std::vector<BatchChange>& changes,
                      std::size_t* applied = nullptr);

}  // namespace tallowbrook::log_format
