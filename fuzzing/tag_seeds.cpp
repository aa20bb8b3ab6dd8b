// Files with tags to start from: each kind of frame and head, and the same cut and disturbed.
#include "fuzzing/seeds.h"
#include "tests/support/mp3_bytes.h"

namespace tallowbrook {
Seeds Id3v1Seeds() {
  const std::string fields = Filled("Title", 30) + Filled("Artist", 30, '\0') + Filled("Album", 30);
  const std::string tag = "TAG" + fields + "1999" + Filled("comment", 29, '\0') + "\7\x11";
  Seeds seeds = {tag, "x" + tag, "xtag" + tag.substr(3),      std::string(200, '\xAA'),
                 "",  "x",       std::string(300, 'y') + tag, "\1" + std::string(400, '\xE9')};
  AddDisturbed(seeds);
  return seeds;
}

Seeds Id3v2Seeds() {
  const std::string audio = "\xFF\xFB" + std::string(40, 'a');
  std::string frames, shortFrames, many;
  for (const char* id : {"WOAR", "WCOM", "WOAF", "TCOP", "TCOM", "TOPE", "WXXX", "PCNT", "TENC",
                         "TIT2", "TPE1", "TALB", "TYER", "COMM", "USLT", "TRCK", "APIC", "COMM"}) {
    frames += TextFrame(id, "text");
  }
  for (const char* id : {"TP1", "TT2", "TAL", "COM", "TRK", "TEN", "TYE"}) {
    shortFrames += ShortFrame(id, "text");
  }
  for (int i = 0; i < 60; ++i) many += TextFrame("TIT2", "");
  const std::string end(4, '\0');
  const auto genre = [&](const char* text) { return TextFrame("TCON", text) + end + audio; };
  Seeds seeds = {"",
                 "ID3",
                 "ID3\3",
                 audio,
                 std::string(4500, '.') + TagBytes(3, 9000, frames) + end + audio,
                 TagBytes(3, 2048, frames) + end + audio,
                 TagBytes(4, 600, frames) + end + audio,
                 TagBytes(2, 300, shortFrames) + end + audio,
                 TagBytes(2, 300, shortFrames + ShortFrame("PIC", "x")) + end + audio,
                 ".." + TagBytes(3, 2048, frames) + end + audio,
                 TagBytes(3, 14, end) + audio,
                 TagBytes(3, 2000, many) + end + audio,
                 TagBytes(3, 100, genre("(17)")),
                 TagBytes(3, 100, genre("(17)Rock")),
                 TagBytes(3, 100, genre("Rock")),
                 TagBytes(3, 0x80000000, frames),
                 TagBytes(3, 0xFFFFFFFF, frames),
                 TagBytes(3, 0x7FFFFFFF, frames + FrameHead("TIT2", 0x7FFFFE00) + "x"),
                 TagBytes(3, 2000, FrameHead("TIT2", 0xFFFFFFFF)),
                 TagBytes(3, 65536, frames) + audio,
                 TagBytes(3, 2000, TextFrame("XID3", "x")) + end + audio};
  AddDisturbed(seeds);
  return seeds;
}

}  // namespace tallowbrook
