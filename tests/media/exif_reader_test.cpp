// What becomes of entries, directories and files that are not as they should be.
#include "media/exif_reader.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/text.h"
#include "platform/files.h"
#include "tests/support/jpeg_bytes.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

using enum ByteOrder;
using std::string_literals::operator""s;
using std::string_view_literals::operator""sv;

class ExifTest : public testing::Test {
 protected:
  // The texts of some tags, "|" behind each; the number of a Failure instead.
  std::string Read(const std::string& bytes, std::initializer_list<std::int32_t> tags) {
    const std::string path = folder.Write("p.jpg", bytes);
    ExifReader reader(files);
    try {
      reader.Load(path);
    } catch (const Failure& failure) {
      return "failure " + std::to_string(failure.number);
    }
    std::string texts;
    for (const std::int32_t tag : tags) texts += ExifText(reader.Tag(tag)) + "|";
    return texts;
  }

  TemporaryFolder folder;
  SystemFiles files;
};

TEST_F(ExifTest, ValuesComeOutAsTheProgramWantsThem) {
  struct Row {
    ByteOrder order;
    std::uint32_t format, components;
    std::string_view data, expected;
    bool goesOn = true;
  };
  // clang-format off
  const Row rows[] = {
      {Little, 1, 1, "\x1A"sv, "0000001A"}, {Big, 6, 4, "\x01\xAB\x00\xFF"sv, "01AB00FF"},
      {Little, 1, 5, "\x01\x0C\xFF\x00\x07"sv, "11225507"}, {Little, 2, 4, "R98\0"sv, "\0" "89R"sv},
      {Big, 7, 4, "0221", "0221"}, {Little, 7, 4, "0221", "1220"},
      {Big, 2, 6, " a\xE9" "b \0"sv, "a\xC3\xA9" "b \0"sv}, {Little, 3, 1, "\x10\x20", "8208"},
      {Big, 3, 2, "\x01\x00\x00\x02"sv, "258"}, {Little, 3, 3, "\x01\x02\x03\x04\x05\x06", "123"},
      {Big, 8, 3, "\x01\x02\x03\x04\x05\x06", "321"}, {Little, 4, 1, "\xA0\x0F\0\0"sv, "4000"},
      {Big, 9, 2, "\x01\x02\x03\x04\x05\x06\x07\x08", "12"}, {Little, 5, 1, "\x48\0\0\0\x01\0\0\0"sv, "72/1"},
      {Big, 10, 2, "\0\0\0\x01\0\0\0\x0A" "12345678"sv, "1/10"},
      {Big, 5, 0x40000000, "\0\0\0\x01\0\0\0\x0A" ""sv, "1/10"}, {Little, 11, 1, "\x01\x02\x03\x04", ""},
      {Little, 12, 1, "\1\2\3\4\5\6\7\x08", ""}, {Big, 0, 1, "abcd", ""}, {Little, 5, 0, "abcd", ""},
      // A number that doesn't fit into 31 bits ends the walk, also in a signed format.
      {Little, 4, 1, "\0\0\0\x80"sv, "", false}, {Big, 10, 1, "\xFF\xFF\xFF\xFF\0\0\0\x01"sv, "", false},
      {Little, 2, 0x80000001, "abcd", "", false}, {Little, 2, 0x40000000, "abcdef", "", false},
  };
  // clang-format on
  for (const Row& row : rows) {
    const ExifEntry entry{1, row.format, row.components, std::string(row.data)};
    const ExifEntry last{2, 2, 4, row.order == Little ? "dne!" : "!end"};
    const std::string bytes = Jpeg(row.order, Directory(row.order, {entry, last}, 8, 0));
    const std::string expected = std::string(row.expected) + (row.goesOn ? "|!end|2|" : "||2|");
    EXPECT_EQ(Read(bytes, {1, 2, 0}), expected) << row.format << " " << row.components;
  }
}

TEST_F(ExifTest, DirectoriesAreWalkedInOneOrder) {
  const auto tag = [](std::uint32_t number, const char* value) {
    return ExifEntry{number, 2, 4, value};
  };
  // Main, chained, Exif; the first of a number hides the others, and GPS isn't followed.
  ExifEntries main{tag(1, "main"), {34853, 4, 1, Bytes(Big, 8, 4)}, {34665, 4, 1, ""}};
  const std::size_t second = 8 + Directory(Big, main, 8, 0).size();
  const std::string chained = Directory(Big, {tag(1, "late"), tag(2, "next")}, second, 0);
  const auto third = static_cast<std::uint32_t>(second + chained.size());
  main[2].data = Bytes(Big, third, 4);
  const auto chainedTo = [&](std::uint32_t next) {
    return Directory(Big, main, 8, static_cast<std::uint32_t>(second)) +
           Directory(Big, {tag(1, "late"), tag(2, "next")}, second, next) +
           Directory(Big, {tag(2, "late"), tag(3, "exif")}, third, third + 30) +
           Directory(Big, {tag(4, "more")}, third + 30, 0);
  };
  const std::string alone = Directory(Big, {tag(1, "main")}, 8, 0);
  // clang-format off
  const std::pair<std::string, std::string> rows[] = {
      {chainedTo(0), "main|next|exif|7|"},
      // The Exif directory is the last. A chain that returns ends; what is behind the head isn't found.
      {chainedTo(8), "main|next|exif|7|"}, {chainedTo(6980), "main|next||5|"},
      // A directory that says it has more entries than there are bytes counts them all.
      {"\xFF\xFF" + alone.substr(2), "main|||65535|"},
      // A pointer that is no number ends the walk; one without a value leads nowhere.
      {Directory(Big, {{34665, 2, 4, "x"}, tag(1, "main")}, 8, 0), "|||2|"},
      {Directory(Big, {{34665, 12, 1, "x"}, tag(1, "main")}, 8, 0), "main|||2|"}};
  // clang-format on
  for (const auto& [bytes, texts] : rows) EXPECT_EQ(Read(Jpeg(Big, bytes), {1, 2, 3, 0}), texts);
}

TEST_F(ExifTest, HeadsAreTakenAsTheyCome) {
  const std::string photo = PhotoTakenAt("2011:07:08 09:10:11");
  const std::string date = "2011:07:08 09:10:11\0|"s;
  const auto with = [&](std::size_t at, std::string_view bytes) {
    std::string changed = photo;
    return changed.replace(at, bytes.size(), bytes);
  };
  // clang-format off
  const std::pair<std::string, std::string> rows[] = {
      {photo, date}, {PhotoTakenAt("2011:07:08 09:10:11", Big), date}, {with(0, "\xFF\0"s), date},
      {with(0, "x\xD8"), date}, {with(0, "xy"), "|"}, {photo.substr(0, 2) + "JFIF" + photo.substr(2), date},
      {photo.substr(0, 2) + "\xFF\xE1" + "JFIFxx" + photo.substr(2), "|"}, {with(6, "exif"), "|"},
      {with(12, "IX"), date}, {with(12, "XI"), "failure 9"}, {"", "|"}, {"\xFF", "|"}, {"\xFF\xD8", "|"},
      {photo.substr(0, 9), "|"}, {photo.substr(0, 10), "failure 9"}, {with(16, "\xFF\xFF\0\0"s), "failure 9"},
      {with(16, "\0\0\0\x80"s), "failure 6"}, {photo.substr(0, 21), "|"},
      {photo.substr(0, photo.size() - 60), "|"},
      {photo.substr(0, 2) + std::string(6700, 'x') + photo.substr(2), date},
      {photo.substr(0, 2) + std::string(7100, 'x') + photo.substr(2), "|"}};
  // clang-format on
  for (const auto& [bytes, expected] : rows) {
    EXPECT_EQ(Read(bytes, {exif_tag::dateTimeOriginal}), expected) << (&bytes - &rows[0].first);
  }
}

TEST_F(ExifTest, ASecondLoadAddsAndAMissingFileIsMade) {
  ExifReader reader(files);
  for (int twice = 0; twice < 2; ++twice) {
    reader.Load(folder.Write("p.jpg", PhotoTakenAt("2011:07:08 09:10:11")));
  }
  EXPECT_EQ(ExifText(reader.Tag(0)), "12");
  EXPECT_EQ(ReadExifTag(files, folder.Path("gone.jpg"), 282), "");
  EXPECT_EQ(folder.Read("gone.jpg"), "");
  EXPECT_THROW(ReadExifTag(files, folder.Path(), 282), Failure);
}

// Two hundred directories, twelve bytes apart, that share their entries of long values: as texts
// those would be hundreds of megabytes.
TEST_F(ExifTest, OverlappingDirectoriesCostLittle) {
  std::string cells;
  for (std::uint32_t i = 0; i < 400; ++i) {
    const bool isPointer = i >= 200;
    cells += Bytes(Big, 200, 2) + Bytes(Big, isPointer ? 0 : 1, 2) +
             Bytes(Big, isPointer ? 8 + 12 * (i - 199) : 1, 2) + Bytes(Big, 4000, 4) +
             Bytes(Big, 0, 2);
  }
  ExifReader reader(files);
  reader.Load(folder.Write("p.jpg", Jpeg(Big, cells)));
  EXPECT_EQ(ExifText(reader.Tag(0)), "40200");
  EXPECT_GT(ExifText(reader.Tag(1)).size(), 4000U);
}

TEST(ExifDates, AreReadOrAreZero) {
  // clang-format off
  for (const auto& [text, expected] : std::vector<std::pair<std::string, std::string>>{
      {"2011:07:08 09:10:11", "7/8/2011 9:10:11 AM"}, {"2011:07:08", "7/8/2011"},
      {std::string("2011:07:08 09:10:11\0", 20), "7/8/2011 9:10:11 AM"}, {std::string("2011:007:8\0", 11), "7/8/2011"},
      {"2011:13:08 09:10:11", ""}, {"0000:00:00 00:00:00", ""}, {"    :  :     :  :  ", ""},
      {"99999:01:01 00:00:00", ""}, {"2011:07:08 25:00:00", ""}, {"", ""}}) {
    const Date date = ParseExifDate(text);
    EXPECT_EQ(date == Date{} ? "" : GeneralDateText(date), expected) << text;
  }
  // clang-format on
}

}  // namespace
}  // namespace tallowbrook
