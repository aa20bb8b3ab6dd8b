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
  LogMessage({});
}

void LogFile::Record(const RunRecord& record) {
  if (!file_) return;
  log_format::FormatRecord(record, line_);
  LogMessage(line_);
}

void LogFile::EndBatch() {
  LogMessage(std::string_view(&log_format::batchEnd, 1));
}

void LogFile::LogMessage(std::string_view text) {
  if (!file_) return;
  buffer_ = header_;
  if (!text.empty()) buffer_.append(text) += log_format::lineBreak;
  // What can't be written is lost and the run goes on; but no record is read without its header.
  if (file_->Write(buffer_) == FileError::None) header_.clear();
}

}  // namespace tallowbrook
