// A TCP connection as a client. What comes of it arrives as events, on the thread that asked.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tallowbrook {

class TcpClient {
 public:
  virtual ~TcpClient() = default;

  // Set by whoever uses the client, before Connect.
  std::function<void()> connected;
  // Some of the bytes that the server has sent; how many is up to the network.
  std::function<void(std::string_view bytes)> arrived;
  // The host is unknown, the connection was refused, or it broke.
  std::function<void()> failed;

  // Comes back at once; `connected` or `failed` follows, or nothing for a long time.
  virtual void Connect(const std::string& host, std::uint16_t port) = 0;
  // Does nothing without a connection.
  virtual void Send(std::string_view bytes) = 0;
  // At once; no event follows.
  virtual void Close() = 0;
  // Between Connect and Close, whatever has come of it.
  virtual bool IsOpen() const = 0;
};

}  // namespace tallowbrook
