#include "store/log_format.h"

#include <array>

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

void AppendEscaped(std::string& text, std::string_view piece, bool keepQuestionMarks) {
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

std::optional<Batch> ParseBatch(std::string_view text) {
  std::array<std::size_t, 3> blanks{};
  std::size_t from = 0;
  for (std::size_t& blank : blanks) {
    blank = text.find(' ', from);
    if (blank == std::string_view::npos) return {};
    from = blank + 1;
  }
  Batch batch;
  batch.date = text.substr(blanks[0] + 1, blanks[1] - blanks[0] - 1);
  const std::string_view time = text.substr(blanks[1] + 1, blanks[2] - blanks[1] - 1);
  if (time.size() < 2) return {};
  batch.time = time.substr(1, time.size() - 2);
  for (std::size_t at = 0;;) {
    const std::size_t end = text.find(lineBreak, at);
    batch.lines.push_back(text.substr(at, end == std::string_view::npos ? end : end - at));
    if (end == std::string_view::npos) return batch;
    at = end + lineBreak.size();
  }
}

std::vector<Entry> ParseEntries(const Batch& batch) {
  std::vector<Entry> entries;
  for (std::size_t i = 1; i + 1 < batch.lines.size(); ++i) {
    std::optional<Entry> entry = ParseRecord(batch.lines[i]);
    if (!entry) continue;
    entry->line = i;
    entries.push_back(std::move(*entry));
  }
  return entries;
}

std::optional<Entry> ParseRecord(std::string_view line) {
  if (line.empty() || line.front() == '@') return {};
  const std::vector<std::string_view> parts = Split(line, statusEnd);
  if (parts.size() < 3) return {};
  const std::string_view payload = parts[1];
  const std::vector<std::string_view> fields = Split(payload, fieldEnd);
  if (fields.size() < 3) return {};
  Entry entry{};
  entry.status = parts[0];
  entry.oldPath = Unescaped(TrimBlanks(fields[0]));
  std::string_view newPath = fields[1];
  if (entry.status == "0") {
    // A name that failed may hold question marks of its own; nothing stands behind it.
    const std::size_t start = fields[0].size() + 1;
    newPath = payload.substr(start, payload.rfind(fieldEnd) - start);
  } else if (fields.size() == 4) {
    entry.detail = Unescaped(TrimBlanks(fields[2]));
  }
  entry.newPath = Unescaped(TrimBlanks(newPath));
  return entry;
}

}  // namespace tallowbrook::log_format
