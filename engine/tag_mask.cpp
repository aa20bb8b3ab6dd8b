#include "engine/tag_mask.h"

#include <span>
#include <unordered_map>

#include "base/guards.h"
#include "base/letter_case.h"
#include "base/text.h"
#include "engine/name_builder.h"

namespace tallowbrook {

template <typename Tag>
struct TagKeyword;

// A keyword of either tag.
struct TagFact {
  const TagKeyword<cMP3ID3v1>* v1 = nullptr;
  const TagKeyword<cMP3ID3v2>* v2 = nullptr;
};

// What stands for a keyword, and whether the file lacks it.
template <typename Tag>
struct TagKeyword {
  std::string_view keyword;
  std::string (*value)(const Tag&);
  bool (*isMissing)(const Tag&);
};

namespace {

constexpr std::string_view mp3Extension = ".mp3";

using V1 = cMP3ID3v1;
using V2 = cMP3ID3v2;

template <auto field>
std::string V1Text(const V1& tag) {
  return tag.*field;
}
template <auto field>
bool LacksV1Text(const V1& tag) {
  return (tag.*field).empty();
}
template <auto property>
std::string V2Text(const V2& tag) {
  return (tag.*property)();
}
template <auto property>
bool LacksV2Text(const V2& tag) {
  return (tag.*property)().empty();
}
template <typename Tag>
std::uint8_t GenreOf(const Tag& tag) {
  if constexpr (requires { tag.Genre(); }) {
    return tag.Genre();
  } else {
    return tag.Genre;
  }
}
template <typename Tag>
std::string GenreNumber(const Tag& tag) {
  return std::to_string(GenreOf(tag));
}
template <typename Tag>
std::string NameOfGenre(const Tag& tag) {
  return std::string(Tag::GenreName(GenreOf(tag)));
}
template <typename Tag>
bool LacksGenreName(const Tag& tag) {
  return NameOfGenre(tag).empty();
}

// In the order in which they are replaced. Genre 0 is a genre of version 1, but a missing one of
// version 2; a track is a number in the one and a text in the other. All that is wanted.
// clang-format off
constexpr TagKeyword<V1> v1Keywords[] = {
    {"<v1Album>", V1Text<&V1::Album>, LacksV1Text<&V1::Album>},
    {"<v1Artist>", V1Text<&V1::Artist>, LacksV1Text<&V1::Artist>},
    {"<v1Comment>", V1Text<&V1::Comment>, LacksV1Text<&V1::Comment>},
    {"<v1Genre>", GenreNumber<V1>, [](const V1&) { return false; }},
    {"<v1GenreName>", NameOfGenre<V1>, LacksGenreName<V1>},
    {"<v1Title>", V1Text<&V1::Title>, LacksV1Text<&V1::Title>},
    {"<v1Track>", [](const V1& tag) { return std::to_string(tag.Track); }, [](const V1& tag) { return tag.Track == 0; }},
    {"<v1Year>", V1Text<&V1::Year>, LacksV1Text<&V1::Year>},
};
constexpr TagKeyword<V2> v2Keywords[] = {
    {"<v2Album>", V2Text<&V2::Album>, LacksV2Text<&V2::Album>},
    {"<v2Artist>", V2Text<&V2::Artist>, LacksV2Text<&V2::Artist>},
    {"<v2Comment>", V2Text<&V2::Comment>, LacksV2Text<&V2::Comment>},
    {"<v2Composer>", V2Text<&V2::Composer>, LacksV2Text<&V2::Composer>},
    {"<v2Copyright>", V2Text<&V2::Copyright>, LacksV2Text<&V2::Copyright>},
    {"<v2EncodedBy>", V2Text<&V2::EncodedBy>, LacksV2Text<&V2::EncodedBy>},
    {"<v2Genre>", GenreNumber<V2>, [](const V2& tag) { return tag.Genre() == 0; }},
    {"<v2GenreName>", NameOfGenre<V2>, LacksGenreName<V2>},
    {"<v2LinkTo>", V2Text<&V2::LinkTo>, LacksV2Text<&V2::LinkTo>},
    {"<v2OriginalArtist>", V2Text<&V2::OriginalArtist>, LacksV2Text<&V2::OriginalArtist>},
    {"<v2Title>", V2Text<&V2::Title>, LacksV2Text<&V2::Title>},
    {"<v2Track>", V2Text<&V2::Track>, LacksV2Text<&V2::Track>},
    {"<v2Year>", V2Text<&V2::Year>, LacksV2Text<&V2::Year>},
};
// clang-format on

bool Holds(std::string_view text, std::string_view ascii) {
  return FindIgnoringCase(text, ascii) != std::string_view::npos;
}

// True if a field that the text asks for is missing.
template <typename Tag>
bool Fill(std::string& text, const Tag& tag, std::span<const TagKeyword<Tag>> keywords) {
  bool missing = false;
  for (const TagKeyword<Tag>& row : keywords) {
    missing = missing || (Holds(text, row.keyword) && row.isMissing(tag));
  }
  for (const TagKeyword<Tag>& row : keywords) {
    if (Holds(text, row.keyword)) FillIn(text, row.keyword, row.value(tag), true);
  }
  return missing;
}

// In whatever case.
const TagFact* FindKeyword(std::string_view keyword) {
  static const auto known = [] {
    std::unordered_map<std::string, TagFact> facts;
    for (const auto& row : v1Keywords) facts[ToLower(row.keyword)].v1 = &row;
    for (const auto& row : v2Keywords) facts[ToLower(row.keyword)].v2 = &row;
    return facts;
  }();
  const auto found = known.find(ToLower(keyword));
  return found != known.end() ? &found->second : nullptr;
}

bool IsMp3Name(std::string_view name) {
  return name.size() >= mp3Extension.size() &&
         EqualIgnoringCase(name.substr(name.size() - mp3Extension.size()), mp3Extension);
}

std::string Refusal(std::string_view reason) {
  return std::string(FailureMarker).append(reason);
}

}  // namespace

std::string TagMask::Compose(const std::string& mask, TagMaskRules rules,
                             std::string_view directory, std::string_view fileName) {
  if (!IsMp3Name(fileName)) return Refusal("Not an MP3 File");
  const std::string path = std::string(directory).append(fileName);
  const Wanted wanted{Holds(mask, "<v1"), Holds(mask, "<v2")};
  const std::unique_ptr<RandomAccessFile> file =
      wanted.v1 || wanted.v2 ? files_.Open(path, FileAccess::Read) : nullptr;
  if (wanted.v1) Attempt([&] { v1_.SetMP3File(path, file.get()); });
  if (wanted.v2) Attempt([&] { v2_.SetMP3File(path, file.get()); });
  bool missing = false;
  std::string text = FillTags(mask, wanted, missing);
  if (rules.allInfoPresent && (missing || Holds(text, "<v1") || Holds(text, "<v2"))) {
    text = Refusal("(missing information)");
  }
  if (rules.mp3Extension && !text.starts_with(FailureMarker) && !IsMp3Name(text)) {
    text += mp3Extension;
  }
  return text;
}

// `missing` tells whether a field that the mask asks for is.
std::string TagMask::FillTags(const std::string& mask, Wanted wanted, bool& missing) {
  const bool lacksV1 = wanted.v1 && !v1_.HasID3v1Tag();
  const bool lacksV2 = wanted.v2 && !v2_.HasID3v2Tag();
  if (!lacksV1 && !lacksV2) {
    auto filled = plain_.FillInAtOnce(mask, FindKeyword, [&](const TagFact& fact) {
      missing = missing || (fact.v1 ? fact.v1->isMissing(v1_) : fact.v2->isMissing(v2_));
      return fact.v1 ? fact.v1->value(v1_) : fact.v2->value(v2_);
    });
    if (filled) return *std::move(filled);
  }
  // What version 1 put in is searched for the keywords of version 2.
  std::string text = lacksV1 ? Refusal("ID3v1 tag not found") : mask;
  missing = wanted.v1 && !lacksV1 && Fill<V1>(text, v1_, v1Keywords);
  if (lacksV2) return Refusal("ID3v2 tag not found");
  if (wanted.v2) missing = Fill<V2>(text, v2_, v2Keywords) || missing;
  return text;
}

}  // namespace tallowbrook
