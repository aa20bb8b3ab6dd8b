// The advanced mask over real files: every keyword, the order of replacing, and what stays.
#include "engine/keyword_mask.h"

#include "tests/support/engine_fixture.h"
#include "tests/support/jpeg_bytes.h"

namespace tallowbrook {
namespace {

using std::string_literals::operator""s;

class KeywordMaskTest : public EngineTest {
 protected:
  KeywordMaskTest() { Set("TabIndex=3"); }

  std::string Expand(const std::string& mask, std::string_view fileName) {
    Set("RTxt_Unique_Other", mask);
    return names.BuildNewName(fileName, 0, folder.Path());
  }
};

TEST_F(KeywordMaskTest, KeywordsBecomeFactsOfTheFile) {
  folder.Write("a.b.txt");
  folder.SetTime("a.b.txt", 951780600);  // 28 February 2000, 23:30:00, in universal time
  clock.offset = 3600;
  const std::string name = folder.Path().substr(0, folder.Path().size() - 1);
  const std::string created = FormatDate(UniversalDate(disk.Facts(folder.Path("a.b.txt"))->created),
                                         "d dd m mm yy yyyy", EnglishDateNames());
  folder.Write("p.JPG", PhotoTakenAt("2011:07:08 09:00:11"));
  folder.Write("none.jpeg");
  const std::string tenths = Bytes(ByteOrder::Little, 300, 4) + Bytes(ByteOrder::Little, 10, 4);
  folder.Write("tenth.jpg", Photo(ByteOrder::Little, {{282, 5, 1, tenths}}, {}));
  struct Row {
    std::string file, mask, expected;
  };
  // clang-format off
  const Row rows[] = {
      {"a.b.txt", "<folder>|<filename>|<fullfilename>|<ext>", name.substr(name.rfind('/') + 1) + "|a.b|a.b.txt|txt"},
      {"a.b.txt", "<d> <dd> <m> <mm> <yy> <yyyy>", "29 29 2 02 24 2024"},
      {"a.b.txt", "<fcd> <fcdd> <fcm> <fcmm> <fcyy> <fcyyyy>", created},
      {"a.b.txt", "<fmd> <fmdd> <fmm> <fmmm> <fmyy> <fmyyyy>", "29 29 2 02 00 2000"},
      {"p.JPG", "<exif_d> <exif_dd> <exif_m> <exif_mm> <exif_yy> <exif_yyyy>", "8 08 7 07 11 2011"},
      {"p.JPG", "<exif_h> <exif_hh> <exif_M> <exif_MM> <exif_s> <exif_ss>", "9 09 0 00 11 11"},
      {"p.JPG", "<exif_width>x<exif_height> <exif_xres> <exif_yres>", "4000x3000 72 300"}, {"tenth.jpg", "<exif_xres>", "3000"},
      {"none.jpeg", "<exif_d>.<exif_mm>.<exif_yyyy> <exif_yy> <exif_h><exif_width>", "30.12.1899 99 0"},
      {"a.b.txt", "<exif_d><exif_width>-", "-"}, {"p.JPG", "<exif_D>", "<exif_D>"},
      // Without a file its dates are the present one.
      {"gone.txt", "<fcd>.<fmmm>.<fcyyyy>", "29.02.2024"},
      {"a.b.txt", "no keyword", "no keyword"}, {"a.b.txt", "<FILENAME> <xyz>", "<FILENAME> <xyz>"},
      {"abcdef.x", "<left,3>|<LEFT,2>|<right,2>|<MID,2,3>|<mid,5,9>|<mid,9,1>", "abc|ab|ef|bcd|ef|"},
      {"\xC3\xA4\xE2\x82\xAC.x", "<left,1><right,1><mid,2,1>", "\xC3\xA4\xE2\x82\xAC\xE2\x82\xAC"},
      {"ab.x", "<left,3>|<left,2.5>|<left, 1 >|<left,1,x>", "ab|ab|a|a"},
      // What is no number takes the length before it, or none.
      {"abc.x", "<left,x><left,2>", "<left,x><left,2>"}, {"abc.x", "<left,2><left,x><left,>", "ababab"},
      {"abc.x", "<left,0>-<left,2>", "<left,0>-<left,2>"}, {"abc.x", "<left,-1>", "<left,-1>"}, {"abc.x", "<left,3", "<left,3"},
      {"abc.x", "<mid,0,1>-<mid,1,1>", "<mid,0,1>-<mid,1,1>"}, {"abc.x", "<mid,1>|<mid,1,-1>", "<mid,1>|<mid,1,-1>"},
      {"abc.x", "<mid,?,?>-<left,?>-<right,?>", "--"},
      // One after the other, so that a file's name can bring keywords in; functions don't nest.
      {"<ext>-<yy>.x", "<filename>", "x-24"}, {"<filename>.x", "<ext><filename>", "x"},
      {"abc.x", "<left,<ext>>", "<left,x>"}, {"<left,2>.x", "<filename>", "<l"},
  };
  // clang-format on
  for (const Row& row : rows) EXPECT_EQ(Expand(row.mask, row.file), row.expected) << row.mask;
  EXPECT_FALSE(folder.Exists("gone.txt"));
}

TEST_F(KeywordMaskTest, FunctionsAreReplacedInTwentySixPasses) {
  std::string mask, expected;
  for (int n = 1; n <= 28; ++n) {
    const std::string token = "<left," + std::to_string(n) + ">";
    mask += token + token;
    const std::string cut = std::string("abcdefghijklmnopqrstuvwxyz0123").substr(0, std::size_t(n));
    expected += n <= 26 ? cut + cut : token + token;
  }
  EXPECT_EQ(Expand(mask, "abcdefghijklmnopqrstuvwxyz0123.x"), expected);
  // A step that would make too much of texts that bring each other in is left out.
  std::string name;
  for (int i = 0; i < 25; ++i) name += "<left,250>";
  EXPECT_LE(Expand("<filename>.<ext>", name + ".x").size(), std::size_t{64} << 10);
}

TEST(Created, IsInUniversalTimeFrom1900On) {
  FileFacts facts;
  facts.created = ParseDateText("12/31/1899")->seconds - secondsToPosixEpoch;
  EXPECT_EQ(GeneralDateText(*GetFileCreated(facts)), "12/31/1899");
  facts.created -= 2 * 24 * 3600;
  EXPECT_EQ(GetFileCreated(facts).value_or(Date{}), Date{});
}

}  // namespace
}  // namespace tallowbrook
