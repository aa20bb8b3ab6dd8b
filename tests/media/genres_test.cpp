// The names by number, and the lists of the file that lies beside the program.
#include "media/genres.h"

#include <filesystem>

#include "tests/support/media_fixture.h"

namespace tallowbrook {
namespace {

std::string Joined(const std::vector<std::string>& names, const std::vector<std::int16_t>& ids) {
  std::string text = std::to_string(names.size());
  for (std::size_t i = 0; i < ids.size(); ++i) text += " " + std::to_string(ids[i]) + names.at(i);
  return text;
}

class Genres : public MediaTest {
 protected:
  // What the lists hold, then the number that was raised, if any.
  std::string Loaded(const std::string& folder) {
    GenreLists lists;
    const std::uint32_t number = NumberOf([&] { lists.LoadGenreLists(system_, folder); });
    return Joined(lists.GenreNamesV1, lists.GenreIdsV1) + "/" +
           Joined(lists.GenreNamesV2, lists.GenreIdsV2) +
           (number == 0 ? "" : "!" + std::to_string(number));
  }
};

TEST_F(Genres, ShippedFileNamesThemAsTheListDoes) {
  GenreLists lists;
  const auto root = std::filesystem::path(__FILE__).parent_path() / "../..";
  lists.LoadGenreLists(system_, root / "resources/");
  ASSERT_EQ(lists.GenreIdsV1.size(), 148u);
  for (std::size_t i = 1; i < lists.GenreIdsV1.size(); ++i) {
    const auto number = static_cast<std::uint8_t>(lists.GenreIdsV1[i]);
    EXPECT_EQ(lists.GenreNamesV1[i], GenreName(number)) << i;
    EXPECT_EQ(number, i <= 123 ? i - 1 : i) << i;
  }
  EXPECT_EQ(lists.GenreNamesV2, lists.GenreNamesV1);
  EXPECT_EQ(lists.GenreIdsV2, lists.GenreIdsV1);
  // As they have always been written, mistakes included.
  const std::pair<int, const char*> odd[] = {
      {78, "Rock 'n'Roll"}, {85, "Bebob"}, {109, "Pr0n Groove"}};
  for (const auto& [number, name] : odd) EXPECT_EQ(GenreName(std::uint8_t(number)), name);
  const std::uint8_t unnamed[] = {123, 148, 255};
  for (const std::uint8_t number : unnamed) EXPECT_EQ(GenreName(number), "") << +number;
}

// The last line of a section isn't read, nor the rest of the line that begins with the "~".
TEST_F(Genres, ReadsTheLinesBetweenTheBordersOfBothSections) {
  // clang-format off
  const std::pair<std::string, const char*> rows[] = {
      {"2,A\r\n1,B\r\n~\r\n3,C\r\n", "3 0 2A 1B/2 0 3C"}, {"1,A\r\n2,B~5,D\r\n3,C\r\n4,E", "2 0 1A/2 0 3C"},
      {"head,line\r\n 7 ,A,B\r\n~\r\n~9,Z\r\n", "2 0 7A/1 0"}, {"-3,A\nB\r\n8,\r\n~\r\n", "3 0 -3A\nB 8/1 0"},
      {"~", "1 0/1 0"}, {"1,A\r\n", "1 0/1 0!9"}, {"", "1 0/1 0!9"}, {"1,A\r\n2\r\n3,C\r\n~", "3 0 1A 0/1 0!9"},
      {"1,A\r\n\r\n3,C\r\n~", "2 0 1A/1 0!9"}, {"1,A\r\n~\r\n32768,C\r\n", "2 0 1A/2 0 0C!6"},
      {"-32769,A\r\n~", "2 0 0A/1 0!6"}, {"9" + std::string(40, '9') + ",A\r\n~", "2 0 0A/1 0!6"}};
  // clang-format on
  EXPECT_EQ(Loaded(folder_.Path()), "1 0/1 0!9");
  EXPECT_EQ(folder_.Read("id3genre.cfg"), "") << "made";
  for (const auto& [text, lists] : rows) {
    folder_.Write("id3genre.cfg", text);
    EXPECT_EQ(Loaded(folder_.Path()), lists) << text;
  }
}

}  // namespace
}  // namespace tallowbrook
