#include "media/file_failure.h"

#include <algorithm>
#include <iterator>

#include "platform/program_folders.h"

namespace tallowbrook {
namespace {

struct Description {
  std::uint32_t number;
  std::string_view text;
};

constexpr Description descriptions[] = {
    {failureInvalidArgument, "Invalid argument"},
    {failureOverflow, "Overflow"},
    {failureSubscript, "Subscript out of range"},
    {failureBadFileName, "Bad file name"},
    {failureFileNotFound, "File not found"},
    {failureDevice, "Device error"},
    {failureFileExists, "File already exists"},
    {failureDiskFull, "Disk full"},
    {failureNotPermitted, "Permission denied"},
    {failureFileAccess, "Path or file access error"},
    {failureObjectNotSet, "No file has been loaded"},
    {failureDuplicateKey, "The key is already in the list"},
};

std::uint32_t NumberOf(FileError error) {
  switch (error) {
    case FileError::NotFound:
    case FileError::NotFolder:
      return failureFileNotFound;
    case FileError::NotPermitted:
      return failureNotPermitted;
    case FileError::NoSpace:
      return failureDiskFull;
    case FileError::InvalidName:
    case FileError::NameTooLong:
      return failureBadFileName;
    case FileError::AlreadyExists:
      return failureFileExists;
    case FileError::IsFolder:
    case FileError::SameFile:
    case FileError::OtherFileSystem:
      return failureFileAccess;
    default:
      return failureDevice;
  }
}

}  // namespace

void RaiseOnError(FileError error, std::string_view reader) {
  if (error != FileError::None) Raise(NumberOf(error), reader);
}

void Raise(std::uint32_t number, std::string_view reader) {
  const auto* found = std::ranges::find(descriptions, number, &Description::number);
  const std::string_view text = found != std::end(descriptions) ? found->text : "Unknown failure";
  throw Failure{number, SourceOf(reader), std::string(text)};
}

std::string SourceOf(std::string_view reader) {
  static const std::string program = ProgramName();  // asked of the system
  return program + "." + std::string(reader);
}

}  // namespace tallowbrook
