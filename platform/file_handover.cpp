#include "platform/file_handover.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <thread>

#include "platform/file_bytes.h"

namespace tallowbrook {
namespace {

// No text that anybody writes holds a NUL. Each is followed by a place in hexadecimal digits.
constexpr std::size_t wordSize = 9;
constexpr std::string_view carried("\0carried\0", wordSize);
constexpr std::string_view dropped("\0dropped\0", wordSize);
constexpr std::size_t digits = 16;
constexpr std::size_t markSize = wordSize + digits;

constexpr off_t blockSize = off_t{1} << 16;

void AppendMark(int file, std::string_view word, off_t place) {
  char number[digits + 1];
  std::snprintf(number, sizeof number, "%016llx", static_cast<unsigned long long>(place));
  std::size_t written = 0;
  WriteAll(file, std::string(word).append(number, digits), written);
}

// Nothing if the disk had no room for all of the mark.
std::optional<off_t> PlaceIn(std::string_view mark) {
  const std::string_view number = mark.substr(wordSize, digits);
  const char* end = number.data() + number.size();
  off_t place = 0;
  const bool isWhole =
      number.size() == digits && std::from_chars(number.data(), end, place, 16).ptr == end;
  return isWhole ? std::optional(place) : std::nullopt;
}

// The byte whose lock (fcntl(2)) announces a replacement.
struct flock AnnouncedByte() {
  struct flock second {};
  second.l_type = F_WRLCK;
  second.l_whence = SEEK_SET;
  second.l_start = 1;
  second.l_len = 1;
  return second;
}

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

bool AnnounceReplacement(int file) {
  struct flock byte = AnnouncedByte();
  return fcntl(file, F_OFD_SETLK, &byte) == 0;
}

void WaitForUnasked() {
  std::this_thread::sleep_for(2 * mostUnasked);
}

bool IsReplacementAnnounced(int file) {
  struct flock byte = AnnouncedByte();
  return fcntl(file, F_OFD_GETLK, &byte) == 0 && byte.l_type != F_UNLCK;
}

void MarkCarried(int file, off_t upTo) {
  AppendMark(file, carried, upTo);
}

void MarkDropped(int file) {
  AppendMark(file, dropped, 0);
}

// Backwards, since a mark stands near the end; blocks overlap, so that none is cut in two.
std::optional<off_t> CarriedUpTo(int file, off_t from) {
  constexpr auto length = static_cast<off_t>(markSize);
  for (off_t end = lseek(file, 0, SEEK_END); end - from >= length;) {
    const off_t start = std::max(from, end - blockSize);
    const auto block = ReadRange(file, start, end);
    if (!block) return std::nullopt;
    const std::size_t found = block->rfind(carried);
    const std::size_t searched = found == std::string::npos ? 0 : found;
    if (block->find(dropped, searched) != std::string::npos) return std::nullopt;
    if (found != std::string::npos) return PlaceIn(std::string_view(*block).substr(found));
    end = start == from ? from : start + length - 1;
  }
  return std::nullopt;
}

}  // namespace tallowbrook
