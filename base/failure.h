// What the metadata readers raise to their caller.
//
// A failure is a plain value that is thrown: its number says what went wrong, its source which
// reader found it, its description is the text that a user may see. The numbers in use are those
// named here; whoever catches a failure decides by them which step it gives up.
#pragma once

#include <string>

namespace tallowbrook {

struct Failure {
  int number;
  std::string source;
  std::string description;
};

inline constexpr int failureInvalidArgument = 5;
inline constexpr int failureOverflow = 6;
inline constexpr int failureSubscript = 9;
inline constexpr int failureFileNotFound = 53;
inline constexpr int failureDuplicateKey = 457;

}  // namespace tallowbrook
