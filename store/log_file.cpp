#include "store/log_file.h"

#include "store/log_format.h"

namespace tallowbrook {

namespace {
// A log ends whole in a line break, or, rewritten, in the end of a batch.
constexpr char wholeEnds[] = {'\n', log_format::batchEnd};
}  // namespace

void LogFile::BeginBatch(Date now) {
  file_ = files_.OpenForAppend(path_, std::string_view(wholeEnds, sizeof wholeEnds));
  header_ = log_format::Header(now);
  header_ += log_format::lineBreak;
  hasHeader_ = false;
  isAlone_ = false;
  if (file_) IsAlone();
  LogMessage({});
}

void LogFile::Record(const RunRecord& record) {
  if (!file_) return;
  log_format::FormatRecord(record, line_);
  LogMessage(line_);
}

// The other window's run goes on: its end will end both.
void LogFile::EndBatch() {
  if (!file_ || !IsAlone()) return;
  LogMessage(std::string_view(&log_format::batchEnd, 1));
}

// Once alone, always alone: the others know.
bool LogFile::IsAlone() {
  if (!isAlone_) isAlone_ = file_->IsAlone();
  return isAlone_;
}

void LogFile::LogMessage(std::string_view text) {
  if (!file_) return;
  // What can't be written is lost and the run goes on; but no record is read without its header,
  // also in a log that was deleted and begins anew here.
  FileError error = Write(text);
  if (error == FileError::NotFound) {
    hasHeader_ = false;
    error = Write(text);
  }
  // While another window's run writes, its end may come before our next record at any time.
  hasHeader_ = isAlone_ && (hasHeader_ || error == FileError::None);
}

FileError LogFile::Write(std::string_view text) {
  buffer_.clear();
  if (!hasHeader_) buffer_ = header_;
  if (!text.empty()) buffer_.append(text) += log_format::lineBreak;
  return file_->Write(buffer_);
}

}  // namespace tallowbrook
