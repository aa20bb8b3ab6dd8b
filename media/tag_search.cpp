// The search goes by chunks of 4096 bytes, one every 4093, and the first chunk that holds the
// sentinel, which is how audio begins, is the last to be searched: "ID3" counts in all of it. The
// last byte of the file is in no chunk. Where the search ends is all that chunks decide, so that
// the file can be read in blocks of any size.
#include "media/tag_search.h"

#include <algorithm>
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

// Whether a marker or a sentinel begins in the next `stride` bytes: without a branch, so that the
// compiler looks at many of them at a time.
constexpr std::size_t stride = 256;

bool IsHit(const char* bytes) {
  unsigned char hits = 0;
  for (std::size_t i = 0; i < stride; ++i) {
    const char* at = bytes + i;
    const unsigned char notMarker = (at[0] ^ marker[0]) | (at[1] ^ marker[1]) | (at[2] ^ marker[2]);
    const unsigned char notSentinel = (at[0] ^ sentinel[0]) | (at[1] ^ sentinel[1]);
    hits |= notMarker == 0 || notSentinel == 0;
  }
  return hits != 0;
}

// A place before which neither of them begins.
std::size_t SkipMisses(std::string_view bytes) {
  std::size_t at = 0;
  while (at + stride + marker.size() <= bytes.size() && !IsHit(bytes.data() + at)) at += stride;
  return at;
}

}  // namespace

std::int64_t FindTagPosition(BufferedFile& file) {
  if (file.Size() == 0) Raise(failureInvalidArgument, "cMP3ID3v2");
  std::int64_t end = file.Size() - 1;
  std::int64_t at = 0, block = BufferedFile::leastBlock;
  bool isEndKnown = false;
  while (at + std::ssize(marker) <= end) {
    const std::string_view bytes = file.Bytes(at, std::min(block, end - at));
    if (bytes.size() < marker.size()) break;
    const std::size_t from = SkipMisses(bytes);
    const std::size_t found = bytes.find(marker, from);
    const std::size_t audio = isEndKnown ? bytes.npos : bytes.substr(0, found).find(sentinel, from);
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
