// What the program asks of the world, answered by a test.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <vector>

#include "base/dialogs.h"
#include "base/pending_events.h"
#include "engine/rename_run.h"
#include "engine/run_log.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/random.h"
#include "platform/tcp_client.h"
#include "platform/thumbnail_source.h"

namespace tallowbrook {

// Answers from a queue; a question that no test expected fails the test and gets No.
class FakeDialogs : public Dialogs {
 public:
  std::deque<Answer> answers;
  std::vector<MessageBox> asked;

  Answer Ask(const MessageBox& box) override {
    asked.push_back(box);
    if (answers.empty()) {
      ADD_FAILURE() << "unexpected question: " << box.title << ": " << box.text;
      return box.buttons == Buttons::Ok ? Answer::Ok : Answer::No;
    }
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

// Counts the yields and may run something at one of them, as a user would click.
class FakeEvents : public PendingEvents {
 public:
  int yields = 0;
  std::map<int, std::function<void()>> atYield;  // from 1

  void Yield() override {
    const auto found = atYield.find(++yields);
    if (found != atYield.end()) found->second();
  }
};

// Notes what was to be opened; what was to be shown in its folder as "folder > path".
class FakeDesktop : public Desktop {
 public:
  std::vector<std::string> opened;

  void Open(const std::string& path) override { opened.push_back(path); }
  void OpenAddress(const std::string& address) override { opened.push_back(address); }
  void ShowInFolder(const std::string& folder, const std::string& path) override {
    opened.push_back(folder + " > " + path);
  }
};

// Has a picture of every file whose name begins with "photo", its path and the size asked for.
class FakeThumbnails : public ThumbnailSource {
 public:
  std::optional<PackedBitmap> Extract(const std::string& path, const FileFacts&, int width,
                                      int height) override {
    if (path.find("/photo") == std::string::npos) return {};
    return PackedBitmap{width, height, path};
  }
};

// A server that a test plays: it calls `connected`, `arrived` and `failed` itself.
class FakeTcpClient : public TcpClient {
 public:
  std::vector<std::string> calls;  // "connect HOST PORT", "send BYTES", "close"

  void Connect(const std::string& host, std::uint16_t port) override {
    calls.push_back("connect " + host + " " + std::to_string(port));
    open_ = true;
  }
  void Send(std::string_view bytes) override { calls.push_back("send " + std::string(bytes)); }
  void Close() override {
    calls.push_back("close");
    open_ = false;
  }
  bool IsOpen() const override { return open_; }

 private:
  bool open_ = false;
};

// Stands at one moment, in universal time unless an offset is set.
class FakeClock : public Clock {
 public:
  Date now = *MakeDate({2024, 2, 29, 13, 5, 9});
  std::int64_t offset = 0;  // seconds east of universal time

  Date Now() override { return now; }
  Date Local(std::int64_t posixSeconds) override {
    return Date{UniversalDate(posixSeconds).seconds + offset};
  }
  std::int64_t Posix(Date local) override { return local.seconds - secondsToPosixEpoch - offset; }
};

// Gives the values of a list, over and over.
class FakeRandom : public RandomSource {
 public:
  std::vector<double> values{0.5};
  std::vector<double> seeds;

  void Reseed(double secondsSinceMidnight) override { seeds.push_back(secondsSinceMidnight); }
  double Next() override { return values[next_++ % values.size()]; }

 private:
  std::size_t next_ = 0;
};

// Notes whose dates were to change, "path command"; of a command with "fails" nothing is the
// answer.
class FakeFileDates : public FileDates {
 public:
  std::vector<std::string> asked;
  std::string answer = "former";

  std::string ProcessAttributes(const std::string& path, const std::string& command) override {
    asked.push_back(path + " " + command);
    return command.find("fails") == std::string::npos ? answer : "";
  }
};

// Keeps a batch as lines: "1 old > new", and the detail behind a "|".
class FakeLog : public RunLog {
 public:
  std::vector<std::string> lines;

  void BeginBatch(Date) override { lines.push_back("begin"); }
  void Record(const RunRecord& record) override {
    std::string line = std::to_string(static_cast<int>(record.kind)) + " ";
    line.append(record.oldFolder).append(record.oldName).append(" > ");
    line.append(record.newFolder).append(record.newName);
    if (!record.detail.empty()) line.append("|").append(record.detail);
    lines.push_back(line);
  }
  void EndBatch() override { lines.push_back("end"); }
  void Close() override { lines.push_back("close"); }
};

}  // namespace tallowbrook
