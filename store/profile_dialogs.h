// The two windows on profiles: one makes a new profile of the present settings, the other lists
// those that there are, to put the present settings in place of one or to do away with it.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "base/controls.h"
#include "base/dialogs.h"
#include "base/status_bar.h"
#include "store/profile_store.h"

namespace tallowbrook {

// frmSaveProfile. Each save makes a new profile: two may have one name, and differ by their IDs.
struct SaveProfileDialog {
  explicit SaveProfileDialog(ProfileStore& profiles, Dialogs& dialogs);

  Screen screen;
  Label Label1;
  Text Txt_ProfileName;
  Button Command_Save;
  Button Command_Done;
  static constexpr std::string_view caption = "Save Profile";

  // Closes the window; set by what shows it.
  std::function<void()> close;
};

// frmManageProfiles.
class ManageProfiles {
 public:
  ManageProfiles(ProfileStore& profiles, Dialogs& dialogs);

  Screen screen;
  StatusBar StatusBar1;  // pane 0: what was done
  Frame Frame1;
  Label Label1;
  Text Txt_ProfileName;
  // Puts the window's present settings in place of the selected profile's, under the name in the
  // box: more than a new name.
  Button Command_Save;
  Button Cmd_Delete;
  Button Command_Done;
  static constexpr std::string_view caption = "Manage Profiles";

  // The rows of ListView1, a name and an ID each; the selected one counts from 0.
  const std::vector<ProfileEntry>& Rows() const { return rows_; }
  std::size_t SelectedRow() const { return selected_; }
  // A row beyond the list changes nothing.
  void Select(std::size_t row);

  // Told of other rows or another selection, and to close the window; set by what shows it.
  std::function<void()> changed;
  std::function<void()> close;

 private:
  void Fill();
  void Save();
  void Delete();

  ProfileStore& profiles_;
  Dialogs& dialogs_;
  std::vector<ProfileEntry> rows_;
  std::size_t selected_ = 0;
};

}  // namespace tallowbrook
