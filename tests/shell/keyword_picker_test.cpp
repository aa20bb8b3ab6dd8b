// The picker between its lists and the two masks.
#include "shell/keyword_picker.h"

#include <gtest/gtest.h>

#include "tests/support/test_world.h"

namespace tallowbrook {
namespace {

class KeywordPickerTest : public testing::Test, protected TestWorld {
 protected:
  KeywordPickerTest() {
    form.showKeywordPicker = [](KeywordPicker&) {};
  }
  void Press(std::string_view name) { dynamic_cast<Button&>(*form.screen.Find(name)).Press(); }
  // Picks a keyword of the list in use and presses Insert.
  void Insert(int row) {
    (picker.KeywordTarget == 1 ? picker.List1 : picker.ListView1).Select(row);
    picker.Cmd_Insert.Press();
  }

  FakeEvents events;
  Form1 form{With(events)};
  KeywordPicker& picker = form.picker;
  MaskText& tags = form.settings.RTxt_ID3Name;
  MaskText& other = form.settings.RTxt_Unique_Other;
};

// Twice in a row, so that the second shows where the first left the caret.
TEST_F(KeywordPickerTest, KeywordsGoToTheCaretAndOneBehindTheOther) {
  // clang-format off
  const std::tuple<std::string, std::size_t, std::string> rows[] = {
      {"", 0, "<d><d>"}, {"ab", 0, "<d><d>ab"}, {"ab", 1, "a<d><d>b"}, {"ab", 2, "ab<d><d>"},
      {"ab", 9, "ab<d><d>"}, {"\xFF\xC3\xA9\xF0\x9F\x98\x80", 2, "\xFF\xC3\xA9<d><d>\xF0\x9F\x98\x80"}};
  // clang-format on
  for (const auto& [mask, caret, result] : rows) {
    other.Set(mask);
    picker.Open(2);
    form.pages.KeywordCaret = caret;
    Insert(1);
    picker.Cmd_Insert.Press();
    EXPECT_EQ(other.Value(), result);
    EXPECT_EQ(form.pages.KeywordCaret, result.find("<d><d>") + 6 - (mask.size() > 2 ? 1 : 0));
    EXPECT_EQ(other.SelStart(), form.pages.KeywordCaret);
    EXPECT_EQ(other.Keywords().size(), 1U);
  }
  EXPECT_EQ(tags.Value(), "");
}

TEST_F(KeywordPickerTest, WhileItIsOpenTheCaretOfItsMaskLeads) {
  tags.Set("ab");
  other.Set("123");
  tags.Select(2, 0);
  picker.Open(1);
  EXPECT_EQ(form.pages.KeywordCaret, 2U);
  other.Select(3, 0);
  tags.Select(1, 0);
  Insert(0);
  EXPECT_EQ(tags.Value(), "a<v1Album>b");
  tags.Type("pasted a<v1Album>b", 7);
  EXPECT_EQ(form.pages.KeywordCaret, 7U) << "without a key";
  picker.Open(2);
  EXPECT_EQ(form.pages.KeywordCaret, 3U);
  // A key in the mask of the other page takes the place with it: this is wanted.
  tags.Select(1, 0);
  tags.keyReleased(false);
  Insert(1);
  EXPECT_EQ(other.Value(), "1<d>23");
  picker.Closed();
  other.Select(0, 0);
  EXPECT_EQ(form.pages.KeywordCaret, 4U);
}

}  // namespace
}  // namespace tallowbrook
