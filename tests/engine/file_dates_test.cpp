// Date commands on real files and folders, and what they give back.
#include "engine/file_dates.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/engine_fixture.h"

namespace tallowbrook {
namespace {

class FileDatesTest : public EngineTest {
 protected:
  struct Times {
    timespec modified, accessed;
  };
  Times TimesOf(const std::string& path) {
    struct stat facts;
    EXPECT_EQ(stat(path.c_str(), &facts), 0);
    return {facts.st_mtim, facts.st_atim};
  }
  std::string Path() { return folder.Path("f"); }
  std::string Modified(const std::string& path) {
    return GeneralDateText(UniversalDate(TimesOf(path).modified.tv_sec));
  }
};

TEST_F(FileDatesTest, OneTimeIsSetAndTheOthersKeepTheirNanoseconds) {
  folder.Write("f");
  folder.MakeFolder("d");
  for (const char* name : {"f", "d"}) {
    const std::string path = folder.Path(name);
    const timespec before[] = {{1'000'000'000, 123'456'789}, {1'126'422'000, 987'654'321}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), before, 0), 0);
    EXPECT_EQ(fileDates.ProcessAttributes(path, "<DateAccessed,7/8/2011>"),
              "<DateAccessed,9/9/2001 1:46:40 AM>");
    EXPECT_EQ(TimesOf(path).modified.tv_nsec, 987'654'321);
    EXPECT_EQ(fileDates.ProcessAttributes(path, "<DateModified,7/8/2011 9:10:11 AM>"),
              "<DateModified,9/11/2005 7:00:00 AM>");
    // Creation can't be set: done, and nothing changes.
    const std::string created = GeneralDateText(UniversalDate(disk.Facts(path)->created));
    EXPECT_TRUE(fileDates.ProcessAttributes(path, "<DateCreated,1/1/2001>")
                    .starts_with("<DateCreated," + created.substr(0, created.find(' '))));
    const Times times = TimesOf(path);
    EXPECT_TRUE(times.modified.tv_sec == 1'310'116'211 && times.modified.tv_nsec == 0);
    EXPECT_EQ(times.accessed.tv_sec, 1'310'083'200);
  }
}

TEST_F(FileDatesTest, CommandsAreReadAsTheyStand) {
  constexpr std::int64_t earliest = -2'147'483'648;
  const std::string zero = "12/30/1899";
  struct Row {
    const char *command, *answer;
    std::string modified;
  };
  // clang-format off
  const Row rows[] = {
      {"<DateModified,1/2/2003 0:05:00>", "<DateModified,9/11/2005 12:00:00 AM>", "1/2/2003 12:05:00 AM"},
      {"x<DateModified,1/2/2003,9>y", "<DateModified,9/11/2005 12:00:00 AM>", "1/2/2003"},
      {"<DateModified,9/11/2005 07:01:60>", "<DateModified,9/11/2005 12:00:00 AM>", zero},
      {"<DateModified,no date>", "<DateModified,9/11/2005 12:00:00 AM>", zero},
      {"<DateModified,1/2/2003", "<DateModified,9/11/2005 12:00:00 AM>", zero},
      {"<datemodified,1/2/2003>", "1/1/1601 12:00:00 AM>", "9/11/2005"}, {"<Date>", "1/1/1601 12:00:00 AM>", "9/11/2005"},
      {"<dat>", "", "9/11/2005"}, {"", "", "9/11/2005"},
  };
  // clang-format on
  folder.Write("f");
  for (const Row& row : rows) {
    folder.SetTime("f", 1'126'396'800);
    EXPECT_EQ(fileDates.ProcessAttributes(Path(), row.command), row.answer) << row.command;
    // Not every file system holds a date before December 1901; it keeps its earliest then.
    const std::string found = TimesOf(Path()).modified.tv_sec <= earliest ? zero : Modified(Path());
    EXPECT_EQ(found, row.modified) << row.command;
  }
  EXPECT_EQ(fileDates.ApplyFileDate(Path(), "x"), "False");
  EXPECT_EQ(fileDates.ProcessAttributes(folder.Path("gone"), "<DateModified,1/2/2003>"), "");
  EXPECT_FALSE(folder.Exists("gone"));
}

// What can't be opened fails; what the system refuses behind that counts as done all the same.
TEST_F(FileDatesTest, ARunTellsOfFilesThatCantBeOpened) {
  List({"f", "g"});
  files.FailPath(FileCall::SetTime, Path(), FileError::NotPermitted);
  Set("TabIndex=3|Option_ChangeFileDate=True|Combo_UpdateDateType=2");
  run.RenameFiles(0, {});
  EXPECT_EQ(NewNames(), (Lines{"error", "success"}));
  EXPECT_EQ(Short(log.lines[1]), "0 ~/f > ~/<DateAccessed,9/11/2005 00:01:01>");
}

// What a run sets and its record puts back differ by the zone's offset. It must be so.
TEST_F(FileDatesTest, AnUndoShiftsByTheZone) {
  List({"f"});
  folder.SetTime("f", 1'126'396'800);
  clock.offset = 7200;
  Set("TabIndex=3|Option_ChangeFileDate=True|Combo_UpdateDateType=1");
  Set("DTPicker_AdvancedDate=7/8/"
      "2011|Combo_AdvancedDate3=9|Combo_AdvancedDate4=10|Combo_AdvancedDate5=11");
  run.RenameFiles(0, {});
  EXPECT_EQ(Modified(Path()), "7/8/2011 7:10:11 AM");
  ASSERT_EQ(log.lines[1], "1 " + Path() + " > " + Path() + "|<DateModified,9/11/2005 12:00:00 AM>");
  EXPECT_EQ(fileDates.ProcessAttributes(Path(), "<DateModified,9/11/2005 12:00:00 AM>"),
            "<DateModified,7/8/2011 7:10:11 AM>");
  EXPECT_EQ(Modified(Path()), "9/10/2005 10:00:00 PM");
}

}  // namespace
}  // namespace tallowbrook
