#include "desktop/opener.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace tallowbrook {

QUrl FileUrl(std::string_view path) {
  const QByteArray bytes(path.data(), static_cast<qsizetype>(path.size()));
  return QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/"), QUrl::StrictMode);
}

void WindowDesktop::Open(const std::string& path) {
  openUrl_(FileUrl(path));
}

void WindowDesktop::OpenAddress(const std::string& address) {
  openUrl_(QUrl(QString::fromStdString(address), QUrl::StrictMode));
}

void WindowDesktop::ShowInFolder(const std::string& folder, const std::string& path) {
  constexpr int patience = 2000;  // ms
  const QDBusConnection bus = bus_();
  if (!bus.isConnected()) return Open(folder);
  const QString service = QStringLiteral("org.freedesktop.FileManager1");
  QDBusMessage call =
      QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/FileManager1"),
                                     service, QStringLiteral("ShowItems"));
  const QString item = QString::fromLatin1(FileUrl(path).toEncoded());
  call << QStringList(item) << QString();
  auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call, patience), &waiting_);
  QObject::connect(answer, &QDBusPendingCallWatcher::finished, &waiting_, [this, answer, folder] {
    answer->deleteLater();
    if (answer->isError()) Open(folder);
  });
}

}  // namespace tallowbrook
