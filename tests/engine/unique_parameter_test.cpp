// Letters as numbers, the pool of unique random numbers, what may be typed into their panel, and
// how its arrows step.
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
  // Gives the range that stands in the fields then.
  std::string Draw(const std::string& start, const std::string& last) {
    Set("Text_UniqueStart=" + start + "|Txt_RandomTo=" + last);
    pool.PrepareRandomPool();
    return Range();
  }
  std::string Range() {
    return settings.Text_UniqueStart.Value() + " " + settings.Txt_RandomTo.Value();
  }
  // The pool in order, -99 for an entry without a number.
  std::multiset<std::int32_t> Drawn() {
    std::multiset<std::int32_t> numbers;
    for (const auto& entry : pool.RandomPool) numbers.insert(entry.value_or(-99));
    return numbers;
  }
  using Numbers = std::multiset<std::int32_t>;
};

TEST_F(PoolTest, DrawsEachNumberOfTheRangeOnceSizedByTheRowsAndNotByTheCheckedOnes) {
  List({"a", "b", "c"});
  random.values = {0.0, 0.999999, 0.3};
  Draw("5", "7");
  EXPECT_EQ(Drawn(), (Numbers{5, 6, 7}));
  EXPECT_EQ(random.seeds, std::vector<double>(3, 13 * 3600 + 5 * 60 + 9));
  // A backward range is swapped, and what is no number is filled in.
  EXPECT_EQ(Draw("9", "4"), "4 9");
  EXPECT_EQ(Draw("x", ""), "1 4");
  list.SetAllChecks(2);
  list.SetChecked(1, true);
  Draw("1", "2");
  EXPECT_EQ(Drawn(), (Numbers{1, 2}));
  Draw("1", "100");
  EXPECT_EQ(pool.RandomPool.size(), 1U);
}

TEST_F(PoolTest, AsksBeforeTheNumbersRunOut) {
  List({"a", "b", "c"});
  const char* question =
      "There are more files to rename than you have specified with random numbers.\r\n\r\n"
      "Your unique random numbers are from 5 and 6 which only gives 2 possible combinations\r\n\r\n"
      "Click 'Yes' to change the 'Random To' value to 7\r\n\r\n"
      "Click 'No' to stop renaming files once all the current unique random numbers are used";
  Set("Text_UniqueStart=5|Txt_RandomTo=6");
  dialogs.answers = {Answer::No};
  preview.PreviewFiles();
  EXPECT_EQ(dialogs.asked.back().text, question);
  EXPECT_EQ(Range(), "5 6");
  EXPECT_EQ(NewNames()[2], "(Not Selected)");
  dialogs.answers = {Answer::Yes};
  const Lines shown = Previewed();
  EXPECT_EQ(Drawn(), (Numbers{5, 6, 7}));
  EXPECT_EQ(std::set<std::string>(shown.begin(), shown.end()).size(), 3U);
}

TEST_F(PoolTest, AHugeRangeCostsOnlyItsDraws) {
  List({"a", "b"});
  Draw("1", "100000000");
  EXPECT_NE(pool.RandomPool.at(0), pool.RandomPool.at(1));
  random.values = {0.999999999999};
  Draw("0", "2147483647");
  EXPECT_EQ(Drawn(), (Numbers{2147483646, 2147483647}));
  // More digits than a number of 32 bits: the range is put in order, and no pool is drawn.
  EXPECT_EQ(Draw("99999999999", "1"), "1 99999999999");
  EXPECT_EQ(Drawn(), (Numbers{-99, -99}));
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

class UniquePanelTest : public EngineTest {
 protected:
  // Steps up for each "+", down for each "-", and gives what then stands in the three fields.
  std::string Step(Spin& spin, std::string_view steps) {
    for (const char step : steps) step == '+' ? spin.StepUp() : spin.StepDown();
    return settings.Text_UniqueStart.Value() + " " + settings.Txt_RandomTo.Value() + " " +
           settings.Text_UniqueIncrement.Value();
  }
  std::string Day() { return settings.Combo_UniqueDateStart1.ItemText(); }
  UniquePanel& unique = pages.unique;
  Spin& start = unique.Spin_UniqueStart;
};

// Letters end at "a", and count on behind "z".
TEST_F(UniquePanelTest, ArrowsStepFromWhatStandsThere) {
  const struct {
    const char* fields;
    Spin& spin;
    std::string steps, values;
  } rows[] = {
      {"Text_UniqueStart=1", start, "++", "3 1 1"},
      {"Text_UniqueStart=41", start, "+-+", "42 1 1"},
      {"Combo_Unique=0", start, std::string(50, '-'), "0 1 1"},
      {"Combo_Unique=1|Text_UniqueStart=y", start, "++", "aa 1 1"},
      {"Combo_Unique=1", start, std::string(40, '-'), "a 1 1"},
      {"Combo_Unique=1", unique.Spin_UniqueIncrement, "+++-", "a 1 3"},
      {"Text_UniqueIncrement=10", unique.Spin_UniqueIncrement, std::string(20, '-'), "a 1 1"}};
  for (const auto& row : rows) {
    Set(row.fields);
    EXPECT_EQ(Step(row.spin, row.steps), row.values) << row.fields;
  }
  // A step that changes no text refreshes the sample, too.
  pages.Label_SampleFileName.SetCaption("stale");
  Step(start, "-");
  EXPECT_NE(pages.Label_SampleFileName.Caption(), "stale");
}

// A typed bound counts as a typed start, and not for the bound's own arrows, which a reset rests.
TEST_F(UniquePanelTest, ARandomBoundMovesTheStart) {
  Step(unique.Spin_RandomTo, "+++");
  Set("Txt_RandomTo=500");
  EXPECT_EQ(Step(start, "+"), "501 500 1");
  EXPECT_EQ(Step(unique.Spin_RandomTo, "+"), "501 5 1");
  pages.ResetSettings();
  Step(start, "+");
  EXPECT_EQ(Step(unique.Spin_RandomTo, "+"), "2 2 1");
}

TEST_F(UniquePanelTest, LeavingAFieldFillsItAndRestsItsArrows) {
  for (const auto& [kind, values] : Pairs{{"0", "1 1 1"}, {"1", "a 1 1"}}) {
    Set("Combo_Unique", kind);
    Step(start, "+++");
    Set("Text_UniqueStart=|Text_UniqueIncrement=|Combo_UniqueDateStart2=");
    settings.Text_UniqueStart.focusLost();
    settings.Text_UniqueIncrement.focusLost();
    settings.Combo_UniqueDateStart2.focusLost();
    EXPECT_EQ(Step(start, ""), values);
    EXPECT_EQ(start.Value(), 5000);
    EXPECT_EQ(settings.Combo_UniqueDateStart2.Value(), "2024");
  }
  Step(unique.Spin_UniqueIncrement, "++");
  unique.Spin_UniqueIncrement.focusLost();
  EXPECT_EQ(Step(unique.Spin_UniqueIncrement, "+"), "a 1 4");
}

TEST_F(UniquePanelTest, KeysPassByTheKind) {
  // clang-format off
  const std::string rows[][4] = {
      {"0", "Text_UniqueStart", "", "07"}, {"1", "Text_UniqueStart", "", "azAZ"}, {"2", "Txt_RandomTo", "", "azAZ"},
      {"0", "Txt_RandomTo", "9999999", "07"}, {"0", "Text_UniqueStart", "10000000", ""},
      {"1", "Text_UniqueStart", "zzzzzzzzz", "azAZ"}, {"0", "Text_UniqueStart", std::string(40, '9'), ""},
      {"1", "Text_UniqueIncrement", "99999999", "07"}, {"0", "Combo_UniqueDateStart2", "", "07"},
      {"0", "Text_StartCheck", "", "07"}, {"0", "Text_Step", "", "07"}};
  // clang-format on
  for (const auto& [kind, field, text, passes] : rows) {
    Set("Combo_Unique=" + kind + "|" + field + "=" + text);
    std::string passed;
    for (const std::string key : {"0", "7", "a", "z", "A", "Z", "[", "`", "-", " ", "é", "٣"}) {
      if (dynamic_cast<Text&>(*screen.Find(field)).takesKey(key)) passed += key;
    }
    EXPECT_EQ(passed, passes) << field << " " << kind << " " << text;
  }
}

// A start that isn't of the kind becomes what it counts as, be it none.
TEST_F(UniquePanelTest, TheStartFollowsTheKind) {
  for (const auto& [letters, number] : Pairs{{"ab", "28"}, {"a1", "-1"}, {"", "0"}, {"12", "12"}}) {
    Set("Combo_Unique=1|Text_UniqueStart=" + letters + "|Combo_Unique=0");
    EXPECT_EQ(settings.Text_UniqueStart.Value(), number);
  }
  Set("Text_UniqueStart=28|Combo_Unique=1");
  EXPECT_EQ(settings.Text_UniqueStart.Value(), "ab");
}

TEST_F(UniquePanelTest, RandomIsForNumbersAlone) {
  for (const char* way : {"Combo_Unique=1|Combo_Direction=3", "Combo_Direction=3|Combo_Unique=2"}) {
    Set("Combo_Unique=0|Combo_Direction=0");
    dialogs.answers = {Answer::Ok};
    Set(way);
    EXPECT_EQ(settings.Combo_Direction.Index(), DirectionIncrement);
    EXPECT_EQ(dialogs.asked.back().title + ": " + dialogs.asked.back().text,
              "Random is only available with numbers: "
              "The 'Random' feature is only available with numbers");
    EXPECT_TRUE(settings.Text_UniqueIncrement.Visible() && !settings.Txt_RandomTo.Visible());
  }
}

// Whichever of the three lists was clicked last, the day is one that its month has. A year that is
// typed, or none, leaves it alone.
TEST_F(UniquePanelTest, TheDayStaysInItsMonth) {
  const std::string field = "Combo_UniqueDateStart";
  Set(field + "0=0|" + field + "1=30|" + field + "0=1");
  EXPECT_EQ(Day(), "29");
  Set(field + "2=2023");
  EXPECT_EQ(Day(), "29");
  auto& years = settings.Combo_UniqueDateStart2;
  years.SelectItem(
      static_cast<std::size_t>(std::ranges::find(years.Items(), "2022") - years.Items().begin()));
  EXPECT_EQ(Day(), "28");
  for (const char* year : {"", "junk"}) {
    Set(field + "2=" + year + "|" + field + "1=30");
    EXPECT_EQ(Day(), "31");
  }
}

}  // namespace
}  // namespace tallowbrook
