#include "media/buffered_file.h"

#include <algorithm>

#include "media/file_failure.h"

namespace tallowbrook {

std::unique_ptr<RandomAccessFile> OpenOrRaise(Files& files, const std::string& path,
                                              FileAccess access, std::string_view source) {
  FileError error = FileError::Other;
  std::unique_ptr<RandomAccessFile> file = files.Open(path, access, &error);
  if (file == nullptr) RaiseOnError(error, source);
  return file;
}

std::string_view BufferedFile::Bytes(std::int64_t at, std::int64_t wanted, std::int64_t expected) {
  const std::int64_t rest = std::max<std::int64_t>(Size() - at, 0);
  wanted = std::min({wanted, mostBlock, rest});
  if (at < start_ || at + wanted > start_ + held_) {
    const std::int64_t block =
        std::min(std::clamp(std::max(wanted, expected), leastBlock, mostBlock), rest);
    const auto count = static_cast<std::size_t>(block);
    if (room_ < block) buffer_ = std::make_unique_for_overwrite<char[]>(count);
    room_ = std::max(room_, block);
    start_ = at;
    held_ = 0;
    std::size_t got = 0;
    RaiseOnError(file_.Read(at, std::span(buffer_.get(), count), got), source_);
    held_ = static_cast<std::int64_t>(got);
  }
  const std::int64_t count = std::min(wanted, start_ + held_ - at);
  return {buffer_.get() + (at - start_), static_cast<std::size_t>(count)};
}

void BufferedFile::Fill(std::int64_t at, std::span<char> bytes, std::int64_t expected) {
  const std::string_view found = Bytes(at, std::ssize(bytes), expected);
  std::fill(std::copy(found.begin(), found.end(), bytes.begin()), bytes.end(), '\0');
}

}  // namespace tallowbrook
