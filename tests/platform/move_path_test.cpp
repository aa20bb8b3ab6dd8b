// Moving paths on real folders, within a file system and between two: never over anything, and the
// file stays whole at one of the two paths whatever fails.
//
// A file that can't be deleted is made by refusing the call; root may delete any real one. What
// others do meanwhile, they do when the copy stands in place and its folder is flushed.
#include <optional>

#include "tests/platform/disk_fixture.h"

namespace tallowbrook {
namespace {

FileError Move(const std::string& from, const std::string& to) {
  return SystemFiles().MovePath(from, to);
}

// The folder holds a (text "A"), hard (a's second name), folder/ with b in it (text "B"), and link,
// a link to a.
class MovePath : public DiskTest {
 protected:
  MovePath() {
    std::filesystem::create_hard_link(folder_.Write("a", "A"), folder_.Path("hard"));
    folder_.MakeFolder("folder");
    folder_.Write("folder/b", "B");
    folder_.MakeLink("link", "a");
  }
};

TEST_F(MovePath, TakesAnyNameToAnyFolderAndReplacesNothing) {
  using enum FileError;
  // clang-format off
  const std::tuple<std::string, std::string, FileError> rows[] = {
      {"a", "folder/why?\n\x1B\xFF", None}, {"folder/why?\n\x1B\xFF", "a", None},
      {"link", "folder/link", None}, {"folder", "Folder", None}, {"Folder", "Folder", None},
      {"a", "Folder/b", AlreadyExists}, {"a", "hard", AlreadyExists}, {"a", "Folder/link", AlreadyExists},
      {"a", "missing/a", NotFound}, {"missing", "new", NotFound}, {"missing", "missing", NotFound},
      {"Folder", "Folder/in itself", InvalidName}, {"a", {"n\0", 2}, InvalidName},
      {{"a\0", 2}, "new", InvalidName}};
  // clang-format on
  for (const auto& [from, to, error] : rows) {
    EXPECT_EQ(Move(folder_.Path(from), folder_.Path(to)), error) << from << " to " << to;
  }
  EXPECT_EQ(Move("a", folder_.Path("new")), FileError::InvalidName);
  EXPECT_EQ(Move(folder_.Path("a"), "new"), FileError::InvalidName);
  EXPECT_EQ(folder_.Names(), (NameList{"Folder", "a", "hard"}));
  EXPECT_EQ(folder_.Names("Folder"), (NameList{"b", "link"}));
  EXPECT_EQ(folder_.Read("a") + folder_.Read("Folder/b"), "AB");
}

class MoveBetweenFileSystems : public MovePath {
 protected:
  void SetUp() override {
    const std::string other = OtherFileSystem(folder_.Path());
    if (other.empty()) GTEST_SKIP() << "no second file system here";
    other_.emplace(other);
  }
  ~MoveBetweenFileSystems() override { system_calls::guard = nullptr; }
  // When the copy's folder is flushed `others` act; what they make undeletable stays.
  void Let(const std::function<void()>& others) {
    system_calls::guard = [=, this](const system_calls::Call& call) {
      const bool isFlush = call.name == "fsync" && (fcntl(call.file, F_GETFL) & O_DIRECTORY) != 0;
      if (isFlush) others();
      return call.name == "unlink" && call.path == undeletable_ ? EPERM : 0;
    };
  }

  std::string undeletable_;
  std::optional<TemporaryFolder> other_;
};

TEST_F(MoveBetweenFileSystems, RefusesWithoutATrace) {
  other_->Write("taken", "T");
  other_->MakeLink("dangling", "nowhere");
  mkfifo(folder_.Path("pipe").c_str(), 0600);
  undeletable_ = folder_.Path("hard");
  Let([] {});
  const NameList here = folder_.Names(), there = other_->Names();
  using enum FileError;
  // clang-format off
  const std::tuple<std::string, std::string, FileError> rows[] = {
      {"a", "taken", AlreadyExists}, {"a", "dangling", AlreadyExists}, {"a", "missing/a", NotFound},
      {"missing", "new", NotFound}, {"folder", "new", FileError::OtherFileSystem}, {"link", "new", FileError::OtherFileSystem},
      {"pipe", "new", FileError::OtherFileSystem}, {"hard", "new", NotPermitted}};
  // clang-format on
  for (const auto& [from, to, error] : rows) {
    EXPECT_EQ(Move(folder_.Path(from), other_->Path(to)), error) << from << " to " << to;
    EXPECT_EQ(folder_.Names(), here) << from << " to " << to;
    EXPECT_EQ(other_->Names(), there) << from << " to " << to;
  }
  EXPECT_EQ(folder_.Read("hard") + other_->Read("taken"), "AT");
}

// S and C: somebody writes to the source, to the copy. D: the source is deleted. U: it can't be. L:
// it can't be looked at. N: nobody does anything. And what then stands at both places.
TEST_F(MoveBetweenFileSystems, TakesTheCopyBackOnlyWhereItKnowsThatBothAreWhole) {
  const std::string source = folder_.Path("folder/b"), copy = other_->Path("b");
  for (const std::string row :
       {"N: - B", "S: new -", "SC new new", "U: B -", "UC B new", "D: - B", "L: - B"}) {
    Let([&] {
      if (row[0] == 'S') folder_.Write("folder/b", "new");
      if (row[0] == 'U') undeletable_ = source;
      if (row[0] == 'D') std::filesystem::remove(source);
      if (row[0] == 'L') std::filesystem::rename(folder_.Path("folder"), folder_.Path("away"));
      if (row[0] == 'L') folder_.Write("folder");
      if (row[1] == 'C') other_->Write("b", "new");
    });
    folder_.Write("folder/b", "B");
    EXPECT_EQ(Move(source, copy) == FileError::None, row[0] == 'D' || row[0] == 'N') << row;
    const auto here = SystemFiles().ReadWhole(source), there = SystemFiles().ReadWhole(copy);
    EXPECT_EQ(row.substr(0, 3) + here.value_or("-") + " " + there.value_or("-"), row);
    undeletable_.clear();
    std::filesystem::remove(copy);
  }
  EXPECT_EQ(folder_.Read("away/b"), "B");
}

}  // namespace
}  // namespace tallowbrook
