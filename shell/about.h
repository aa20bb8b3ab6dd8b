// The dialog that tells what program this is.
#pragma once

#include <functional>
#include <string>

#include "base/controls.h"
#include "platform/desktop.h"
#include "shell/deployment.h"

namespace tallowbrook {

// frmAbout.
struct About {
  About(const Deployment& deployment, Desktop& desktop);

  Screen screen;
  Label lblTitle1;
  Label lblVersion;
  Label lblPurpose;
  // Links: the site, the program's page on it, and the mail address for questions.
  Button Label1;
  Button Label12;
  Button Label14;
  Button Label5;
  Button cmdOK;
  static constexpr std::string_view caption = "About Tallowbrook";

  // Closes the window; set by what shows it.
  std::function<void()> close;
};

}  // namespace tallowbrook
