// id3genre.cfg: any bytes as the genres that the tag editor offers.
//
// Aborts if anything is thrown that isn't told, if the file changes, or if lists that were read
// don't come back from a file of the same entries.
#include "media/genres.h"

#include <cstdint>

#include "fuzzing/memory_files.h"
#include "fuzzing/require.h"
#include "media/file_failure.h"

namespace {

using namespace tallowbrook;

std::string Section(const std::vector<std::string>& names, const std::vector<std::int16_t>& ids) {
  Require(names.size() == ids.size() && !names.empty() && names[0].empty() && ids[0] == 0);
  std::string text;
  for (std::size_t i = 1; i < names.size(); ++i) {
    Require(names[i].find_first_of(",~") == std::string::npos);
    Require(names[i].find("\r\n") == std::string::npos);
    text += std::to_string(ids[i]) + "," + names[i] + "\r\n";
  }
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  MemoryFiles disk;
  disk.Put("/d/id3genre.cfg", bytes);
  GenreLists read, again;
  const std::uint32_t number = NumberOf([&] { read.LoadGenreLists(disk, "/d/"); });
  Require(number == 0 || number == failureSubscript || number == failureOverflow);
  Require(*disk.files["/d/id3genre.cfg"] == bytes && disk.files.size() == 1);
  const std::string written = Section(read.GenreNamesV1, read.GenreIdsV1) + "~\r\n" +
                              Section(read.GenreNamesV2, read.GenreIdsV2);
  if (number != 0) return 0;
  disk.Put("/d/id3genre.cfg", written);
  again.LoadGenreLists(disk, "/d");
  Require(again.GenreNamesV1 == read.GenreNamesV1 && again.GenreIdsV1 == read.GenreIdsV1);
  Require(again.GenreNamesV2 == read.GenreNamesV2 && again.GenreIdsV2 == read.GenreIdsV2);
  return 0;
}
