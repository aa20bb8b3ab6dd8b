// Which stretches of a mask are coloured, and when.
#include "engine/mask_highlighting.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "tests/support/engine_fixture.h"

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
      {tags, "", ""},
      {tags, "plain <unknown> text", "plain <unknown> text"},
      {tags, "<v1artist> - <v1artist>", "########## - <v1artist>"},
      {tags, "<V1ARTIST> <v2Genre><v2GenreName>", "########## ######################"},
      {tags, "<filename>", "<filename>"},
      {other, "<FILENAME>.<ext>", "##########.#####"},
      {other, "<v1Title>", "<v1Title>"},
      {other, "<exif_m> <exif_M>", "######## <exif_M>"},  // alike but for case: the first one twice
      {other, "a<left,3>b", "a########b"},
      {other, "<left,3> <left,4>", "######## <left,4>"},
      {other, "<left,3", "<left,3"},
      {other, "><LEFT,<d>>", ">#########>"},  // to the first bracket
      {other, "<mid,1,2> <Right,>", "######### ########"},
      {other, "<left>", "<left>"},
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

class MaskKeysTest : public EngineTest {
 protected:
  std::string Shown(const MaskText& mask) { return Coloured(mask.Value(), mask.Keywords()); }
  MaskText& tags = settings.RTxt_ID3Name;
  MaskText& other = settings.RTxt_Unique_Other;
};

TEST_F(MaskKeysTest, ATextThatWasSetIsColouredAndLeavesTheCaretOfThePickerAlone) {
  pages.KeywordCaret = 7;
  Set("RTxt_ID3Name=<v1Title>x|RTxt_Unique_Other=<d>x");
  EXPECT_EQ(Shown(tags) + Shown(other), "#########x###x");
  other.Select(0, 2);
  other.Set("x<dd>");
  EXPECT_EQ(Shown(other), "x####") << "the selection went with the old text";
  EXPECT_EQ(pages.KeywordCaret, 7U);
}

TEST_F(MaskKeysTest, AKeyColoursUnlessSomethingIsSelectedAndNotesTheCaret) {
  Set("TabIndex=3|RTxt_ID3Name=<v1Title>|RTxt_Unique_Other=<d>");
  for (MaskText* mask : {&tags, &other}) {
    for (const std::size_t selected : {2U, 0U}) {
      mask->SetKeywords({});
      mask->Select(1, selected);
      mask->keyReleased(false);
      EXPECT_EQ(mask->Keywords().size(), selected ? 0U : 1U);
      EXPECT_EQ(pages.KeywordCaret, 1U);
    }
    pages.KeywordCaret = 0;
  }
}

TEST_F(MaskKeysTest, AnyKeyRefreshesTheSampleInTheOtherMaskAndEnterPreviewsNothingThere) {
  List({"a"});
  Set("RTxt_Unique_Other=x");
  pages.Label_SampleFileName.SetCaption("");
  other.keyReleased(true);
  EXPECT_EQ(NewNames()[0], "");
  EXPECT_NE(pages.Label_SampleFileName.Caption(), "");
}

}  // namespace
}  // namespace tallowbrook
