// A world in which nobody is there: for the program without a window, a user or a network.
#pragma once

#include "base/dialogs.h"
#include "base/pending_events.h"
#include "platform/desktop.h"
#include "platform/tcp_client.h"
#include "platform/thumbnail_source.h"

namespace tallowbrook {

struct NoDialogs : Dialogs {
  Answer Ask(const MessageBox&) override { return answer; }
  Answer answer = Answer::No;
};
struct NoEvents : PendingEvents {
  void Yield() override {}
};
struct NoDesktop : Desktop {
  void Open(const std::string&) override {}
  void OpenAddress(const std::string&) override {}
  void ShowInFolder(const std::string&, const std::string&) override {}
};
struct NoThumbnails : ThumbnailSource {
  std::optional<PackedBitmap> Extract(const std::string&, const FileFacts&, int, int) override {
    return {};
  }
};
struct NoNetwork : TcpClient {
  void Connect(const std::string&, std::uint16_t) override {}
  void Send(std::string_view) override {}
  void Close() override {}
  bool IsOpen() const override { return false; }
};

}  // namespace tallowbrook
