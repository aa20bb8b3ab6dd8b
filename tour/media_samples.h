// Songs and pictures that know something of themselves. Their tags are written by public tools, so
// that the tour shows the program at what others write.
#pragma once

#include <string>

namespace tallowbrook {

// Ten MP3 files "track01.mp3" and so on, with both tags. Each throws std::runtime_error if a tool
// is missing or fails.
void MakeSongs(const std::string& folder);
// Three JPEG files "DSC_0001.JPG" and so on, with dates and sizes.
void MakePictures(const std::string& folder);
// A folder of drawn pictures, upright and wide, of several kinds, and one file that is none.
// Returns how many pictures there are.
std::size_t MakeGallery(const std::string& folder);
// What the public tool reads in the tags of a file.
std::string TagsByTool(const std::string& path);

}  // namespace tallowbrook
