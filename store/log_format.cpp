#include "store/log_format.h"

#include <array>
#include <map>
#include <unordered_map>

#include "base/text.h"

namespace tallowbrook::log_format {

namespace {

static_assert(recordEnd == 5 && statusEnd == 6 && batchEnd == 7 && escape == 16 && fieldEnd == '?');
constexpr std::string_view hexDigits = "0123456789ABCDEF";

// What mustn't stand in a path as it is, and in a failed name, whose question marks tell.
constexpr std::string_view escapedInPaths = "\x05\x06\x07\x10\r\n?";
constexpr std::string_view escapedInFailures = escapedInPaths.substr(0, escapedInPaths.size() - 1);

constexpr std::array<bool, 256> Marked(std::string_view bytes) {
  std::array<bool, 256> marked{};
  for (const char c : bytes) marked[static_cast<unsigned char>(c)] = true;
  return marked;
}

void AppendEscape(std::string& text, char c) {
  const auto byte = static_cast<unsigned char>(c);
  text += escape;
  text += hexDigits[byte >> 4];
  text += hexDigits[byte & 15];
}

// Looks at all bytes without a branch, many at a time; hardly a name has one of them.
bool MayHoldMarked(std::string_view piece) {
  unsigned found = 0;
  for (const char c : piece) found |= unsigned(static_cast<unsigned char>(c) < 0x20) | (c == '?');
  return found != 0;
}

void AppendEscaped(std::string& text, std::string_view piece, bool keepQuestionMarks) {
  if (!MayHoldMarked(piece)) {
    text.append(piece);
    return;
  }
  static constexpr auto inPaths = Marked(escapedInPaths);
  static constexpr auto inFailures = Marked(escapedInFailures);
  const auto& marked = keepQuestionMarks ? inFailures : inPaths;
  std::size_t start = 0;  // of what can be taken as it is
  for (std::size_t at = 0; at < piece.size(); ++at) {
    if (!marked[static_cast<unsigned char>(piece[at])]) continue;
    text.append(piece, start, at - start);
    AppendEscape(text, piece[at]);
    start = at + 1;
  }
  text.append(piece, start);
}

// A reader trims the blanks around a path; the last one of a trailing run holds the others.
void AppendPath(std::string& line, std::string_view folder, std::string_view name,
                bool keepQuestionMarks) {
  const bool endsInBlank = name.ends_with(' ') || (name.empty() && folder.ends_with(' '));
  AppendEscaped(line, folder, false);
  AppendEscaped(line, name, keepQuestionMarks);
  if (endsInBlank) {
    line.pop_back();
    AppendEscape(line, ' ');
  }
  line += fieldEnd;
}

}  // namespace

std::string Header(Date now) {
  return "@----------- " + FormatDate(now, "mm/dd/yy", EnglishDateNames()) + " [" +
         FormatDate(now, "hh:mm", EnglishDateNames()) + "] -----------@";
}

void FormatRecord(const RunRecord& record, std::string& line) {
  const bool failed = record.kind == RunRecord::Kind::Failed;
  line = std::to_string(static_cast<int>(record.kind));
  line += statusEnd;
  line += ' ';
  AppendPath(line, record.oldFolder, record.oldName, false);
  // A name that failed is as composed: its question marks say why.
  AppendPath(line, record.newFolder, record.newName, failed);
  if (!record.detail.empty()) {
    AppendEscaped(line, record.detail, false);
    line += fieldEnd;
  }
  line += statusEnd;
  line += recordEnd;
}

std::string Escaped(std::string_view path, bool keepQuestionMarks) {
  std::string text;
  AppendPath(text, {}, path, keepQuestionMarks);
  text.pop_back();
  return text;
}

std::string Unescaped(std::string_view text) {
  std::string path;
  path.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == escape && i + 2 < text.size()) {
      const std::size_t high = hexDigits.find(text[i + 1]);
      const std::size_t low = hexDigits.find(text[i + 2]);
      if (high != std::string_view::npos && low != std::string_view::npos) {
        path += static_cast<char>(high * 16 + low);
        i += 2;
        continue;
      }
    }
    path += text[i];
  }
  return path;
}

std::vector<std::string_view> SplitBatches(std::string_view log) {
  std::vector<std::string_view> batches = Split(log, batchEnd);
  batches.pop_back();
  return batches;
}

std::optional<BatchSummary> Summarize(std::string_view batch) {
  std::array<std::size_t, 3> blanks{};
  std::size_t from = 0;
  for (std::size_t& blank : blanks) {
    blank = batch.find(' ', from);
    if (blank == std::string_view::npos) return {};
    from = blank + 1;
  }
  BatchSummary summary;
  summary.date = batch.substr(blanks[0] + 1, blanks[1] - blanks[0] - 1);
  const std::string_view time = batch.substr(blanks[1] + 1, blanks[2] - blanks[1] - 1);
  if (time.size() < 2) return {};
  summary.time = time.substr(1, time.size() - 2);
  ForEachInnerLine(batch, [&](std::string_view line) {
    if (!line.starts_with('@')) ++summary.files;
    if (line.starts_with('0')) ++summary.errors;
  });
  return summary;
}

std::optional<RecordText> ParseRecord(std::string_view line) {
  constexpr std::size_t none = std::string_view::npos;
  if (line.empty() || line.front() == '@') return {};
  const std::size_t head = line.find(statusEnd);
  const std::size_t tail = head == none ? none : line.find(statusEnd, head + 1);
  if (tail == none) return {};
  const std::string_view payload = line.substr(head + 1, tail - head - 1);
  const std::size_t first = payload.find(fieldEnd);
  const std::size_t second = first == none ? none : payload.find(fieldEnd, first + 1);
  if (second == none) return {};
  RecordText record{line.substr(0, head), TrimBlanks(payload.substr(0, first)), {}, {}};
  std::size_t newEnd = second;
  if (record.status == "0") {
    // A name that failed may hold question marks of its own; nothing stands behind it.
    newEnd = payload.rfind(fieldEnd);
  } else {
    const std::size_t third = payload.find(fieldEnd, second + 1);
    const bool isDated = third != none && payload.find(fieldEnd, third + 1) == none;
    if (isDated) record.detail = TrimBlanks(payload.substr(second + 1, third - second - 1));
  }
  record.newPath = TrimBlanks(payload.substr(first + 1, newEnd - first - 1));
  return record;
}

std::string Rewritten(std::string_view log, const std::vector<BatchChange>& changes,
                      std::size_t* applied) {
  struct Twins {
    std::map<std::size_t, const BatchChange*> changes;  // by twinsBefore
    std::size_t seen = 0;
  };
  std::unordered_map<std::string_view, Twins> pending;
  for (const BatchChange& change : changes) {
    pending[change.before].changes[change.twinsBefore] = &change;
  }
  std::size_t count = 0;
  std::string text;
  text.reserve(log.size());
  std::size_t at = 0;
  for (std::size_t end; (end = log.find(batchEnd, at)) != std::string_view::npos; at = end + 1) {
    const std::string_view batch = log.substr(at, end - at);
    std::optional<std::string_view> kept = batch;
    if (const auto twins = pending.find(batch); twins != pending.end()) {
      const auto change = twins->second.changes.find(twins->second.seen++);
      if (change != twins->second.changes.end()) {
        kept = change->second->after;
        ++count;
      }
    }
    if (kept) text.append(*kept) += batchEnd;
  }
  if (applied != nullptr) *applied = count;
  const std::string_view tail = log.substr(at);
  if (tail != lineBreak) text += tail;
  return text;
}

}  // namespace tallowbrook::log_format
