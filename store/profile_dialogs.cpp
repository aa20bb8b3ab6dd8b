#include "store/profile_dialogs.h"

namespace tallowbrook {

namespace {

const MessageBox couldNotSave{"Save Profile", "The profile could not be saved"};
const MessageBox couldNotDelete{"Delete Profile", "The profile could not be deleted"};

}  // namespace

SaveProfileDialog::SaveProfileDialog(ProfileStore& profiles, Dialogs& dialogs)
    : Label1(screen, {.name = "Label1", .caption = "Profile Name:"}),
      Txt_ProfileName(screen, {.name = "Txt_ProfileName"}, profiles.Current().name),
      Command_Save(screen, {.name = "Command_Save", .caption = "Save"}),
      Command_Done(screen, {.name = "Command_Done", .caption = "Cancel"}) {
  Command_Save.rule = [this, &profiles, &dialogs] {
    const std::int32_t id = profiles.AvailableProfileID();
    // 0 is the last state's: with all IDs taken there is no place for one more.
    if (id == 0 || !profiles.SaveProfile(id, Txt_ProfileName.Value())) {
      dialogs.Ask(couldNotSave);
      return;
    }
    profiles.LoadProfileList();
    if (close) close();
  };
  Command_Done.rule = [this] {
    if (close) close();
  };
}

ManageProfiles::ManageProfiles(ProfileStore& profiles, Dialogs& dialogs)
    : Frame1(screen, {.name = "Frame1"}),
      Label1(screen, {.name = "Label1", .caption = "Profile Name:"}),
      Txt_ProfileName(screen, {.name = "Txt_ProfileName"}),
      Command_Save(screen, {.name = "Command_Save",
                            .caption = "Save",
                            .tip = "Replace the selected profile by the present settings"}),
      Cmd_Delete(screen, {.name = "Cmd_Delete", .caption = "Delete"}),
      Command_Done(screen, {.name = "Command_Done", .caption = "Close"}),
      profiles_(profiles),
      dialogs_(dialogs) {
  Command_Save.rule = [this] { Save(); };
  Cmd_Delete.rule = [this] { Delete(); };
  Command_Done.rule = [this] {
    if (close) close();
  };
  Fill();
}

void ManageProfiles::Fill() {
  rows_.clear();
  for (const ProfileEntry& profile : profiles_.ProfileList()) {
    if (profile.id > 0) rows_.push_back(profile);
  }
  selected_ = rows_.size();
  Select(0);
  if (!rows_.empty()) return;
  Txt_ProfileName.Set("");
  if (changed) changed();
}

void ManageProfiles::Select(std::size_t row) {
  if (row >= rows_.size()) return;
  selected_ = row;
  Txt_ProfileName.Set(rows_[row].name);
  if (changed) changed();
}

void ManageProfiles::Save() {
  if (rows_.empty()) return;
  const bool saved = profiles_.SaveProfile(rows_[selected_].id, Txt_ProfileName.Value());
  if (saved) {
    StatusBar1.Set(0, "Profile Updated");
  } else {
    dialogs_.Ask(couldNotSave);
  }
  profiles_.LoadProfileList();
  Fill();
}

void ManageProfiles::Delete() {
  if (rows_.empty()) return;
  const ProfileEntry profile = rows_[selected_];
  const Answer answer = dialogs_.Ask(
      {"Delete Profile", "Are you sure you want to delete the profile '" + profile.name + "'?",
       Buttons::YesNo, Answer::No});
  if (answer != Answer::Yes) return;
  if (profiles_.DeleteProfile(profile.id)) {
    StatusBar1.Set(0, "Profile Deleted");
  } else {
    dialogs_.Ask(couldNotDelete);
  }
  profiles_.LoadProfileList();
  Fill();
}

}  // namespace tallowbrook
