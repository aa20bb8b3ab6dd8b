// cMP3ID3v2: the version 2 tag of an MP3 file, as frames of text without their zero bytes.
//
// The reader is simple-minded on purpose: it decodes no encodings, skips no extended header, and
// takes every size for a plain big-endian number. What it reads, Update writes back. Texts are UTF-8
// in the properties, and bytes of Windows-1252 in the frames.
#pragma once

#include <cstdint>
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
  // reads as negative); the fields then hold what was read until there.
  void SetMP3File(std::string_view path);
  // Puts the frames into the file as a tag of version 2.3: over the old tag where it fits, else in
  // front of a copy of the whole file that takes the file's place. Throws Failure; what stays behind
  // then is told at each step in id3v2_writer.cpp.
  void Update();

  bool HasID3v2Tag() const { return tagPosition_ >= 1; }
  // As found, also a version that is none; 0 without a tag.
  std::uint8_t ID3v2TagVersion() const { return version_; }
  std::uint8_t TagVersion() const { return version_; }

  // The frames. Before the first load each throws Failure failureObjectNotSet.
  std::int32_t FrameCount() const;
  // By place, from 1; failureSubscript for another.
  std::string Frame(std::int32_t index) const;
  // How many texts the frame has; 0 for an id that isn't there.
  std::int32_t TagsInFrame(std::string_view id) const;
  std::int32_t TagsInFrame(std::int32_t index) const;
  // Adds one more text to a frame, which is made if it is missing. The fields stay as they are.
  void AddTag(std::string_view id, std::string_view text);
  // Takes a frame with all its texts away; failureInvalidArgument if it isn't there.
  void RemoveFrame(std::string_view id);
  void RemoveFrame(std::int32_t index);
  // Takes one text away, by its number from 1. The frame then stays without a count, and Update
  // fails until it is removed: this is wanted. failureInvalidArgument if there is no such text.
  void RemoveTag(std::string_view id, std::int32_t number);

  // Each setter stores the field and makes its text the frame's only one; the frame moves to the
  // end.
  const std::string& ArtistURL() const;
  const std::string& BuyURL() const;
  const std::string& AudioURL() const;
  const std::string& Copyright() const;
  const std::string& Composer() const;
  const std::string& OriginalArtist() const;
  const std::string& LinkTo() const;
  const std::string& PlayCounter() const;
  const std::string& EncodedBy() const;
  const std::string& Title() const;
  const std::string& Artist() const;
  const std::string& Album() const;
  const std::string& Year() const;
  const std::string& Comment() const;
  const std::string& Lyrics() const;
  std::uint8_t Genre() const;
  const std::string& OtherGenreName() const;
  const std::string& Track() const;
  void SetArtistURL(std::string_view text);
  void SetBuyURL(std::string_view text);
  void SetAudioURL(std::string_view text);
  void SetCopyright(std::string_view text);
  void SetComposer(std::string_view text);
  void SetOriginalArtist(std::string_view text);
  void SetLinkTo(std::string_view text);
  void SetPlayCounter(std::string_view text);
  void SetEncodedBy(std::string_view text);
  void SetTitle(std::string_view text);
  void SetArtist(std::string_view text);
  void SetAlbum(std::string_view text);
  void SetYear(std::string_view text);
  void SetComment(std::string_view text);
  void SetLyrics(std::string_view text);
  void SetGenre(std::uint8_t number);
  void SetOtherGenreName(std::string_view text);
  void SetTrack(std::string_view text);

  static std::string_view GenreName(std::uint8_t number);

 private:
  Files& files_;
  std::string path_;
  std::int32_t tagPosition_ = 0;  // from 1, directly behind "ID3"; 0 without a tag
  std::uint8_t version_ = 0;
};

}  // namespace tallowbrook
