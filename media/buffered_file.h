// Files as the readers of tags see them: opened or raised, and read through one buffer, so that a
// tag at the front of a file costs one or two reads.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace tallowbrook {

// Throws the Failure of the disk if it can't be opened.
std::unique_ptr<RandomAccessFile> OpenOrRaise(Files& files, const std::string& path,
                                              FileAccess access, std::string_view source);

// Throws the Failure of the disk where reading fails. Outlived by the file.
class BufferedFile {
 public:
  static constexpr std::int64_t leastBlock = 4096;
  static constexpr std::int64_t mostBlock = 262144;

  BufferedFile(RandomAccessFile& file, std::string_view source) : file_(file), source_(source) {}

  std::int64_t Size() const { return file_.Size(); }
  // The bytes from a place on: `wanted` ones, at most mostBlock, or as many as there are before the
  // file's end. Where they have to be read, those that are expected to be wanted next come with
  // them. Valid until the next call.
  std::string_view Bytes(std::int64_t at, std::int64_t wanted, std::int64_t expected = 0);
  // Fills `bytes` from a place on, with zeros behind the file's end.
  void Fill(std::int64_t at, std::span<char> bytes, std::int64_t expected = 0);

 private:
  RandomAccessFile& file_;
  std::string_view source_;
  std::unique_ptr<char[]> buffer_;  // not cleared: it is read into before anybody sees it
  std::int64_t room_ = 0;
  std::int64_t start_ = 0;  // where in the file the buffer begins
  std::int64_t held_ = 0;   // how much of it is filled
};

}  // namespace tallowbrook
