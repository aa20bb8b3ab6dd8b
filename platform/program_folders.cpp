// The decision where the program reads and writes.
#include "platform/program_folders.h"

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "base/text.h"
#include "platform/file_descriptor.h"
#include "platform/files.h"
#include "platform/temporary_name.h"

namespace tallowbrook {
namespace {

// Permission bits say nothing to root and little on network drives: only trying tells.
bool CanWriteIn(const std::string& folder) {
  const std::string probe = JoinPath(folder, TemporaryName());
  FileDescriptor file(open(probe.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (!file.IsOpen()) return false;
  unlink(probe.c_str());
  return true;
}

// An installation puts this file beside the executable. Its folder is everybody's, so nothing is
// kept there, not even by root, who could.
bool IsInstalled(const std::string& folder) {
  return access(JoinPath(folder, "installed").c_str(), F_OK) == 0;
}

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string HomeInPasswordDatabase() {
  std::vector<char> buffer(1 << 14);
  passwd entry;
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0) return {};
  return found != nullptr && found->pw_dir != nullptr ? found->pw_dir : "";
}

// By the desktop's base directory rules a relative $XDG_DATA_HOME counts as none.
std::string DataHome(const std::string& xdgDataHome, const std::string& home) {
  return xdgDataHome.starts_with('/') ? xdgDataHome : JoinPath(home, ".local/share");
}

std::string ProgramPath() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).string();
}

}  // namespace

ProgramFolders FindProgramFolders() {
  const std::string program = ProgramPath();
  return ChooseFolders(program.substr(0, program.rfind('/') + 1), Environment("XDG_DATA_HOME"),
                       HomeFolder());
}

ProgramFolders ChooseFolders(const std::string& program, const std::string& xdgDataHome,
                             const std::string& home) {
  ProgramFolders folders;
  folders.program = WithSlash(program);
  folders.data = folders.program;
  if (!IsInstalled(folders.program) && CanWriteIn(folders.program)) return folders;
  folders.data = JoinPath(DataHome(xdgDataHome, home), "tallowbrook/");
  std::error_code ignored;  // whoever writes there finds out
  std::filesystem::create_directories(folders.data, ignored);
  return folders;
}

std::string ProgramName() {
  const std::string path = ProgramPath();
  return std::string(BaseNameOf(std::string_view(path).substr(path.rfind('/') + 1)));
}

std::string HomeFolder() {
  std::string home = Environment("HOME");
  if (home.empty()) home = HomeInPasswordDatabase();
  return home.empty() ? "/" : WithSlash(home);
}

}  // namespace tallowbrook
