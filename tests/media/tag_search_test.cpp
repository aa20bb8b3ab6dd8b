// The search by blocks, held against the one by chunks that it stands for.
#include "media/tag_search.h"

#include <gtest/gtest.h>

#include <random>

#include "base/failure.h"
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

TEST(TagSearch, EndsWithTheFirstChunkThatHoldsTheSentinel) {
  const auto file = [](std::size_t tag, std::size_t audio, std::size_t size = 20000) {
    std::string bytes(size, '.');
    return bytes.replace(tag, 3, "ID3").replace(audio, 2, "\xFF\xFB").substr(0, size);
  };
  // clang-format off
  const std::tuple<std::string, std::int64_t, int> rows[] = {
      {"ID3.", 4, 1}, {"ID3", 0, 0}, {"x", 0, 0}, {".ID3", 0, 1},
      {file(0, 10000), 4, 1}, {file(4000, 5), 4004, 1}, {file(4093, 5), 4097, 1}, {file(4094, 5), 0, 1},
      {file(5000, 100), 0, 1}, {file(5000, 4500), 5004, 2}, {file(4095, 9000), 4099, 2},
      {file(8000, 4094), 0, 1}, {file(8000, 4095), 8004, 2}, {file(8186, 4095), 8190, 2},
      {file(8187, 4095), 0, 2},
      {file(300000, 299990, 400000), 300004, 4}, {file(0, 0), 0, 1},
  };
  // clang-format on
  int row = 0;
  for (const auto& [bytes, position, reads] : rows) {
    MemoryFiles files;
    EXPECT_EQ(Found(files, bytes), position) << row;
    EXPECT_EQ(FoundByChunks(bytes), position) << row;
    EXPECT_LE(files.reads, reads) << row;
    ++row;
  }
  MemoryFiles files;
  EXPECT_THROW(Found(files, ""), Failure);
}

TEST(TagSearch, FindsWhatChunksFindInFilesOfManyPieces) {
  const std::string pieces[] = {"I",    "ID",       "ID3",      "IID", "\xFF",
                                "\xFB", "\xFF\xFB", "\xFF\xFF", "3"};
  std::mt19937 chance(7);  // NOLINT: the same ones each time
  MemoryFiles files;
  for (int i = 0; i < 1500; ++i) {
    // Around borders of chunks and blocks, the whole one or two of them long.
    std::string bytes(chance() % 3 == 0 ? chance() % 9 : 4093 * (chance() % 8) + 4000, '.');
    for (unsigned n = chance() % 6; n > 0 && bytes.size() > 8; --n) {
      const std::size_t border = 4093 * (chance() % 9) + chance() % 7;
      const std::size_t at = chance() % 2 == 0 ? border : chance() % bytes.size();
      const std::string& piece = pieces[chance() % std::size(pieces)];
      if (at < bytes.size()) bytes.replace(at, piece.size(), piece);
    }
    bytes.resize(bytes.size() + chance() % 200, 'x');
    if (bytes.empty()) continue;
    ASSERT_EQ(Found(files, bytes), FoundByChunks(bytes)) << i;
  }
}

}  // namespace
}  // namespace tallowbrook
