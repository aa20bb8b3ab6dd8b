// Logfile.txt as a run writes it: opened for the batch, one write a record, closed behind it.
//
// Two windows may run at once. The second one's records then come with a header each, which readers
// pass over, so that none of them stands in a batch without one; and the last of the two to end
// ends the batch.
#pragma once

#include <memory>
#include <string>

#include "engine/run_log.h"
#include "platform/files.h"

namespace tallowbrook {

class LogFile : public RunLog {
 public:
  explicit LogFile(Files& files) : files_(files) {}
  // Where the log is. Takes effect with the next batch.
  void SetPath(std::string path) { path_ = std::move(path); }
  const std::string& Path() const { return path_; }

  void BeginBatch(Date now) override;
  void Record(const RunRecord& record) override;
  void EndBatch() override;
  void Close() override { file_.reset(); }

 private:
  // Writes the text and a line break, as one write, so that a killed run leaves whole lines. A
  // header that couldn't be written yet goes before it, in the same write.
  void LogMessage(std::string_view text);
  FileError Write(std::string_view text);
  bool IsAlone();

  Files& files_;
  std::string path_;
  std::unique_ptr<AppendFile> file_;
  std::string header_;
  bool hasHeader_ = false;  // the file
  bool isAlone_ = false;    // no other window's run writes to it
  std::string line_;
  std::string buffer_;
};

}  // namespace tallowbrook
