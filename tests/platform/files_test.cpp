// The short operations on real files, listings of real folders, the order of names, and names as
// text.
#include "platform/files.h"

#include <algorithm>
#include <random>

#include "base/letter_case.h"
#include "base/text.h"
#include "platform/name_order.h"
#include "tests/platform/disk_fixture.h"

namespace tallowbrook {
namespace {

class SystemFilesTest : public DiskTest {
 protected:
  SystemFilesTest() {
    folder_.Write("file", std::string("a\0b\r\n", 5));
    folder_.MakeFolder("folder");
    folder_.MakeLink("link", "file");
    folder_.MakeLink("dangling", "nowhere");
    mkfifo(folder_.Path("pipe").c_str(), 0600);
  }
};

TEST_F(SystemFilesTest, FactsFollowLinksAndExistsDoesNot) {
  folder_.SetTime("file", 1000000000);
  const FileFacts facts = files_.Facts(folder_.Path("link")).value();
  EXPECT_TRUE(facts.kind == EntryKind::File && facts.size == 5 && facts.modified == 1000000000);
  EXPECT_GE(facts.created, 1000000000);
  EXPECT_EQ(files_.Facts(folder_.Path())->kind, EntryKind::Folder);
  EXPECT_FALSE(files_.Facts(folder_.Path("dangling")));
  EXPECT_TRUE(files_.Exists(folder_.Path("dangling")));
  EXPECT_FALSE(files_.Exists(folder_.Path("missing")));
}

TEST_F(SystemFilesTest, ReadWholeGivesEveryByteOfFilesOnlyAndDeleteTakesNoFolder) {
  const std::string big(300'001, 'x');
  EXPECT_TRUE(files_.ReadWhole(folder_.Write("file 2", big)) == big);
  EXPECT_EQ(files_.ReadWhole(folder_.Write("file 3")), "");
  EXPECT_EQ(files_.ReadWhole(folder_.Path("link")), std::string("a\0b\r\n", 5));
  EXPECT_NE(files_.ReadWhole("/proc/version").value_or(""), "");  // its size reads as 0
  for (const char* name : {"folder", "missing", "dangling", "pipe"}) {
    EXPECT_FALSE(files_.ReadWhole(folder_.Path(name))) << name;
  }
  EXPECT_EQ(files_.Delete(folder_.Path("folder")), FileError::IsFolder);
  EXPECT_EQ(files_.Delete(folder_.Path("missing")), FileError::NotFound);
  for (const char* name : {"link", "dangling", "file 2", "file 3"}) {
    EXPECT_EQ(files_.Delete(folder_.Path(name)), FileError::None) << name;
  }
  EXPECT_EQ(folder_.Names(), (NameList{"file", "folder", "pipe"}));
}

TEST(ListFolder, GivesVisibleEntriesWithTheirKindsByNameIgnoringCaseOrTellsWhyItCannot) {
  const TemporaryFolder folder;
  for (const char* name : {"b", "B", "a", ".hidden", "Z", "\xFFstray", "\xC3\xA4"})
    folder.Write(name);
  for (const char* name : {"bb", ".git"}) folder.MakeFolder(name);
  const std::pair<const char*, const char*> links[] = {{"link to file", "a"},
                                                       {"link to folder", "bb"},
                                                       {"link to itself", "link to itself"},
                                                       {"link to link", "link to folder"},
                                                       {"link to nothing", "nowhere"}};
  for (const auto& [name, target] : links) folder.MakeLink(name, target);
  mkfifo(folder.Path("pipe").c_str(), 0600);
  const auto listing = SystemFiles().ListFolder(folder.Path(), nullptr);
  std::string found;
  for (std::size_t i = 0; i < listing->Size(); ++i) {
    found += std::string(listing->Name(i)) + "FDLO"[static_cast<int>(listing->Kind(i))] + ";";
    EXPECT_EQ(*listing->Name(i).end(), '\0');
  }
  EXPECT_EQ(found,
            "aF;BF;bF;bbD;link to fileF;link to folderL;link to itselfO;link to linkL;"
            "link to nothingO;pipeO;ZF;\u00E4F;\xFFstrayF;");
  FileError error = FileError::None;
  EXPECT_EQ(SystemFiles().ListFolder(folder.Path("missing"), &error), nullptr);
  EXPECT_EQ(error, FileError::NotFound);
  EXPECT_EQ(SystemFiles().ListFolder(folder.Path("a"), &error), nullptr);
  EXPECT_EQ(error, FileError::NotFolder);
}

TEST(ListFolder, GivesFactsOfWhatAnEntryLeadsToEvenAfterTheFolderHasMoved) {
  const TemporaryFolder folder;
  folder.MakeFolder("old");
  folder.Write("old/file", "12345");
  folder.SetTime("old/file", -86400, 999999999);
  folder.MakeLink("old/link", "file");
  folder.Write("old/passing");
  SystemFiles files;
  const auto listing = files.ListFolder(folder.Path("old"), nullptr);
  ASSERT_EQ(files.Delete(folder.Path("old/passing")), FileError::None);
  ASSERT_EQ(files.Rename(folder.Path(), "old", "new"), FileError::None);
  for (std::size_t i : {0, 1}) {
    const FileFacts facts = listing->Facts(i).value();
    EXPECT_TRUE(facts.kind == EntryKind::File && facts.size == 5 && facts.modified == -86400);
  }
  EXPECT_FALSE(listing->Facts(2));
}

// Names of few different characters share long beginnings, and differ just at, before and behind
// the eight bytes that are compared at once.
TEST(OrderOfNames, IsThatOfTheComparisonIgnoringCase) {
  const auto letters =
      Split("a A b . \xC3\xA4 \xC3\x84 \xC3 \xFF \xE2\x82\xAC \xEF\xBF\xBD \xF0\x9F\x98\x80", ' ');
  std::mt19937 random(1);
  for (std::size_t round = 0; round < 200; ++round) {
    const std::size_t used = round % 2 == 0 ? 2 : letters.size();
    std::vector<std::string> names(60, std::string(random() % 20, 'x')), ordered;
    for (std::string& name : names) {
      for (auto n = random() % 12; n > 0; --n) name += letters[random() % used];
    }
    const std::vector<std::string_view> views(names.begin(), names.end());
    for (std::uint32_t index : OrderOfNames(views)) ordered.push_back(names[index]);
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
      const auto order = CompareIgnoringCase(a, b);
      return order != 0 ? order < 0 : a < b;
    });
    ASSERT_EQ(ordered, names) << "round " << round;
  }
}

TEST(IsValidName, TakesWhatCanBeANewNameAndNothingElse) {
  // clang-format off
  const std::pair<bool, std::vector<std::string>> rows[] = {
      {true, {"...", ".hidden", " ", "a:b*c\\d|\"<>\xC3\xA4\xFF\x80", std::string(255, 'x')}},
      {false, {"", ".", "..", "a/b", "a?", "a\n", "\x1F", "\x7F", {"a\0b", 3}, std::string(256, 'x')}}};
  // clang-format on
  for (const auto& [isValid, names] : rows) {
    for (const std::string& name : names) EXPECT_EQ(IsValidName(name), isValid) << name;
  }
}

TEST(MatchesPattern, KnowsWildcardsByCharactersIgnoringCase) {
  // Whether a name matches a pattern. A stray byte is part of no character.
  // clang-format off
  const std::tuple<const char*, const char*, bool> rows[] = {
      {"readme", "*.*", true}, {"abc", "a*.*", true}, {"bac", "a*.*", false}, {"a.txt", "*.", false},
      {"a.JPG", "*.jpg", true}, {"a.jpg.bak", "*.jpg", false}, {"\xC3\x84.txt", "\xC3\xA4.t??", true},
      {"\xFF.txt", "?.TXT", true}, {"x\xC3\xA4y", "*\xA4y", false}, {"a*", "a\\*", false}, {"ab", "a[b]", false}};
  // clang-format on
  for (const auto& [name, pattern, matches] : rows) {
    EXPECT_EQ(MatchesPattern(name, pattern), matches) << name << " " << pattern;
  }
  // Trying all ways of many stars would outlast the test's time limit by ages.
  std::string stars;
  for (int i = 0; i < 100; ++i) stars += "*a";
  EXPECT_FALSE(MatchesPattern(std::string(255, 'a'), stars + "*b"));
}

}  // namespace
}  // namespace tallowbrook
