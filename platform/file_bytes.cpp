#include "platform/file_bytes.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/file_descriptor.h"

namespace tallowbrook {

int ReadToEnd(int file, std::size_t sizeGuess, std::string& bytes) {
  std::size_t filled = 0;
  bytes.resize(sizeGuess + 1);
  for (;;) {
    const ssize_t got = read(file, bytes.data() + filled, bytes.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) {
      bytes.resize(filled);
      return got == 0 ? 0 : errno;
    }
    filled += static_cast<std::size_t>(got);
    if (filled == bytes.size()) bytes.resize(2 * filled + 4096);
  }
}

std::optional<std::string> ReadRange(int file, off_t from, off_t to) {
  std::string bytes(from < to ? static_cast<std::size_t>(to - from) : 0, '\0');
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const ssize_t got = pread(file, bytes.data() + filled, bytes.size() - filled,
                              from + static_cast<off_t>(filled));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::nullopt;
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  bytes.resize(filled);
  return bytes;
}

int WriteAll(int file, std::string_view bytes, std::size_t& written) {
  written = 0;
  while (written < bytes.size()) {
    const ssize_t count = write(file, bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count < 0 ? errno : EIO;
    written += static_cast<std::size_t>(count);
  }
  return 0;
}

void FlushFolderOf(const std::string& path) {
  const std::string folder = path.substr(0, path.rfind('/') + 1);
  const FileDescriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.IsOpen()) fsync(opened.Number());
}

}  // namespace tallowbrook
