// The load, and the properties over fields and frames. The writer is in id3v2_writer.cpp.
//
// Fields and frames are kept apart on purpose: a setter changes both, the operations on frames
// leave the fields alone, and Update looks at the frames only.
#include "media/mp3_id3v2.h"

#include <algorithm>
#include <iterator>

#include "base/code_page.h"
#include "base/decimal.h"
#include "media/buffered_file.h"
#include "media/file_failure.h"
#include "media/genres.h"
#include "media/id3v2_walk.h"
#include "media/tag_search.h"

namespace tallowbrook {
namespace {

constexpr std::string_view genreFrame = "TCON";

// The frame of each field, in the fields' order, and how many zero bytes a setter puts before the
// text: they stand for the empty description and the language that the frame's layout has there.
struct FieldFrame {
  std::string_view id;
  std::size_t zeros = 0;
};

constexpr FieldFrame fieldFrames[] = {
    {"WOAR"}, {"WCOM"}, {"WOAF"}, {"TCOP"}, {"TCOM"}, {"TOPE"},    {"WXXX", 1}, {"PCNT"},
    {"TENC"}, {"TIT2"}, {"TPE1"}, {"TALB"}, {"TYER"}, {"COMM", 2}, {"USLT", 1}, {"TRCK"}};

}  // namespace

std::string_view cMP3ID3v2::GenreName(std::uint8_t number) {
  return tallowbrook::GenreName(number);
}

void cMP3ID3v2::Reset() {
  tagPosition_ = 0;
  version_ = 0;
  for (std::string& text : texts_) text.clear();
  genre_ = 255;
  otherGenreName_.clear();
  store_.emplace();
}

void cMP3ID3v2::SetMP3File(std::string_view path, RandomAccessFile* opened) {
  path_ = path;
  Reset();
  // A file that can't be opened is told in the other reader's name: callers know it by that.
  std::unique_ptr<RandomAccessFile> own;
  if (!opened) own = OpenOrRaise(files_, path_, FileAccess::Read, "cMP3ID3v1");
  BufferedFile reader(opened ? *opened : *own, "cMP3ID3v2");
  const std::int64_t position = FindTagPosition(reader);
  if (position < 1) return;
  tagPosition_ = position;
  WalkTag(reader, position - 1, version_,
          [&](std::string_view id, std::string_view text) { TakeFrame(id, text); });
}

// A later frame replaces the field, save for comments: they all stand in it.
void cMP3ID3v2::TakeFrame(std::string_view id, std::string_view text) {
  store_->Add(id, text);
  if (id == genreFrame) return TakeGenre(text);
  const auto* found = std::ranges::find(fieldFrames, id, &FieldFrame::id);
  if (found == std::end(fieldFrames)) return;
  const auto field = static_cast<Field>(found - std::begin(fieldFrames));
  std::string& value = Text(field);
  if (field != Field::Comment || value.empty()) {
    value = FromCodePage(text);
  } else {
    value.append("\0\r\n", 3).append(FromCodePage(text));
  }
}

// "(17)" and what may follow it; anything else is a name. One character behind the bracket isn't
// enough to be a name: this is wanted.
void cMP3ID3v2::TakeGenre(std::string_view text) {
  const std::size_t open = text.find('('), close = text.find(')');
  const bool hasBrackets = open != text.npos && close != text.npos && open < close;
  const std::optional<std::uint8_t> number =
      hasBrackets ? WholeNumber<std::uint8_t>(text.substr(open + 1, close - open - 1))
                  : std::nullopt;
  if (!number) {
    otherGenreName_ = FromCodePage(text);
    return;
  }
  genre_ = *number;
  const std::string_view behind = text.substr(close + 1);
  otherGenreName_ = behind.size() > 1 ? FromCodePage(behind) : std::string(GenreName(genre_));
}

FrameStore& cMP3ID3v2::Store() {
  if (!store_) Raise(failureObjectNotSet, "cMP3ID3v2");
  return *store_;
}

const FrameStore& cMP3ID3v2::Store() const {
  if (!store_) Raise(failureObjectNotSet, "cMP3ID3v2");
  return *store_;
}

std::int32_t cMP3ID3v2::FrameCount() const {
  return Store().Count();
}

std::string cMP3ID3v2::Frame(std::int32_t index) const {
  return FromCodePage(Store().Id(index));
}

std::int32_t cMP3ID3v2::TagsInFrame(std::string_view id) const {
  return std::max(0, Store().CountTexts(ToCodePage(id)));
}

std::int32_t cMP3ID3v2::TagsInFrame(std::int32_t index) const {
  const FrameStore& store = Store();
  const bool isThere = index >= 1 && index <= store.Count();
  return isThere ? std::max(0, store.CountTexts(store.Id(index))) : 0;
}

void cMP3ID3v2::AddTag(std::string_view id, std::string_view text) {
  Store().Add(ToCodePage(id), ToCodePage(text));
}

void cMP3ID3v2::RemoveFrame(std::string_view id) {
  if (!Store().Remove(ToCodePage(id))) Raise(failureInvalidArgument, "cMP3ID3v2");
}

void cMP3ID3v2::RemoveFrame(std::int32_t index) {
  RemoveFrame(Frame(index));
}

void cMP3ID3v2::RemoveTag(std::string_view id, std::int32_t number) {
  if (!Store().RemoveText(ToCodePage(id), number)) {
    Raise(failureInvalidArgument, "cMP3ID3v2");
  }
}

void cMP3ID3v2::ReplaceFrame(std::string_view id, std::string_view text) {
  Store().Remove(id);
  Store().Add(id, text);
}

void cMP3ID3v2::SetText(Field field, std::string_view text) {
  static_assert(std::size(fieldFrames) == fieldCount);
  Text(field) = text;
  const FieldFrame& frame = fieldFrames[static_cast<std::size_t>(field)];
  ReplaceFrame(frame.id, std::string(frame.zeros, '\0') + ToCodePage(Text(field)));
}

void cMP3ID3v2::ReplaceGenreFrame() {
  ReplaceFrame(genreFrame, "(" + std::to_string(genre_) + ")" + ToCodePage(otherGenreName_));
}

void cMP3ID3v2::SetGenre(std::uint8_t number) {
  genre_ = number;
  ReplaceGenreFrame();
}

void cMP3ID3v2::SetOtherGenreName(std::string_view text) {
  otherGenreName_ = text;
  ReplaceGenreFrame();
}

}  // namespace tallowbrook
