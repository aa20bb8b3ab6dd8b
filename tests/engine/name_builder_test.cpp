// New names from settings: tables of fields, a file name, and what comes out.
#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

using Fields = std::vector<std::pair<std::string, std::string>>;

struct NameCase {
  Fields fields;
  std::string fileName;
  std::int32_t counter;
  std::string expected;
};

class NewNameTest : public EngineTest {
 protected:
  // Each row begins at a fresh start's settings plus `common`.
  void Check(const Fields& common, const std::vector<NameCase>& cases) {
    for (const NameCase& row : cases) {
      pages.ResetSettings();
      for (const char* box : {"Check_Prefix", "Check_Suffix", "Check_UniqueFirst",
                              "Check_StartFromLast", "Check_CaseSensitive", "Check_RegExp"}) {
        Set(box, "0");
      }
      std::string shown;
      for (const Fields& fields : {common, row.fields}) {
        for (const auto& [name, value] : fields) {
          Set(name, value);
          shown += name + "=" + value + " ";
        }
      }
      EXPECT_EQ(Build(row.fileName, row.counter), row.expected)
          << shown << row.fileName << " counter " << row.counter;
    }
  }
};

TEST_F(NewNameTest, PropertiesAreComposedInOrder) {
  Check({},
        {
            {{}, "base.ext", 0, "base-0001.ext"},
            {{}, "archive.tar.gz", 0, "archive.tar-0001.gz"},
            {{}, "README", 0, "README-0001"},
            {{}, ".hidden", 0, "-0001.hidden"},
            {{}, "dot.", 0, "dot-0001"},
            {{{"Check_UniqueFirst", "1"}}, "name.ext", 0, "0001-name.ext"},
            {{{"Check_Unique", "0"}}, "name.ext", 0, "name-.ext"},
            {{{"Check_Original", "0"}}, "name.ext", 0, "-0001.ext"},
            {{{"Check_Extension", "0"}}, "name.ext", 0, "name-0001"},
            {{{"Check_Prefix", "1"},
              {"Text_Prefix", "a "},
              {"Check_Suffix", "1"},
              {"Text_Suffix", "z"},
              {"Text_Seperator", ""}},
             "name.ext",
             0,
             "a name0001z.ext"},
            {{{"Combo_Original", "2"}}, "straße é.ext", 0, "STRAßE É-0001.ext"},
            {{{"Combo_Original", "3"}}, "ÀB C.ext", 0, "àb c-0001.ext"},
            {{{"Combo_Original", "4"}}, "the-BIG.one_two x.ext", 0, "The-big.one_two X-0001.ext"},
            {{{"Combo_Original", "1"}, {"Combo_OriginalName", "Trip"}},
             "name.ext",
             0,
             "Trip-0001.ext"},
            {{{"Combo_Original", "1"}, {"Check_Original", "0"}}, "name.ext", 0, "-0001.ext"},
            {{{"Combo_Extension", "4"}}, "a.mp3", 0, "a-0001.Mp3"},
            {{{"Combo_Extension", "2"}}, "a.mp3", 0, "a-0001.MP3"},
            {{{"Combo_Extension", "1"}, {"Text_Extension", "txt"}}, "name", 0, "name-0001.txt"},
            {{{"Combo_Extension", "1"}, {"Text_Extension", ""}}, "name.ext", 0, "name-0001"},
            {{}, "\xff\xfe.\xff", 0, "\xff\xfe-0001.\xff"},
        });
}

TEST_F(NewNameTest, NumbersCountUpAndDownBehindTheirMask) {
  Check({{"Text_Seperator", ""}},
        {
            {{{"Text_UniqueStart", "10"}}, "n.x", 5, "n0015.x"},
            {{{"Text_UniqueStart", "10"}, {"Combo_Direction", "1"}}, "n.x", 15, "n00-5.x"},
            {{{"Text_UniqueStart", "12345"}}, "n.x", 0, "n12345.x"},
            {{{"Text_UniqueStart", "007"}, {"Text_UniqueMask", ""}, {"Combo_Direction", "2"}},
             "n.x",
             3,
             "n007.x"},
            {{{"Text_UniqueStart", "007"}, {"Text_UniqueMask", ""}}, "n.x", 0, "n7.x"},
            {{{"Text_UniqueStart", "7"}, {"Text_UniqueMask", "a-b-"}}, "n.x", 0, "na-b7.x"},
            {{{"Text_UniqueStart", "123"}, {"Text_UniqueMask", "xy"}}, "n.x", 0, "n123.x"},
            {{{"Text_UniqueStart", "7"}, {"Text_UniqueMask", "\xc3\xa9\xc3\xa9"}},
             "n.x",
             0,
             "n\xc3\xa9"
             "7.x"},
            {{{"Text_UniqueStart", "1.5"}, {"Text_UniqueMask", ""}}, "n.x", 1, "n2.5.x"},
            {{{"Text_UniqueStart", "abc"}}, "n.x", 1, "n0000.x"},
            {{{"Text_UniqueStart", ""}}, "n.x", 0, "n0000.x"},
            {{{"Text_UniqueStart", "2147483647"}, {"Text_UniqueMask", ""}},
             "n.x",
             1,
             "n2147483648.x"},
        });
}

TEST_F(NewNameTest, LettersRunInLowerCaseBehindTheirMask) {
  Check({{"Text_Seperator", ""}, {"Combo_Unique", "1"}, {"Text_UniqueMask", "XXX"}},
        {
            {{{"Text_UniqueStart", "a"}}, "n.x", 0, "nXXa.x"},
            {{{"Text_UniqueStart", "Z"}}, "n.x", 1, "nXaa.x"},
            {{{"Text_UniqueStart", "zz"}}, "n.x", 1, "naaa.x"},
            {{{"Text_UniqueStart", "b"}, {"Combo_Direction", "1"}}, "n.x", 2, "nXXX.x"},
            {{{"Text_UniqueStart", "b"}, {"Combo_Direction", "1"}}, "n.x", 3, "n###.x"},
            {{{"Text_UniqueStart", "b"}, {"Combo_Direction", "2"}}, "n.x", 9, "nXXb.x"},
            // A refused start is -1, and counts on from there.
            {{{"Text_UniqueStart", "a1"}}, "n.x", 0, "n###.x"},
            {{{"Text_UniqueStart", "a1"}}, "n.x", 1, "nXXX.x"},
            {{{"Text_UniqueStart", "a1"}}, "n.x", 2, "nXXa.x"},
        });
  Set("Text_UniqueStart", std::string(13, 'A'));  // a number of 17 digits
  EXPECT_EQ(Build("n.x"), "n###.x");
  Set("Text_UniqueStart", std::string(40, 'A'));  // beyond all numbers: the part is left out
  EXPECT_EQ(Build("n.x"), "n.x");
  dialogs.answers = {Answer::Ok};
  Set("Combo_Direction", "3");
  EXPECT_EQ(settings.Combo_Direction.Index(), DirectionIncrement);
  EXPECT_EQ(dialogs.asked.back().title, "Random is only available with numbers");
}

// Stored settings may hold a pair that the panel doesn't offer.
TEST_F(NewNameTest, RandomLettersAndDatesGiveNoValue) {
  settings.Combo_Unique.rule = settings.Combo_Direction.rule = nullptr;
  Set("Combo_Direction", "3");
  Set("Combo_Unique", "1");
  EXPECT_EQ(Build("n.x"), "n-0###.x");
  Set("Combo_Unique", "2");
  EXPECT_EQ(Build("n.x"), "n-.x");
}

TEST_F(NewNameTest, DatesRunByTheirInterval) {
  const auto start = [](const char* month, const char* day, const char* year, Fields more = {}) {
    Fields fields{{"Combo_UniqueDateStart0", month},
                  {"Combo_UniqueDateStart1", day},
                  {"Combo_UniqueDateStart2", year}};
    fields.insert(fields.end(), more.begin(), more.end());
    return fields;
  };
  Check({{"Text_Seperator", ""}, {"Combo_Unique", "2"}},
        {
            {{}, "n.x", 0, "n02-29-2024.x"},
            {{}, "n.x", 1, "n03-01-2024.x"},
            {{{"Combo_Direction", "1"}, {"Combo_DateInterval", "1"}}, "n.x", 2, "n02-15-2024.x"},
            {{{"Combo_DateInterval", "3"}}, "n.x", 1, "n02-28-2025.x"},
            {start("0", "30", "2023", {{"Combo_DateInterval", "2"}}), "n.x", 1, "n02-28-2023.x"},
            {start("11", "30", "1999"), "n.x", 1, "n01-01-2000.x"},
            // No such day: the zero date.
            {start("1", "30", "2023"), "n.x", 0, "n12-30-1899.x"},
            {start("0", "0", "junk"), "n.x", 1, "n12-31-1899.x"},
            {start("0", "4", "2001",
                   {{"Combo_UniqueDate0", "2"},
                    {"Combo_UniqueDate1", "4"},
                    {"Combo_UniqueDate2", "6"},
                    {"Text_UniqueDate1", " "},
                    {"Text_UniqueDate2", "_"}}),
             "n.x", 0, "nJan 5_01.x"},
            // A date letter between the parts is a part of the pattern.
            {start("0", "4", "2001", {{"Text_UniqueDate1", "-yy-"}, {"Text_UniqueDate2", "-"}}),
             "n.x", 0, "n01-01-05-2001.x"},
            // Beyond the years that a date can hold.
            {{{"Combo_DateInterval", "3"}}, "n.x", 2000000000, "n.x"},
        });
}

TEST_F(NewNameTest, RemovesCharactersByPosition) {
  const auto cut = [](const char* count, const char* startIndex, const char* fromEnd) {
    return Fields{{"Combo_RemoveChars", count},
                  {"Combo_RemoveStarting", startIndex},
                  {"Check_StartFromLast", fromEnd}};
  };
  const std::string name = "abcdefgh.txt";
  Check({{"TabIndex", "1"}}, {
                                 {cut("3", "0", "0"), name, 0, "defgh.txt"},
                                 {cut("3", "1", "0"), name, 0, "aefgh.txt"},
                                 {cut("3", "0", "1"), name, 0, "abcde.txt"},
                                 {cut("3", "1", "1"), name, 0, "abcdh.txt"},
                                 {cut("30", "0", "0"), name, 0, ".txt"},
                                 {cut("10", "3", "0"), name, 0, "abc.txt"},
                                 {cut("10", "3", "1"), name, 0, "fgh.txt"},
                                 {cut("0", "0", "0"), name, 0, name},
                                 {cut("0", "4", "0"), name, 0, name},
                                 {cut("0", "0", "1"), name, 0, name},
                                 {cut("8", "0", "0"), name, 0, ".txt"},
                                 {cut("1", "0", "0"), "README", 0, "EADME."},
                                 {cut("2", "28", "0"), name, 0, name},
                                 {cut("1", "1", "0"), "日本語.txt", 0, "日語.txt"},
                                 {cut("1", "1", "0"),
                                  "a\xff\xfe"
                                  "b.txt",
                                  0,
                                  "a\xfe"
                                  "b.txt"},
                             });
}

TEST_F(NewNameTest, ReplacesTextLiterally) {
  const auto replace = [](const char* find, const char* with, const char* times = "0",
                          Fields more = {}) {
    Fields fields{{"Combo_Find", find}, {"Combo_Replace", with}, {"Combo_Occurances", times}};
    fields.insert(fields.end(), more.begin(), more.end());
    return fields;
  };
  Check({{"TabIndex", "2"}, {"Option_Search1", "True"}},
        {
            {replace("a", "o", "2"), "banana", 0, "bonona"},
            // The items of a second reset: another "All" is no number, the "1" behind it is one.
            {replace("a", "o", "31"), "banana", 0, "banana"},
            {replace("a", "o", "32"), "banana", 0, "bonana"},
            {replace("a", "aa", "2"), "banana", 0, "baanaana"},
            {replace("ABC", "Q"), "xabcx", 0, "xQx"},
            {replace("ABC", "Q", "0", {{"Check_CaseSensitive", "1"}}), "xabcx", 0, "xabcx"},
            {replace("É", "e"), "éÉ.txt", 0, "ee.txt"},
            {replace(".", "_"), "a.b.txt", 0, "a_b_txt"},
            {replace("txt", ""), "a.txt", 0, "a."},
            {replace("t", "T", "0", {{"Option_Search2", "True"}}), "tot.txt", 0, "ToT.txt"},
            {replace("t", "T", "0", {{"Option_Search2", "True"}}), "tot", 0, "ToT."},
            {replace("t", "T", "0", {{"Option_Search3", "True"}}), "tot.txt", 0, "tot.TxT"},
            {replace("t", "T", "0", {{"Option_Search3", "True"}}), "tot", 0, "tot."},
            // Without a text to find, the searched part is left out.
            {replace("", "x"), "a.txt", 0, ""},
            {replace("", "x", "0", {{"Option_Search2", "True"}}), "a.txt", 0, ".txt"},
            {replace("", "x", "0", {{"Option_Search3", "True"}}), "a.txt", 0, "a."},
        });
}

TEST_F(NewNameTest, ReplacesByRegularExpression) {
  const auto replace = [](const char* find, const char* with, const char* times = "0",
                          Fields more = {}) {
    Fields fields{{"Combo_Find", find}, {"Combo_Replace", with}, {"Combo_Occurances", times}};
    fields.insert(fields.end(), more.begin(), more.end());
    return fields;
  };
  Check({{"TabIndex", "2"}, {"Check_RegExp", "1"}, {"Option_Search1", "True"}},
        {
            {replace("([a-z]+)_(\\d+)\\.(txt)", "$2-$1.$3"), "trip_12.txt", 0, "12-trip.txt"},
            {replace("a", "o", "2"), "banana", 0, "bonona"},
            {replace("a", "aa", "2"), "banana", 0, "baaanana"},
            {replace("B", "x"), "abAB", 0, "axAx"},
            {replace("B", "x", "0", {{"Check_CaseSensitive", "1"}}), "abAB", 0, "abAx"},
            {replace("(", "x"), "a(b.txt", 0, "a(b.txt"},
            {replace("(", "x", "3", {{"Option_Search2", "True"}}), "a(b.txt", 0, "a(b.txt"},
            {replace("(a+)+$", "x"), std::string(250, 'a') + "!", 0, std::string(250, 'a') + "!"},
            {replace("b", "-"),
             "a\xff"
             "b",
             0, "a\xff-"},
        });
}

TEST_F(NewNameTest, APatternThatDoublesTheNameEndsAtABound) {
  Set("TabIndex", "2");
  Set("Check_RegExp", "1");
  Set("Combo_Find", ".+");
  Set("Combo_Replace", "$&$&");
  Set("Combo_Occurances", "30");
  EXPECT_LE(Build(std::string(200, 'a')).size(), Regex::maxResult);
}

TEST_F(NewNameTest, TheAdvancedPageComposesDateCommands) {
  Set("Option_ChangeFileDate", "True");
  Set("DTPicker_AdvancedDate", "9/11/2005 5:05 PM");  // the date alone counts
  Check({{"TabIndex", "3"}},
        {
            {{{"Combo_UpdateDateType", "1"}, {"Combo_AdvancedDate3", "7"}},
             "a.txt",
             0,
             "<DateModified,9/11/2005 07:01:01>"},
            {{{"Combo_UpdateDateType", "2"}, {"Combo_AdvancedDate4", "00"}},
             "a.txt",
             0,
             "<DateAccessed,9/11/2005 00:00:01>"},
            {{{"Combo_AdvancedDate3", " 007 "}}, "a.txt", 0, "<DateCreated,9/11/2005 07:01:01>"},
            {{{"Combo_AdvancedDate3", "12"}}, "a.txt", 0, "<DateCreated,9/11/2005 12:01:01>"},
            {{{"Combo_AdvancedDate3", "x"}}, "a.txt", 0, "<DateCreated,9/11/2005 x:01:01>"},
            // The second copy of the items is no type.
            {{{"Combo_UpdateDateType", "3"}}, "a.txt", 0, "9/11/2005 00:01:01>"},
        });
  Set("DTPicker_AdvancedDate", "12/29/1899 6:00 PM");
  EXPECT_EQ(Build("a.txt"), "12/29/1899 00:01:01>");
  Set("Combo_UpdateDateType", "0");
  Set("Check_UseCurrentDateTime", "1");
  EXPECT_EQ(Build("a.txt"), "<DateCreated,2/29/2024 1:05:09 PM>");
  ++clock.now.seconds;
  EXPECT_EQ(Build("a.txt"), "<DateCreated,2/29/2024 1:05:10 PM>");
}

// The name's box may be off: a custom name is used and entered all the same.
TEST_F(NewNameTest, ACustomNameIsEnteredOnce) {
  Set("Combo_Original", "1");
  Set("Check_Original", "0");
  pages.ClearFilenameHistory();  // the sample has entered what stood there
  Set("Combo_OriginalName", "Trip");
  EXPECT_EQ(Build("a.txt"), "-0001.txt");
  Build("b.txt");
  EXPECT_EQ(settings.Combo_OriginalName.Items(), std::vector<std::string>{"Trip"});
  Set("Combo_OriginalName", "");
  Build("a.txt");
  EXPECT_EQ(settings.Combo_OriginalName.Items(), std::vector<std::string>{"Trip"});
}

TEST_F(NewNameTest, HistoriesKeepWhatWasUsed) {
  Set("TabIndex", "2");
  const auto use = [this](const std::string& find) {
    Set("Combo_Find", find);
    Build("a");
  };
  use("Abc");
  Set("Combo_Replace", "with");
  use("x");
  use("aBC");  // known in another case: nothing is entered, nothing moves
  EXPECT_EQ(settings.Combo_Find.Items(), (std::vector<std::string>{"x", "Abc"}));
  EXPECT_EQ(settings.Combo_Replace.Items(), std::vector<std::string>{"with"});
  // The search ends with the 21st item.
  for (int i = 0; i < 19; ++i) use("n" + std::to_string(i));
  use("abc");
  EXPECT_EQ(settings.Combo_Find.Items().size(), 21U);
  use("one more");
  use("abc");
  EXPECT_EQ(settings.Combo_Find.Items().size(), 23U);
  EXPECT_EQ(settings.Combo_Find.Items().front(), "abc");
  EXPECT_EQ(settings.Combo_Find.Value(), "abc");
  for (const char* button : {"PushButton_ClearComboBox", "Cmd_ClearComboBoxName"}) {
    settings.Combo_OriginalName.AddItem("x");
    settings.Combo_Find.AddItem("x");
    settings.Combo_Replace.AddItem("x");
    dynamic_cast<Button*>(screen.Find(button))->Press();
    const bool clearsNames = std::string(button) == "Cmd_ClearComboBoxName";
    EXPECT_EQ(settings.Combo_OriginalName.Items().empty(), clearsNames);
    EXPECT_EQ(settings.Combo_Find.Items().empty(), !clearsNames);
    EXPECT_EQ(settings.Combo_Replace.Items().empty(), !clearsNames);
  }
  EXPECT_EQ(settings.Combo_Replace.Value(), "with");  // the texts stay
}

TEST(ApplyMask, KnowsTwoModes) {
  EXPECT_EQ(ApplyMask("000", 2, "1"), "001");
  EXPECT_EQ(ApplyMask("000", 0, "1"), "");
}

}  // namespace
}  // namespace tallowbrook
