// The program: the real world, the model, the window.
#include "base/date.h"
#include "desktop/application.h"
#include "desktop/dialogs.h"
#include "desktop/events.h"
#include "desktop/main_window.h"
#include "desktop/opener.h"
#include "desktop/tcp_socket.h"
#include "desktop/thumbnail_pictures.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/program_folders.h"
#include "platform/random.h"
#include "platform/signals.h"
#include "shell/form1.h"

int main(int argc, char** argv) {
  using namespace tallowbrook;
  IgnoreWriteSignals();
  Application application(argc, argv);
  SystemFiles files;
  SystemClock clock;
  SystemRandom random;
  WindowDialogs dialogs;
  WindowEvents events;
  WindowDesktop desktop;
  ThumbnailPictures thumbnails;
  TcpSocket socket;
  const std::string home = HomeFolder();
  Form1 form({files, clock, random, dialogs, events, desktop, thumbnails, socket, SystemDateNames(),
              FindProgramFolders(), home});
  MainWindow window(form, files, home);
  dialogs.SetParent(&window);
  form.Load();
  if (form.ExitDone) return 0;
  window.show();
  return Application::exec();
}
