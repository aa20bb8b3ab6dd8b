// Opening, against a file manager of our own at the other end of the bus.
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
  const std::pair<std::string, const char*> rows[] = {
      {"/a b/%20.txt", "file:///a%20b/%2520.txt"},
      {"/caf\xC3\xA9", "file:///caf%C3%A9"},
      {"/latin\xE9\xFF", "file:///latin%E9%FF"},
      {"/x?y#z;&=+:@", "file:///x%3Fy%23z%3B%26%3D%2B%3A%40"},
      {"//two/../up", "file:////two/../up"},
      {everyByte, nullptr}};
  for (const auto& [path, url] : rows) {
    const QByteArray encoded = FileUrl(path).toEncoded();
    if (url) {
      EXPECT_EQ(encoded.toStdString(), url);
    }
    EXPECT_EQ(DroppedPaths(encoded.toStdString()), std::vector{path});
  }
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

class OpenerTest : public testing::Test {
 protected:
  std::vector<std::string> opened;
  std::function<void(const QUrl&)> open = [this](const QUrl& url) {
    opened.push_back(url.toEncoded().toStdString());
  };
};

TEST_F(OpenerTest, TheFileManagerIsAskedFirstAndTheFolderIsOpenedIfItRefuses) {
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
}

TEST_F(OpenerTest, WithoutABusTheFolderIsOpened) {
  WindowDesktop desktop([] { return QDBusConnection(QStringLiteral("none")); }, open);
  desktop.ShowInFolder("/a/", "/a/b");
  EXPECT_EQ(opened, std::vector<std::string>{"file:///a/"});
}

}  // namespace tallowbrook
