// errno values as ours.
#include "platform/file_error.h"

#include <cerrno>

namespace tallowbrook {

FileError FromErrno(int number) {
  switch (number) {
    case 0:
      return FileError::None;
    case ENOENT:
      return FileError::NotFound;
    case EEXIST:
    case ENOTEMPTY:
      return FileError::AlreadyExists;
    case EACCES:
    case EPERM:
    case EROFS:
      return FileError::NotPermitted;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return FileError::NoSpace;
    case EILSEQ:
      return FileError::InvalidName;
    case ENAMETOOLONG:
      return FileError::NameTooLong;
    case EISDIR:
      return FileError::IsFolder;
    case ENOTDIR:
      return FileError::NotFolder;
    case EXDEV:
      return FileError::OtherFileSystem;
    case EIO:
      return FileError::Io;
    default:
      return FileError::Other;
  }
}

}  // namespace tallowbrook
