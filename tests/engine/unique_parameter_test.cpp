// Letters as numbers, and the pool of unique random numbers.
#include <algorithm>
#include <set>

#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

TEST(Letters, AreABijectiveNumberingWithoutZero) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"0", ""},
      {"1", "A"},
      {"26", "Z"},
      {"27", "AA"},
      {"702", "ZZ"},
      {"703", "AAA"},
      {"-1", "###"},
      {"1.5", "###"},
      {"9999999999999999", "BRUTMHYHIIZO"},
      {"10000000000000000", "###"},
      {"0000000000000001", "A"},
  };
  for (const auto& [number, letters] : cases) EXPECT_EQ(ToAlpha(number), letters) << number;
  EXPECT_EQ(ToAlpha(""), std::nullopt);
}

TEST(Letters, AreReadBackUpToTheirLimit) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "0"},
      {"a", "1"},
      {"ZZ", "702"},
      {"BRUTMHYHIIZO", "9999999999999999"},
      {"BRUTMHYHIIZP", "-1"},
      {"a1", "-1"},
      {"A ", "-1"},
      {"\xc3\xa9", "-1"},
      // The limit goes by codes: twelve letters in lower case are above it, eleven never are.
      {"aaaaaaaaaaaa", "-1"},
      {"AAAAAAAAAAAA", "3817158266467287"},
      {"zzzzzzzzzzz", "3817158266467286"},
      {"AAAAAAAAAAAAA", "99246114928149463"},
  };
  for (const auto& [letters, number] : cases) {
    ASSERT_TRUE(ToNumber(letters)) << letters;
    EXPECT_EQ(ToNumber(letters)->ToText(), number) << letters;
  }
  EXPECT_EQ(ToNumber(std::string(40, 'A')), std::nullopt);
}

class PoolTest : public EngineTest {
 protected:
  PoolTest() {
    Set("Combo_Direction", "3");
    Set("Check_UniqueOnly", "1");
  }
  void Range(const char* start, const char* last) {
    Set("Text_UniqueStart", start);
    Set("Txt_RandomTo", last);
  }
  std::vector<std::int32_t> Numbers() {
    std::vector<std::int32_t> numbers;
    for (const auto& entry : pool.RandomPool) numbers.push_back(entry.value_or(-99));
    std::sort(numbers.begin(), numbers.end());
    return numbers;
  }
};

TEST_F(PoolTest, DrawsEachNumberOfTheRangeOnce) {
  List({"a", "b", "c"});
  Range("5", "7");
  random.values = {0.0, 0.999999, 0.3};
  EXPECT_EQ(pool.PrepareRandomPool(), 3);
  EXPECT_EQ(Numbers(), (std::vector<std::int32_t>{5, 6, 7}));
  EXPECT_EQ(random.seeds, std::vector<double>(3, 13 * 3600 + 5 * 60 + 9));
}

TEST_F(PoolTest, IsSizedByTheRowsAndNotByTheCheckedOnes) {
  List({"a", "b", "c", "d"});
  list.SetAllChecks(2);
  list.SetChecked(1, true);
  Range("1", "3");
  pool.PrepareRandomPool();
  EXPECT_EQ(Numbers(), (std::vector<std::int32_t>{1, 2, 3}));
  Range("1", "100");
  pool.PrepareRandomPool();
  EXPECT_EQ(pool.RandomPool.size(), 1U);
}

TEST_F(PoolTest, SwapsABackwardRangeAndFillsInWhatIsNoNumber) {
  List({"a", "b"});
  Range("9", "4");
  pool.PrepareRandomPool();
  EXPECT_EQ(settings.Text_UniqueStart.Value(), "4");
  EXPECT_EQ(settings.Txt_RandomTo.Value(), "9");
  Range("x", "");
  pool.PrepareRandomPool();
  EXPECT_EQ(settings.Text_UniqueStart.Value(), "1");
  EXPECT_EQ(settings.Txt_RandomTo.Value(), "3");
}

TEST_F(PoolTest, AsksBeforeTheNumbersRunOut) {
  List({"a", "b", "c"});
  const std::string question =
      "There are more files to rename than you have specified with random numbers.\r\n\r\n"
      "Your unique random numbers are from 5 and 6 which only gives 2 possible combinations\r\n\r\n"
      "Click 'Yes' to change the 'Random To' value to 7\r\n\r\n"
      "Click 'No' to stop renaming files once all the current unique random numbers are used";
  Range("5", "6");
  dialogs.answers = {Answer::No};
  preview.PreviewFiles();
  EXPECT_EQ(dialogs.asked.back().title, "Question");
  EXPECT_EQ(dialogs.asked.back().text, question);
  EXPECT_EQ(dialogs.asked.back().buttons, Buttons::YesNo);
  EXPECT_EQ(settings.Txt_RandomTo.Value(), "6");
  EXPECT_EQ(NewNames()[2], "(Not Selected)");
  EXPECT_NE(NewNames()[1], "(Not Selected)");

  dialogs.answers = {Answer::Yes};
  preview.PreviewFiles();
  EXPECT_EQ(settings.Txt_RandomTo.Value(), "7");
  EXPECT_EQ(Numbers(), (std::vector<std::int32_t>{5, 6, 7}));
  const std::vector<std::string> shown = NewNames();
  EXPECT_EQ(std::set<std::string>(shown.begin(), shown.end()).size(), 3U);
}

TEST_F(PoolTest, AHugeRangeCostsOnlyItsDraws) {
  List({"a", "b"});
  Range("1", "100000000");
  pool.PrepareRandomPool();
  ASSERT_EQ(pool.RandomPool.size(), 2U);
  EXPECT_NE(pool.RandomPool[0], pool.RandomPool[1]);
  Range("0", "2147483647");
  random.values = {0.999999999999};
  pool.PrepareRandomPool();
  EXPECT_EQ(Numbers(), (std::vector<std::int32_t>{2147483646, 2147483647}));
  // More digits than a number of 32 bits: the range is put in order, and no pool is drawn.
  Range("99999999999", "1");
  pool.PrepareRandomPool();
  EXPECT_EQ(settings.Text_UniqueStart.Value(), "1");
  EXPECT_EQ(pool.RandomPool, (std::vector<std::optional<std::int32_t>>(2)));
}

// The box is hidden for other directions, but it still counts: the empty pool has two entries.
TEST_F(PoolTest, ALeftOverTickLetsTwoFilesPass) {
  List({"a", "b", "c"});
  Set("Combo_Direction", "0");
  preview.PreviewFiles();
  EXPECT_EQ(NewNames(), (std::vector<std::string>{"a-0001", "b-0002", "(Not Selected)"}));
  Set("TabIndex", "1");
  preview.PreviewFiles();
  EXPECT_EQ(NewNames()[2], "c.");
}

TEST_F(PoolTest, NoCheckedRowMeansNoNumbersAndNoNames) {
  List({"a", "b"});
  list.SetAllChecks(2);
  Range("1", "9");
  preview.PreviewFiles();
  EXPECT_EQ(NewNames(), (std::vector<std::string>(2, "(Not Selected)")));
}

// A run over a single row takes no number of the pool, whatever the pool was left as.
TEST_F(PoolTest, AManualRenameNeedsNoNumbers) {
  List({"a", "b"});
  run.RenameFiles(2, "typed");
  EXPECT_EQ(list.Row(2).newName, "success");
  list.SetAllChecks(2);
  Range("1", "9");
  preview.PreviewFiles();
  run.RenameFiles(1, "typed too");
  EXPECT_EQ(list.Row(1).newName, "success");
}

TEST_F(PoolTest, ARunDrawsAnewAndMovesOnBehindAFailure) {
  List({"a", "b", "c"});
  Range("4", "6");
  Set("Text_UniqueMask", "");
  random.values = {0.0};  // drawn: 4, 6, 5
  folder.Write("b-6", "in the way");
  run.RenameFiles(0, {});
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a-4", "b", "b-6", "c-5"}));
  run.RenameFiles(0, {});
  EXPECT_EQ(NewNames(), (std::vector<std::string>{"success", "error", "success"}));
  EXPECT_TRUE(folder.Exists("c-5-5"));
}

// Only numbers have a start that must be one.
TEST_F(PoolTest, StartsAreRepairedForNumbersAlone) {
  Set("Check_UniqueOnly", "0");
  Set("Combo_Direction", "0");
  List({"a", "b", "c"});
  Set("Text_UniqueStart", "abc");
  preview.PreviewFiles();
  EXPECT_EQ(NewNames()[0], "a-0001");
  Set("Text_UniqueStart", std::string(30, '9'));
  preview.PreviewFiles();
  EXPECT_EQ(settings.Text_UniqueStart.Value(), std::string(30, '9'));
  Set("Text_UniqueStart", "y");
  Set("Combo_Unique", "1");
  Set("Text_UniqueStart", "y");
  Set("Text_UniqueMask", "");
  preview.PreviewFiles();
  EXPECT_EQ(NewNames(), (std::vector<std::string>{"a-y", "b-z", "c-aa"}));
}

TEST_F(PoolTest, RepeatsArePossibleWithoutTheTick) {
  Set("Check_UniqueOnly", "0");
  Range("3", "4");
  random.values = {0.99};
  EXPECT_EQ(Build("n.x"), "n-0004.x");
  EXPECT_EQ(Build("n.x"), "n-0004.x");
}

}  // namespace
}  // namespace tallowbrook
