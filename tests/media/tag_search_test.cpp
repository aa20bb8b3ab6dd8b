// The search by blocks, held against the one by chunks that it stands for.
#include "media/tag_search.h"

#include <gtest/gtest.h>

#include <random>

#include "base/failure.h"
#include "base/text.h"
#include "fuzzing/memory_files.h"

namespace tallowbrook {
namespace {

std::int64_t Found(MemoryFiles& files, const std::string& bytes) {
  files.Put("f", bytes);
  const auto file = files.Open("f", FileAccess::Read, nullptr);
  BufferedFile reader(*file, "");
  return FindTagPosition(reader);
}

std::int64_t FoundByChunks(const std::string& bytes) {
  const auto size = std::ssize(bytes);
  std::ptrdiff_t scan = 1;
  for (bool isDone = false; !isDone; scan += 4093) {
    std::ptrdiff_t length = 4096;
    if (scan + 4096 >= size) {
      length = size - scan;
      isDone = true;
    }
    const auto chunk = std::string_view(bytes).substr(static_cast<std::size_t>(scan - 1),
                                                      static_cast<std::size_t>(length));
    const std::size_t place = chunk.find("ID3");
    if (place != chunk.npos) return static_cast<std::ptrdiff_t>(place) + 1 + scan + 2;
    isDone = isDone || chunk.find("\xFF\xFB") != chunk.npos;
  }
  return 0;
}

TEST(TagSearch, FindsWhatChunksFindInFilesOfManyPieces) {
  const auto pieces = Split("I ID ID3 IID \xFF \xFB \xFF\xFB \xFF\xFF 3", ' ');
  std::mt19937 chance(7);  // NOLINT: the same ones each time
  MemoryFiles files;
  for (int i = 0; i < 1500; ++i) {
    // Around borders of chunks and blocks, the whole one or two of them long.
    std::string bytes(chance() % 3 == 0 ? chance() % 9 : 4093 * (chance() % 8) + 4000, '.');
    for (unsigned n = chance() % 6; n > 0 && bytes.size() > 8; --n) {
      const std::size_t border = 4093 * (chance() % 9) + chance() % 7;
      const std::size_t at = chance() % 2 == 0 ? border : chance() % bytes.size();
      const std::string_view piece = pieces[chance() % pieces.size()];
      if (at < bytes.size()) bytes.replace(at, piece.size(), piece);
    }
    bytes.resize(bytes.size() + chance() % 200, 'x');
    if (bytes.empty()) continue;
    ASSERT_EQ(Found(files, bytes), FoundByChunks(bytes)) << i;
  }
  // A tag behind the chunk that holds the sentinel isn't looked for, and costs no second read.
  std::string bytes(20000, '.');
  bytes.replace(4095, 3, "ID3").replace(9000, 2, "\xFF\xFB");
  EXPECT_EQ(Found(files, bytes), 4099);
  files.reads = 0;
  EXPECT_EQ(Found(files, bytes.replace(100, 2, "\xFF\xFB")), 0);
  EXPECT_EQ(files.reads, 1);
  EXPECT_THROW(Found(files, ""), Failure);
}

}  // namespace
}  // namespace tallowbrook
