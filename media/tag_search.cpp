// The search goes by chunks of 4096 bytes, one every 4093, and the first chunk that holds the
// sentinel, which is how audio begins, is the last to be searched: "ID3" counts in all of it. The
// last byte of the file is in no chunk. Where the search ends is all that chunks decide, so that
// the file can be read in blocks of any size.
#include "media/tag_search.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "media/file_failure.h"

namespace tallowbrook {
namespace {

constexpr std::int64_t chunkSize = 4096;
constexpr std::int64_t chunkStep = chunkSize - 3;
constexpr std::string_view marker = "ID3";
constexpr std::string_view sentinel = "\xFF\xFB";

// The end of the first chunk that holds all of a sentinel.
constexpr std::int64_t EndOfChunkAround(std::int64_t at) {
  const std::int64_t overhang = at + std::ssize(sentinel) - chunkSize;
  const std::int64_t chunk = overhang <= 0 ? 0 : (overhang + chunkStep - 1) / chunkStep;
  return chunk * chunkStep + chunkSize;
}

std::size_t FindIn(std::string_view bytes, std::string_view text) {
  const void* found = memmem(bytes.data(), bytes.size(), text.data(), text.size());
  if (found == nullptr) return std::string_view::npos;
  return static_cast<std::size_t>(static_cast<const char*>(found) - bytes.data());
}

}  // namespace

std::int64_t FindTagPosition(BufferedFile& file) {
  if (file.Size() == 0) Raise(failureInvalidArgument, SourceOf("cMP3ID3v2"));
  std::int64_t end = file.Size() - 1;
  std::int64_t at = 0, block = BufferedFile::leastBlock;
  bool isEndKnown = false;
  while (at + std::ssize(marker) <= end) {
    const std::string_view bytes = file.Bytes(at, std::min(block, end - at));
    if (bytes.size() < marker.size()) break;
    const std::size_t found = FindIn(bytes, marker);
    const std::size_t audio = isEndKnown ? bytes.npos : FindIn(bytes.substr(0, found), sentinel);
    if (audio != bytes.npos) {
      end = std::min(end, EndOfChunkAround(at + static_cast<std::int64_t>(audio)));
      isEndKnown = true;
    }
    if (found != bytes.npos) {
      const std::int64_t behind = at + static_cast<std::int64_t>(found + marker.size());
      return behind <= end ? behind + 1 : 0;
    }
    at += std::ssize(bytes) - (std::ssize(marker) - 1);
    block = std::min(block * 4, BufferedFile::mostBlock);
  }
  return 0;
}

}  // namespace tallowbrook
