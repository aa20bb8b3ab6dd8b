// Profiles: how all settings and the view stood, kept under a name in profile.cfg.
//
// profile_file.h has the file's grammar; here a profile is written from the controls and set on
// them. The keys of settings stand in the settings' own table and nowhere else. Every operation
// reads the file; only the list of profiles is kept. What fails is left out: a file that can't be
// read has no profiles, a value that its control doesn't take leaves the control as it was.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/rename_pages.h"
#include "filelist/list_operations.h"
#include "store/profile_file.h"

namespace tallowbrook {

// What a profile is taken from and set on. All must outlive the store.
struct ProfileWorld {
  Files& files;
  Clock& clock;
  Screen& screen;
  RenameSettings& settings;
  RenamePages& pages;
  ListPane& pane;
  FolderScan& scan;
  ListOperations& operations;
  StatusBar& status;
  // The folder to show as long as none was shown.
  std::string home;
};

class ProfileStore {
 public:
  explicit ProfileStore(const ProfileWorld& world);

  void SetPath(std::string path) { path_ = std::move(path); }
  // The style that a profile without one stands for.
  std::string DefaultStyle;

  // Entry 0 stays empty.
  const std::vector<ProfileEntry>& ProfileList() const { return list_; }
  // The profile that was loaded last; ID 0 where that was none of the user's.
  const ProfileEntry& Current() const { return current_; }

  bool ProfileExists(std::int32_t id) const;
  std::int32_t AvailableProfileID() const;
  std::int32_t CountProfiles() const;

  // Puts the present settings in front of the file, in one replacement of the whole of it; the
  // profile's former block goes. An empty name is the current profile's. False if the file couldn't
  // be written: it is then as it was.
  bool SaveProfile(std::int32_t id, std::string_view name);
  // False as for a save. A profile that there isn't is none.
  bool DeleteProfile(std::int32_t id);
  // Sets everything that a profile holds; one that isn't in the file stands for all defaults. `id`
  // is then the one found, 0 without one. `keepTab` leaves the page as it is.
  void LoadProfile(std::int32_t& id, bool keepTab = false);
  void LoadProfileList();

  // Told of a changed list, a changed current profile, and a style to be applied.
  std::function<void()> listChanged;
  std::function<void()> currentChanged;
  std::function<void(const std::string& path)> applyStyle;
  std::function<std::string()> currentStyle;

 private:
  std::string ReadFile() const;
  std::vector<Control*> Settings() const;
  std::vector<History*> Lists() const;
  std::string Block(std::int32_t id, std::string_view name) const;
  void SetSettings(std::string_view block, bool keepTab);
  void SetLists(std::string_view block);
  void ChooseOptions();
  void ShowView(std::string_view block);

  ProfileWorld world_;
  std::string path_;
  std::vector<ProfileEntry> list_ = {{}};
  ProfileEntry current_;
};

// True for an existing file, whatever its kind, that isn't a folder.
bool FileExists(Files& files, const std::string& path);

}  // namespace tallowbrook
