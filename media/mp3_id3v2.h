// cMP3ID3v2: the ID3v2 tag of a song, as frames of text without their zero bytes.
//
// What the format has beyond frames of single bytes is passed over on purpose: encodings, extended
// headers, sizes of seven bits a byte. What was read goes back by Update. Texts are UTF-8 in the
// properties, and bytes of Windows-1252 in the frames.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "media/frame_store.h"
#include "platform/files.h"

namespace tallowbrook {

class cMP3ID3v2 {
 public:
  explicit cMP3ID3v2(Files& files) : files_(files) {}

  const std::string& MP3File() const { return path_; }
  // Takes the path and reads the tag; edits that weren't written are gone. Throws Failure if the
  // file can't be opened or read, or is empty (failureInvalidArgument, as for a frame whose size
  // reads as negative); the fields then hold what was read until there. `opened` is that file where
  // the caller has it open.
  void SetMP3File(std::string_view path, RandomAccessFile* opened = nullptr);
  // Puts the frames into the file as a tag of version 2.3: over the old tag where it fits, else in
  // front of a copy of the whole file that takes the file's place. Throws Failure; what stays
  // behind then is told at each step in id3v2_writer.cpp.
  void Update();

  bool HasID3v2Tag() const { return tagPosition_ >= 1; }
  // As found, also a version that is none; 0 without a tag.
  std::uint8_t ID3v2TagVersion() const { return version_; }
  std::uint8_t TagVersion() const { return version_; }

  // The frames; ids and texts are UTF-8 here too. Before the first load each throws Failure
  // failureObjectNotSet.
  std::int32_t FrameCount() const;
  // By place, from 1; failureSubscript for another.
  std::string Frame(std::int32_t index) const;
  // How many texts the frame has; 0 for one that isn't there or lost its count.
  std::int32_t TagsInFrame(std::string_view id) const;
  std::int32_t TagsInFrame(std::int32_t index) const;
  // Puts a text behind those that a frame has; without such a frame it makes one. No field changes.
  // failureInvalidArgument for a frame without a count.
  void AddTag(std::string_view id, std::string_view text);
  // Takes a frame with all its texts away; failureInvalidArgument if it isn't there.
  void RemoveFrame(std::string_view id);
  void RemoveFrame(std::int32_t index);
  // Takes one text away, by its number from 1. The frame then stays without a count, and Update
  // fails until it is removed: this is wanted. failureInvalidArgument if there is no such text.
  void RemoveTag(std::string_view id, std::int32_t number);

  // Each setter stores the field and makes its text the frame's only one; the frame moves to the
  // end. Before the first load it stores the field and throws Failure failureObjectNotSet.
  const std::string& ArtistURL() const { return Text(Field::ArtistURL); }
  const std::string& BuyURL() const { return Text(Field::BuyURL); }
  const std::string& AudioURL() const { return Text(Field::AudioURL); }
  const std::string& Copyright() const { return Text(Field::Copyright); }
  const std::string& Composer() const { return Text(Field::Composer); }
  const std::string& OriginalArtist() const { return Text(Field::OriginalArtist); }
  const std::string& LinkTo() const { return Text(Field::LinkTo); }
  const std::string& PlayCounter() const { return Text(Field::PlayCounter); }
  const std::string& EncodedBy() const { return Text(Field::EncodedBy); }
  const std::string& Title() const { return Text(Field::Title); }
  const std::string& Artist() const { return Text(Field::Artist); }
  const std::string& Album() const { return Text(Field::Album); }
  const std::string& Year() const { return Text(Field::Year); }
  const std::string& Comment() const { return Text(Field::Comment); }
  const std::string& Lyrics() const { return Text(Field::Lyrics); }
  std::uint8_t Genre() const { return genre_; }
  const std::string& OtherGenreName() const { return otherGenreName_; }
  const std::string& Track() const { return Text(Field::Track); }
  void SetArtistURL(std::string_view text) { SetText(Field::ArtistURL, text); }
  void SetBuyURL(std::string_view text) { SetText(Field::BuyURL, text); }
  void SetAudioURL(std::string_view text) { SetText(Field::AudioURL, text); }
  void SetCopyright(std::string_view text) { SetText(Field::Copyright, text); }
  void SetComposer(std::string_view text) { SetText(Field::Composer, text); }
  void SetOriginalArtist(std::string_view text) { SetText(Field::OriginalArtist, text); }
  void SetLinkTo(std::string_view text) { SetText(Field::LinkTo, text); }
  void SetPlayCounter(std::string_view text) { SetText(Field::PlayCounter, text); }
  void SetEncodedBy(std::string_view text) { SetText(Field::EncodedBy, text); }
  void SetTitle(std::string_view text) { SetText(Field::Title, text); }
  void SetArtist(std::string_view text) { SetText(Field::Artist, text); }
  void SetAlbum(std::string_view text) { SetText(Field::Album, text); }
  void SetYear(std::string_view text) { SetText(Field::Year, text); }
  void SetComment(std::string_view text) { SetText(Field::Comment, text); }
  void SetLyrics(std::string_view text) { SetText(Field::Lyrics, text); }
  void SetGenre(std::uint8_t number);
  void SetOtherGenreName(std::string_view text);
  void SetTrack(std::string_view text) { SetText(Field::Track, text); }

  static std::string_view GenreName(std::uint8_t number);

 private:
  // The properties that are a text of one frame; their frames are told in mp3_id3v2.cpp.
  enum class Field {
    ArtistURL,
    BuyURL,
    AudioURL,
    Copyright,
    Composer,
    OriginalArtist,
    LinkTo,
    PlayCounter,
    EncodedBy,
    Title,
    Artist,
    Album,
    Year,
    Comment,
    Lyrics,
    Track,
  };
  static constexpr std::size_t fieldCount = 16;

  std::string& Text(Field field) { return texts_[static_cast<std::size_t>(field)]; }
  const std::string& Text(Field field) const { return texts_[static_cast<std::size_t>(field)]; }
  void SetText(Field field, std::string_view text);
  FrameStore& Store();
  const FrameStore& Store() const;
  void Reset();
  // Of a frame as it was read; both are bytes.
  void TakeFrame(std::string_view id, std::string_view text);
  void TakeGenre(std::string_view text);
  // Replaces all texts of a frame; both are bytes.
  void ReplaceFrame(std::string_view id, std::string_view text);
  void ReplaceGenreFrame();
  // The file anew, with room for so many bytes at its front.
  std::unique_ptr<RandomAccessFile> InsertPadding(std::int64_t count);

  Files& files_;
  std::string path_;
  std::int64_t tagPosition_ = 0;  // from 1, directly behind "ID3"; 0 without a tag
  std::uint8_t version_ = 0;
  std::array<std::string, fieldCount> texts_;
  std::uint8_t genre_ = 0;
  std::string otherGenreName_;
  std::optional<FrameStore> store_;  // none before the first load
};

}  // namespace tallowbrook
