// The tag's fields, in the order of the file: reading and writing walk one table.
//
// Each tag is taken for one of ID3v1.1, with 28 bytes of comment and a track behind them: an older
// one gives the last two characters of its comment up for that. This is wanted.
#include "media/mp3_id3v1.h"

#include <algorithm>
#include <array>

#include "base/code_page.h"
#include "base/text.h"
#include "media/buffered_file.h"
#include "media/file_failure.h"
#include "media/genres.h"

namespace tallowbrook {
namespace {

constexpr std::int64_t tagSize = 128;
constexpr std::string_view marker = "TAG";
constexpr std::size_t trackAt = 126, genreAt = 127;

struct TextField {
  std::string cMP3ID3v1::*text;
  std::size_t width;
};

constexpr TextField textFields[] = {{&cMP3ID3v1::Title, 30},
                                    {&cMP3ID3v1::Artist, 30},
                                    {&cMP3ID3v1::Album, 30},
                                    {&cMP3ID3v1::Year, 4},
                                    {&cMP3ID3v1::Comment, 28}};

constexpr std::string_view reader = "cMP3ID3v1";

using TagBytes = std::array<char, tagSize>;

// The last bytes of the file; zeros where it has lost them meanwhile.
std::string_view ReadTag(RandomAccessFile& file, TagBytes& bytes) {
  bytes.fill('\0');
  std::size_t got = 0;
  RaiseOnError(file.Read(file.Size() - tagSize, bytes, got), reader);
  return {bytes.data(), bytes.size()};
}

// Zero bytes go wherever they stand; a field doesn't end at the first one.
std::string Cleaned(std::string_view field) {
  std::string bytes(field);
  std::erase(bytes, '\0');
  return FromCodePage(TrimBlanks(bytes));
}

// Filled with spaces, not with zero bytes.
std::string Padded(std::string_view text, std::size_t width) {
  std::string bytes = ToCodePage(*LeftCharacters(text, static_cast<std::ptrdiff_t>(width)));
  bytes.resize(width, ' ');
  return bytes;
}

}  // namespace

std::string_view cMP3ID3v1::GenreName(std::uint8_t number) {
  return tallowbrook::GenreName(number);
}

void cMP3ID3v1::SetMP3File(std::string_view path, RandomAccessFile* opened) {
  path_ = path;
  hasTag_ = false;
  for (const TextField& field : textFields) (this->*field.text).clear();
  Genre = 255;
  Track = 0;
  std::unique_ptr<RandomAccessFile> own;
  if (!opened) own = OpenOrRaise(files_, path_, FileAccess::Read, reader);
  RandomAccessFile& file = opened ? *opened : *own;
  // The tag must have something before it.
  if (file.Size() <= tagSize) return;
  TagBytes bytes;
  const std::string_view tag = ReadTag(file, bytes);
  if (!tag.starts_with(marker)) return;
  hasTag_ = true;
  std::size_t at = marker.size();
  for (const TextField& field : textFields) {
    this->*field.text = Cleaned(tag.substr(at, field.width));
    at += field.width;
  }
  Track = static_cast<std::uint8_t>(tag[trackAt]);
  Genre = static_cast<std::uint8_t>(tag[genreAt]);
}

// A new tag begins on the last byte of the file, which is lost, and not behind it. This is wanted.
void cMP3ID3v1::Update() {
  const auto file = OpenOrRaise(files_, path_, FileAccess::WriteOrCreate, reader);
  if (file->Size() <= 0) {
    throw Failure{failureInvalidFile, SourceOf(reader), path_ + " is not a valid MP3 file."};
  }
  if (file->Size() <= tagSize) return;
  TagBytes bytes;
  const bool hasTag = ReadTag(*file, bytes).starts_with(marker);
  std::string tag(marker);
  for (const TextField& field : textFields) tag += Padded(this->*field.text, field.width);
  tag += {'\0', static_cast<char>(Track), static_cast<char>(Genre)};
  const std::int64_t at = file->Size() - (hasTag ? tagSize : 1);
  RaiseOnError(file->Write(at, tag), reader);
}

}  // namespace tallowbrook
