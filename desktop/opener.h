// The desktop, for real: the program chosen for a file, and the file manager.
#pragma once

#include <QDBusConnection>
#include <QDesktopServices>
#include <QObject>
#include <QUrl>
#include <functional>
#include <string_view>

#include "platform/desktop.h"

namespace tallowbrook {

class WindowDesktop : public Desktop {
 public:
  // The bus is looked for when it is first needed.
  explicit WindowDesktop(std::function<QDBusConnection()> bus = QDBusConnection::sessionBus,
                         std::function<void(const QUrl&)> openUrl = QDesktopServices::openUrl)
      : bus_(std::move(bus)), openUrl_(std::move(openUrl)) {}

  void Open(const std::string& path) override;
  void OpenAddress(const std::string& address) override;
  // Asks the file manager (org.freedesktop.FileManager1 on the session bus, method ShowItems).
  // Without an answer in time the folder is opened instead.
  void ShowInFolder(const std::string& folder, const std::string& path) override;

 private:
  std::function<QDBusConnection()> bus_;
  std::function<void(const QUrl&)> openUrl_;
  QObject waiting_;  // ends what waits for an answer
};

// A path of any bytes as the URL of a local file; its bytes come back by decoding the percent
// signs.
QUrl FileUrl(std::string_view path);

}  // namespace tallowbrook
