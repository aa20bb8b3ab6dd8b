// What can go wrong with a file, as our own values: errno ends at the edge, in FromErrno.
#pragma once

#include <string_view>

namespace tallowbrook {

enum class FileError {
  None,
  NotFound,
  AlreadyExists,
  NotPermitted,
  NoSpace,
  InvalidName,
  NameTooLong,
  IsFolder,
  NotFolder,
  SameFile,
  OtherFileSystem,
  Io,
  Other,
};

FileError FromErrno(int number);
// A short plain sentence for a user, without a full stop.
std::string_view Describe(FileError error);

}  // namespace tallowbrook
