// The two windows on the profiles: save as, and manage.
#pragma once

#include "desktop/model_dialog.h"
#include "store/profile_dialogs.h"

namespace tallowbrook {

class SaveProfileWindow : public ModelDialog {
 public:
  SaveProfileWindow(SaveProfileDialog& model, QWidget* over);
};

class ManageProfilesWindow : public ModelDialog {
 public:
  ManageProfilesWindow(ManageProfiles& model, QWidget* over);
  ~ManageProfilesWindow() override;

 private:
  ManageProfiles& model_;
};

}  // namespace tallowbrook
