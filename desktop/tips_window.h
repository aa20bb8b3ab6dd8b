// The startup tips on the screen: a window beside the main one, which works on.
#pragma once

#include "desktop/model_dialog.h"
#include "shell/startup_tips.h"

namespace tallowbrook {

class TipsWindow : public ModelDialog {
 public:
  TipsWindow(StartupTips& model, QWidget* over);

  // Shows the tip that the model holds, and comes back at once.
  void Open();
};

}  // namespace tallowbrook
