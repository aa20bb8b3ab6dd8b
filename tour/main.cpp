// The tour's program: tallowbrook_tour [folder for the pictures].
//
// Without a display it runs on the toolkit's own off-screen one. It works on files of its own and
// keeps its log beside them, so that it leaves nothing behind but the pictures.
#include <QDir>
#include <exception>
#include <iostream>

#include "base/date.h"
#include "desktop/application.h"
#include "desktop/events.h"
#include "desktop/main_window.h"
#include "desktop/opener.h"
#include "desktop/tcp_socket.h"
#include "desktop/text.h"
#include "desktop/thumbnail_pictures.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/random.h"
#include "shell/form1.h"
#include "tour/sample_files.h"
#include "tour/steps.h"

namespace {

using namespace tallowbrook;

// Nobody is there to answer: a box is printed, and the tour's own question before an undo gets Yes,
// any other No.
class PrintedDialogs : public Dialogs {
 public:
  Answer Ask(const MessageBox& box) override {
    std::cout << "  [" << box.title << "] " << Printable(box.text) << "\n";
    if (box.buttons == Buttons::Ok) return Answer::Ok;
    return box.title == "Confirm Undo" ? Answer::Yes : Answer::No;
  }
};

void Run(const QString& pictures) {
  const SampleFiles samples;
  SystemFiles files;
  SystemClock clock;
  SystemRandom random;
  PrintedDialogs dialogs;
  WindowEvents events;
  WindowDesktop desktop;
  ThumbnailPictures thumbnails;
  TcpSocket socket;
  Form1 form({files,
              clock,
              random,
              dialogs,
              events,
              desktop,
              thumbnails,
              socket,
              EnglishDateNames(),
              {ToBytes(QApplication::applicationDirPath()) + "/", samples.Data()},
              samples.Home()});
  MainWindow window(form, files, samples.Home());
  form.Load();
  window.show();
  Steps steps(form, window, samples, pictures);
  steps.Begin();
  NamesChapter(steps);
  MediaChapter(steps);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("TZ", "UTC");  // what an undo of dates gives back is in universal time
  if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
      qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  Application application(argc, argv);
  const QString pictures =
      QDir::cleanPath(argc > 1 ? QString::fromLocal8Bit(argv[1])
                               : QApplication::applicationDirPath() + QStringLiteral("/../tour"));
  try {
    if (!QDir().mkpath(pictures)) throw std::runtime_error("can't make " + ToBytes(pictures));
    Run(pictures);
  } catch (const std::exception& error) {
    std::cerr << "tour: " << error.what() << "\n";
    return 1;
  }
  std::cout << "\nPictures: " << pictures.toStdString() << "\n";
  return 0;
}
