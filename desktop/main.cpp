// The program.
#include "base/date.h"
#include "desktop/application.h"
#include "desktop/program.h"
#include "platform/program_folders.h"
#include "platform/signals.h"

int main(int argc, char** argv) {
  using namespace tallowbrook;
  IgnoreWriteSignals();
  Application application(argc, argv);
  Program program({FindProgramFolders(), HomeFolder(), SystemDateNames()});
  return program.Start() ? Application::exec() : 0;
}
