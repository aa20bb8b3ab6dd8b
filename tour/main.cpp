// The tour's program: tallowbrook_tour [folder for the pictures].
//
// Without a display it runs on the toolkit's own off-screen one. It works on files of its own and
// keeps its log beside them, so that it leaves nothing behind but the pictures.
#include <QDir>
#include <exception>
#include <iostream>

#include "base/date.h"
#include "desktop/application.h"
#include "desktop/program.h"
#include "desktop/text.h"
#include "tour/printed_dialogs.h"
#include "tour/sample_files.h"
#include "tour/shell_chapter.h"
#include "tour/steps.h"

namespace {

using namespace tallowbrook;

Program::Place PlaceOf(const SampleFiles& samples, Dialogs& dialogs) {
  return {{ToBytes(QApplication::applicationDirPath()) + "/", samples.Data()},
          samples.Home(),
          EnglishDateNames(),
          &dialogs};
}

void FirstStart(const SampleFiles& samples, Album& album) {
  UpdateServer server;
  PrintedDialogs dialogs;
  Program::Place place = PlaceOf(samples, dialogs);
  place.deployment.updateHost = "127.0.0.1";
  place.deployment.updatePort = server.Port();
  Program program(place);
  program.Start();
  Steps steps(program.form, program.window, samples, album);
  steps.Begin();
  steps.CloseTips();
  NamesChapter(steps);
  MediaChapter(steps);
  ShellChapter(steps, server, dialogs);
  LeaveProgram(steps);
}

void SecondStart(const SampleFiles& samples, Album& album) {
  PrintedDialogs dialogs;
  Program program(PlaceOf(samples, dialogs));
  program.Start();
  Steps steps(program.form, program.window, samples, album);
  steps.Begin();
  FindLastState(steps, dialogs);
}

void Run(const QString& pictures) {
  const SampleFiles samples;
  Album album(pictures);
  // Where thumbnails are kept.
  qputenv("XDG_CACHE_HOME", QByteArray::fromStdString(samples.Data() + "cache"));
  FirstStart(samples, album);
  SecondStart(samples, album);
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
