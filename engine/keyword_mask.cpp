#include "engine/keyword_mask.h"

#include <optional>
#include <unordered_map>

#include "base/decimal.h"
#include "base/guards.h"
#include "base/letter_case.h"
#include "base/text.h"
#include "engine/file_dates.h"
#include "engine/keywords.h"
#include "media/exif_reader.h"

namespace tallowbrook {
namespace {

enum class Fact { Folder, BaseName, FullName, Extension, Now, Created, Modified, Taken, Photo };
enum class Form { Plain, TwoDigits, LastTwoDigits };

}  // namespace

// What stands for a keyword.
struct FactKeyword {
  std::string_view keyword;
  Fact fact;
  int DateFields::*field = nullptr;  // of dates
  Form form = Form::Plain;
  std::int32_t tag = 0;  // of Photo
};

namespace {

// What the sample shows, which has no folder. It is no keyword.
constexpr std::string_view noFolder = "<foldername>";
// Of functions: what is ill-formed stays, and is found again and again until they are over.
constexpr int mostPasses = 26;

// In the order in which they are replaced; one line a keyword.
// clang-format off
constexpr FactKeyword factKeywords[] = {
    {"<folder>", Fact::Folder},
    {"<filename>", Fact::BaseName},
    {"<fullfilename>", Fact::FullName},
    {"<ext>", Fact::Extension},
    {"<d>", Fact::Now, &DateFields::day},
    {"<dd>", Fact::Now, &DateFields::day, Form::TwoDigits},
    {"<m>", Fact::Now, &DateFields::month},
    {"<mm>", Fact::Now, &DateFields::month, Form::TwoDigits},
    {"<yy>", Fact::Now, &DateFields::year, Form::LastTwoDigits},
    {"<yyyy>", Fact::Now, &DateFields::year},
    {"<fcd>", Fact::Created, &DateFields::day},
    {"<fcdd>", Fact::Created, &DateFields::day, Form::TwoDigits},
    {"<fcm>", Fact::Created, &DateFields::month},
    {"<fcmm>", Fact::Created, &DateFields::month, Form::TwoDigits},
    {"<fcyy>", Fact::Created, &DateFields::year, Form::LastTwoDigits},
    {"<fcyyyy>", Fact::Created, &DateFields::year},
    {"<fmd>", Fact::Modified, &DateFields::day},
    {"<fmdd>", Fact::Modified, &DateFields::day, Form::TwoDigits},
    {"<fmm>", Fact::Modified, &DateFields::month},
    {"<fmmm>", Fact::Modified, &DateFields::month, Form::TwoDigits},
    {"<fmyy>", Fact::Modified, &DateFields::year, Form::LastTwoDigits},
    {"<fmyyyy>", Fact::Modified, &DateFields::year},
    {"<exif_d>", Fact::Taken, &DateFields::day},
    {"<exif_dd>", Fact::Taken, &DateFields::day, Form::TwoDigits},
    {"<exif_m>", Fact::Taken, &DateFields::month},
    {"<exif_mm>", Fact::Taken, &DateFields::month, Form::TwoDigits},
    {"<exif_yy>", Fact::Taken, &DateFields::year, Form::LastTwoDigits},
    {"<exif_yyyy>", Fact::Taken, &DateFields::year},
    {"<exif_h>", Fact::Taken, &DateFields::hour},
    {"<exif_hh>", Fact::Taken, &DateFields::hour, Form::TwoDigits},
    {"<exif_M>", Fact::Taken, &DateFields::minute},
    {"<exif_MM>", Fact::Taken, &DateFields::minute, Form::TwoDigits},
    {"<exif_s>", Fact::Taken, &DateFields::second},
    {"<exif_ss>", Fact::Taken, &DateFields::second, Form::TwoDigits},
    {"<exif_width>", Fact::Photo, nullptr, Form::Plain, exif_tag::pixelXDimension},
    {"<exif_height>", Fact::Photo, nullptr, Form::Plain, exif_tag::pixelYDimension},
    {"<exif_xres>", Fact::Photo, nullptr, Form::Plain, exif_tag::xResolution},
    {"<exif_yres>", Fact::Photo, nullptr, Form::Plain, exif_tag::yResolution},
};
// clang-format on

const FactKeyword* FindKeyword(std::string_view keyword) {
  static const auto known = [] {
    std::unordered_map<std::string_view, const FactKeyword*> rows;
    for (const FactKeyword& row : factKeywords) rows.emplace(row.keyword, &row);
    return rows;
  }();
  const auto found = known.find(keyword);
  return found != known.end() ? found->second : nullptr;
}

bool IsPhotoName(std::string_view extension) {
  const std::string upper = ToUpper(extension);
  return upper == "JPG" || upper == "JPEG";
}

bool Holds(std::string_view mask, std::string_view text) {
  return mask.find(text) != std::string_view::npos;
}

void Replace(std::string& mask, std::string_view keyword, std::string_view value) {
  FillIn(mask, keyword, value, false);
}

std::string Shown(int value, Form form) {
  if (form == Form::LastTwoDigits) value %= 100;
  return (form != Form::Plain && value < 10 ? "0" : "") + std::to_string(value);
}

// The facts of one file, each read when it is first asked for.
class FileFactsOnDemand {
 public:
  struct Names {
    std::string_view base, full, folder, extension;
  };
  FileFactsOnDemand(Files& files, Clock& clock, const Names& names)
      : files_(files), clock_(clock), names_(names), isPhoto_(IsPhotoName(names.extension)) {}

  bool IsPhoto() const { return isPhoto_; }
  // A photo without a date shows the fields of the zero date; other facts that it lacks are empty,
  // and all of them for what is no photo.
  std::string ValueOf(const FactKeyword& row);
  void ReadPhoto();

 private:
  DateFields FieldsFor(Fact fact);
  void ReadFile();
  std::string Path() const { return std::string(names_.folder).append(names_.full); }

  Files& files_;
  Clock& clock_;
  Names names_;
  bool isPhoto_;
  std::optional<DateFields> created_, modified_, taken_;
  std::optional<ExifReader> exif_;
};

std::string FileFactsOnDemand::ValueOf(const FactKeyword& row) {
  switch (row.fact) {
    case Fact::Folder:
      return std::string(LastFolderName(names_.folder));
    case Fact::BaseName:
      return std::string(names_.base);
    case Fact::FullName:
      return std::string(names_.full);
    case Fact::Extension:
      return std::string(names_.extension);
    case Fact::Photo: {
      if (!isPhoto_) return {};
      ReadPhoto();
      std::string value = ExifText(exif_->Tag(row.tag));
      const bool isRational = row.tag == exif_tag::xResolution || row.tag == exif_tag::yResolution;
      if (isRational) FillIn(value, "/1", {}, false);
      return value;
    }
    case Fact::Taken:
      if (!isPhoto_) return {};
      break;
    default:
      break;
  }
  return Shown(FieldsFor(row.fact).*row.field, row.form);
}

// The clock is looked at anew for each keyword of the present date.
DateFields FileFactsOnDemand::FieldsFor(Fact fact) {
  if (fact == Fact::Now) return FieldsOf(clock_.Now());
  if (fact == Fact::Taken) {
    ReadPhoto();
    return *taken_;
  }
  ReadFile();
  return fact == Fact::Created ? *created_ : *modified_;
}

// The date of creation is in universal time, that of modification in local time. A date that can't
// be had is the one before it: the other one, or the present.
void FileFactsOnDemand::ReadFile() {
  if (created_) return;
  const std::optional<FileFacts> facts = files_.Facts(Path());
  const Date created = GetFileCreated(facts).value_or(clock_.Now());
  created_ = FieldsOf(created);
  modified_ = FieldsOf(facts ? clock_.Local(facts->modified) : created);
}

void FileFactsOnDemand::ReadPhoto() {
  if (exif_) return;
  exif_.emplace(files_);
  Attempt([this] { exif_->Load(Path()); });
  taken_ = FieldsOf(ParseExifDate(ExifText(exif_->Tag(exif_tag::dateTimeOriginal))));
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

std::string KeywordMask::ExpandKeywords(const std::string& wholeMask, std::string_view baseName,
                                        std::string_view fullName, std::string_view folder,
                                        std::string_view extension) {
  if (folder.empty()) folder = noFolder;
  FileFactsOnDemand facts(files_, clock_, {baseName, fullName, folder, extension});
  const auto valueOf = [&](const FactKeyword& row) { return facts.ValueOf(row); };
  if (auto filled = plain_.FillInAtOnce(wholeMask, FindKeyword, valueOf)) return *std::move(filled);
  std::string mask = wholeMask;
  for (const FactKeyword& row : factKeywords) {
    const bool isOfPhotos = row.fact == Fact::Taken || row.fact == Fact::Photo;
    if (isOfPhotos && !facts.IsPhoto()) break;
    if (isOfPhotos && Holds(mask, "<exif_")) facts.ReadPhoto();
    if (Holds(mask, row.keyword)) Replace(mask, row.keyword, facts.ValueOf(row));
  }
  ExpandCuts(mask, "<left,", [&](std::int32_t n) { return *LeftCharacters(baseName, n); });
  ExpandCuts(mask, "<right,", [&](std::int32_t n) { return *RightCharacters(baseName, n); });
  ExpandMiddles(mask, baseName);
  if (!Holds(mask, "<")) return mask;
  // What nothing was put in for: photos' facts of other files, functions left as they were
  // inserted.
  for (const Keyword& row : AdvancedKeywords()) Replace(mask, row.keyword, {});
  return mask;
}

}  // namespace tallowbrook
