// Listing of real folders, and the order of names.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <random>

#include "base/letter_case.h"
#include "platform/files.h"
#include "platform/name_order.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

using NameList = std::vector<std::string>;

NameList NamesOf(const FolderListing& listing) {
  NameList names;
  for (std::size_t i = 0; i < listing.Size(); ++i) names.emplace_back(listing.Name(i));
  return names;
}

TEST(ListFolder, GivesVisibleEntriesWithTheirKindsByNameIgnoringCase) {
  const TemporaryFolder folder;
  for (const char* name : {"b.txt", "B.TXT", "a", ".hidden", "Z", "\xFFstray", "\xC3\xA4", "c"}) {
    folder.Write(name);
  }
  folder.MakeFolder("bb");
  folder.MakeFolder(".git");
  folder.MakeLink("link to file", "a");
  folder.MakeLink("link to folder", "bb");
  folder.MakeLink("link to link", "link to folder");
  folder.MakeLink("link to nothing", "nowhere");
  folder.MakeLink("link to itself", "link to itself");
  mkfifo(folder.Path("pipe").c_str(), 0600);
  Files&& files = SystemFiles();
  const auto listing = files.ListFolder(folder.Path());
  ASSERT_NE(listing, nullptr);
  const std::vector<std::pair<std::string, EntryKind>> expected = {
      {"a", EntryKind::File},
      {"B.TXT", EntryKind::File},
      {"b.txt", EntryKind::File},
      {"bb", EntryKind::Folder},
      {"c", EntryKind::File},
      {"link to file", EntryKind::File},
      {"link to folder", EntryKind::FolderLink},
      {"link to itself", EntryKind::Other},
      {"link to link", EntryKind::FolderLink},
      {"link to nothing", EntryKind::Other},
      {"pipe", EntryKind::Other},
      {"Z", EntryKind::File},
      {"\xC3\xA4", EntryKind::File},
      {"\xFFstray", EntryKind::File},
  };
  std::vector<std::pair<std::string, EntryKind>> found;
  for (std::size_t i = 0; i < listing->Size(); ++i) {
    found.emplace_back(listing->Name(i), listing->Kind(i));
    EXPECT_EQ(listing->Name(i).data()[listing->Name(i).size()], '\0');
  }
  EXPECT_EQ(found, expected);
}

TEST(ListFolder, GivesFactsOfWhatAnEntryLeadsToEvenAfterTheFolderHasMoved) {
  const TemporaryFolder folder;
  folder.MakeFolder("old");
  folder.Write("old/file", "12345");
  folder.SetTime("old/file", -86400, 999999999);
  folder.MakeLink("old/link", "file");
  folder.Write("old/passing");
  Files&& files = SystemFiles();
  const auto listing = files.ListFolder(folder.Path("old"));
  ASSERT_NE(listing, nullptr);
  ASSERT_EQ(NamesOf(*listing), (NameList{"file", "link", "passing"}));
  ASSERT_EQ(files.Delete(folder.Path("old/passing")), FileError::None);
  ASSERT_EQ(files.Rename(folder.Path(), "old", "new"), FileError::None);
  for (std::size_t i : {0, 1}) {
    const auto facts = listing->Facts(i);
    ASSERT_TRUE(facts) << i;
    EXPECT_EQ(facts->kind, EntryKind::File);
    EXPECT_EQ(facts->size, 5);
    EXPECT_EQ(facts->modified, -86400);
  }
  EXPECT_FALSE(listing->Facts(2));
}

TEST(ListFolder, TellsWhyItCannotRead) {
  const TemporaryFolder folder;
  folder.Write("file");
  folder.MakeFolder("closed");
  chmod(folder.Path("closed").c_str(), 0);
  std::vector<std::pair<std::string, FileError>> rows = {{"missing", FileError::NotFound},
                                                         {"file", FileError::NotFolder}};
  if (geteuid() != 0) rows.emplace_back("closed", FileError::NotPermitted);
  for (const auto& [name, expected] : rows) {
    FileError error = FileError::None;
    EXPECT_EQ(SystemFiles().ListFolder(folder.Path(name), &error), nullptr) << name;
    EXPECT_EQ(error, expected) << name;
  }
  chmod(folder.Path("closed").c_str(), 0700);  // else it can't be removed
}

NameList Ordered(const NameList& names) {
  const std::vector<std::string_view> views(names.begin(), names.end());
  NameList ordered;
  for (std::uint32_t index : OrderOfNames(views)) ordered.push_back(names[index]);
  return ordered;
}

bool Precedes(const std::string& a, const std::string& b) {
  const auto order = CompareIgnoringCase(a, b);
  return order != 0 ? order < 0 : a < b;
}

// Names of few different characters share long beginnings, and differ just at, before and behind
// the eight bytes that are compared at once.
TEST(OrderOfNames, IsThatOfTheComparisonIgnoringCase) {
  const NameList letters = {"a",
                            "A",
                            "b",
                            ".",
                            "\xC3\xA4",
                            "\xC3\x84",
                            "\xC3",
                            "\xFF",
                            "\xE2\x82\xAC",
                            "\xEF\xBF\xBD",
                            "\xF0\x9F\x98\x80"};
  std::mt19937 random(1);
  for (int round = 0; round < 200; ++round) {
    const std::string start(random() % 20, 'x');
    NameList names;
    for (int i = 0; i < 60; ++i) {
      std::string name = start;
      for (auto n = random() % 12; n > 0; --n) {
        name += letters[random() % (round % 2 == 0 ? 2 : letters.size())];
      }
      names.push_back(name);
    }
    NameList expected = names;
    std::sort(expected.begin(), expected.end(), Precedes);
    ASSERT_EQ(Ordered(names), expected) << "round " << round;
  }
  EXPECT_EQ(Ordered({}), NameList{});
}

}  // namespace
}  // namespace tallowbrook
