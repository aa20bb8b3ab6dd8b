#include "desktop/program.h"

namespace tallowbrook {

Program::Program(const Place& place)
    : form({files_, clock_, random_, place.asks ? *place.asks : dialogs_, events_, desktop_,
            thumbnails_, socket_, place.dateNames, place.folders, place.home, place.deployment}),
      window(form, files_, place.home) {
  dialogs_.SetParent(&window);
}

bool Program::Start() {
  form.Load();
  if (form.ExitDone) return false;
  window.show();
  return true;
}

}  // namespace tallowbrook
