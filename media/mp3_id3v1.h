// cMP3ID3v1: the 128 bytes at the end of an MP3 file, in the layout of ID3v1.1.
//
// An object is turned to one file after the other and opens it anew for each call. Texts are UTF-8
// here and Windows-1252 in the file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace tallowbrook {

class cMP3ID3v1 {
 public:
  explicit cMP3ID3v1(Files& files) : files_(files) {}

  const std::string& MP3File() const { return path_; }
  // Takes the path and reads the tag; edits that weren't written are gone. Throws Failure if the
  // file can't be opened or read: without an open file the object is as after a file without a tag.
  // `opened` is that file where the caller has it open.
  void SetMP3File(std::string_view path, RandomAccessFile* opened = nullptr);
  // Writes the fields into the file. A file of 128 bytes or less takes no tag, which is no failure.
  // Throws Failure: of the open, of the disk, or failureInvalidFile for an empty file, which a
  // missing one becomes.
  void Update();

  // As the last load found it; Update doesn't change it.
  bool HasID3v1Tag() const { return hasTag_; }

  // Plain fields: nothing is checked or cut before it is written.
  std::string Title, Artist, Album, Year, Comment;
  // 255 after a load that found no tag.
  std::uint8_t Genre = 0;
  std::uint8_t Track = 0;

  static std::string_view GenreName(std::uint8_t number);

 private:
  Files& files_;
  std::string path_;
  bool hasTag_ = false;
};

}  // namespace tallowbrook
