// What makes names: genres, masks, texts to find, dates and filters.
#include "engine/keywords.h"
#include "fuzzing/seeds.h"
#include "tests/support/jpeg_bytes.h"
#include "tests/support/mp3_bytes.h"

namespace tallowbrook {

namespace {

const std::string someTime = "\x08\x10\x20\x60";  // in 2021, in POSIX seconds

std::string Mask(const std::string& mask, const std::string& file = {}) {
  return mask + "\na b.Ñame\n" + someTime + "\n" + someTime + "\n" + file;
}

}  // namespace

Seeds GenreSeeds() {
  Seeds seeds = {"",
                 "~",
                 "0,Blues\r\n17,Rock\r\n~\r\n0,Blues\r\n17,Rock\r\n",
                 "1,a,b\r\n\r\n~x\r\n2,c\r\n",
                 "99999,x\r\n~",
                 "-3, y\r\nno number,z\r\n~\r\n 4 ,\r\n"};
  AddDisturbed(seeds);
  return seeds;
}

Seeds MaskSeeds() {
  const std::string photo = PhotoTakenAt("2024:02:29 23:59:59", ByteOrder::Little);
  const std::string tags =
      TagBytes(3, 400, TextFrame("TIT2", "<v2Artist>") + TextFrame("TPE1", "x"));
  const std::string v1 =
      "TAG" + Filled("<v2Title>", 30) + Filled("b", 30) + Filled("c", 35) + "\x11";
  std::string all;
  for (const auto table : {AdvancedKeywords(), TagKeywords()}) {
    for (const Keyword& row : table) all += row.keyword;
  }
  Seeds seeds = {Mask(""),
                 Mask("plain"),
                 Mask(all, photo),
                 Mask(all, tags + "\xFF\xFB" + v1),
                 Mask("<LEFT,2><left,<left,1>><right,-1><right,9>"),
                 Mask("<mid,1,2><mid,x,2><mid,2><Mid,0,1>"),
                 Mask("<filename><<filename>>\nleft,1"),
                 Mask("<v1Title><v2Title><V2GENRENAME>", tags + v1)};
  AddDisturbed(seeds);
  return seeds;
}

Seeds FindReplaceSeeds() {
  Seeds seeds;
  for (const char* choices : {"@\n@\n", "A\n@\n", "C\nA\n", "E\nC\n", "I\nB\n", "B\nB\n"}) {
    for (const char* texts :
         {"a\nb\nbanana.an", "(a+)+$\n$1x$&$$\naaaaaaaaaaaaaaaaaaaaaaaab", "\nx\ny.z",
          "ÄÖ\n\nxäöÄÖ.äö",
          "[^\\w\\s](?=b)|(?<!a).\\b\n<$2>\n\xff"
          "b a.c",
          "(?:(x)|y)*\\1\n$1\nxyxyy", "^|$|a*?\n$&-\nbab", "\xff\n\xfe\n\xff\xff"}) {
      seeds.push_back(std::string(choices) + texts);
    }
  }
  AddDisturbed(seeds);
  return seeds;
}

Seeds DateSeeds() {
  Seeds seeds;
  for (const char* text : {"9/11/2005 7:01:01 AM", "2/29/2000", "2024-2-29 23:59", "12:00 pm",
                           "1/1/100", "12/31/9999 11:59:59 PM", "1/1/29"}) {
    for (const char* pattern : {"dddd mmmm yyyy", "hh:mm:ss q w ww y", "\"d\"\\d h:m", "m/d/yy"}) {
      seeds.push_back(std::string(text) + "\n" + pattern + "\n" + someTime +
                      "\n\x1f\n<DateModified," + text + ">");
    }
  }
  const std::string most(7, '\xff');
  seeds.push_back("\n\n" + most + "\x7f\n" + most + "\x7f\n<dateX");
  AddDisturbed(seeds);
  return seeds;
}

Seeds WildcardSeeds() {
  Seeds seeds = {"*.*\na",   "*.\na.",   "*.\na.b", "readme.*\nREADME", "*a*b?c*\nxaxxbyc",
                 "?.?\na.b", "*.**.*\n", "Ä*\näß",  "a..\na",           "a.*.\na"};
  AddDisturbed(seeds);
  return seeds;
}

}  // namespace tallowbrook
