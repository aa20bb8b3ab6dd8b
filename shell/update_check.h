// The update check: asks the update server whether there is a newer version.
//
// One line each way over TCP. We send our version, "1" and whether the check is automatic, each
// with a byte 7 behind it, and CR LF; the server answers with a text that ends at the first byte
// 13, of which the first field counts: "False", or the newest version. The server compares, we
// believe it. Whatever goes wrong, its watchdog ends a check after three seconds.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "base/dialogs.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/tcp_client.h"
#include "shell/deployment.h"

namespace tallowbrook {

struct UpdateWorld {
  TcpClient& Winsock1;
  Clock& clock;
  Dialogs& dialogs;
  Desktop& desktop;
  Deployment deployment;
  // General date text of the last automatic check that was answered.
  std::string& AutoUpdateLastCheck;
};

class UpdateCheck {
 public:
  static constexpr int intervalMilliseconds = 200;  // of Timer2

  explicit UpdateCheck(const UpdateWorld& world);
  ~UpdateCheck();
  UpdateCheck(const UpdateCheck&) = delete;
  UpdateCheck& operator=(const UpdateCheck&) = delete;

  // An automatic check (0) speaks to the user only of a newer version. A check that is under way
  // ends without a word, but its ticks count on: the new one has less time.
  void CheckForUpdates(int manual);
  // An automatic check, if seven midnights lie between the last one and now; not if the last one's
  // text is no date.
  void AutoUpdateIfDue();
  // Timer2's tick, the watchdog's.
  void Tick();

  // Starts Timer2, which ticks while a check awaits its answer. Set by the window.
  std::function<void()> started;

  bool UpdateSilent = false;
  bool UpdateAwaitingAnswer = false;
  std::int32_t UpdateWatchdogTicks = 0;

 private:
  void Connected();
  void Arrived(std::string_view bytes);
  void SendUpdateRequest(std::string_view text);
  void CloseUpdateSocket();
  void HandleUpdateAnswer();

  UpdateWorld world_;
  std::string UpdateBuffer;
};

}  // namespace tallowbrook
