// Photos of both byte orders, and every format in every place; heads with small pictures.
#include "fuzzing/seeds.h"
#include "tests/support/jpeg_bytes.h"

namespace tallowbrook {

namespace {

// Each format twice: a value in its entry, and one behind the directory.
std::string EveryFormat(ByteOrder order) {
  ExifEntries entries;
  for (std::uint32_t format = 0; format <= 13; ++format) {
    entries.push_back({format, format, 1, "abcd"});
    entries.push_back({100 + format, format, 9, "123456789 and more"});
  }
  entries.push_back({37500, 7, 6, "maker's"});
  return Photo(order, entries, entries);
}

// A directory whose next one is itself, or a pointer that leads back.
std::string Ring(std::uint32_t next) {
  return Jpeg(ByteOrder::Big,
              Directory(ByteOrder::Big, {{34665, 4, 1, Bytes(ByteOrder::Big, 8, 4)}}, 8, next));
}

}  // namespace

Seeds ExifSeeds() {
  Seeds seeds = {"", "\xFF\xD8", Ring(8), Ring(0), PhotoTakenAt("2011:07:08 09:10:11")};
  for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
    seeds.push_back(PhotoTakenAt("2024:02:29 23:59:59", order));
    seeds.push_back(EveryFormat(order));
  }
  AddDisturbed(seeds);
  return seeds;
}

Seeds ExifThumbnailSeeds() {
  Seeds seeds = {"\xFF\xD8\xFF", JpegFrame(0xC2, 640, 480)};
  const std::string small = "\xFF\xD8" + JpegFrame(0xC0, 160, 120);
  for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
    seeds.push_back(PhotoWithThumbnail(order, 6, small) + JpegFrame(0xC0, 4000, 3000));
    seeds.push_back(EveryFormat(order) + JpegFrame(0xC0, 4000, 3000));
  }
  AddDisturbed(seeds);
  return seeds;
}

}  // namespace tallowbrook
