#include "shell/update_check.h"

#include <utility>

namespace tallowbrook {

namespace {

constexpr char separator = 7;
constexpr char answerEnd = 13;
constexpr std::size_t longestAnswer = 64 * 1024;
constexpr std::int32_t patience = 15;  // ticks
constexpr std::int64_t daysBetweenChecks = 7;
constexpr std::string_view downloadPath = "/products_tallowbrook_download.cfm";

}  // namespace

UpdateCheck::UpdateCheck(const UpdateWorld& world) : world_(world) {
  world_.Winsock1.connected = [this] { Connected(); };
  world_.Winsock1.arrived = [this](std::string_view bytes) { Arrived(bytes); };
  // The user hears of it from the watchdog.
  world_.Winsock1.failed = [this] { CloseUpdateSocket(); };
}

UpdateCheck::~UpdateCheck() {
  world_.Winsock1.connected = nullptr;
  world_.Winsock1.arrived = nullptr;
  world_.Winsock1.failed = nullptr;
  CloseUpdateSocket();
}

void UpdateCheck::CheckForUpdates(int manual) {
  UpdateSilent = manual == 0;
  CloseUpdateSocket();
  UpdateAwaitingAnswer = true;
  UpdateBuffer.clear();
  world_.Winsock1.Connect(world_.deployment.updateHost, world_.deployment.updatePort);
  if (started) started();
}

void UpdateCheck::AutoUpdateIfDue() {
  const std::optional<Date> last = ParseDateText(world_.AutoUpdateLastCheck);
  if (!last || DayOf(world_.clock.Now()) - DayOf(*last) < daysBetweenChecks) return;
  CheckForUpdates(0);
}

void UpdateCheck::Tick() {
  if (!UpdateAwaitingAnswer || ++UpdateWatchdogTicks != patience) return;
  UpdateAwaitingAnswer = false;
  CloseUpdateSocket();
  UpdateWatchdogTicks = 0;
  if (!UpdateSilent) world_.dialogs.Ask({"Tallowbrook", "Could not connect to update server"});
}

void UpdateCheck::Connected() {
  std::string request = world_.deployment.version + separator + "1" + separator;
  request.append(UpdateSilent ? "True" : "False").push_back(separator);
  SendUpdateRequest(request);
}

void UpdateCheck::SendUpdateRequest(std::string_view text) {
  world_.Winsock1.Send(std::string(text).append("\r\n"));
}

// A server that sends on and on without an end counts as one that doesn't answer.
void UpdateCheck::Arrived(std::string_view bytes) {
  const std::size_t end = bytes.find(answerEnd);
  const std::size_t needed = end == std::string_view::npos ? bytes.size() : end;
  if (UpdateBuffer.size() + needed > longestAnswer) {
    UpdateBuffer.clear();
    CloseUpdateSocket();
    return;
  }
  UpdateBuffer.append(bytes.substr(0, end));
  if (end == std::string_view::npos) return;
  CloseUpdateSocket();
  HandleUpdateAnswer();
}

void UpdateCheck::CloseUpdateSocket() {
  if (world_.Winsock1.IsOpen()) world_.Winsock1.Close();
}

void UpdateCheck::HandleUpdateAnswer() {
  UpdateAwaitingAnswer = false;
  UpdateWatchdogTicks = 0;
  const bool silent = UpdateSilent;
  const std::string answer = std::exchange(UpdateBuffer, {});
  const std::string version = answer.substr(0, answer.find(separator));
  if (version != "False") {
    const Answer reply = world_.dialogs.Ask(
        {"New Version Available",
         "Version " + version + " is now available, would you like to download it now?",
         Buttons::YesNo});
    if (reply == Answer::Yes) {
      world_.desktop.OpenAddress(world_.deployment.site + std::string(downloadPath));
    }
  } else if (!silent) {
    world_.dialogs.Ask({"Tallowbrook", "You have the most recent version"});
  }
  if (silent) world_.AutoUpdateLastCheck = GeneralDateText(world_.clock.Now());
}

}  // namespace tallowbrook
