// New names from settings: tables of fields, a file name, and what comes out.
#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

struct NameCase {
  std::string fields;
  std::string fileName;
  std::string expected;
  std::int32_t counter = 0;
};

class NewNameTest : public EngineTest {
 protected:
  // Each row begins at a fresh start's settings plus `common`.
  void Check(const std::string& common, const std::vector<NameCase>& cases) {
    for (const NameCase& row : cases) {
      pages.ResetSettings();
      Set("Check_Prefix=0|Check_Suffix=0|Check_UniqueFirst=0|Check_StartFromLast=0");
      Set("Check_CaseSensitive=0|Check_RegExp=0");
      Set(common);
      Set(row.fields);
      EXPECT_EQ(Build(row.fileName, row.counter), row.expected)
          << common << "|" << row.fields << " " << row.fileName << " counter " << row.counter;
    }
  }
};

// clang-format off

TEST_F(NewNameTest, PropertiesAreComposedInOrder) {
  Check("", {
      {"", "base.ext", "base-0001.ext"}, {"", "archive.tar.gz", "archive.tar-0001.gz"},
      {"", "README", "README-0001"}, {"", ".hidden", "-0001.hidden"}, {"", "dot.", "dot-0001"},
      {"", "\xff\xfe.\xff", "\xff\xfe-0001.\xff"}, {"Check_UniqueFirst=1", "name.ext", "0001-name.ext"},
      {"Check_Unique=0", "name.ext", "name-.ext"}, {"Check_Original=0", "name.ext", "-0001.ext"},
      {"Check_Extension=0", "name.ext", "name-0001"},
      {"Check_Prefix=1|Text_Prefix=a |Check_Suffix=1|Text_Suffix=z|Text_Seperator=", "n.x", "a n0001z.x"},
      {"Combo_Original=2", "straße é.ext", "STRAßE É-0001.ext"},
      {"Combo_Original=3", "ÀB C.ext", "àb c-0001.ext"},
      {"Combo_Original=4", "the-BIG.one_two x.ext", "The-big.one_two X-0001.ext"},
      {"Combo_Original=1|Combo_OriginalName=Trip", "name.ext", "Trip-0001.ext"},
      {"Combo_Extension=4", "a.mp3", "a-0001.Mp3"},
      {"Combo_Extension=1|Text_Extension=txt", "name", "name-0001.txt"},
      {"Combo_Extension=1|Text_Extension=", "name.ext", "name-0001"},
  });
}

TEST_F(NewNameTest, NumbersCountUpAndDownBehindTheirMask) {
  Check("Text_Seperator=", {
      {"Text_UniqueStart=10", "n.x", "n0015.x", 5},
      {"Text_UniqueStart=10|Combo_Direction=1", "n.x", "n00-5.x", 15},
      {"Text_UniqueStart=12345", "n.x", "n12345.x"},
      {"Text_UniqueStart=007|Text_UniqueMask=|Combo_Direction=2", "n.x", "n007.x", 3},
      {"Text_UniqueStart=007|Text_UniqueMask=", "n.x", "n7.x"},
      {"Text_UniqueStart=7|Text_UniqueMask=a-b-", "n.x", "na-b7.x"},
      {"Text_UniqueStart=7|Text_UniqueMask=\u00e9\u00e9", "n.x", "n\u00e9" "7.x"},
      {"Text_UniqueStart=1.5|Text_UniqueMask=", "n.x", "n2.5.x", 1},
      {"Text_UniqueStart=abc", "n.x", "n0000.x", 1}, {"Text_UniqueStart=", "n.x", "n0000.x"},
      {"Combo_Direction=3|Text_UniqueStart=3|Txt_RandomTo=4", "n.x", "n0004.x"},  // repeats are possible
      {"Text_UniqueStart=2147483647|Text_UniqueMask=", "n.x", "n2147483648.x", 1},
  });
}

TEST_F(NewNameTest, LettersRunInLowerCaseBehindTheirMask) {
  Check("Text_Seperator=|Combo_Unique=1|Text_UniqueMask=XXX", {
      {"Text_UniqueStart=a", "n.x", "nXXa.x"}, {"Text_UniqueStart=Z", "n.x", "nXaa.x", 1},
      {"Text_UniqueStart=zz", "n.x", "naaa.x", 1},
      {"Text_UniqueStart=b|Combo_Direction=1", "n.x", "nXXX.x", 2},
      {"Text_UniqueStart=b|Combo_Direction=1", "n.x", "n###.x", 3},
      {"Text_UniqueStart=b|Combo_Direction=2", "n.x", "nXXb.x", 9},
      // A refused start is -1, and counts on from there.
      {"Text_UniqueStart=a1", "n.x", "n###.x"}, {"Text_UniqueStart=a1", "n.x", "nXXX.x", 1},
      {"Text_UniqueStart=a1", "n.x", "nXXa.x", 2},
      // A number of 17 digits; and beyond all numbers, where the part is left out.
      {"Text_UniqueStart=" + std::string(13, 'A'), "n.x", "n###.x"},
      {"Text_UniqueStart=" + std::string(40, 'A'), "n.x", "n.x"},
  });
}

// Stored settings may hold a pair that the panel doesn't offer.
TEST_F(NewNameTest, RandomLettersAndDatesGiveNoValue) {
  settings.Combo_Unique.rule = settings.Combo_Direction.rule = nullptr;
  Set("Combo_Direction=3|Combo_Unique=1");
  EXPECT_EQ(Build("n.x"), "n-0###.x");
  Set("Combo_Unique", "2");
  EXPECT_EQ(Build("n.x"), "n-.x");
}

TEST_F(NewNameTest, DatesRunByTheirInterval) {
  const auto start = [](const std::string& month, const std::string& day, const std::string& year) {
    const std::string field = "Combo_UniqueDateStart";
    return field + "0=" + month + "|" + field + "1=" + day + "|" + field + "2=" + year;
  };
  const std::string shapes = "|Combo_UniqueDate0=2|Combo_UniqueDate1=4|Combo_UniqueDate2=6";
  Check("Text_Seperator=|Combo_Unique=2", {
      {"", "n.x", "n02-29-2024.x"}, {"", "n.x", "n03-01-2024.x", 1},
      {"Combo_Direction=1|Combo_DateInterval=1", "n.x", "n02-15-2024.x", 2},
      {"Combo_DateInterval=3", "n.x", "n02-28-2025.x", 1},
      {start("0", "30", "2023") + "|Combo_DateInterval=2", "n.x", "n02-28-2023.x", 1},
      {start("11", "30", "1999"), "n.x", "n01-01-2000.x", 1},
      // No such day, which only a typed year leads to: the zero date.
      {"Combo_UniqueDateStart2=|" + start("1", "30", "2023"), "n.x", "n12-30-1899.x"},
      {start("0", "0", "junk"), "n.x", "n12-31-1899.x", 1},
      {start("0", "4", "2001") + shapes + "|Text_UniqueDate1= |Text_UniqueDate2=_", "n.x", "nJan 5_01.x"},
      // A date letter between the parts is a part of the pattern.
      {start("0", "4", "2001") + "|Text_UniqueDate1=-yy-|Text_UniqueDate2=-", "n.x", "n01-01-05-2001.x"},
      // Beyond the years that a date can hold.
      {"Combo_DateInterval=3", "n.x", "n.x", 2000000000},
  });
}

TEST_F(NewNameTest, RemovesCharactersByPosition) {
  const auto cut = [](const std::string& count, const std::string& at, const std::string& fromEnd) {
    return "Combo_RemoveChars=" + count + "|Combo_RemoveStarting=" + at + "|Check_StartFromLast=" + fromEnd;
  };
  const std::string name = "abcdefgh.txt";
  Check("TabIndex=1", {
      {cut("3", "0", "0"), name, "defgh.txt"}, {cut("3", "1", "0"), name, "aefgh.txt"},
      {cut("3", "0", "1"), name, "abcde.txt"}, {cut("3", "1", "1"), name, "abcdh.txt"},
      {cut("30", "0", "0"), name, ".txt"}, {cut("10", "3", "0"), name, "abc.txt"},
      {cut("10", "3", "1"), name, "fgh.txt"}, {cut("0", "4", "0"), name, name},
      {cut("0", "0", "1"), name, name}, {cut("1", "0", "0"), "README", "EADME."},
      {cut("2", "28", "0"), name, name}, {cut("1", "1", "0"), "日本語.txt", "日語.txt"},
      {cut("1", "1", "0"), "a\377\376b.txt", "a\376b.txt"},
  });
}

TEST_F(NewNameTest, ReplacesTextLiterally) {
  Check("TabIndex=2|Option_Search1=True|Combo_Replace=", {
      {"Combo_Find=a|Combo_Replace=o|Combo_Occurances=2", "banana", "bonona"},
      // The items of a second reset: another "All" is no number, the "1" behind it is one.
      {"Combo_Find=a|Combo_Replace=o|Combo_Occurances=31", "banana", "banana"},
      {"Combo_Find=a|Combo_Replace=o|Combo_Occurances=32", "banana", "bonana"},
      {"Combo_Find=ABC|Combo_Replace=Q", "xabcx", "xQx"},
      {"Combo_Find=ABC|Combo_Replace=Q|Check_CaseSensitive=1", "xabcx", "xabcx"},
      {"Combo_Find=.|Combo_Replace=_", "a.b.txt", "a_b_txt"}, {"Combo_Find=txt", "a.txt", "a."},
      {"Combo_Find=t|Combo_Replace=T|Option_Search2=True", "tot.txt", "ToT.txt"},
      {"Combo_Find=t|Combo_Replace=T|Option_Search2=True", "tot", "ToT."},
      {"Combo_Find=t|Combo_Replace=T|Option_Search3=True", "tot.txt", "tot.TxT"},
      {"Combo_Find=t|Combo_Replace=T|Option_Search3=True", "tot", "tot."},
      // Without a text to find, the searched part is left out.
      {"Combo_Find=|Combo_Replace=x", "a.txt", ""},
      {"Combo_Find=|Combo_Replace=x|Option_Search2=True", "a.txt", ".txt"},
      {"Combo_Find=|Combo_Replace=x|Option_Search3=True", "a.txt", "a."},
  });
}

TEST_F(NewNameTest, ReplacesByRegularExpression) {
  const std::string manyAs(250, 'a');
  Check("TabIndex=2|Check_RegExp=1|Option_Search1=True|Combo_Replace=x", {
      {"Combo_Find=([a-z]+)_(\\d+)\\.(txt)|Combo_Replace=$2-$1.$3", "trip_12.txt", "12-trip.txt"},
      {"Combo_Find=a|Combo_Replace=o|Combo_Occurances=2", "banana", "bonona"},
      {"Combo_Find=a|Combo_Replace=aa|Combo_Occurances=2", "banana", "baaanana"},
      {"Combo_Find=B", "abAB", "axAx"}, {"Combo_Find=B|Check_CaseSensitive=1", "abAB", "abAx"},
      {"Combo_Find=(", "a(b.txt", "a(b.txt"},
      {"Combo_Find=(|Combo_Occurances=3|Option_Search2=True", "a(b.txt", "a(b.txt"},
      {"Combo_Find=(a+)+$", manyAs + "!", manyAs + "!"}, {"Combo_Find=b", "a\377b", "a\377x"},
  });
}

// clang-format on

TEST_F(NewNameTest, APatternThatDoublesTheNameEndsAtABound) {
  Set("TabIndex=2|Check_RegExp=1|Combo_Find=.+|Combo_Replace=$&$&|Combo_Occurances=30");
  EXPECT_LE(Build(std::string(200, 'a')).size(), Regex::maxResult);
}

TEST_F(NewNameTest, TheAdvancedPageComposesDateCommands) {
  Set("Option_ChangeFileDate", "True");
  Set("DTPicker_AdvancedDate", "9/11/2005 5:05 PM");  // the date alone counts
  // clang-format off
  Check("TabIndex=3", {
      {"Combo_UpdateDateType=1|Combo_AdvancedDate3=7", "a.txt", "<DateModified,9/11/2005 07:01:01>"},
      {"Combo_UpdateDateType=2|Combo_AdvancedDate4=00", "a.txt", "<DateAccessed,9/11/2005 00:00:01>"},
      {"Combo_AdvancedDate3= 007 ", "a.txt", "<DateCreated,9/11/2005 07:01:01>"},
      {"Combo_AdvancedDate3=12", "a.txt", "<DateCreated,9/11/2005 12:01:01>"},
      {"Combo_AdvancedDate3=x", "a.txt", "<DateCreated,9/11/2005 x:01:01>"},
      // The second copy of the items is no type.
      {"Combo_UpdateDateType=3", "a.txt", "9/11/2005 00:01:01>"},
  });
  // clang-format on
  Set("DTPicker_AdvancedDate", "12/29/1899 6:00 PM");
  EXPECT_EQ(Build("a.txt"), "12/29/1899 00:01:01>");
  Set("Combo_UpdateDateType=0|Check_UseCurrentDateTime=1");
  EXPECT_EQ(Build("a.txt"), "<DateCreated,2/29/2024 1:05:09 PM>");
  ++clock.now.seconds;
  EXPECT_EQ(Build("a.txt"), "<DateCreated,2/29/2024 1:05:10 PM>");
}

// A custom name is entered once, though the name's box may be off.
TEST_F(NewNameTest, HistoriesKeepWhatWasUsed) {
  Set("Combo_Original=1|Check_Original=0");
  pages.ClearFilenameHistory();  // the sample has entered what stood there
  for (const char* name : {"Trip", "Trip", ""}) {
    Set("Combo_OriginalName", name);
    EXPECT_EQ(Build("a.txt"), "-0001.txt");
    EXPECT_EQ(settings.Combo_OriginalName.Items(), Lines{"Trip"});
  }
  Set("TabIndex", "2");
  const auto use = [this](const std::string& find) {
    Set("Combo_Find", find);
    Build("a");
    return settings.Combo_Find.Items();
  };
  use("Abc");
  Set("Combo_Replace", "with");
  use("x");
  // Known in another case: nothing is entered, nothing moves.
  EXPECT_EQ(use("aBC"), (Lines{"x", "Abc"}));
  EXPECT_EQ(settings.Combo_Replace.Items(), Lines{"with"});
  // The search ends with the 21st item.
  for (int i = 0; i < 19; ++i) use("n" + std::to_string(i));
  EXPECT_EQ(use("abc").size(), 21U);
  use("one more");
  EXPECT_EQ(use("abc").size(), 23U);
  screen.Find("PushButton_ClearComboBox")->rule();
  EXPECT_TRUE(settings.Combo_Find.Items().empty() && settings.Combo_Replace.Items().empty());
  EXPECT_EQ(settings.Combo_OriginalName.Items().size(), 1U);
  screen.Find("Cmd_ClearComboBoxName")->rule();
  EXPECT_TRUE(settings.Combo_OriginalName.Items().empty());
}

}  // namespace
}  // namespace tallowbrook
