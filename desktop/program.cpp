#include "desktop/program.h"

#include <QApplication>

#include "desktop/first_paint.h"
#include "desktop/look.h"

namespace tallowbrook {

Program::Program(const Place& place)
    : form({files_, clock_, random_, place.asks ? *place.asks : dialogs_, events_, desktop_,
            thumbnails_, socket_, place.dateNames, place.folders, place.home, place.deployment}),
      window(form, files_, place.home, MakePages::BehindFirstPaint) {
  dialogs_.SetParent(&window);
}

bool Program::Start() {
  form.Load();
  if (form.ExitDone) return false;
  BehindFirstPaint(window, [] { QApplication::setWindowIcon(ProgramIcon()); });
  window.show();
  return true;
}

}  // namespace tallowbrook
