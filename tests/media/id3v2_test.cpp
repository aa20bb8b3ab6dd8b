// What a version 2 tag reads as, built byte by byte; what Update makes of a file's bytes, and what
// it leaves where it fails.
#include <filesystem>
#include <functional>

#include "media/mp3_id3v2.h"
#include "tests/support/media_fixture.h"

namespace tallowbrook {
namespace {

using namespace std::string_literals;
using Tag = cMP3ID3v2;

struct TextProperty {
  const char* id;
  const std::string& (Tag::*get)() const;
  void (Tag::*set)(std::string_view);
};

// clang-format off
const TextProperty properties[] = {
    {"WOAR", &Tag::ArtistURL, &Tag::SetArtistURL}, {"WCOM", &Tag::BuyURL, &Tag::SetBuyURL},
    {"WOAF", &Tag::AudioURL, &Tag::SetAudioURL}, {"TCOP", &Tag::Copyright, &Tag::SetCopyright},
    {"TCOM", &Tag::Composer, &Tag::SetComposer}, {"TOPE", &Tag::OriginalArtist, &Tag::SetOriginalArtist},
    {"WXXX", &Tag::LinkTo, &Tag::SetLinkTo}, {"PCNT", &Tag::PlayCounter, &Tag::SetPlayCounter},
    {"TENC", &Tag::EncodedBy, &Tag::SetEncodedBy}, {"TIT2", &Tag::Title, &Tag::SetTitle},
    {"TPE1", &Tag::Artist, &Tag::SetArtist}, {"TALB", &Tag::Album, &Tag::SetAlbum},
    {"TYER", &Tag::Year, &Tag::SetYear}, {"COMM", &Tag::Comment, &Tag::SetComment},
    {"USLT", &Tag::Lyrics, &Tag::SetLyrics}, {"TRCK", &Tag::Track, &Tag::SetTrack}};
// clang-format on

// "version FRAME*texts ...|FRAME=property ...", genres as "number:name" where there is one.
std::string Told(const Tag& tag) {
  std::string text = std::to_string(tag.ID3v2TagVersion());
  for (std::int32_t i = 1; i <= tag.FrameCount(); ++i) {
    text += " " + tag.Frame(i) + "*" + std::to_string(tag.TagsInFrame(i));
  }
  text += "|";
  for (const TextProperty& property : properties) {
    const std::string& value = (tag.*property.get)();
    if (!value.empty()) text.append(property.id).append("=").append(value).append(" ");
  }
  if (tag.Genre() != 255) text += std::to_string(tag.Genre()) + ":";
  return text + tag.OtherGenreName();
}

class Id3v2Read : public MediaTest {
 protected:
  std::uint32_t Load(const std::string& bytes) {
    folder_.Write("f", bytes);
    return NumberOf([&] { tag_.SetMP3File(folder_.Path("f")); });
  }

  Tag tag_{files_};
};

TEST_F(Id3v2Read, WalksTheFramesByPlainSizesAndCharges) {
  const std::string ten = TextFrame("TIT2", "123456789"), end(10, '\0');
  const std::string T = TextFrame("TIT2", "T"), A = TextFrame("TPE1", "A");
  const std::string shortT = ShortFrame("TT2", "\0T"s), shortA = ShortFrame("TP1", "\0A"s);
  const std::string most(496, 'x');
  // clang-format off
  const std::pair<std::string, std::string> rows[] = {
      {TagBytes(4, 100, T + A + end),                       "4 TIT2*1 TPE1*1|TIT2=T TPE1=A "},
      {TagBytes(1, 100, T + end), "1|"}, {TagBytes(5, 100, T + end), "5|"},
      {TagBytes(3, 0x80000000, T + end), "3|"}, {"ID3.", "46|"}, {"ID3\3", "3|"}, {"no tag", "0|"},
      // Charged 16 and the text for each; the fourth is dropped, and what follows it.
      {TagBytes(3, 103, ten + ten + ten + ten + T + end),   "3 TIT2*3|TIT2=123456789 "},
      {TagBytes(3, 104, ten + ten + ten + ten + T + end),   "3 TIT2*4|TIT2=123456789 "},
      {TagBytes(3, 513, TextFrame("TALB", most + "x") + end), "3|"},
      {TagBytes(3, 513, TextFrame("TALB", most) + end),     "3 TALB*1|TALB=" + most + " "},
      // The place in the file ends the walk too: with junk before the tag, sooner.
      {std::string(77, '.') + TagBytes(3, 100, T + A + end), "3 TIT2*1 TPE1*1|TIT2=T TPE1=A "},
      {std::string(78, '.') + TagBytes(3, 100, T + A + end), "3 TIT2*1|TIT2=T "},
      {std::string(200, '.') + TagBytes(3, 100, T + A + end), "3 TIT2*1|TIT2=T "},
      // Flags and an extended header are nothing special; zero bytes follow the end of the file.
      {"ID3\3\7\xff\0\0\0\x64"s + T + end,                  "3 TIT2*1|TIT2=T "},
      {TagBytes(4, 100, "\0\0\0\6\1\0"s + T + end), "4|"}, {TagBytes(3, 100, end + T), "3|"},
      {TagBytes(3, 100, T + FrameHead("TPE1", 40) + "x"),   "3 TIT2*1 TPE1*1|TIT2=T TPE1=x "},
      {TagBytes(3, 0x7FFFFFFF, FrameHead("TALB", 0x7FFFFFEF) + "x"), "3 TALB*1|TALB=x "},
      {TagBytes(3, 0x7FFFFFFF, FrameHead("TALB", 0x7FFFFFFF)), "3|"},
      {TagBytes(3, 100, FrameHead("TIT2", 0) + T + end),          "3 TIT2*2|TIT2=T "},
      {TagBytes(3, 100, FrameBytes("\xC4QQ\x80", "") + T + end),  "3 ÄQQ€*1 TIT2*1|TIT2=T "},
      {TagBytes(3, 100, T + "T\xFF"),                       "3 TIT2*1 T\u00ff\0\0*1|TIT2=T "s},
      // Three letters, no flags, charged 9.
      {TagBytes(2, 22, shortT + shortA), "2 TIT2*1 TPE1*1|TIT2=T TPE1=A "},
      {TagBytes(2, 21, shortT + shortA), "2 TIT2*1|TIT2=T "},
      {TagBytes(2, 200, ShortFrame("TAL", "a") + ShortFrame("COM", "c") + ShortFrame("TRK", "t") +
                        ShortFrame("TEN", "e") + ShortFrame("TYE", "y") + ShortFrame("TCO", "g") +
                        ShortFrame("PIC", "p") + ShortFrame("tt2", "p") + "\0\0\0"s),
       "2 TALB*1 COMM*1 TRCK*1 TENC*1 TYER*1 TCON*1 *2|TENC=e TALB=a TYER=y COMM=c TRCK=t g"},
  };
  // clang-format on
  for (const auto& [bytes, told] : rows) {
    EXPECT_EQ(Load(bytes), 0u) << told;
    EXPECT_EQ(Told(tag_), told);
    EXPECT_EQ(tag_.HasID3v2Tag(), bytes != "no tag");
  }
}

TEST_F(Id3v2Read, FieldsAreTheFramesBytesWithoutZeros) {
  const std::string end(10, '\0');
  // clang-format off
  const std::tuple<std::string, std::string, std::string> rows[] = {
      {"TIT2", "\0 a\0b "s, "TIT2= ab  "}, {"TIT2", "\1\xFF\xFE" "a\0\x82\0"s, "TIT2=\1ÿþa‚ "},
      {"COMM", "\0eng\0text"s, "COMM=engtext "}, {"USLT", "\0eng\0text"s, "USLT=engtext "},
      {"WXXX", "\0what\0http"s, "WXXX=whathttp "}, {"PCNT", "\0\0\0A"s, "PCNT=A "}, {"APIC", "\0x"s, ""},
      {"tit2", "x", ""}, {"TCON", "(17)", "17:Rock"}, {"TCON", "\0(17)"s, "17:Rock"},
      {"TCON", "(17)X", "17:Rock"}, {"TCON", "(17)XY", "17:XY"}, {"TCON", "a(0)(9)\xE9", "0:(9)é"},
      {"TCON", "(123)", "123:"}, {"TCON", "( 9 )", "9:Metal"}, {"TCON", "(255)xy", "xy"},
      {"TCON", "(300)", "(300)"}, {"TCON", "(256)", "(256)"}, {"TCON", "(-1)", "(-1)"}, {"TCON", "()", "()"},
      {"TCON", "(RX)", "(RX)"}, {"TCON", ")17(", ")17("}, {"TCON", ")(17)", ")(17)"}, {"TCON", "(17", "(17"},
      {"TCON", "17)", "17)"}, {"TCON", "R\xF6" "ck", "Röck"}, {"TCON", "((17)x)", "((17)x)"},
      {"TCON", "(" + std::string(500, '9') + ")", "(" + std::string(500, '9') + ")"},
  };
  // clang-format on
  for (const auto& [id, payload, fields] : rows) {
    EXPECT_EQ(Load(TagBytes(3, 2000, FrameBytes(id, payload)) + end), 0u);
    EXPECT_EQ(Told(tag_), "3 " + id + "*1|" + fields);
  }
  std::string twice;
  for (const auto& [id, payload] : {std::pair("COMM", "a"),
                                    {"TCON", "(9)"},
                                    {"TIT2", "a"},
                                    {"COMM", "b"},
                                    {"TCON", "x"},
                                    {"TIT2", "b"},
                                    {"COMM", "c"}}) {
    twice += FrameBytes(id, payload);
  }
  EXPECT_EQ(Load(TagBytes(3, 2000, twice) + end), 0u);
  EXPECT_EQ(Told(tag_), "3 COMM*3 TCON*2 TIT2*2|TIT2=b COMM=a\0\r\nb\0\r\nc 9:x"s);
  const std::string genres = FrameBytes("TCON", "(9)") + FrameBytes("TCON", "(255)xy");
  EXPECT_EQ(Load(TagBytes(3, 2000, genres) + end), 0u);
  EXPECT_EQ(Told(tag_), "3 TCON*2|xy") << "255 is taken, not left out";
}

TEST_F(Id3v2Read, SettersReplaceTheFrameAndOperationsLeaveTheFields) {
  EXPECT_EQ(NumberOf([&] { tag_.SetTitle("T"); }), failureObjectNotSet);
  EXPECT_EQ(tag_.Title(), "T");
  const std::string frames = TextFrame("TIT2", "a") + TextFrame("TPE1", "b");
  ASSERT_EQ(Load(TagBytes(3, 200, frames + TextFrame("TIT2", "c"))), 0u);
  tag_.SetTitle("é漢");
  tag_.AddTag("TPE1", "more");
  tag_.AddTag("Äé", "");
  tag_.RemoveFrame("TPE1");
  tag_.SetGenre(17);
  tag_.SetOtherGenreName("x");
  EXPECT_EQ(Told(tag_), "3 TIT2*1 Äé*1 TCON*1|TIT2=é漢 TPE1=b 17:x");
  EXPECT_EQ(tag_.TagsInFrame("none") + tag_.TagsInFrame(4), 0);
  EXPECT_EQ(NumberOf([&] { tag_.Frame(4); }), failureSubscript);
  EXPECT_EQ(NumberOf([&] { tag_.RemoveFrame(0); }), failureSubscript);
  EXPECT_EQ(NumberOf([&] { tag_.RemoveTag("TIT2", 2); }), failureInvalidArgument);
  EXPECT_TRUE(failure_.source.ends_with("_tests.cMP3ID3v2")) << failure_.source;
  tag_.RemoveFrame(2);
  for (const TextProperty& property : properties) {
    (tag_.*property.set)(property.id);
    EXPECT_EQ((tag_.*property.get)(), property.id);
    EXPECT_EQ(tag_.Frame(tag_.FrameCount()), property.id) << "at the end";
    EXPECT_EQ(tag_.TagsInFrame(property.id), 1);
  }
  EXPECT_EQ(tag_.FrameCount(), 17);
}

TEST_F(Id3v2Read, RaisesForWhatCannotBeReadAndKeepsWhatWas) {
  EXPECT_EQ(Load(""), failureInvalidArgument);
  const std::string T = TextFrame("TIT2", "T");
  EXPECT_EQ(Load(TagBytes(3, 200, T + FrameHead("TPE1", 0xFFFFFFFF) + T)), failureInvalidArgument);
  EXPECT_EQ(Told(tag_), "3 TIT2*1|TIT2=T ");
  EXPECT_EQ(NumberOf([&] { tag_.SetMP3File(folder_.Path("missing")); }), failureFileNotFound);
  EXPECT_TRUE(failure_.source.ends_with("_tests.cMP3ID3v1")) << "the other reader's name is wanted";
  EXPECT_EQ(Told(tag_), "0|");
  EXPECT_FALSE(folder_.Exists("missing"));
}

// In seconds each if a frame cost what all those before it are.
TEST_F(Id3v2Read, TakesAnyNumberOfFrames) {
  std::string different, alike;
  for (std::uint32_t i = 0; i < 100000; ++i) different += FrameHead(BigEndianBytes(i + 1), 0);
  for (int i = 0; i < 200000; ++i) alike += ShortFrame("COM", "");
  EXPECT_EQ(Load(TagBytes(3, 0x7FFFFFFF, different)), 0u);
  EXPECT_EQ(tag_.FrameCount(), 100000);
  EXPECT_EQ(Load(TagBytes(2, 0x7FFFFFFF, alike)), 0u);
  EXPECT_EQ(tag_.TagsInFrame("COMM"), 200000);
}

using Edit = std::function<void(cMP3ID3v2&)>;
using NameList = std::vector<std::string>;

const std::string audio = "\xFF\xFB" + std::string(3000, 'a');

// A tag as it is written: always of version 3, and closed by four zero bytes.
std::string Image(std::uint32_t size, const std::string& frames) {
  return TagBytes(3, size, frames) + std::string(4, '\0');
}

// A title that makes the image that long, alone in it.
std::string TitleFor(std::size_t imageSize) {
  return std::string(imageSize - Image(0, TextFrame("TIT2", "")).size(), 't');
}

class Id3v2Write : public MediaTest {
 protected:
  // What Update raised, 0 for nothing. The file is read, edited and updated.
  std::uint32_t Run(const std::string& bytes, const Edit& edit) {
    cMP3ID3v2 tag(files_);
    tag.SetMP3File(folder_.Write("f", bytes));
    edit(tag);
    return Update(tag);
  }
  std::uint32_t Update(cMP3ID3v2& tag) {
    const std::uint32_t number = NumberOf([&] { tag.Update(); });
    EXPECT_TRUE(number == 0 || failure_.source.ends_with("_tests.cMP3ID3v2")) << failure_.source;
    return number;
  }

  TemporaryFilesIn temporary_{folder_.MakeFolder("temporary")};
};

TEST_F(Id3v2Write, PutsEachFrameBehindAZeroByteInTheOrderOfTheStore) {
  // clang-format off
  const std::pair<Edit, std::string> rows[] = {
      {[](auto&) {}, ""}, {[](auto& t) { t.SetTitle("Hi"); }, TextFrame("TIT2", "Hi")},
      {[](auto& t) { t.SetTitle(""); t.SetYear("\u20ac\u6f22"); t.SetTitle("x"); },
       TextFrame("TYER", "\x80?") + TextFrame("TIT2", "x")},
      {[](auto& t) { t.SetComment("c"); t.SetLyrics("l"); t.SetLinkTo("w"); t.SetPlayCounter("9"); },
       FrameBytes("COMM", "\0\0\0c"s) + FrameBytes("USLT", "\0\0l"s) +
           FrameBytes("WXXX", "\0\0w"s) + TextFrame("PCNT", "9")},
      {[](auto& t) { t.SetGenre(17); }, TextFrame("TCON", "(17)")},
      {[](auto& t) { t.SetOtherGenreName("x"); }, TextFrame("TCON", "(255)x")},
      {[](auto& t) { t.AddTag("LONGER", "1"); t.AddTag("AB", "2"); t.AddTag("AID3", "3"); t.AddTag("LONGER", "4"); },
       TextFrame("LONG", "1") + TextFrame("LONG", "4") + TextFrame("AB\0\0"s, "2")},
      {[](auto& t) { t.AddTag("ID3x", ""); t.RemoveTag("ID3x", 1); }, ""},
      {[](auto& t) { t.AddTag("PRIV", "1"); t.RemoveTag("PRIV", 1); t.RemoveFrame("PRIV");
          t.AddTag("PRIV", "2"); }, TextFrame("PRIV", "2")},
  };
  // clang-format on
  for (const auto& [edit, frames] : rows) {
    EXPECT_EQ(Run(audio, edit), 0u);
    EXPECT_TRUE(folder_.Read("f") == Filled(Image(2048, frames), 2048, '\0') + audio) << frames;
  }
}

// Padding before the whole old file, then the image over the front or over the old tag.
TEST_F(Id3v2Write, GoesOverATagThatIsLargerAndElseBeforeTheFile) {
  const std::string old = TextFrame("TIT2", "old"), rest = std::string(1985, 'r') + audio;
  constexpr std::size_t whole = 65535;
  // clang-format off
  const struct {
    std::string before;
    std::size_t image, padding, at;  // at: where the image goes
    std::uint32_t size, raised;      // size: as the new tag tells it
  } rows[] = {
      {TagBytes(3, 2048, old) + rest, 2047, 0, 0, 2048, 0}, {TagBytes(3, 2048, old) + rest, 2048, 2048, 0, 4096, 0},
      {std::string(77, '.') + TagBytes(3, 2048, old) + rest, 100, 0, 77, 2048, 0},
      // A sync-safe size is taken for a larger one, and the audio behind the real tag is overwritten.
      {TagBytes(4, 3958, Filled(old, 2028, '\0')) + audio, 3000, 0, 0, 3958, 0},
      {"ID3", 100, 2048, 0, 2048, 0}, {TagBytes(3, 0xFFFFFFFF, "") + rest, 100, 2049, 0, 2048, 0},
      {TagBytes(3, 0x80000000, "") + rest, 100, 0, 0, 0, failureOverflow},
      {TagBytes(3, whole, "") + rest, whole - 1, 0, 0, whole, 0},
      {TagBytes(3, whole + 1, "") + rest, 100, 0, 0, 0, failureOverflow},
      {audio, 63487, 63488, 0, 63488, 0}, {audio, 63488, 0, 0, 0, failureOverflow},
      {audio, whole + 9999, 0, 0, 0, failureOverflow},
  };
  // clang-format on
  int number = 0;
  for (const auto& row : rows) {
    const std::string title = TitleFor(row.image);
    EXPECT_EQ(Run(row.before + ".", [&](auto& tag) { tag.SetTitle(title); }), row.raised) << number;
    std::string after = std::string(row.padding, '\0') + row.before + ".";
    if (row.raised == 0)
      after.replace(row.at, row.image, Image(row.size, TextFrame("TIT2", title)));
    EXPECT_TRUE(folder_.Read("f") == after) << number;
    EXPECT_EQ(folder_.Names("temporary"), NameList{}) << number;
    ++number;
  }
  // Through a link, the song grows and the link stays one.
  folder_.Write("f", audio);
  folder_.MakeLink("link", "f");
  Tag tag(files_);
  tag.SetMP3File(folder_.Path("link"));
  tag.SetTitle("T");
  tag.Update();
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("link")));
  EXPECT_NE(folder_.Read("f"), audio);
}

TEST_F(Id3v2Write, FailsBeforeTheFileIsTouched) {
  const std::string unknown = TagBytes(2, 100, ShortFrame("PIC", "p")) + "\0\0\0"s;
  const Edit none = [](auto&) {};
  EXPECT_EQ(Run(unknown, none), failureInvalidArgument) << "no id to write";
  EXPECT_EQ(Run(unknown, [](auto& tag) { tag.RemoveFrame(""); }), 0u);
  const Edit lost = [](auto& tag) { tag.AddTag("A", ""), tag.RemoveTag("A", 1); };
  EXPECT_EQ(Run(audio, lost), failureInvalidArgument);
  EXPECT_EQ(Run(audio, [](auto& tag) { tag.SetTitle(std::string(65535, 't')); }), failureOverflow);
  EXPECT_TRUE(folder_.Read("f") == audio);
  EXPECT_EQ(Run(audio, [&](auto&) { folder_.Write("f"); }), failureInvalidArgument);
  EXPECT_EQ(Run(audio, [&](auto&) { system_.Delete(folder_.Path("f")); }), failureInvalidArgument);
  EXPECT_EQ(folder_.Read("f"), "") << "made, and left empty";
}

}  // namespace
}  // namespace tallowbrook
