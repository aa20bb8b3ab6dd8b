// TcpClient over the toolkit's socket: its events come through the window's event loop.
#pragma once

#include <QTcpSocket>

#include "platform/tcp_client.h"

namespace tallowbrook {

class TcpSocket : public TcpClient {
 public:
  TcpSocket();
  ~TcpSocket() override;
  void Connect(const std::string& host, std::uint16_t port) override;
  void Send(std::string_view bytes) override;
  void Close() override;
  bool IsOpen() const override { return open_; }

 private:
  QTcpSocket socket_;
  bool open_ = false;
};

}  // namespace tallowbrook
