// errno values as ours, and the sentences that a user reads.
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

std::string_view Describe(FileError error) {
  switch (error) {
    case FileError::None:
      return "No error";
    case FileError::NotFound:
      return "The file or folder does not exist";
    case FileError::AlreadyExists:
      return "A file or folder of that name already exists";
    case FileError::NotPermitted:
      return "Permission denied";
    case FileError::NoSpace:
      return "There is not enough space on the disk";
    case FileError::InvalidName:
      return "The name is not valid";
    case FileError::NameTooLong:
      return "The name is too long";
    case FileError::IsFolder:
      return "It is a folder";
    case FileError::NotFolder:
      return "A part of the path is not a folder";
    case FileError::SameFile:
      return "Source and target are the same file";
    case FileError::OtherFileSystem:
      return "Source and target are on different file systems";
    case FileError::Io:
      return "The disk reported an input or output error";
    case FileError::Other:
      break;
  }
  return "The operation failed";
}

}  // namespace tallowbrook
