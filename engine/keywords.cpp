#include "engine/keywords.h"

namespace tallowbrook {

namespace {

// The month of modification has an "m" more than that of creation: "<fmm>" beside "<fcm>".
// clang-format off
constexpr Keyword advancedKeywords[] = {
    {"<folder>", "Folder Name"},
    {"<d>", "Today's day"},
    {"<dd>", "Today's day in DD format"},
    {"<m>", "Today's month"},
    {"<mm>", "Today's month in MM format"},
    {"<yy>", "Current year in YY format"},
    {"<yyyy>", "Current year in YYYY format"},
    {"<fcd>", "File created day"},
    {"<fcdd>", "File created day in DD format"},
    {"<fcm>", "File created month"},
    {"<fcmm>", "File created month in MM format"},
    {"<fcyy>", "File created year"},
    {"<fcyyyy>", "File created year in YYYY format"},
    {"<fmd>", "File modified day"},
    {"<fmdd>", "File modified day in DD format"},
    {"<fmm>", "File modified month"},
    {"<fmmm>", "File modified month in MM format"},
    {"<fmyy>", "File modified year"},
    {"<fmyyyy>", "File modified year in YYYY format"},
    {"<filename>", "File name (without extension)"},
    {"<fullfilename>", "Full filename (with extension)"},
    {"<ext>", "Filename extension"},
    {"<mid,?,?>", "Mid function (start, length)"},
    {"<left,?>", "Left function, (number of characters)"},
    {"<right,?>", "Right function, (number of characters)"},
    {"<exif_d>", "Created day pulled from the EXIF information"},
    {"<exif_dd>", "Created day from EXIF in DD format"},
    {"<exif_m>", "Create month from EXIF"},
    {"<exif_mm>", "Created month from EXIF in MM format"},
    {"<exif_yy>", "Created year from EXIF"},
    {"<exif_yyyy>", "Created year from EXIF in YYYY format"},
    {"<exif_M>", "Created minute from EXIF"},
    {"<exif_MM>", "Created minute from EXIF in MM format"},
    {"<exif_h>", "Created hour from EXIF"},
    {"<exif_hh>", "Created hour from EXIF in HH format"},
    {"<exif_s>", "Created second from EXIF"},
    {"<exif_ss>", "Created second from EXIF in SS format"},
    {"<exif_width>", "Image width from EXIF"},
    {"<exif_height>", "Image height from EXIF"},
    {"<exif_xres>", "Horizontal resolution from EXIF"},
    {"<exif_yres>", "Vertical resolution from EXIF"},
};

constexpr Keyword tagKeywords[] = {
    {"<v1Album>", ""}, {"<v1Artist>", ""}, {"<v1Comment>", ""}, {"<v1Genre>", ""},
    {"<v1GenreName>", ""}, {"<v1Title>", ""}, {"<v1Track>", ""}, {"<v1Year>", ""},
    {"<v2Album>", ""}, {"<v2Artist>", ""}, {"<v2Comment>", ""}, {"<v2Composer>", ""},
    {"<v2Copyright>", ""}, {"<v2EncodedBy>", ""}, {"<v2Genre>", ""}, {"<v2GenreName>", ""},
    {"<v2LinkTo>", ""}, {"<v2OriginalArtist>", ""}, {"<v2Title>", ""}, {"<v2Track>", ""},
    {"<v2Year>", ""},
};
// clang-format on

static_assert(std::size(advancedKeywords) == 41 && std::size(tagKeywords) == 8 + 13);

}  // namespace

std::span<const Keyword> AdvancedKeywords() {
  return advancedKeywords;
}

std::span<const Keyword> TagKeywords() {
  return tagKeywords;
}

}  // namespace tallowbrook
