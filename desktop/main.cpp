// The program.
#include <QSettings>

#include "base/date.h"
#include "desktop/application.h"
#include "desktop/program.h"
#include "platform/program_folders.h"
#include "platform/signals.h"

int main(int argc, char** argv) {
  using namespace tallowbrook;
  IgnoreWriteSignals();
  Application application(argc, argv);
  // By this name desktops find the window's entry and icon.
  QGuiApplication::setDesktopFileName(QStringLiteral(TALLOWBROOK_ID));
  Program program({FindProgramFolders(), HomeFolder(), SystemDateNames()});
  if (!program.Start()) return 0;
  // In a file of its own below the folder of the user's settings.
  QSettings layout(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("tallowbrook"),
                   QStringLiteral("window"));
  RestoreLayout(program.window.Parts(), layout);
  const int result = Application::exec();
  SaveLayout(program.window.Parts(), layout);
  return result;
}
