// Files with tags to start from: each kind of frame and head, and the same cut and disturbed.
#include <random>

#include "fuzzing/seeds.h"
#include "tests/support/mp3_bytes.h"

namespace tallowbrook {
namespace {

// Cut at some places, and with some bytes replaced.
void AddDisturbed(Seeds& seeds) {
  std::mt19937 chance(1);  // NOLINT: the same ones each time
  const std::string bytes{"\0\0\0\1\2\3\4\x7f\x80\xff\xfb ITAGD3()9", 20};
  for (const std::string& whole : Seeds(seeds)) {
    for (int i = 0; i < 8 && !whole.empty(); ++i) {
      seeds.push_back(whole.substr(0, chance() % whole.size()));
      std::string disturbed = whole;
      const auto reach = std::min<std::size_t>(whole.size(), 200);
      for (int n = 0; n < 4; ++n) disturbed[chance() % reach] = bytes[chance() % bytes.size()];
      seeds.push_back(std::move(disturbed));
    }
  }
}

}  // namespace

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
