// Logfile.txt to the byte, and back.
#include <gtest/gtest.h>

#include "store/log_file.h"
#include "store/log_format.h"
#include "tests/support/faulty_files.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

using Lines = std::vector<std::string>;
const Date moment = *MakeDate({2024, 2, 9, 5, 7, 9});

class LogTest : public testing::Test {
 protected:
  LogTest() { log.SetPath(folder.Path() + "Logfile.txt"); }
  void RunBatch(const std::vector<RunRecord>& records) {
    log.BeginBatch(moment);
    for (const RunRecord& record : records) log.Record(record);
    log.EndBatch();
    log.Close();
  }
  TemporaryFolder folder;
  SystemFiles disk;
  FaultyFiles files{disk};
  LogFile log{files};
};

TEST_F(LogTest, WritesBatchesToTheByte) {
  RunBatch(
      {{RunRecord::Kind::File, "/d/", "a b.txt", "/e/", "c.txt"},
       {RunRecord::Kind::Folder, "/d/", "x", "/d/", "y"},
       {RunRecord::Kind::Failed, "/d/", "p.mp3", "/d/", "<0>Not an MP3 File"},
       {RunRecord::Kind::File, "/d/", "q", "/d/", "q", "<DateModified,9/11/2005 7:01:01 AM>"}});
  RunBatch({});
  EXPECT_EQ(folder.Read("Logfile.txt"),
            "@----------- 02/09/24 [05:07] -----------@\r\n"
            "1\x06 /d/a b.txt?/e/c.txt?\x06\x05\r\n"
            "9\x06 /d/x?/d/y?\x06\x05\r\n"
            "0\x06 /d/p.mp3?/d/<0>Not an MP3 File?\x06\x05\r\n"
            "1\x06 /d/q?/d/q?<DateModified,9/11/2005 7:01:01 AM>?\x06\x05\r\n"
            "\x07\r\n"
            "@----------- 02/09/24 [05:07] -----------@\r\n"
            "\x07\r\n");
}

// No name may break its record or forge another.
TEST_F(LogTest, EveryNameReadsBackToTheSameBytes) {
  const Lines odd = {
      " both ends ",
      "three   ",
      "\"quotes\"",
      "new\r\nline",
      "\x05\x06\x07\x10",
      "\x10"
      "3F",
      "what?",
      "1\x06 /etc/a?/etc/b?\x06\x05",
      "\x07\r\n@--- x [y] -@",
      "\xff\xc3",
      "日本語 😀 e\xcc\x81",
      std::string(255, 'n'),
      "@at",
      "a\tb\x01",
      "?",
  };
  std::vector<RunRecord> records;
  for (const std::string& name : odd) {
    records.push_back({RunRecord::Kind::File, "/ d?\x06/", name, "/e /", name});
  }
  RunBatch(records);
  RunBatch({});
  const std::string text = folder.Read("Logfile.txt");
  const auto batches = log_format::SplitBatches(text);
  ASSERT_EQ(batches.size(), 2U);
  const auto batch = log_format::ParseBatch(batches[0]);
  ASSERT_TRUE(batch);
  EXPECT_EQ(batch->date, "02/09/24");
  EXPECT_EQ(batch->time, "05:07");
  const auto entries = log_format::ParseEntries(*batch);
  ASSERT_EQ(entries.size(), odd.size());
  for (std::size_t i = 0; i < odd.size(); ++i) {
    EXPECT_EQ(entries[i].line, i + 1) << odd[i];
    EXPECT_EQ(entries[i].status, "1") << odd[i];
    EXPECT_EQ(entries[i].oldPath, "/ d?\x06/" + odd[i]) << odd[i];
    EXPECT_EQ(entries[i].newPath, "/e /" + odd[i]) << odd[i];
    EXPECT_EQ(entries[i].detail, "") << odd[i];
  }
  // The second batch begins with the line break behind the end of the first.
  EXPECT_EQ(log_format::ParseBatch(batches[1])->lines.front(), "");
}

TEST(LogFormat, EscapesJustTheBytesThatMeanSomething) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a\x05",
       "a\x10"
       "05"},
      {"a\x06",
       "a\x10"
       "06"},
      {"a\x07",
       "a\x10"
       "07"},
      {"a\n",
       "a\x10"
       "0A"},
      {"a\r",
       "a\x10"
       "0D"},
      {"a\x10",
       "a\x10"
       "10"},
      {"a?b",
       "a\x10"
       "3Fb"},
      {"a  ",
       "a \x10"
       "20"},
      {" a b", " a b"},
      {"\x01\ta", "\x01\ta"},
      {"\xff\xc3", "\xff\xc3"},
      {"<@>", "<@>"},
  };
  for (const auto& [name, text] : cases) {
    EXPECT_EQ(log_format::Escaped(name), text);
    EXPECT_EQ(log_format::Unescaped(text), name);
  }
}

TEST(LogFormat, AFailedNameKeepsItsQuestionMarks) {
  std::string line;
  log_format::FormatRecord({RunRecord::Kind::Failed, "/d?/", "a?", "/d?/", "why?<Date\n "}, line);
  EXPECT_EQ(line,
            "0\x06 /d\x10"
            "3F/a\x10"
            "3F?/d\x10"
            "3F/why?<Date\x10"
            "0A\x10"
            "20?\x06\x05");
  const auto entry = log_format::ParseRecord(line);
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->oldPath, "/d?/a?");
  EXPECT_EQ(entry->newPath, "/d?/why?<Date\n ");
  EXPECT_EQ(entry->detail, "");
}

// A record cut anywhere is none: what is left of it may name another file.
TEST(LogFormat, WhatIsNoRecordIsNone) {
  const std::string whole = "1\x06 /d/a?/d/photo12?<DateModified,1/1/2001>?\x06\x05";
  ASSERT_TRUE(log_format::ParseRecord(whole));
  ASSERT_TRUE(log_format::ParseRecord(whole.substr(0, whole.size() - 1)));
  for (std::size_t length = 0; length < whole.size() - 1; ++length) {
    EXPECT_FALSE(log_format::ParseRecord(whole.substr(0, length))) << length;
  }
  for (const char* line : {"@----------- 1 [2] -@", "junk?a?b", "1\x06 /a\x06", "1\x06 /a?\x06"}) {
    EXPECT_FALSE(log_format::ParseRecord(line)) << line;
  }
  const auto dated = log_format::ParseRecord("10\x06 /a ? /b? <x> ?\x06\x05");
  ASSERT_TRUE(dated);
  EXPECT_EQ(dated->status, "10");
  EXPECT_EQ(dated->oldPath, "/a");
  EXPECT_EQ(dated->newPath, "/b");
  EXPECT_EQ(dated->detail, "<x>");
  EXPECT_EQ(log_format::ParseRecord("1\x06 /a?/b?c?d?e?\x06\x05")->detail, "");
  // Lenient where a hand has been at the file.
  EXPECT_EQ(log_format::Unescaped("a\x10"
                                  "3Fb\x10zz\x10"),
            "a?b\x10zz\x10");
}

TEST(LogFormat, BatchesNeedTheirEndAndTheirHeader) {
  EXPECT_TRUE(log_format::SplitBatches("").empty());
  EXPECT_TRUE(log_format::SplitBatches("@-- 1 [2] unfinished").empty());
  EXPECT_EQ(log_format::SplitBatches("a\x07"
                                     "b\x07")
                .size(),
            2U);
  for (const char* text : {"", "@-- 1", "@-- 1 [2]", "a b  c"}) {
    EXPECT_FALSE(log_format::ParseBatch(text)) << text;
  }
}

TEST_F(LogTest, ARunWithoutALogGoesOn) {
  files.FailAt(FileCall::Open, 1, FileError::NotPermitted);
  RunBatch({{RunRecord::Kind::File, "/d/", "a", "/d/", "b"}});
  EXPECT_FALSE(folder.Exists("Logfile.txt"));
}

// One write a line; what one of them loses, the others don't, and no record is without a header.
TEST_F(LogTest, AFullDiskCostsOnlyWhatDidNotFit) {
  const RunRecord record{RunRecord::Kind::File, "/d/", "a", "/d/", "b"};
  files.FailAt(FileCall::Write, 1, FileError::NoSpace);
  files.FailAt(FileCall::Write, 3, FileError::NoSpace);
  RunBatch({record, record, record});
  EXPECT_EQ(files.Count(FileCall::Write), 5);
  EXPECT_EQ(folder.Read("Logfile.txt"),
            "@----------- 02/09/24 [05:07] -----------@\r\n"
            "1\x06 /d/a?/d/b?\x06\x05\r\n"
            "1\x06 /d/a?/d/b?\x06\x05\r\n"
            "\x07\r\n");
}

// What a killed run left of a line must not swallow the next batch's header.
TEST_F(LogTest, ATornLineIsClosedBeforeTheNextBatch) {
  folder.Write("Logfile.txt", "@----------- 1 [2] -@\r\n1\x06 /d/a?/d/");
  RunBatch({});
  EXPECT_EQ(folder.Read("Logfile.txt"),
            "@----------- 1 [2] -@\r\n1\x06 /d/a?/d/\r\n"
            "@----------- 02/09/24 [05:07] -----------@\r\n\x07\r\n");
  // A rewritten log ends in the end of a batch, and the header stands directly behind it.
  folder.Write("Logfile.txt", "@-- 1 [2] -@\r\n\x07");
  RunBatch({});
  EXPECT_EQ(folder.Read("Logfile.txt"),
            "@-- 1 [2] -@\r\n\x07@----------- 02/09/24 [05:07] -----------@\r\n\x07\r\n");
}

}  // namespace
}  // namespace tallowbrook
