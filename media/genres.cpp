#include "media/genres.h"

#include <iterator>
#include <optional>

#include "base/decimal.h"
#include "media/buffered_file.h"
#include "media/file_failure.h"

namespace tallowbrook {
namespace {

// Spelt as users' masks and files know them, odd ones included.
// clang-format off
constexpr std::string_view names[] = {
    "Blues", "Classic Rock", "Country", "Dance", "Disco", "Funk", "Grunge", "Hip Hop",          // 0
    "Jazz", "Metal", "New Age", "Oldies", "Other", "Pop", "R&B", "Rap",                         // 8
    "Reggae", "Rock", "Techno", "Industrial", "Alternative", "Ska", "Death Metal", "Pranks",    // 16
    "Soundtrack", "Euro - Techno", "Ambient", "Trip Hop", "Vocal", "Jazz - Funk", "Fusion",     // 24
    "Trance", "Classical", "Instrumental", "Acid", "House", "Game", "Sound Clip", "Gospel",     // 31
    "Noise", "Alt.Rock", "Bass", "Soul", "Punk", "Space", "Meditative", "Instrumental Pop",     // 39
    "Instrumental Rock", "Ethnic", "Gothic", "Darkwave", "Techno - Industrial", "Electronic",   // 47
    "Pop / Folk", "Eurodance", "Dream", "Southern Rock", "Comedy", "Cult", "Gangsta Rap",       // 53
    "Top 40", "Christian Rap", "Pop / Funk", "Jungle", "Native American", "Cabaret",            // 60
    "New Wave", "Psychedelic", "Rave", "Showtunes", "Trailer", "Lo - fi", "Tribal",             // 66
    "Acid Punk", "Acid Jazz", "Polka", "Retro", "Musical", "Rock 'n'Roll", "Hard Rock",         // 73
    "Folk", "Folk / Rock", "National Folk", "Swing", "Fast Fusion", "Bebob", "Latin",           // 80
    "Revival", "Celtic", "Blue Grass", "Avant Garde", "Gothic Rock", "Progressive Rock",        // 87
    "Psychedelic Rock", "Symphonic Rock", "Slow Rock", "Big Band", "Chorus", "Easy Listening",  // 93
    "Acoustic", "Humour", "Speech", "Chanson", "Opera", "Chamber Music", "Sonata",              // 99
    "Symphony", "Booty Bass", "Primus", "Pr0n Groove", "Satire", "Slow Jam", "Club",            // 106
    "Tango", "Samba", "Folklore", "Ballad", "Power Ballad", "Rhythmic Soul", "Freestyle",       // 113
    "Duet", "Punk Rock", "Drum Solo", "", "Euro - House", "Dance Hall", "Goa",                  // 120
    "Drum & Bass", "Club - House", "Hardcore", "Terror", "Indie", "Brit Pop", "Negerpunk",      // 127
    "Polsk Punk", "Beat", "Christian Gangsta Rap", "Heavy Metal", "Black Metal", "Crossover",   // 134
    "Contemporary Christian", "Christian Rock", "Merengue", "Salsa", "Thrash Metal", "Anime",   // 140
    "JPop", "Synth Pop",                                                                        // 146
};
// clang-format on
static_assert(std::size(names) == 148 && names[17] == "Rock" && names[147] == "Synth Pop");

constexpr std::string_view reader = "GenreLists";

// As Split, but an empty text has no pieces at all: what is asked of it fails.
std::vector<std::string_view> Pieces(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  if (text.empty()) return pieces;
  for (std::size_t end; (end = text.find(separator)) != std::string_view::npos;) {
    pieces.push_back(text.substr(0, end));
    text.remove_prefix(end + separator.size());
  }
  pieces.push_back(text);
  return pieces;
}

std::string_view Piece(const std::vector<std::string_view>& pieces, std::size_t index) {
  if (index >= pieces.size()) Raise(failureSubscript, reader);
  return pieces[index];
}

std::int16_t Number(std::string_view text) {
  const std::optional<std::int16_t> number = WholeNumber<std::int16_t>(text);
  if (!number) Raise(failureOverflow, reader);
  return *number;
}

// An entry stands in the lists before its parts are looked at: one that fails stays there without
// what couldn't be read.
void Fill(std::vector<std::string>& texts, std::vector<std::int16_t>& ids, std::string_view section,
          std::size_t firstLine) {
  texts.assign(1, {});
  ids.assign(1, 0);
  const std::vector<std::string_view> lines = Pieces(section, "\r\n");
  for (std::size_t line = firstLine; line + 1 < lines.size(); ++line) {
    const std::vector<std::string_view> parts = Pieces(lines[line], ",");
    if (!IsNumeric(Piece(parts, 0))) continue;
    texts.emplace_back();
    ids.push_back(0);
    texts.back() = Piece(parts, 1);
    ids.back() = Number(parts[0]);
  }
}

std::string ReadOrCreate(Files& files, const std::string& path) {
  const auto file = OpenOrRaise(files, path, FileAccess::ReadOrCreate, reader);
  std::string text(static_cast<std::size_t>(file->Size()), '\0');
  std::size_t got = 0;
  RaiseOnError(file->Read(0, text, got), reader);
  text.resize(got);
  return text;
}

}  // namespace

std::string_view GenreName(std::uint8_t number) {
  return number < std::size(names) ? names[number] : std::string_view{};
}

void GenreLists::LoadGenreLists(Files& files, const std::string& folder) {
  const std::string text = ReadOrCreate(files, JoinPath(folder, "id3genre.cfg"));
  const std::vector<std::string_view> sections = Pieces(text, "~");
  const std::string_view first = Piece(sections, 0), second = Piece(sections, 1);
  Fill(GenreNamesV1, GenreIdsV1, first, 0);
  // The second section begins in the middle of the line that parts the two.
  Fill(GenreNamesV2, GenreIdsV2, second, 1);
}

}  // namespace tallowbrook
