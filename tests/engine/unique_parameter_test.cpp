// Letters as numbers, and the pool of unique random numbers.
#include <algorithm>
#include <set>

#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

// clang-format off
const std::pair<std::string, std::string> numbersAsLetters[] = {
    {"0", ""}, {"1", "A"}, {"26", "Z"}, {"27", "AA"}, {"702", "ZZ"}, {"703", "AAA"}, {"-1", "###"},
    {"1.5", "###"}, {"9999999999999999", "BRUTMHYHIIZO"}, {"10000000000000000", "###"},
    {"0000000000000001", "A"},
};
const std::pair<std::string, std::string> lettersAsNumbers[] = {
    {"", "0"}, {"a", "1"}, {"ZZ", "702"}, {"BRUTMHYHIIZO", "9999999999999999"}, {"BRUTMHYHIIZP", "-1"},
    {"a1", "-1"}, {"A ", "-1"}, {"\xc3\xa9", "-1"},
    // The limit goes by codes: twelve letters in lower case are above it, eleven never are.
    {"aaaaaaaaaaaa", "-1"}, {"AAAAAAAAAAAA", "3817158266467287"}, {"zzzzzzzzzzz", "3817158266467286"},
    {"AAAAAAAAAAAAA", "99246114928149463"},
};
// clang-format on

TEST(Letters, AreABijectiveNumberingWithoutZeroUpToTheirLimit) {
  for (const auto& [number, letters] : numbersAsLetters) EXPECT_EQ(ToAlpha(number), letters);
  EXPECT_EQ(ToAlpha(""), std::nullopt);
  for (const auto& [letters, number] : lettersAsNumbers) {
    EXPECT_EQ(ToNumber(letters).value().ToText(), number) << letters;
  }
  EXPECT_EQ(ToNumber(std::string(40, 'A')), std::nullopt);
}

class PoolTest : public EngineTest {
 protected:
  PoolTest() { Set("Combo_Direction=3|Check_UniqueOnly=1"); }
  void Draw(const char* start, const char* last) {
    Set("Text_UniqueStart", start);
    Set("Txt_RandomTo", last);
    pool.PrepareRandomPool();
  }
  std::string Range() {
    return settings.Text_UniqueStart.Value() + " " + settings.Txt_RandomTo.Value();
  }
  using Numbers = std::vector<std::int32_t>;
  Numbers Drawn() {
    Numbers numbers;
    for (const auto& entry : pool.RandomPool) numbers.push_back(entry.value_or(-99));
    std::sort(numbers.begin(), numbers.end());
    return numbers;
  }
};

TEST_F(PoolTest, DrawsEachNumberOfTheRangeOnceSizedByTheRowsAndNotByTheCheckedOnes) {
  List({"a", "b", "c"});
  random.values = {0.0, 0.999999, 0.3};
  Draw("5", "7");
  EXPECT_EQ(Drawn(), (Numbers{5, 6, 7}));
  EXPECT_EQ(random.seeds, std::vector<double>(3, 13 * 3600 + 5 * 60 + 9));
  // A backward range is swapped, and what is no number is filled in.
  Draw("9", "4");
  EXPECT_EQ(Range(), "4 9");
  Draw("x", "");
  EXPECT_EQ(Range(), "1 4");
  list.SetAllChecks(2);
  list.SetChecked(1, true);
  Draw("1", "2");
  EXPECT_EQ(Drawn(), (Numbers{1, 2}));
  Draw("1", "100");
  EXPECT_EQ(pool.RandomPool.size(), 1U);
}

TEST_F(PoolTest, AsksBeforeTheNumbersRunOut) {
  List({"a", "b", "c"});
  const std::string question =
      "There are more files to rename than you have specified with random numbers.\r\n\r\n"
      "Your unique random numbers are from 5 and 6 which only gives 2 possible combinations\r\n\r\n"
      "Click 'Yes' to change the 'Random To' value to 7\r\n\r\n"
      "Click 'No' to stop renaming files once all the current unique random numbers are used";
  Set("Text_UniqueStart=5|Txt_RandomTo=6");
  dialogs.answers = {Answer::No};
  preview.PreviewFiles();
  EXPECT_EQ(dialogs.asked.back().text, question);
  EXPECT_EQ(dialogs.asked.back().buttons, Buttons::YesNo);
  EXPECT_EQ(Range(), "5 6");
  EXPECT_EQ(NewNames()[2], "(Not Selected)");
  EXPECT_NE(NewNames()[1], "(Not Selected)");
  dialogs.answers = {Answer::Yes};
  const Lines shown = Previewed();
  EXPECT_EQ(Range(), "5 7");
  EXPECT_EQ(Drawn(), (Numbers{5, 6, 7}));
  EXPECT_EQ(std::set<std::string>(shown.begin(), shown.end()).size(), 3U);
}

TEST_F(PoolTest, AHugeRangeCostsOnlyItsDraws) {
  List({"a", "b"});
  Draw("1", "100000000");
  ASSERT_EQ(pool.RandomPool.size(), 2U);
  EXPECT_NE(pool.RandomPool[0], pool.RandomPool[1]);
  random.values = {0.999999999999};
  Draw("0", "2147483647");
  EXPECT_EQ(Drawn(), (Numbers{2147483646, 2147483647}));
  // More digits than a number of 32 bits: the range is put in order, and no pool is drawn.
  Draw("99999999999", "1");
  EXPECT_EQ(Range(), "1 99999999999");
  EXPECT_EQ(Drawn(), Numbers(2, -99));
}

// The box is hidden for other directions, but it still counts: the empty pool has two entries.
TEST_F(PoolTest, ALeftOverTickLetsTwoFilesPass) {
  List({"a", "b", "c"});
  Set("Combo_Direction", "0");
  EXPECT_EQ(Previewed(), (Lines{"a-0001", "b-0002", "(Not Selected)"}));
  Set("TabIndex", "1");
  EXPECT_EQ(Previewed()[2], "c.");
}

// A run over a single row takes no number of the pool, whatever the pool was left as.
TEST_F(PoolTest, AManualRenameNeedsNoNumbers) {
  List({"a", "b"});
  run.RenameFiles(2, "typed");
  EXPECT_EQ(list.Row(2).newName, "success");
  list.SetAllChecks(2);
  EXPECT_EQ(Previewed(), Lines(2, "(Not Selected)"));
  run.RenameFiles(1, "typed too");
  EXPECT_EQ(list.Row(1).newName, "success");
}

TEST_F(PoolTest, ARunDrawsAnewAndMovesOnBehindAFailure) {
  List({"a", "b", "c"});
  Set("Text_UniqueStart=4|Txt_RandomTo=6|Text_UniqueMask=");
  random.values = {0.0};  // drawn: 4, 6, 5
  folder.Write("b-6", "in the way");
  run.RenameFiles(0, {});
  EXPECT_EQ(folder.Names(), (Lines{"a-4", "b", "b-6", "c-5"}));
  run.RenameFiles(0, {});
  EXPECT_EQ(NewNames(), (Lines{"success", "error", "success"}));
  EXPECT_TRUE(folder.Exists("c-5-5"));
}

// Only numbers have a start that must be one.
TEST_F(PoolTest, StartsAreRepairedForNumbersAlone) {
  Set("Check_UniqueOnly=0|Combo_Direction=0|Text_UniqueStart=abc");
  List({"a", "b", "c"});
  EXPECT_EQ(Previewed()[0], "a-0001");
  Set("Text_UniqueStart", std::string(30, '9'));
  preview.PreviewFiles();
  EXPECT_EQ(settings.Text_UniqueStart.Value(), std::string(30, '9'));
  Set("Combo_Unique=1|Text_UniqueStart=y|Text_UniqueMask=");
  EXPECT_EQ(Previewed(), (Lines{"a-y", "b-z", "c-aa"}));
}

}  // namespace
}  // namespace tallowbrook
