// The whole program: the real world, the model and the window, which begin and end in this order.
#pragma once

#include <string>

#include "desktop/dialogs.h"
#include "desktop/events.h"
#include "desktop/main_window.h"
#include "desktop/opener.h"
#include "desktop/tcp_socket.h"
#include "desktop/thumbnail_pictures.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/random.h"
#include "shell/form1.h"

namespace tallowbrook {

class Program {
 public:
  // Where it reads and writes, whom it asks, and which hosts it speaks to; `asks` answers in place
  // of boxes, if given.
  struct Place {
    ProgramFolders folders;
    std::string home;
    const DateNames& dateNames;
    Dialogs* asks = nullptr;
    Deployment deployment = {};
  };
  explicit Program(const Place& place);

  // Loads everything and shows the window. False if the program has ended already.
  bool Start();

 private:
  SystemFiles files_;
  SystemClock clock_;
  SystemRandom random_;
  WindowDialogs dialogs_;
  WindowEvents events_;
  WindowDesktop desktop_;
  ThumbnailPictures thumbnails_{files_};
  TcpSocket socket_;

 public:
  Form1 form;
  MainWindow window;
};

}  // namespace tallowbrook
