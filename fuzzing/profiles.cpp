// profile.cfg: any bytes as the file of profiles, listed, loaded, saved and deleted.
//
// Aborts if anything is thrown, if what a save has written doesn't come back, or if a profile that
// was saved can't be deleted.
#include <cstdint>

#include "fuzzing/require.h"
#include "fuzzing/whole_program.h"
#include "shell/commands.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tallowbrook;
  TextFiles files;
  files.texts["/data/profile.cfg"] = {reinterpret_cast<const char*>(data), size};
  WholeProgram program(files);
  ProfileStore& profiles = program.form.profiles;
  // The first start has saved the last state meanwhile.
  profiles.LoadProfileList();
  Require(profiles.ProfileList().size() <= static_cast<std::size_t>(profiles.CountProfiles()) + 1);
  for (std::size_t i = 0; i < profiles.ProfileList().size() && i < 4; ++i) {
    program.form.Dispatch(profileCommands + static_cast<int>(i));
  }
  const std::int32_t id = profiles.AvailableProfileID();
  program.form.settings.Text_Prefix.Set("prefix");
  Require(profiles.SaveProfile(id, "name"));
  program.form.settings.Text_Prefix.Set("");
  std::int32_t loaded = id;
  profiles.LoadProfile(loaded);
  Require(loaded == id && profiles.Current().name == "name");
  Require(program.form.settings.Text_Prefix.Value() == "prefix");
  profiles.DeleteProfile(id);
  Require(!profiles.ProfileExists(id));
  return 0;
}
