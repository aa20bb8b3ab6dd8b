#include "engine/keyword_mask.h"

#include <span>

#include "base/decimal.h"
#include "base/guards.h"
#include "base/letter_case.h"
#include "base/text.h"
#include "engine/file_dates.h"
#include "engine/fill_in.h"
#include "engine/keywords.h"
#include "media/exif_reader.h"

namespace tallowbrook {
namespace {

// What the sample shows, which has no folder. It is no keyword.
constexpr std::string_view noFolder = "<foldername>";
// Of functions: what is ill-formed stays, and is found again and again until they are over.
constexpr int mostPasses = 26;

enum class Form { Plain, TwoDigits, LastTwoDigits };
struct DateKeyword {
  std::string_view keyword;
  int DateFields::*field;
  Form form;
};
// One line a keyword.
// clang-format off
constexpr DateKeyword presentDate[] = {
    {"<d>", &DateFields::day, Form::Plain},
    {"<dd>", &DateFields::day, Form::TwoDigits},
    {"<m>", &DateFields::month, Form::Plain},
    {"<mm>", &DateFields::month, Form::TwoDigits},
    {"<yy>", &DateFields::year, Form::LastTwoDigits},
    {"<yyyy>", &DateFields::year, Form::Plain},
};
constexpr DateKeyword createdDate[] = {
    {"<fcd>", &DateFields::day, Form::Plain},
    {"<fcdd>", &DateFields::day, Form::TwoDigits},
    {"<fcm>", &DateFields::month, Form::Plain},
    {"<fcmm>", &DateFields::month, Form::TwoDigits},
    {"<fcyy>", &DateFields::year, Form::LastTwoDigits},
    {"<fcyyyy>", &DateFields::year, Form::Plain},
};
constexpr DateKeyword modifiedDate[] = {
    {"<fmd>", &DateFields::day, Form::Plain},
    {"<fmdd>", &DateFields::day, Form::TwoDigits},
    {"<fmm>", &DateFields::month, Form::Plain},
    {"<fmmm>", &DateFields::month, Form::TwoDigits},
    {"<fmyy>", &DateFields::year, Form::LastTwoDigits},
    {"<fmyyyy>", &DateFields::year, Form::Plain},
};
constexpr DateKeyword exifDate[] = {
    {"<exif_d>", &DateFields::day, Form::Plain},
    {"<exif_dd>", &DateFields::day, Form::TwoDigits},
    {"<exif_m>", &DateFields::month, Form::Plain},
    {"<exif_mm>", &DateFields::month, Form::TwoDigits},
    {"<exif_yy>", &DateFields::year, Form::LastTwoDigits},
    {"<exif_yyyy>", &DateFields::year, Form::Plain},
    {"<exif_h>", &DateFields::hour, Form::Plain},
    {"<exif_hh>", &DateFields::hour, Form::TwoDigits},
    {"<exif_M>", &DateFields::minute, Form::Plain},
    {"<exif_MM>", &DateFields::minute, Form::TwoDigits},
    {"<exif_s>", &DateFields::second, Form::Plain},
    {"<exif_ss>", &DateFields::second, Form::TwoDigits},
};
// clang-format on

struct ExifKeyword {
  std::string_view keyword;
  std::int32_t tag;
  bool isRational;  // loses every "/1"
};
constexpr ExifKeyword exifValues[] = {
    {"<exif_width>", exif_tag::pixelXDimension, false},
    {"<exif_height>", exif_tag::pixelYDimension, false},
    {"<exif_xres>", exif_tag::xResolution, true},
    {"<exif_yres>", exif_tag::yResolution, true},
};

bool Holds(std::string_view mask, std::string_view text) {
  return mask.find(text) != std::string_view::npos;
}

void Replace(std::string& mask, std::string_view keyword, std::string_view value) {
  FillIn(mask, keyword, value, false);
}

bool HoldsAny(std::string_view mask, std::span<const DateKeyword> keywords) {
  for (const DateKeyword& row : keywords) {
    if (Holds(mask, row.keyword)) return true;
  }
  return false;
}

std::string Shown(int value, Form form) {
  if (form == Form::LastTwoDigits) value %= 100;
  return (form != Form::Plain && value < 10 ? "0" : "") + std::to_string(value);
}

void ReplaceDate(std::string& mask, std::span<const DateKeyword> keywords, Date date) {
  const DateFields fields = FieldsOf(date);
  for (const DateKeyword& row : keywords) {
    Replace(mask, row.keyword, Shown(fields.*row.field, row.form));
  }
}

// A number that can't be read leaves the one of the pass before: the length of the last good token,
// or none.
template <typename Cut>
void ExpandCuts(std::string& mask, std::string_view keyword, Cut cut) {
  std::int32_t length = 0;
  for (int pass = 0; pass < mostPasses; ++pass) {
    const std::optional<std::string> token = GetKeywordArgument(keyword, mask, 0);
    if (!token) return;
    length = WholeNumber(*GetKeywordArgument(keyword, mask, 1)).value_or(length);
    if (length > 0) Replace(mask, *token, cut(length));
  }
}

std::optional<std::string> Middle(std::string_view text, const std::string& start,
                                  const std::string& length) {
  const std::optional<std::int32_t> from = WholeNumber(start);
  const std::optional<std::int32_t> count = WholeNumber(length);
  if (!from || !count || *from < 1) return std::nullopt;
  text.remove_prefix(LeftCharacters(text, *from - 1)->size());
  const auto middle = LeftCharacters(text, *count);
  return middle ? std::optional(std::string(*middle)) : std::nullopt;
}

void ExpandMiddles(std::string& mask, std::string_view baseName) {
  constexpr std::string_view keyword = "<mid,";
  for (int pass = 0; pass < mostPasses; ++pass) {
    const std::optional<std::string> token = GetKeywordArgument(keyword, mask, 0);
    const std::optional<std::string> start = GetKeywordArgument(keyword, mask, 1);
    const std::optional<std::string> length = GetKeywordArgument(keyword, mask, 2);
    // Nothing that follows would change the outcome.
    if (!token || !length) return;
    const std::optional<std::string> middle = Middle(baseName, *start, *length);
    if (!middle) return;
    Replace(mask, *token, *middle);
  }
}

}  // namespace

std::string_view LastFolderName(std::string_view folder) {
  if (folder.ends_with('/')) folder.remove_suffix(1);
  return folder.substr(folder.rfind('/') + 1);
}

std::string KeywordMask::ExpandKeywords(std::string mask, std::string_view baseName,
                                        std::string_view fullName, std::string_view folder,
                                        std::string_view extension) {
  if (folder.empty()) folder = noFolder;
  const std::string path = std::string(folder).append(fullName);
  Replace(mask, "<folder>", LastFolderName(folder));
  Replace(mask, "<filename>", baseName);
  Replace(mask, "<fullfilename>", fullName);
  Replace(mask, "<ext>", extension);
  ExpandPresentDate(mask);
  ExpandFileDates(mask, path);
  const std::string upper = ToUpper(extension);
  if (upper == "JPG" || upper == "JPEG") ExpandExif(mask, path);
  ExpandCuts(mask, "<left,", [&](std::int32_t n) { return *LeftCharacters(baseName, n); });
  ExpandCuts(mask, "<right,", [&](std::int32_t n) { return *RightCharacters(baseName, n); });
  ExpandMiddles(mask, baseName);
  if (!Holds(mask, "<")) return mask;
  // What nothing was put in for: photos' facts of other files, functions left as they were
  // inserted.
  for (const Keyword& row : AdvancedKeywords()) Replace(mask, row.keyword, {});
  return mask;
}

// The clock is looked at anew for each.
void KeywordMask::ExpandPresentDate(std::string& mask) {
  for (const DateKeyword& row : presentDate) {
    if (Holds(mask, row.keyword)) ReplaceDate(mask, {&row, 1}, clock_.Now());
  }
}

// The date of creation is in universal time, that of modification in local time. A date that can't
// be had is the one before it: the other one, or the present.
void KeywordMask::ExpandFileDates(std::string& mask, const std::string& path) {
  if (!HoldsAny(mask, createdDate) && !HoldsAny(mask, modifiedDate)) return;
  const std::optional<FileFacts> facts = files_.Facts(path);
  Date date = GetFileCreated(facts).value_or(clock_.Now());
  ReplaceDate(mask, createdDate, date);
  if (facts) date = clock_.Local(facts->modified);
  ReplaceDate(mask, modifiedDate, date);
}

// A photo without a date shows the fields of the zero date; other facts that it lacks are empty.
void KeywordMask::ExpandExif(std::string& mask, const std::string& path) {
  if (!Holds(mask, "<exif_")) return;
  ExifReader exif(files_);
  Attempt([&] { exif.Load(path); });
  const std::string taken = ExifText(exif.Tag(exif_tag::dateTimeOriginal));
  ReplaceDate(mask, exifDate, ParseExifDate(taken));
  for (const ExifKeyword& row : exifValues) {
    std::string value = ExifText(exif.Tag(row.tag));
    if (row.isRational) Replace(value, "/1", {});
    Replace(mask, row.keyword, value);
  }
}

}  // namespace tallowbrook
