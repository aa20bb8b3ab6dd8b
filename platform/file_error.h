// What can go wrong with a file, as our own values: errno ends at the edge, in FromErrno.
#pragma once

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

}  // namespace tallowbrook
