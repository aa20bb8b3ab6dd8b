// What a run asks of the log: one batch, one record a row.
#pragma once

#include <string>
#include <string_view>

#include "base/date.h"

namespace tallowbrook {

struct RunRecord {
  enum class Kind { Failed = 0, File = 1, Folder = 9 };
  Kind kind = Kind::Failed;
  std::string_view oldFolder;
  std::string_view oldName;
  std::string_view newFolder;
  std::string_view newName;
  // The former date of a date change, as a date command; empty for a rename.
  std::string_view detail = {};
};

class RunLog {
 public:
  virtual ~RunLog() = default;
  // Opens the log and writes the header. A log that can't be opened takes no records; the run
  // goes on without it.
  virtual void BeginBatch(Date now) = 0;
  virtual void Record(const RunRecord& record) = 0;
  virtual void EndBatch() = 0;
  virtual void Close() = 0;
};

}  // namespace tallowbrook
