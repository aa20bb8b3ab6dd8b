// Parts of a file that make a file of their own, such as all of a picture that a decoder needs.
#pragma once

#include <cstdint>
#include <vector>

namespace tallowbrook {

// In bytes.
struct FilePart {
  std::int64_t at = 0;
  std::int64_t size = 0;
};
using FileParts = std::vector<FilePart>;

// Behind the others; parts that touch become one.
inline void AddPart(FileParts& parts, FilePart part) {
  if (!parts.empty() && parts.back().at + parts.back().size == part.at) {
    parts.back().size += part.size;
  } else {
    parts.push_back(part);
  }
}

}  // namespace tallowbrook
