// Paths as addresses and back, and opening, against a file manager of our own on the bus.
#include "desktop/opener.h"

#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QDBusServer>
#include <QDBusVirtualObject>
#include <QTest>

#include "desktop/dropped_paths.h"

namespace tallowbrook {

TEST(FileUrl, KeepsEveryByte) {
  std::string everyByte = "/";
  for (int byte = 1; byte < 256; ++byte) everyByte += static_cast<char>(byte);
  EXPECT_EQ(DroppedPaths(FileUrl(everyByte).toEncoded().toStdString()), std::vector{everyByte});
  // clang-format off
  const std::pair<std::string, std::string> rows[] = {
      {"/a b/%20.txt", "file:///a%20b/%2520.txt"}, {"/latin\xE9\xFF", "file:///latin%E9%FF"},
      {"/x?y#z;&=+:@", "file:///x%3Fy%23z%3B%26%3D%2B%3A%40"}, {"//two/../up", "file:////two/../up"}};
  // clang-format on
  for (const auto& [path, url] : rows) EXPECT_EQ(FileUrl(path).toEncoded().toStdString(), url);
}

TEST(DroppedPaths, AreLocalPathsOfAnyBytes) {
  // clang-format off
  const std::pair<const char*, std::vector<std::string>> rows[] = {
      {"", {}}, {"file:///a\r\nfile:///b", {"/a", "/b"}}, {"file:///a\nfile:///b\n", {"/a", "/b"}},
      {"file://localhost/a", {"/a"}}, {"FILE:/a", {"/a"}}, {"# file:///comment\r\nfile:///a", {"/a"}},
      {"file:///caf%C3%A9%20%25", {"/caf\xC3\xA9 %"}}, {"file:///latin%e9%FF", {"/latin\xE9\xFF"}},
      {"file:///line%0Aend", {"/line\nend"}}, {"file:///hash#1?x", {"/hash#1?x"}},
      {"file:///100%", {"/100%"}}, {"file:///%4", {"/%4"}}, {"file:///%zz", {"/%zz"}},
      {"file:///nul%00byte", {}},
      {"http://host/a\r\nfile://server/share/a\r\nnonsense\r\nfile:", {}}};
  // clang-format on
  for (const auto& [list, paths] : rows) EXPECT_EQ(DroppedPaths(list), paths) << list;
}

// Notes what it is asked to show, and answers or refuses.
class FileManager : public QDBusVirtualObject {
 public:
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    shown += message.member() + QLatin1Char(' ') +
             message.arguments().value(0).toStringList().join(QLatin1Char(' '));
    connection.send(refuses ? message.createErrorReply(QDBusError::ServiceUnknown, {})
                            : message.createReply());
    return true;
  }
  QStringList shown;
  bool refuses = false;
};

TEST(Opener, TheFileManagerIsAskedFirstAndTheFolderIsOpenedIfItRefusesOrIsntThere) {
  std::vector<std::string> opened;
  const auto open = [&](const QUrl& url) { opened.push_back(url.toEncoded().toStdString()); };
  FileManager manager;
  QDBusServer server(QStringLiteral("unix:tmpdir=/tmp"));
  QList<QDBusConnection> clients;
  QObject::connect(&server, &QDBusServer::newConnection, &manager, [&](QDBusConnection client) {
    client.registerVirtualObject(QStringLiteral("/org/freedesktop/FileManager1"), &manager);
    clients += client;
  });
  const QString name = QStringLiteral("peer");
  WindowDesktop desktop([&] { return QDBusConnection::connectToPeer(server.address(), name); },
                        open);
  desktop.ShowInFolder("/a\xFF/", "/a\xFF/b c");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !manager.shown.empty(); }));
  EXPECT_EQ(manager.shown, QStringList(QStringLiteral("ShowItems file:///a%FF/b%20c")));
  manager.refuses = true;
  desktop.ShowInFolder("/a\xFF/", "/a\xFF/b c");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !opened.empty(); }));
  EXPECT_EQ(opened, std::vector<std::string>{"file:///a%FF/"});
  QDBusConnection::disconnectFromPeer(name);
  WindowDesktop alone([] { return QDBusConnection(QStringLiteral("none")); }, open);
  alone.ShowInFolder("/a/", "/a/b");
  EXPECT_EQ(opened.back(), "file:///a/");
}

}  // namespace tallowbrook
