// Logs to start from: whole ones, cut ones, and bytes that mean something to the log.
#include <random>

#include "fuzzing/seeds.h"
#include "store/log_format.h"

namespace tallowbrook {
namespace {

std::string Batch(const std::vector<RunRecord>& records) {
  std::string text = log_format::Header(*MakeDate({2024, 2, 9, 5, 7, 9})) + "\r\n";
  std::string line;
  for (const RunRecord& record : records) {
    log_format::FormatRecord(record, line);
    text += line + "\r\n";
  }
  return text + "\x07\r\n";
}

}  // namespace

Seeds LogSeeds() {
  using Kind = RunRecord::Kind;
  const std::string files = Batch({{Kind::File, "/d/", "a b.txt", "/e/", "c.txt"},
                                   {Kind::File, "/d/", "\x06?\x07\r\n ", "/d/", "\xff"},
                                   {Kind::Failed, "/d/", "p.mp3", "/d/", "<0>Why?"}});
  const std::string folders = Batch({{Kind::Folder, "/d/", "x", "/d/", "y"},
                                     {Kind::Folder, "/d/y/", "u", "/d/y/", "v"},
                                     {Kind::File, "/d/y/v/", "f", "/d/y/v/", "g"}});
  const std::string dates =
      Batch({{Kind::File, "/d/", "q", "/d/", "q", "<DateModified,9/11/2005 7:01:01 AM>"},
             {Kind::Folder, "/d/", "z", "/d/", "z", "<DateCreated,1/1/2001>"}});
  const std::string undone =
      "@-- 1 [2] -@\r\n3\x06 /d/a?/d/b?\x06\x05\r\n10\x06 /d?/e?\x06\x05\r\n\x07";
  Seeds seeds = {"\x07", files + folders + dates, undone + files, folders + undone + "@-- x",
                 "@-- 1 [2] -@\r\n1\x06??\x06\r\n\x06??\x06\r\n0\x06?\x06\x07"};
  // Cut off anywhere, and by chance of those bytes that mean something to the log.
  const std::string whole = folders + files + dates + undone;
  for (std::size_t length = 0; length < whole.size(); ++length) {
    seeds.push_back(whole.substr(0, length));
  }
  std::mt19937 chance(1);  // NOLINT: the same ones each time
  const std::string bytes = "@ []\r\n\x05\x06\x07\x10?/01339<>a";
  for (int i = 0; i < 200; ++i) {
    std::string seed(chance() % 400, ' ');
    for (char& c : seed) c = bytes[chance() % bytes.size()];
    seeds.push_back(std::move(seed));
  }
  return seeds;
}

}  // namespace tallowbrook
