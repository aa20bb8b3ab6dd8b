#include "tour/update_server.h"

#include <QTcpSocket>
#include <QTimer>
#include <stdexcept>

namespace tallowbrook {

UpdateServer::UpdateServer() {
  QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { Accept(); });
  Refuse(false);
  port_ = server_.serverPort();
}

void UpdateServer::Answer(QByteArray bytes, int delay) {
  answer_ = std::move(bytes);
  delay_ = delay;
  request_.clear();
}

void UpdateServer::Refuse(bool refuse) {
  if (refuse) return server_.close();
  if (server_.isListening()) return;
  if (!server_.listen(QHostAddress::LocalHost, port_)) throw std::runtime_error("no port is free");
}

void UpdateServer::Accept() {
  QTcpSocket* client = server_.nextPendingConnection();
  QObject::connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
  QObject::connect(client, &QTcpSocket::readyRead, client, [this, client] {
    request_ += client->readAll().toStdString();
    if (!request_.ends_with("\r\n") || answer_.isEmpty()) return;
    QTimer::singleShot(delay_, client, [this, client] { client->write(answer_); });
  });
}

}  // namespace tallowbrook
