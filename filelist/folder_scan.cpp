#include "filelist/folder_scan.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "base/guards.h"
#include "base/letter_case.h"
#include "base/text.h"
#include "media/exif_reader.h"

namespace tallowbrook {

namespace {

constexpr std::string_view fileNameCaption = "File Name";
constexpr std::string_view folderNameCaption = "Folder Name";
constexpr std::string_view stopCaption = "Stop Scan";
constexpr std::string_view startCaption = "Start Scan";
// What a folders view falls back to when its folder can't be opened.
const std::string fallbackFolder = "/";
constexpr std::size_t rowsBetweenYields = 10;
constexpr std::ptrdiff_t longestShownPath = 70;

}  // namespace

std::string GetFileExtension(std::string_view name) {
  return std::string(ExtensionOf(name));
}

bool FolderScan::SubfolderList::SetPath(Files& files, const std::string& folder) {
  const std::unique_ptr<FolderListing> listing = files.ListFolder(folder);
  if (!listing) return false;
  Fill(*listing, folder);
  return true;
}

void FolderScan::SubfolderList::Fill(const FolderListing& listing, const std::string& folder) {
  folders.clear();
  for (std::size_t i = 0; i < listing.Size(); ++i) {
    const EntryKind kind = listing.Kind(i);
    if (kind != EntryKind::Folder && kind != EntryKind::FolderLink) continue;
    folders.push_back({JoinPath(folder, listing.Name(i)), kind == EntryKind::FolderLink});
  }
}

FolderScan::FolderScan(ScanWorld world, FileList& list, ListPane& pane)
    : world_(std::move(world)), list_(list), pane_(pane), pattern_(list, pane) {
  WireRules();
}

void FolderScan::WireRules() {
  pane_.Filter.Does([this] { FilterList(); });
  pane_.ScanSub.Does([this] { ToggleSubfolderScan(); });
  pane_.PushButton_AbortScan.rule = [this] { AbortRequested = true; };
  pane_.Option1_Files.rule = [this] { ShowFiles(); };
  pane_.Option1_Folders.rule = [this] { ShowFolders(); };
  pane_.Combo1.rule = [this] { CompleteFolder(); };
}

void FolderScan::ScanFolder(const std::string& path) {
  if (ScanInProgress) {
    AbortRequested = true;
    return;
  }
  list_.SetVisible(false);
  pane_.Frame_Progress.SetVisible(true);
  // An empty path leaves the list hidden and the progress frame on show. It must be so.
  if (path.empty()) return;
  LastScanWasRecursive = false;
  LastScanFolder = path;
  FilesFound = 0;
  ThumbnailsFound = 0;
  ClearFileList();
  const std::string folder = WithSlash(path);
  // Compared exactly: here two folders may differ in case alone.
  pane_.Txt_Address.Set(folder);
  ScanInProgress = true;
  const Finally end([this] {
    ScanInProgress = false;
    pane_.Frame_Progress.SetVisible(false);
    list_.SetVisible(true);
  });
  list_.ToggleListSort();
  ListFolderEntries(folder);
  list_.ToggleListSort();
  if (ThumbnailMode) {
    world_.status.Set(0, "Scan Complete, " + std::to_string(std::int64_t(FilesFound)) +
                             " file(s) found of which " +
                             std::to_string(std::int64_t(ThumbnailsFound)) +
                             " contained a thumbnail.");
  }
  ScanInProgress = false;
  if (AbortRequested) world_.status.Set(0, "Scan Aborted...");
  AbortRequested = false;
  if (ExitAfterScan && exitProgram) exitProgram();
}

void FolderScan::ListFolderEntries(const std::string& path) {
  const std::string folder = WithSlash(path);
  // A relative path would mean another folder at every start of the program.
  ListOpened(folder, folder.starts_with('/') ? world_.files.ListFolder(folder).get() : nullptr);
}

// `listing` is null if the folder couldn't be opened.
void FolderScan::ListOpened(const std::string& folder, FolderListing* listing) {
  const bool isHidden = ThumbnailMode;
  if (isHidden) list_.SetVisible(false);
  // A listing that is stopped, can't begin, or ends in another mode must not leave the list out of
  // sight either.
  const Finally end([this, isHidden] {
    if (isHidden) list_.SetVisible(true);
  });
  if (pane_.Option1_Files.On()) {
    // No name holds a "/": such a pattern can't be looked for.
    if (!listing || pane_.Combo_Filter.Value().find('/') != std::string::npos) {
      world_.status.Set(0, "Could not load directory");
      return;
    }
    if (!ListFiles(folder, *listing)) return;
  } else if (!ListFolders(folder, listing)) {
    return;
  }
  ApplyCheckPattern();
  world_.status.Set(0, "Scan Complete");
}

// False if it was stopped.
bool FolderScan::ListFiles(const std::string& folder, FolderListing& listing) {
  std::vector<std::size_t> matches;
  matches.reserve(listing.Size());
  const std::string pattern = pane_.Combo_Filter.Value();
  for (std::size_t i = 0; i < listing.Size(); ++i) {
    if (listing.Kind(i) != EntryKind::File) continue;
    if (pattern.empty() || MatchesPattern(listing.Name(i), pattern)) matches.push_back(i);
  }
  SetProgress(0, matches.size());
  if (!ThumbnailMode) {
    list_.ExpectRows(matches.size());
    listing.ExpectFacts(matches);
  }
  std::size_t done = 0;
  for (const std::size_t i : matches) {
    SetProgress(++done, matches.size());
    AddFileRow(listing.Name(i), folder, listing.Facts(i));
    if (AbortRequested) return false;
  }
  return true;
}

// False if it was stopped.
bool FolderScan::ListFolders(const std::string& folder, const FolderListing* listing) {
  if (listing) {
    Dir1_.Fill(*listing, folder);
  } else {
    // During a ScanFolder this only asks that one to stop; Dir1_ still holds what it last held.
    ScanFolder(fallbackFolder);
  }
  for (std::size_t i = 0; i < Dir1_.folders.size(); ++i) {
    const std::string path = Dir1_.folders[i].path;
    const std::size_t nameAt = path.rfind('/') + 1;
    AddFolderRow(std::string_view(path).substr(nameAt), std::string_view(path).substr(0, nameAt));
    if (AbortRequested) return false;
  }
  return true;
}

void FolderScan::AddListRow(std::string name, std::string directory) {
  if (pane_.Option1_Folders.On()) {
    AddFolderRow(name, directory);
    return;
  }
  const std::size_t slash = name.rfind('/');
  if (slash != std::string::npos) {
    directory = name.substr(0, slash + 1);
    name.erase(0, slash + 1);
  }
  AddFileRow(name, directory, world_.files.Facts(directory + name));
}

void FolderScan::AddFileRow(std::string_view name, const std::string& directory,
                            const std::optional<FileFacts>& facts) {
  ++FilesFound;
  // The events come first: what they do to the list or to the mode holds for this file.
  if (ThumbnailMode) world_.events.Yield();
  const bool asPicture = ThumbnailMode;
  std::optional<PackedBitmap> picture;
  if (asPicture && !(picture = FindThumbnail(std::string(name), directory))) return;
  FileEntry entry;
  entry.name = name;
  entry.folder = list_.Folders().Intern(directory);
  if (facts) {
    entry.hasFacts = entry.hasDate = true;
    entry.size = facts->size;
    const std::optional<Date> exif = ExifDate(name, directory);
    entry.shownDate = exif ? *exif : ListDate(*facts);
    entry.sortDate = entry.shownDate;
  }
  if (picture) {
    entry.rowText = name;
    entry.image = list_.AddImage(std::move(*picture));
    ++ThumbnailsFound;
  }
  list_.Add(std::move(entry));
  if (!asPicture && list_.Count() % rowsBetweenYields == 0) world_.events.Yield();
  ShowCount();
}

std::optional<PackedBitmap> FolderScan::FindThumbnail(const std::string& name,
                                                      const std::string& directory) {
  world_.status.Set(0, "Scanning for thumbnail: " + name);
  world_.thumbnails.Filename = directory + name;
  return world_.thumbnails.GetThumbnail();
}

void FolderScan::AddFolderRow(std::string_view name, std::string_view directory) {
  FileEntry entry;
  entry.name = name;
  entry.folder = list_.Folders().Intern(directory);
  entry.isFolder = true;
  list_.Add(std::move(entry));
  ShowCount();
}

// Creation dates are shown in universal time, as the masks' creation dates are; modification
// dates in local time.
Date FolderScan::ListDate(const FileFacts& facts) {
  return DateColumnMode == 1 ? UniversalDate(facts.created) : world_.clock.Local(facts.modified);
}

// A photo's own date, whichever file date the column shows; nothing for other files.
std::optional<Date> FolderScan::ExifDate(std::string_view name, const std::string& directory) {
  if (ShowEXIFDateCreated != 1) return {};
  const std::string extension = ToUpper(ExtensionOf(name));
  if (extension != "JPEG" && extension != "JPG") return {};
  std::string text;
  Attempt([&] {
    text = ReadExifTag(world_.files, directory + std::string(name), exif_tag::dateTimeOriginal);
  });
  if (text.empty()) return {};
  return ParseExifDate(text);
}

std::optional<Date> FolderScan::FileDate(const std::string& path) {
  const std::optional<FileFacts> facts = world_.files.Facts(path);
  return facts ? std::optional(ListDate(*facts)) : std::nullopt;
}

std::string FolderScan::GetListDate(const std::string& path) {
  const std::optional<Date> date = FileDate(path);
  return date ? GeneralDateText(*date) : std::string();
}

void FolderScan::ScanSubfolders(const std::string& path) {
  SubfolderList level;
  if (level.SetPath(world_.files, WithSlash(path))) WalkLevel(level);
}

// Lists all folders of the level, then walks into each. A folder that can't be opened ends its
// level; the levels above go on.
void FolderScan::WalkLevel(const SubfolderList& level) {
  if (level.folders.empty()) return;
  std::vector<SubfolderList> below(level.folders.size());
  for (std::size_t i = 0; i < below.size(); ++i) {
    if (StopSubfolderScan) return;
    const auto& [path, isLink] = level.folders[i];
    if (isLink) continue;
    const std::string folder = WithSlash(path);
    const std::unique_ptr<FolderListing> listing = world_.files.ListFolder(folder);
    if (!listing) return;
    below[i].Fill(*listing, folder);
    const bool isLong = std::ptrdiff_t(CountCharacters(path)) > longestShownPath;
    world_.status.Set(0, (isLong ? "scanning ..." : "scanning ") +
                             std::string(*RightCharacters(path, longestShownPath)));
    ListOpened(folder, listing.get());
  }
  for (const SubfolderList& next : below) {
    if (StopSubfolderScan) return;
    WalkLevel(next);
  }
  world_.status.Set(0, "");
  ApplyCheckPattern();
}

void FolderScan::ToggleSubfolderScan() {
  const auto setCaption = [this](std::string_view caption) {
    pane_.ScanSub.classic.SetCaption(caption);
    pane_.ScanSub.styled.SetCaption(caption);
  };
  if (pane_.ScanSub.classic.Caption() == stopCaption) {
    StopSubfolderScan = true;
    setCaption(startCaption);
    world_.status.Set(0, "Scan aborted by User");
    return;
  }
  setCaption(stopCaption);
  const Finally end([&] {
    setCaption(startCaption);
    StopSubfolderScan = false;
  });
  list_.Clear();
  LastScanWasRecursive = true;
  const std::string folder = LastScanFolder;
  ListFolderEntries(folder);
  ScanSubfolders(folder);
}

bool FolderScan::IsBusy() const {
  return ScanInProgress || pane_.ScanSub.classic.Caption() == stopCaption;
}

void FolderScan::ClearFileList() {
  list_.Clear();
  ShowCount();
}

// A fill that is under way is stopped by the one that begins, and clears its own rows.
void FolderScan::RefillList() {
  if (LastScanWasRecursive && !ScanInProgress) ClearFileList();
  FilterList();
}

void FolderScan::FilterList() {
  if (pane_.Combo_Filter.Value().empty()) pane_.Combo_Filter.Set("*.*");
  const std::string folder = LastScanFolder;
  if (LastScanWasRecursive) {
    ListFolderEntries(folder);
    ScanSubfolders(folder);
  } else {
    ScanFolder(folder);
  }
}

void FolderScan::AddDropped(const std::vector<std::string>& paths) {
  for (std::string path : paths) {
    if (IsDirectory(path)) {
      ListFolderEntries(path);
    } else {
      AddListRow(path, {});
    }
  }
  ApplyCheckPattern();
}

bool FolderScan::IsDirectory(std::string& path) {
  std::optional<FileFacts> facts = world_.files.Facts(path);
  std::string_view folder = path;
  if (!facts && TrimBlanks(path) != path) {
    folder = TrimBlanks(path);
    facts = world_.files.Facts(std::string(folder));
  }
  if (!facts || facts->kind != EntryKind::Folder) return false;
  path = WithSlash(folder);
  return true;
}

bool FolderScan::SelectFolder(std::string path) {
  if (ScanInProgress) AbortRequested = true;
  if (!TrimBlanks(path).starts_with('/') || !IsDirectory(path)) {
    world_.status.Set(0, "Could not load directory");
    return false;
  }
  const std::string folder = WithoutSlash(path);
  pane_.FolderTreeview1.Set(folder);
  ScanFolder(folder);
  return true;
}

void FolderScan::AddressKey() {
  if (ScanInProgress) AbortRequested = true;
}

void FolderScan::AddressEnter() {
  AddressKey();
  std::string path = pane_.Txt_Address.Value();
  if (path == "~" || path.starts_with("~/")) path = JoinPath(world_.home, path.substr(1));
  SelectFolder(path);
}

void FolderScan::CompleteFolder() {
  const std::string text = pane_.Combo1.Value();
  pane_.Combo1.ClearItems();
  const std::size_t slash = text.rfind('/');
  if (slash == std::string::npos) return;
  if (slash + 1 == text.size()) {
    // First, since the scan lets events through, and typing goes on there.
    if (text.starts_with('/')) Dir3_.SetPath(world_.files, text);
    SelectFolder(text);
    return;
  }
  const std::string tail = text.substr(slash + 1);
  std::vector<std::string> proposals;
  for (const SubfolderList::Subfolder& folder : Dir3_.folders) {
    const std::string_view name = std::string_view(folder.path).substr(folder.path.rfind('/') + 1);
    const auto head = LeftCharacters(name, std::ptrdiff_t(CountCharacters(tail)));
    if (EqualIgnoringCase(*head, tail)) proposals.push_back(folder.path);
  }
  pane_.Combo1.SetItems(std::move(proposals));
}

void FolderScan::ShowFiles() {
  if (list_.Caption(Column::FileName) == fileNameCaption) return;
  if (viewChanged) viewChanged(false);
  list_.SetCaption(Column::FileName, fileNameCaption);
  list_.SetCaption(Column::NewFileName, "New File Name");
  ScanFolder(pane_.Txt_Address.Value());
}

void FolderScan::ShowFolders() {
  if (list_.Caption(Column::FileName) == folderNameCaption) return;
  list_.SetCaption(Column::FileName, folderNameCaption);
  list_.SetCaption(Column::NewFileName, "New Folder Name");
  if (viewChanged) viewChanged(true);
  if (pane_.Check_Thumbnails.On()) SetThumbnailMode(false);
  ScanFolder(pane_.Txt_Address.Value());
}

void FolderScan::ThumbnailsClicked() {
  if (pane_.Option1_Folders.On()) {
    Say("Thumbnail view is not supported while working with Folders");
    pane_.Check_Thumbnails.Set(0);
  } else if (world_.ThumbnailWarning != 0) {
    Say("Only files which contain thumbnails will be shown.\r\n\r\n"
        "(this message will not be displayed again)");
    world_.ThumbnailWarning = 0;
  }
  if (ScanInProgress) {
    Say("You cannot switch into or out of thumbnail view while a scan is in progress");
    pane_.Check_Thumbnails.Set(ThumbnailMode ? 1 : 0);
    return;
  }
  SetThumbnailMode(pane_.Check_Thumbnails.On());
  ScanFolder(pane_.Txt_Address.Value());
}

void FolderScan::SetThumbnailMode(bool on) {
  ThumbnailMode = on && !pane_.Option1_Folders.On();
  pane_.Check_Thumbnails.Set(ThumbnailMode ? 1 : 0);
  ApplyListViewMode();
}

// In the table a row's own text would stand beside its check box.
void FolderScan::ApplyListViewMode() {
  list_.SetIconView(ThumbnailMode);
  if (ThumbnailMode) return;
  for (std::size_t number = 1; number <= list_.Count(); ++number) list_.Row(number).rowText.clear();
  list_.TellRows(1, list_.Count());
}

void FolderScan::Say(std::string_view text) {
  world_.dialogs.Ask({"", std::string(text), Buttons::Ok});
}

// For each row that is added; a text in memory that is already there.
void FolderScan::ShowCount() {
  constexpr std::string_view caption = "Files in list: ";
  char text[caption.size() + std::numeric_limits<std::size_t>::digits10 + 1];
  char* const digits = std::copy(caption.begin(), caption.end(), text);
  const char* const end = std::to_chars(digits, std::end(text), list_.Count()).ptr;
  world_.status.Set(1, {text, end});
}

void FolderScan::SetProgress(std::size_t value, std::size_t maximum) {
  const auto percent = [](std::size_t part, std::size_t whole) {
    return whole == 0 ? 0 : part * 100 / whole;
  };
  const bool shown = value > 0 && maximum == pane_.ProgressMaximum &&
                     percent(value, maximum) == percent(pane_.ProgressValue, maximum);
  pane_.ProgressValue = value;
  pane_.ProgressMaximum = maximum;
  if (!shown) pane_.ProgressBar.SetCaption(std::to_string(percent(value, maximum)));
}

}  // namespace tallowbrook
