#include "platform/file_handover.h"

#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <string_view>
#include <thread>

#include "platform/file_bytes.h"

namespace tallowbrook {
namespace {

// No text that anybody writes holds a NUL.
constexpr std::size_t markSize = 9;
constexpr std::string_view carried("\0carried\0", markSize);
constexpr std::string_view dropped("\0dropped\0", markSize);

constexpr off_t blockSize = off_t{1} << 16;

}  // namespace

bool LockFile(int file) {
  constexpr int tries = 1000;
  constexpr auto pause = std::chrono::milliseconds(5);
  for (int i = 0; flock(file, LOCK_EX | LOCK_NB) != 0; ++i) {
    if (errno != EWOULDBLOCK && errno != EINTR) return true;
    if (i + 1 == tries) return false;
    std::this_thread::sleep_for(pause);
  }
  return true;
}

void UnlockFile(int file) {
  flock(file, LOCK_UN);
}

bool LeadsTo(const std::string& path, const struct stat& facts) {
  struct stat found;
  return stat(path.c_str(), &found) == 0 && found.st_dev == facts.st_dev &&
         found.st_ino == facts.st_ino;
}

off_t AppendMark(int file, Mark mark) {
  std::size_t written = 0;
  WriteAll(file, mark == Mark::Carried ? carried : dropped, written);
  // Appending leaves the descriptor behind what it wrote, whatever others append since.
  return lseek(file, 0, written > 0 ? SEEK_CUR : SEEK_END) - static_cast<off_t>(written);
}

// Backwards, since a mark stands near the end; blocks overlap, so that none is cut in two.
std::optional<off_t> PlaceBehindMark(int file, off_t from) {
  constexpr auto length = static_cast<off_t>(markSize);
  for (off_t end = lseek(file, 0, SEEK_END); end - from >= length;) {
    const off_t start = std::max(from, end - blockSize);
    const auto block = ReadRange(file, start, end);
    if (!block) return std::nullopt;
    const std::size_t found = block->rfind(carried);
    const std::size_t searched = found == std::string::npos ? 0 : found;
    if (block->find(dropped, searched) != std::string::npos) return std::nullopt;
    if (found != std::string::npos) return start + static_cast<off_t>(found) + length;
    end = start == from ? from : start + length - 1;
  }
  return std::nullopt;
}

}  // namespace tallowbrook
