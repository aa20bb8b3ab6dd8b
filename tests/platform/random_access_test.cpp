// Files read and written in places, and the copy with room at its front.
#include "tests/platform/disk_fixture.h"

namespace tallowbrook {
namespace {

class RandomAccess : public DiskTest {
 protected:
  FileError Open(const std::string& name, FileAccess access) {
    FileError error = FileError::None;
    file_ = files_.Open(folder_.Path(name), access, &error);
    return error;
  }
  FileError CopyPadded(const std::string& name, std::int64_t padding) {
    return files_.CopyPadded(folder_.Path(name), padding, copy_);
  }
  std::string ReadAt(std::int64_t at, std::size_t size) {
    std::string bytes(size, '-');
    std::size_t got = 99;
    EXPECT_EQ(file_->Read(at, bytes, got), FileError::None);
    return bytes.substr(0, got);
  }

  std::unique_ptr<RandomAccessFile> file_;
  PaddedCopy copy_;
};

TEST_F(RandomAccess, ReadsAndWritesInPlacesAndBeyondTheEnd) {
  folder_.Write("f", "0123456789");
  ASSERT_EQ(Open("f", FileAccess::WriteOrCreate), FileError::None);
  EXPECT_EQ(file_->Size(), 10);
  EXPECT_EQ(ReadAt(8, 5) + "|" + ReadAt(10, 5) + "|" + ReadAt(99, 5) + "|" + ReadAt(0, 0), "89|||");
  EXPECT_EQ(file_->Write(9, "ab"), FileError::None);
  EXPECT_EQ(file_->Write(12, "c"), FileError::None);
  EXPECT_EQ(folder_.Read("f"), std::string("012345678ab\0c", 13));
  ASSERT_EQ(Open("f", FileAccess::Read), FileError::None);
  EXPECT_NE(file_->Write(0, "x"), FileError::None);
}

TEST_F(RandomAccess, OpensRegularFilesOnlyAndMakesThemWhereAsked) {
  folder_.MakeFolder("folder");
  folder_.MakeLink("dangling", "nowhere");
  mkfifo(folder_.Path("pipe").c_str(), 0600);
  using enum FileAccess;
  // clang-format off
  const std::tuple<const char*, FileAccess, FileError> rows[] = {
      {"missing", Read, FileError::NotFound}, {"missing/f", WriteOrCreate, FileError::NotFound},
      {"folder", Read, FileError::IsFolder}, {"folder", WriteOrCreate, FileError::IsFolder},
      {"pipe", Read, FileError::Other}, {"dangling", WriteOrCreate, FileError::NotFound},
      {"one", ReadOrCreate, FileError::None}, {"two", WriteOrCreate, FileError::None}};
  // clang-format on
  for (const auto& [name, access, error] : rows) {
    EXPECT_EQ(Open(name, access), error) << name;
    EXPECT_EQ(file_ != nullptr, error == FileError::None) << name;
  }
  EXPECT_EQ(folder_.Names(), (NameList{"dangling", "folder", "one", "pipe", "two"}));
}

// In the folder for temporary files, or beside the original where that is of another mount, can't
// be written or doesn't exist.
TEST_F(RandomAccess, PaddedCopyLiesWhereARenameReachesTheOriginal) {
  const std::string bytes = std::string("a\0b", 3) + std::string(300000, 'x');
  folder_.MakeFolder("music");
  folder_.MakeFolder("temporary");
  chmod(folder_.Write("music/f", bytes).c_str(), 0604);
  folder_.MakeLink("link", "music/f");
  const std::string own = std::filesystem::canonical(folder_.Path("music")).string() + "/";
  const std::pair<std::string, std::string> rows[] = {
      {folder_.Path("temporary"), folder_.Path("temporary/")},
      {folder_.Path("missing"), own},
      {OtherFileSystem(folder_.Path()), own}};
  for (const auto& [temporary, folder] : rows) {
    if (temporary.empty()) continue;
    const TemporaryFilesIn in(temporary);
    for (const auto& [name, padding] : {std::pair("music/f", 0), std::pair("link", 5000)}) {
      ASSERT_EQ(CopyPadded(name, padding), FileError::None) << temporary;
      EXPECT_EQ(copy_.original, own + "f") << temporary;
      EXPECT_EQ(copy_.path.substr(0, copy_.path.rfind('/') + 1), folder) << temporary;
      EXPECT_EQ(copy_.path[folder.size()], '.') << "hidden";
      EXPECT_TRUE(files_.ReadWhole(copy_.path) ==
                  std::string(static_cast<std::size_t>(padding), '\0') + bytes);
      struct stat facts {};
      stat(copy_.path.c_str(), &facts);
      EXPECT_EQ(facts.st_mode & 07777, 0604u);
      files_.Delete(copy_.path);
    }
  }
}

TEST_F(RandomAccess, PaddedCopyThatFailsLeavesNothing) {
  folder_.MakeFolder("folder");
  const TemporaryFilesIn in(folder_.MakeFolder("temporary"));
  folder_.Write("f", "bytes");
  EXPECT_EQ(CopyPadded("missing", 10), FileError::NotFound);
  EXPECT_NE(CopyPadded("folder", 10), FileError::None);
  // What isn't on the disk yet must not let the original be deleted.
  for (const char* call : {"ftruncate", "posix_fallocate", "fsync"}) {
    const system_calls::Refusing refusing({{call, ENOSPC}});
    EXPECT_EQ(CopyPadded("f", 10), FileError::NoSpace) << call;
  }
  EXPECT_EQ(folder_.Names("temporary"), NameList{});
  // An owner that can't be given is none that is missed.
  const system_calls::Refusing refusing({{"fchown", EPERM}});
  EXPECT_EQ(CopyPadded("f", 10), FileError::None);
}

}  // namespace
}  // namespace tallowbrook
