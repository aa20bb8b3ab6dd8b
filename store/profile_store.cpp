#include "store/profile_store.h"

#include <algorithm>

#include "base/decimal.h"
#include "base/guards.h"
#include "base/text.h"

namespace tallowbrook {

namespace {

constexpr std::string_view nameKey = "ProfileName=";
constexpr std::string_view idKey = "ProfileID=";
constexpr std::string_view folderKey = "LastDirectory=";
constexpr std::string_view createdKey = "DisplayDateAsCreated=";
constexpr std::string_view styleKey = "CurrentStyle=";
// Behind each entry of a list.
constexpr char entryEnd = 7;

// Whether a stored number or flag is on.
bool IsOn(std::string_view value) {
  return value == "True" || WholeNumber(value).value_or(0) != 0;
}

std::string ValueOf(std::string_view block, const ControlFacts& facts) {
  return std::string(GetVar(block, facts.key, facts.keyDefault));
}

// With a "/" behind blanks at its end. A folder of several lines can't be kept: the first would be
// another one.
std::string StoredFolder(const std::string& path) {
  return path.find_first_of("\r\n") == std::string::npos ? WithSlash(path) : "";
}

std::string Joined(const std::vector<std::string>& entries) {
  std::string joined;
  for (const std::string& entry : entries) joined.append(entry).push_back(entryEnd);
  return joined;
}

}  // namespace

bool FileExists(Files& files, const std::string& path) {
  const std::optional<FileFacts> facts = files.Facts(path);
  return facts && facts->kind != EntryKind::Folder;
}

ProfileStore::ProfileStore(const ProfileWorld& world) : world_(world) {}

std::string ProfileStore::ReadFile() const {
  return FileExists(world_.files, path_) ? world_.files.ReadWhole(path_).value_or("") : "";
}

bool ProfileStore::ProfileExists(std::int32_t id) const {
  return HasProfile(ReadFile(), id);
}

std::int32_t ProfileStore::AvailableProfileID() const {
  return tallowbrook::AvailableProfileID(ReadFile());
}

std::int32_t ProfileStore::CountProfiles() const {
  return tallowbrook::CountProfiles(ReadFile());
}

// The settings' controls in the order of their table, which is that of the file.
std::vector<Control*> ProfileStore::Settings() const {
  std::vector<Control*> settings;
  for (Control* control : world_.screen.Controls()) {
    const bool isView =
        control == &world_.pane.Option1_Folders || control == &world_.pane.Check_Thumbnails;
    if (!control->Facts().key.empty() && !isView) settings.push_back(control);
  }
  return settings;
}

std::vector<History*> ProfileStore::Lists() const {
  RenameSettings& s = world_.settings;
  return {&s.Combo_Find, &s.Combo_Replace, &s.Combo_OriginalName};
}

std::string ProfileStore::Block(std::int32_t id, std::string_view name) const {
  ProfileWriter writer(id);
  const auto add = [&](const Control& control) {
    writer.Add(control.Facts().key, control.StoredText());
  };
  writer.Add(nameKey, name);
  writer.Add(idKey, std::to_string(id));
  writer.Add(folderKey, StoredFolder(world_.pane.FolderTreeview1.Value()));
  add(world_.pane.Option1_Folders);
  writer.Add(createdKey, std::to_string(world_.scan.DateColumnMode));
  for (const Control* control : Settings()) add(*control);
  writer.Add(world_.pane.Check_Thumbnails.Facts().key, world_.scan.ThumbnailMode ? "1" : "0");
  writer.Add(styleKey, currentStyle ? currentStyle() : "");
  for (const History* list : Lists()) writer.Add(list->Facts().itemsKey, Joined(list->Items()));
  return std::move(writer).Finish();
}

bool ProfileStore::SaveProfile(std::int32_t id, std::string_view name) {
  const std::string block = Block(id, name.empty() ? current_.name : name);
  return world_.files.Rewrite(path_, [&](std::string_view old) {
    return block + WithoutProfile(old, id);
  }) == FileError::None;
}

bool ProfileStore::DeleteProfile(std::int32_t id) {
  if (!ProfileExists(id)) return true;
  const auto without = [&](std::string_view old) { return WithoutProfile(old, id); };
  return world_.files.Rewrite(path_, without) == FileError::None;
}

void ProfileStore::LoadProfile(std::int32_t& id, bool keepTab) {
  const std::string block(ProfileBlock(ReadFile(), id));
  id = WholeNumber(GetVar(block, idKey, "0")).value_or(0);
  current_ = {std::string(GetVar(block, nameKey, "")), id};
  const std::function<void()> steps[] = {
      [&] { SetSettings(block, keepTab); },
      [&] { world_.settings.Check_UseCurrentDateTime.rule(); },
      [&] { SetLists(block); },
      [&] { world_.pages.ShowTabPage(world_.settings.TabIndex.Index()); },
      [&] { ChooseOptions(); },
      [&] {
        if (applyStyle) applyStyle(std::string(GetVar(block, styleKey, DefaultStyle)));
      },
      [&] { ShowView(block); },
      [&] {
        if (currentChanged) currentChanged();
      },
      [&] { LoadProfileList(); },
  };
  for (const auto& step : steps) Attempt(step);
  if (current_.id > 0) world_.status.Set(0, "Current Profile: " + current_.name);
}

// No page is no value. The direction gives way first, since letters and dates would ask about a
// random one. Then twice, since the rules of a later control may change an earlier one: the 29th of
// February gives way until its year is there.
void ProfileStore::SetSettings(std::string_view block, bool keepTab) {
  const std::string today = GeneralDateText(StartOfDay(world_.clock.Now()));
  const auto set = [&](Control& control) {
    std::string value = ValueOf(block, control.Facts());
    if (value.empty() && control.Kind() == ControlKind::Date) value = today;
    if (&control == &world_.settings.TabIndex && value == "-1") return;
    if (control.StoredText() != value) Attempt([&] { control.SetStoredText(value); });
  };
  world_.settings.Combo_Direction.Select(DirectionIncrement);
  for (int pass = 0; pass < 2; ++pass) {
    for (Control* control : Settings()) {
      if (!keepTab || control != &world_.settings.TabIndex) set(*control);
    }
  }
}

void ProfileStore::SetLists(std::string_view block) {
  for (History* list : Lists()) {
    const std::string_view value = GetVar(block, list->Facts().itemsKey, "");
    std::vector<std::string> items;
    for (const std::string_view entry : Split(value, entryEnd)) items.emplace_back(entry);
    items.pop_back();
    list->SetItems(std::move(items));
  }
}

// The numbers are stored, the options show them.
void ProfileStore::ChooseOptions() {
  RenameSettings& s = world_.settings;
  (s.TransferMethod.Value() != 0 ? s.Option_Move : s.Option_Copy).Choose();
  (s.AdvancedType.Value() != 0 ? s.Option_ChangeFileDate : s.Option_ChangeFileName).Choose();
}

// Folder and view come last and together, so that one scan shows them, and what is stored when a
// user closes the window during that scan is the profile as a whole.
void ProfileStore::ShowView(std::string_view block) {
  ListPane& pane = world_.pane;
  FolderScan& scan = world_.scan;
  const bool folders = IsOn(ValueOf(block, pane.Option1_Folders.Facts()));
  const bool thumbnails = IsOn(ValueOf(block, pane.Check_Thumbnails.Facts())) && !folders;
  const int created = WholeNumber(GetVar(block, createdKey, "0")).value_or(0) == 1 ? 1 : 0;
  std::string folder(GetVar(block, folderKey, ""));
  if (!folder.starts_with('/') || !scan.IsDirectory(folder)) {
    folder = scan.LastScanFolder.empty() ? world_.home : pane.FolderTreeview1.Value();
  }
  scan.DateColumnMode = created;
  world_.operations.ShowDateCaption();
  if (thumbnails != scan.ThumbnailMode) scan.SetThumbnailMode(thumbnails);
  if (folders == pane.Option1_Folders.On()) {
    scan.SelectFolder(folder);
    return;
  }
  pane.FolderTreeview1.Set(WithoutSlash(folder));
  pane.Txt_Address.Set(WithSlash(folder));
  (folders ? pane.Option1_Folders : pane.Option1_Files).Choose();
}

void ProfileStore::LoadProfileList() {
  list_ = ListProfiles(ReadFile());
  list_.insert(list_.begin(), ProfileEntry{});
  if (listChanged) listChanged();
}

}  // namespace tallowbrook
