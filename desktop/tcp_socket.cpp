#include "desktop/tcp_socket.h"

#include <QNetworkProxy>

namespace tallowbrook {

namespace {
// What the socket holds before it lets the server wait.
constexpr qint64 readAhead = 16 * 1024;  // bytes
}  // namespace

TcpSocket::TcpSocket() {
  socket_.setProxy(QNetworkProxy::NoProxy);
  socket_.setReadBufferSize(readAhead);
  QObject::connect(&socket_, &QTcpSocket::connected, &socket_, [this] {
    if (open_ && connected) connected();
  });
  QObject::connect(&socket_, &QTcpSocket::readyRead, &socket_, [this] {
    const QByteArray bytes = socket_.readAll();
    if (open_ && arrived) arrived({bytes.constData(), static_cast<std::size_t>(bytes.size())});
  });
  QObject::connect(&socket_, &QTcpSocket::errorOccurred, &socket_, [this] {
    if (open_ && failed) failed();
  });
}

TcpSocket::~TcpSocket() {
  Close();
}

void TcpSocket::Connect(const std::string& host, std::uint16_t port) {
  Close();
  open_ = true;
  socket_.connectToHost(QString::fromStdString(host), port);
}

void TcpSocket::Send(std::string_view bytes) {
  if (socket_.state() != QAbstractSocket::ConnectedState) return;
  socket_.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void TcpSocket::Close() {
  open_ = false;
  socket_.abort();
}

}  // namespace tallowbrook
