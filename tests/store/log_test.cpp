// Logfile.txt to the byte, and back. In texts, \020 is the byte that escapes.
#include <gtest/gtest.h>

#include "platform/file_handover.h"
#include "store/batch_rows.h"
#include "store/log_file.h"
#include "store/log_format.h"
#include "tests/support/faulty_files.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {
namespace {

using namespace log_format;

const std::string header = "@----------- 02/09/24 [05:07] -----------@\r\n";
const std::string batchEndLine = "\x07\r\n";

class LogTest : public testing::Test {
 protected:
  LogTest() { log.SetPath(folder.Path() + "Logfile.txt"); }
  void RunBatch(const std::vector<RunRecord>& records) {
    log.BeginBatch(now);
    for (const RunRecord& record : records) log.Record(record);
    log.EndBatch();
    log.Close();
  }
  const Date now = *MakeDate({2024, 2, 9, 5, 7, 9});
  const RunRecord aToB{RunRecord::Kind::File, "/d/", "a", "/d/", "b"};
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
            header + "1\x06 /d/a b.txt?/e/c.txt?\x06\x05\r\n" + "9\x06 /d/x?/d/y?\x06\x05\r\n" +
                "0\x06 /d/p.mp3?/d/<0>Not an MP3 File?\x06\x05\r\n" +
                "1\x06 /d/q?/d/q?<DateModified,9/11/2005 7:01:01 AM>?\x06\x05\r\n" + batchEndLine +
                header + batchEndLine);
}

// No name may break its record or forge another.
TEST_F(LogTest, EveryNameReadsBackToTheSameBytes) {
  // clang-format off
  const std::vector<std::string> odd = {
      " both ends ", "three   ", "\"quotes\"", "new\r\nline", "\x05\x06\x07\x10", "\0203F", "what?",
      "1\x06 /etc/a?/etc/b?\x06\x05", "\x07\r\n@--- x [y] -@", "\xff\xc3", "日本語 😀 e\xcc\x81",
      std::string(255, 'n'), "@at", "a\tb\x01", "?",
  };
  // clang-format on
  std::vector<RunRecord> records;
  for (const auto& n : odd) records.push_back({RunRecord::Kind::File, "/ d?\x06/", n, "/e /", n});
  RunBatch(records);
  RunBatch({});
  const std::string text = folder.Read("Logfile.txt");
  const auto batches = SplitBatches(text);
  ASSERT_EQ(batches.size(), 2U);
  BatchRows rows;
  rows.Load(batches[0]);
  ASSERT_EQ(rows.Count(), odd.size());
  for (std::size_t i = 0; i < odd.size(); ++i) {
    EXPECT_EQ(rows.OldPath(i + 1), "/ d?\x06/" + odd[i]);
    EXPECT_EQ(rows.NewPath(i + 1), "/e /" + odd[i]);
    EXPECT_EQ(rows.Detail(i + 1), "") << odd[i];
  }
  EXPECT_EQ(rows.Text(), batches[0]);
}

TEST(LogFormat, AFailedNameKeepsItsQuestionMarks) {
  std::string line;
  FormatRecord({RunRecord::Kind::Failed, "/d?/", "a?", "/d?/", "why?<Date\n "}, line);
  EXPECT_EQ(line, "0\x06 /d\0203F/a\0203F?/d\0203F/why?<Date\0200A\02020?\x06\x05");
  // Lenient where a hand has been at the file.
  EXPECT_EQ(Unescaped("a\0203Fb\020zz\020"), "a?b\020zz\020");
}

// A record cut anywhere is none: what is left of it may name another file.
TEST(LogFormat, WhatIsNoRecordIsNone) {
  const std::string all = "1\x06 /d/a?/d/photo12?<DateModified,1/1/2001>?\x06\x05";
  ASSERT_TRUE(ParseRecord(all.substr(0, all.size() - 1)));
  for (std::size_t n = 0; n + 1 < all.size(); ++n) EXPECT_FALSE(ParseRecord(all.substr(0, n))) << n;
  for (const char* line : {"@----------- 1 [2] -@", "junk?a?b", "1\x06 /a\x06", "1\x06 /a?\x06"}) {
    EXPECT_FALSE(ParseRecord(line)) << line;
  }
  const auto dated = ParseRecord("10\x06 /a ? /b? <x> ?\x06\x05").value();
  EXPECT_EQ(
      std::string(dated.status).append(dated.oldPath).append(dated.newPath).append(dated.detail),
      "10/a/b<x>");
  EXPECT_EQ(ParseRecord("1\x06 /a?/b?c?d?e?\x06\x05")->detail, "");
}

// One write a line; what one of them loses, the others don't, and no record is without a header.
TEST_F(LogTest, AFullDiskCostsOnlyWhatDidNotFit) {
  files.FailAt(FileCall::Append, 1, FileError::NotPermitted);
  RunBatch({aToB});
  EXPECT_FALSE(folder.Exists("Logfile.txt")) << "a run without a log goes on";
  files.FailAt(FileCall::Write, 1, FileError::NoSpace);
  files.FailAt(FileCall::Write, 3, FileError::NoSpace);
  RunBatch({aToB, aToB, aToB});
  const std::string line = "1\x06 /d/a?/d/b?\x06\x05\r\n";
  EXPECT_EQ(folder.Read("Logfile.txt"), header + line + line + batchEndLine);
}

// Two windows: whatever ends when, each record is read, and each batch has its header.
TEST_F(LogTest, TwoRunsAtOnceLeaveWholeBatches) {
  const auto record = [](LogFile& to, const char* name) {
    to.Record({RunRecord::Kind::File, "/d/", name, "/d/", name});
  };
  for (const bool firstEndsFirst : {true, false}) {
    LogFile second(files);
    second.SetPath(log.Path());
    for (LogFile* each : {&log, &second}) {
      each->BeginBatch(now);
      record(*each, each == &log ? "1" : "2");
    }
    record(log, "1");
    for (LogFile* each : {&log, &second}) {
      LogFile& ending = (each == &log) == firstEndsFirst ? log : second;
      if (each == &second) record(ending, "late");
      ending.EndBatch();
      ending.Close();
    }
  }
  const std::string text = folder.Read("Logfile.txt");
  std::string names;
  for (const std::string_view batch : SplitBatches(text)) {
    EXPECT_TRUE(Summarize(batch)) << batch;
    BatchRows rows;
    rows.Load(batch);
    for (std::size_t row = 1; row <= rows.Count(); ++row) names += rows.NewPath(row).substr(3);
    names += " ";
  }
  EXPECT_EQ(names, "121 late 121late ");
}

// The log is cleared while a run goes on: what comes behind is a batch again.
TEST_F(LogTest, ADeletedLogBeginsAnewWithTheHeader) {
  log.BeginBatch(now);
  log.Record(aToB);
  ASSERT_EQ(files.Delete(log.Path()), FileError::None);
  WaitForUnasked();
  log.Record({RunRecord::Kind::File, "/d/", "c", "/d/", "e"});
  log.EndBatch();
  EXPECT_EQ(folder.Read("Logfile.txt"), header + "1\x06 /d/c?/d/e?\x06\x05\r\n" + batchEndLine);
}

// What a killed run left of a line must not swallow the next batch's header. A rewritten log ends
// in the end of a batch, and the header stands directly behind it.
TEST_F(LogTest, ATornLineIsClosedBeforeTheNextBatch) {
  for (const std::string before : {"@-- 1 [2] -@\r\n1\x06 /d/a?/d/", "@-- 1 [2] -@\r\n\x07"}) {
    folder.Write("Logfile.txt", before);
    RunBatch({});
    const char* close = before.back() == '\x07' ? "" : "\r\n";
    EXPECT_EQ(folder.Read("Logfile.txt"), before + close + header + batchEndLine);
  }
}

}  // namespace
}  // namespace tallowbrook
