// A small update server on 127.0.0.1 that a chapter of the tour plays.
#pragma once

#include <QByteArray>
#include <QTcpServer>
#include <string>

namespace tallowbrook {

class UpdateServer {
 public:
  // Listens at a port of the system's choice; throws std::runtime_error if it can't.
  UpdateServer();

  std::uint16_t Port() const { return port_; }
  // What it sends to each client from now on, so long after its request; nothing: it stays silent.
  void Answer(QByteArray bytes, int delay = 0);
  // Refuses connections from now on, or takes them again.
  void Refuse(bool refuse);
  // What the last client sent.
  const std::string& LastRequest() const { return request_; }

 private:
  void Accept();

  QTcpServer server_;
  std::uint16_t port_ = 0;
  QByteArray answer_;
  int delay_ = 0;  // ms
  std::string request_;
};

}  // namespace tallowbrook
