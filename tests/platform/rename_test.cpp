// Renaming on a real folder: nothing is ever lost to a name that is taken.
//
// Few machines have a file system to mount that ignores case, so this program answers the two
// system calls that would tell the difference itself while a test asks for it: a name is found by
// any of its cases, as the kernel would find it. Else they pass through.
#include "base/letter_case.h"
#include "tests/platform/disk_fixture.h"

namespace {

bool caseIgnored = false;

// The entry that a path leads to when case is ignored; the path itself if there is none.
std::string AnyCase(const char* path) {
  if (!caseIgnored) return path;
  const std::filesystem::path wanted(path);
  for (const auto& entry : std::filesystem::directory_iterator(wanted.parent_path())) {
    const std::string name = entry.path().filename();
    if (tallowbrook::EqualIgnoringCase(name, wanted.filename().string())) return entry.path();
  }
  return path;
}

}  // namespace

extern "C" int lstat(const char* path, struct stat* found) noexcept {
  return fstatat(AT_FDCWD, AnyCase(path).c_str(), found, AT_SYMLINK_NOFOLLOW);
}

extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) noexcept {
  return static_cast<int>(syscall(SYS_renameat2, fromFolder, AnyCase(from).c_str(), toFolder,
                                  AnyCase(to).c_str(), flags));
}

namespace tallowbrook {
namespace {

// The folder holds a (text "A"), b (text "B"), hard (a's second name), folder/, and dangling, a
// link to nothing.
class Rename : public DiskTest {
 protected:
  Rename() {
    std::filesystem::create_hard_link(folder_.Write("a", "A"), folder_.Path("hard"));
    folder_.Write("b", "B");
    folder_.MakeFolder("folder");
    folder_.MakeLink("dangling", "nowhere");
    before_ = folder_.Names();
  }
  ~Rename() override { caseIgnored = false, system_calls::guard = nullptr; }
  FileError Run(const std::string& name, const std::string& newName) {
    return files_.Rename(folder_.Path(), name, newName);
  }

  NameList before_;
};

TEST_F(Rename, RefusesWhatItMustNotDoAndLeavesTheFolderAlone) {
  using enum FileError;
  std::filesystem::create_hard_link(folder_.Path("a"), folder_.Path("A"));
  // clang-format off
  const std::tuple<std::string, std::string, FileError> rows[] = {
      {"a", "b", AlreadyExists}, {"a", "hard", AlreadyExists}, {"a", "folder", AlreadyExists},
      {"a", "dangling", AlreadyExists}, {"folder", "a", AlreadyExists}, {"a", "A", AlreadyExists},
      {"a", "", InvalidName}, {"a", "../a", InvalidName}, {"a", "why?", InvalidName},
      {"a", {"n\0", 2}, InvalidName}, {{"a\0b", 3}, "new", InvalidName}, {"", "new", InvalidName},
      {"folder/../a", "new", InvalidName}, {"missing", "missing", NotFound}, {"a", "a", None},
      {"folder", "folder", None}, {"dangling", "dangling", None}};
  // clang-format on
  for (const auto& [name, newName, error] : rows) {
    EXPECT_EQ(Run(name, newName), error) << name << " to " << newName;
  }
  std::filesystem::remove(folder_.Path("A"));
  EXPECT_EQ(folder_.Names(), before_);
  EXPECT_EQ(folder_.Read("a") + folder_.Read("b"), "AB");
}

TEST_F(Rename, MovesFilesFoldersAndTheLinksThemselves) {
  folder_.Write("\xFF\xFE.txt");
  folder_.Write("line\nend?");
  const std::string longest(255, 'n');
  const std::pair<std::string, std::string> rows[] = {{"folder", "Folder"},
                                                      {"dangling", "dangling 2"},
                                                      {"\xFF\xFE.txt", "\xFE\xFF.txt"},
                                                      {"line\nend?", longest}};
  for (const auto& [name, newName] : rows) EXPECT_EQ(Run(name, newName), FileError::None) << name;
  EXPECT_EQ(folder_.Names(),
            (NameList{"Folder", "a", "b", "dangling 2", "hard", longest, "\xFE\xFF.txt"}));
}

TEST_F(Rename, KeepsItsWordWhereTheSystemCannotRefuseToReplace) {
  using enum FileError;
  // clang-format off
  const std::tuple<std::string, std::string, FileError> rows[] = {
      {"a", "b", AlreadyExists}, {"a", "dangling", AlreadyExists}, {"a", "hard", AlreadyExists},
      {"missing", "missing", NotFound}, {"b", "c", None}, {"c", "b", None}, {"folder", "Folder", None},
      {"Folder", "folder", None}};
  // clang-format on
  const std::map<std::string_view, int> lacking[] = {
      {{"renameat2", ENOSYS}}, {{"renameat2", EINVAL}, {"link", EPERM}}, {{"renameat2", EINVAL}}};
  for (const auto& calls : lacking) {
    const system_calls::Refusing refusing(calls);
    for (const auto& [name, newName, error] : rows) {
      EXPECT_EQ(Run(name, newName), error) << name << " to " << newName;
    }
    EXPECT_EQ(folder_.Names(), before_);
  }
}

TEST_F(Rename, ChangesTheCaseOfANameWhereCaseIsIgnoredAndStillCollidesWithOthers) {
  folder_.Write("ma\xC3\xA4r");
  caseIgnored = true;
  system_calls::guard = [renames = 0](auto& call) mutable {
    return call.name == "renameat2" && ++renames == 3 ? EIO : 0;
  };
  EXPECT_EQ(Run("b", "B"), FileError::Io);
  EXPECT_TRUE(folder_.Exists("b")) << "the old name is put back when the second step fails";
  EXPECT_EQ(Run("b", "MA\xC3\xA4r"), FileError::AlreadyExists);
  EXPECT_EQ(Run("ma\xC3\xA4r", "MA\xC3\x84R"), FileError::None);
  EXPECT_EQ(files_.MovePath(folder_.Path("b"), folder_.Path("B")), FileError::None);
  EXPECT_EQ(folder_.Names(), (NameList{"B", "MA\xC3\x84R", "a", "dangling", "folder", "hard"}));
}

}  // namespace
}  // namespace tallowbrook
