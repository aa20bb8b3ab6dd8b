// Which stretches of a mask are coloured, and when.
#include "engine/mask_highlighting.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"

namespace tallowbrook {
namespace {

// The coloured characters of a mask become "#".
std::string Coloured(const std::string& mask, const std::vector<ColourSpan>& spans) {
  std::string shown;
  std::size_t place = 0;
  for (std::string_view rest = mask; !rest.empty(); ++place) {
    const unsigned length = FirstCharacter(rest).length;
    const bool isIn = std::ranges::any_of(spans, [&](const ColourSpan& span) {
      return place >= span.start && place < span.start + span.length;
    });
    isIn ? shown += '#' : shown.append(rest, 0, length);
    rest.remove_prefix(length);
  }
  return shown;
}

TEST(MaskHighlighting, ColoursTheFirstPlaceOfEachKeyword) {
  const auto tags = TagKeywords();
  const auto other = AdvancedKeywords();
  // clang-format off
  const std::tuple<std::span<const Keyword>, std::string, std::string> rows[] = {
      {tags, "", ""}, {tags, "<v1artist> - <v1artist>", "########## - <v1artist>"},
      {tags, "<V1ARTIST> <v2Genre><v2GenreName>", "########## ######################"},
      {tags, "<filename>", "<filename>"}, {other, "<FILENAME>.<v1Title>", "##########.<v1Title>"},
      {other, "<exif_m> <exif_M>", "######## <exif_M>"},  // alike but for case: the first one twice
      {other, "a<left,3>b <left,4>", "a########b <left,4>"}, {other, "<left,3", "<left,3"},
      {other, "><LEFT,<d>>", ">#########>"},  // to the first bracket
      {other, "<mid,1,2> <Right,> <left>", "######### ######## <left>"},
      {other, "\xFF\xC3\xA9\xF0\x9F\x98\x80<d>\xC3\xA9", "\xFF\xC3\xA9\xF0\x9F\x98\x80###\xC3\xA9"},
  };
  // clang-format on
  for (const auto& [table, mask, coloured] : rows) {
    EXPECT_EQ(Coloured(mask, FindKeywords(mask, table)), coloured);
  }
}

TEST(MaskHighlighting, LongMasksOfNothingButBracketsComeBack) {
  std::string mask;
  for (int i = 0; i < 5000; ++i) mask += "<left,<mid,";
  EXPECT_TRUE(FindKeywords(mask, AdvancedKeywords()).empty());
  EXPECT_EQ(FindKeywords(mask + ">", AdvancedKeywords()).size(), 2U);
}

}  // namespace
}  // namespace tallowbrook
