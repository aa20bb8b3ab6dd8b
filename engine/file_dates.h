// Dates of files: the commands that set them, which travel as new names, and the date of creation.
//
// A command is "<DateCreated,", "<DateModified," or "<DateAccessed,", a date and ">". What it sets
// is local time; what it gives back, for the log, is universal time. An undo so shifts the time by
// the zone's offset: this asymmetry is wanted.
#pragma once

#include <string>
#include <string_view>

#include "base/date.h"
#include "platform/clock.h"
#include "platform/files.h"

namespace tallowbrook {

class FileDates {
 public:
  virtual ~FileDates() = default;
  // Sets a file's or folder's time from a date command; returns the former time in the same form,
  // or an empty text if nothing was done.
  virtual std::string ProcessAttributes(const std::string& path, const std::string& command) = 0;
};

class FileDateCommands : public FileDates {
 public:
  FileDateCommands(Files& files, Clock& clock) : files_(files), clock_(clock) {}

  // Empty for a text without "<Date", in whatever case, and for a file that can't be opened.
  std::string ProcessAttributes(const std::string& path, const std::string& command) override;
  // Does the work; "False" for a text without "<Date". A date that can't be read counts as the zero
  // date. A command of none of the three kinds sets nothing and gives back the first of January
  // 1601. That the system refused a change is not looked at.
  std::string ApplyFileDate(const std::string& path, const std::string& command);

 private:
  Files& files_;
  Clock& clock_;
};

// The date of creation in universal time. Nothing for one before 1900, nor for a file that isn't
// there.
std::optional<Date> GetFileCreated(const std::optional<FileFacts>& facts);

// The arguments of the first `keyword` ("<left,") in a mask, found in whatever case, up to the next
// ">": 0 is the whole text from "<" to ">", 1 the first argument behind the keyword. Nothing if
// there is none.
std::optional<std::string> GetKeywordArgument(std::string_view keyword, std::string_view mask,
                                              std::size_t index);

}  // namespace tallowbrook
