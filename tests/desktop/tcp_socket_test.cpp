// The TCP client against a server of this process, on 127.0.0.1.
#include "desktop/tcp_socket.h"

#include <gtest/gtest.h>

#include <QTcpServer>
#include <QTest>

namespace tallowbrook {
namespace {

class TcpSocketTest : public testing::Test {
 protected:
  TcpSocketTest() {
    server.listen(QHostAddress::LocalHost);
    socket.connected = [this] { heard += "connected;"; };
    socket.arrived = [this](std::string_view bytes) { heard.append(bytes).append(";"); };
    socket.failed = [this] { heard += "failed;"; };
  }
  QTcpSocket& Accept() {
    socket.Connect("127.0.0.1", server.serverPort());
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.hasPendingConnections() && !heard.empty(); }));
    return *server.nextPendingConnection();
  }
  bool Hears(const std::string& what) {
    return QTest::qWaitFor([&] { return heard == what; }, 3000);
  }

  QTcpServer server;
  std::string heard;
  TcpSocket socket;
};

TEST_F(TcpSocketTest, TakesBytesBothWaysUntilItIsClosed) {
  QTcpSocket& peer = Accept();
  EXPECT_TRUE(socket.IsOpen());
  socket.Send(std::string_view("a\0b\r\n", 5));
  ASSERT_TRUE(QTest::qWaitFor([&] { return peer.bytesAvailable() == 5; }));
  EXPECT_EQ(peer.readAll(), QByteArray("a\0b\r\n", 5));
  peer.write("answer");
  EXPECT_TRUE(Hears("connected;answer;")) << heard;
  peer.write("late");
  peer.flush();
  socket.Close();
  EXPECT_FALSE(socket.IsOpen());
  QTest::qWait(50);
  EXPECT_EQ(heard, "connected;answer;");
  socket.Send("nobody hears");
}

TEST_F(TcpSocketTest, TellsOfARefusalAndOfAConnectionThatBreaks) {
  QTcpSocket& peer = Accept();
  peer.abort();
  EXPECT_TRUE(Hears("connected;failed;")) << heard;
  heard.clear();
  const quint16 port = server.serverPort();
  server.close();
  socket.Connect("127.0.0.1", port);
  EXPECT_TRUE(Hears("failed;")) << heard;
  // Closed before it was known: nothing is heard of it.
  heard.clear();
  socket.Connect("127.0.0.1", port);
  socket.Close();
  QTest::qWait(50);
  EXPECT_EQ(heard, "");
}

// What isn't taken yet stays with the server: the socket holds a bounded part of it.
TEST_F(TcpSocketTest, AServerThatSendsOnAndOnIsStoppedByAClose) {
  std::size_t got = 0;
  socket.arrived = [&](std::string_view bytes) {
    got += bytes.size();
    if (got > 64 * 1024) socket.Close();
  };
  QTcpSocket& peer = Accept();
  peer.write(QByteArray(8 << 20, 'x'));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !socket.IsOpen(); }));
  EXPECT_LE(got, 128U * 1024);
}

}  // namespace
}  // namespace tallowbrook
