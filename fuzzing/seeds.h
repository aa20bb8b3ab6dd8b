// The inputs that fuzzing starts from, made for each kind of file.
#pragma once

#include <string>
#include <vector>

namespace tallowbrook {

using Seeds = std::vector<std::string>;

// Adds each seed cut at some places, and with some bytes replaced.
void AddDisturbed(Seeds& seeds);

Seeds ExifSeeds();
Seeds ExifThumbnailSeeds();
Seeds LogSeeds();
Seeds ProfileSeeds();
Seeds ConfigurationSeeds();
Seeds TipSeeds();
Seeds Id3v1Seeds();
Seeds Id3v2Seeds();
Seeds GenreSeeds();
Seeds MaskSeeds();
Seeds FindReplaceSeeds();
Seeds DateSeeds();
Seeds WildcardSeeds();
Seeds PngSeeds();
Seeds IconSeeds();

}  // namespace tallowbrook
