// Writes the seeds that fuzzing starts from: make_seeds FOLDER makes a folder a target in it.
#include <filesystem>
#include <fstream>

#include "fuzzing/seeds.h"

namespace {

using namespace tallowbrook;

struct Target {
  const char* name;
  Seeds (*seeds)();
};

// clang-format off
constexpr Target targets[] = {
    {"exif", ExifSeeds},
    {"exif_thumbnail", ExifThumbnailSeeds},
    {"log", LogSeeds},
    {"profiles", ProfileSeeds},
    {"configuration", ConfigurationSeeds},
    {"tips", TipSeeds},
    {"id3v1", Id3v1Seeds},
    {"id3v2_read", Id3v2Seeds},
    {"id3v2_write", Id3v2Seeds},
    {"genres", GenreSeeds},
    {"masks", MaskSeeds},
    {"find_replace", FindReplaceSeeds},
    {"dates", DateSeeds},
    {"wildcard", WildcardSeeds},
    {"png_chunks", PngSeeds},
    {"icon_directory", IconSeeds},
};
// clang-format on

void Save(const std::filesystem::path& folder, const Seeds& seeds) {
  std::filesystem::create_directories(folder);
  for (std::size_t i = 0; i < seeds.size(); ++i) {
    std::ofstream(folder / std::to_string(i), std::ios::binary) << seeds[i];
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 1;
  const std::filesystem::path folder = argv[1];
  for (const Target& target : targets) Save(folder / target.name, target.seeds());
}
