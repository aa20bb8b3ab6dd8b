#include "platform/private_file.h"

#include <sys/stat.h>

#include <cstdlib>

#include "platform/files.h"
#include "platform/program_folders.h"
#include "platform/temporary_file.h"

namespace tallowbrook {

namespace {

// From the root down: most calls find all folders there, so that the last one is tried first.
bool MakeFolders(const std::string& folder) {
  if (mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST) return true;
  const std::size_t parent = folder.rfind('/', folder.size() - 2);
  if (errno != ENOENT || parent == std::string::npos || parent == 0) return false;
  return MakeFolders(folder.substr(0, parent + 1)) &&
         (mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST);
}

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(file, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

}  // namespace

bool WritePrivateFile(const std::string& path, std::string_view bytes) {
  const std::size_t name = NameStart(path);
  if (name < 2 || !MakeFolders(path.substr(0, name))) return false;
  TemporaryFile file(path, O_WRONLY);
  return file.IsOpen() && WriteAll(file.Number(), bytes) && file.Close() == 0 &&
         file.MoveOver(path) == 0;
}

std::string CacheHome() {
  const char* chosen = std::getenv("XDG_CACHE_HOME");
  const bool isAbsolute = chosen != nullptr && *chosen == '/';
  return isAbsolute ? WithSlash(chosen) : WithSlash(JoinPath(HomeFolder(), ".cache"));
}

}  // namespace tallowbrook
