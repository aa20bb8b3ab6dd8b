// The update check against a server that the test plays.
#include "shell/update_check.h"

#include <gtest/gtest.h>

#include "tests/support/fakes.h"

namespace tallowbrook {
namespace {

class UpdateCheckTest : public testing::Test {
 protected:
  void Ticks(int count) {
    for (int i = 0; i < count; ++i) check.Tick();
  }
  std::string Asked() const {
    std::string all;
    for (const MessageBox& box : dialogs.asked) all += box.title + "|" + box.text + "\n";
    return all;
  }

  FakeTcpClient socket;
  FakeClock clock;
  FakeDialogs dialogs;
  FakeDesktop desktop;
  Deployment deployment{"4.0.1", "host", 3877, "https://site", "mail"};
  std::string last = "2/20/2024 11:59:00 PM";
  UpdateCheck check{{socket, clock, dialogs, desktop, deployment, last}};
};

// clang-format off
TEST_F(UpdateCheckTest, OneLineGoesOutAndOneFieldOfTheAnswerCounts) {
  int starts = 0;
  check.started = [&] { ++starts; };
  check.CheckForUpdates(1);
  socket.connected();
  check.CheckForUpdates(0);
  socket.connected();
  EXPECT_EQ(starts, 2);
  EXPECT_EQ(socket.calls, (std::vector<std::string>{
      "connect host 3877", "send 4.0.1\a1\aFalse\a\r\n", "close", "connect host 3877",
      "send 4.0.1\a1\aTrue\a\r\n"}));
  const auto offer = [](const char* version) {
    return std::string("New Version Available|Version ") + version +
           " is now available, would you like to download it now?\n";
  };
  using Pieces = std::vector<std::string_view>;
  const struct { int manual; Pieces pieces; Answer answer; std::string asked; bool opens; } rows[] = {
      {0, {"4.1.0\arest\r"}, Answer::Yes, offer("4.1.0"), true}, {0, {"4", ".",
      "1\r\n"}, Answer::No, offer("4.1"), false},
      {0, {"\r"}, Answer::No, offer(""), false}, {0, {"false\r"}, Answer::No, offer("false"), false},
      {1, {"False\r"}, Answer::Ok, "Tallowbrook|You have the most recent version\n", false},
      {0, {"Fal", "se\r"}, Answer::Ok, "", false}};
  for (const auto& row : rows) {
    dialogs.asked.clear(), desktop.opened.clear(), last = "2/20/2024";
    dialogs.answers = {row.answer};
    check.CheckForUpdates(row.manual);
    for (const std::string_view piece : row.pieces) socket.arrived(piece);
    EXPECT_EQ(Asked(), row.asked);
    EXPECT_EQ(desktop.opened,
              std::vector<std::string>(row.opens, "https://site/products_tallowbrook_download.cfm"));
    EXPECT_FALSE(socket.IsOpen() || check.UpdateAwaitingAnswer);
    EXPECT_EQ(last, row.manual ? "2/20/2024" : "2/29/2024 1:05:09 PM");
    Ticks(40);  // nothing is left of it
  }
}

// A refusal, silence, an answer without its end, one that never ends: all is told by the watchdog,
// and only to who asked.
TEST_F(UpdateCheckTest, WhatFailsIsToldAfterThreeSecondsToWhoAsked) {
  const std::function<void()> failures[] = {
      [] {}, [&] { socket.failed(); }, [&] { socket.connected(), socket.failed(); },
      [&] { socket.connected(), socket.arrived("4.1.0\a"); },
      [&] { for (int i = 0; i < 100; ++i) if (socket.IsOpen()) socket.arrived(std::string(1000, '\0')); },
  };
  for (const auto& fails : failures) {
    for (const int manual : {0, 1}) {
      dialogs.asked.clear();
      if (manual) dialogs.answers = {Answer::Ok};
      check.CheckForUpdates(manual);
      fails();
      Ticks(14);
      EXPECT_EQ(Asked(), "");
      Ticks(1);
      EXPECT_EQ(Asked(), manual ? "Tallowbrook|Could not connect to update server\n" : "");
      EXPECT_FALSE(socket.IsOpen());
      Ticks(40);
      EXPECT_EQ(last, "2/20/2024 11:59:00 PM");
    }
  }
}

TEST_F(UpdateCheckTest, ItIsDueOnceSevenMidnightsHavePassed) {
  const struct { const char* last; DateFields now; bool due; } rows[] = {
      {"2/19/2024 11:59:00 PM", {2024, 2, 26, 0, 1, 0}, true},
      {"2/19/2024", {2024, 2, 25, 23, 59, 59}, false},
      {"2/29/2023", {2024, 2, 26}, false}, {"", {2024, 2, 26}, false}, {"3/19/2024", {2024, 2, 26}, false},
  };
  for (const auto& row : rows) {
    socket.calls.clear();
    last = row.last;
    clock.now = *MakeDate(row.now);
    check.AutoUpdateIfDue();
    EXPECT_EQ(socket.IsOpen(), row.due) << row.last;
    EXPECT_TRUE(!row.due || check.UpdateSilent);
    socket.Close();
  }
}

}  // namespace
}  // namespace tallowbrook
