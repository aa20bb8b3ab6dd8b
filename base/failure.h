// What the metadata readers raise to their caller.
//
// A failure is a plain value that is thrown: its number says what went wrong, its source which
// reader found it, its description is the text that a user may see. The numbers in use are those
// named here; whoever catches a failure decides by them which step it gives up.
#pragma once

#include <cstdint>
#include <string>

namespace tallowbrook {

struct Failure {
  std::uint32_t number;
  std::string source;
  std::string description;
};

inline constexpr std::uint32_t failureInvalidArgument = 5;
inline constexpr std::uint32_t failureOverflow = 6;
inline constexpr std::uint32_t failureSubscript = 9;
inline constexpr std::uint32_t failureBadFileName = 52;
inline constexpr std::uint32_t failureFileNotFound = 53;
inline constexpr std::uint32_t failureDevice = 57;
inline constexpr std::uint32_t failureFileExists = 58;
inline constexpr std::uint32_t failureDiskFull = 61;
inline constexpr std::uint32_t failureNotPermitted = 70;
inline constexpr std::uint32_t failureFileAccess = 75;
inline constexpr std::uint32_t failureObjectNotSet = 91;
inline constexpr std::uint32_t failureDuplicateKey = 457;
inline constexpr std::uint32_t failureInvalidFile = 0x80041001;

}  // namespace tallowbrook
