// Profiles of the whole program: what is saved comes back, and nothing else changes.
#include "store/profile_store.h"

#include "base/text.h"
#include "tests/support/faulty_files.h"
#include "tests/support/test_world.h"

namespace tallowbrook {
namespace {

// clang-format off
class ProfileStoreTest : public testing::Test, protected TestWorld {
 protected:
  ProfileStoreTest() {
    home.Write("a.txt", "1");
    home.MakeFolder("sub");
    home.Write("sub/b.txt", "2");
    form.Load();
  }
  Control& Find(std::string_view name) { return *form.screen.Find(name); }
  void Load(std::int32_t id) { form.profiles.LoadProfile(id); }
  std::string Config(const char* name) { return data.Read(name); }

  FakeEvents events;
  FaultyFiles faulty{files};
  Form1 form{With(events, &faulty)};
};

// To a value that is not the present one, of whatever kind.
void Change(Control& control) {
  if (auto* list = dynamic_cast<FreeList*>(&control)) return list->SelectItem(3);
  const std::string before = control.ValueText();
  for (const char* text : {"2", "0", "1", "2/3/2011", "True", "7"}) {
    if (control.SetValueText(text) && control.ValueText() != before) return;
  }
}

// The file, as other programs know it.
TEST_F(ProfileStoreTest, TheKeysStandInTheirOrder) {
  form.profiles.SaveProfile(12, "name");
  const std::string text = Config("profile.cfg");
  std::string keys;
  for (std::string_view line : Split(text, '\n')) {
    ASSERT_TRUE(line.empty() || line.ends_with("\r")) << line;
    keys.append(line.substr(0, line.find('='))).append(line.find('=') == line.npos ? "" : " ");
  }
  EXPECT_EQ(keys, "<<<Start Profile 12>>>\r"
      "ProfileName ProfileID LastDirectory ViewFolders DisplayDateAsCreated TabIndex Check_Prefix Text_Prefix "
      "Check_Original Text_Original Combo_Original Check_UniqueFirst Check_Seperator Text_Seperator Check_Unique "
      "Combo_Unique Combo_Direction Text_UniqueMask Text_UniqueStart Txt_RandomTo Check_UniqueOnly Combo_DateInterval "
      "Combo_UniqueDateStart0 Combo_UniqueDateStart1 Combo_UniqueDateStart2 Combo_UniqueDate0 Combo_UniqueDate1 "
      "Combo_UniqueDate2 Combo_UpdateDateType DTPicker_AdvancedDate Combo_AdvancedDate3 Combo_AdvancedDate4 "
      "Combo_AdvancedDate5 Check_UseCurrentDateTime Text_UniqueDate1 Text_UniqueDate2 Check_Suffix Text_Suffix "
      "Check_Extension Text_Extension Combo_Extension Combo_RemoveChars Combo_RemoveStarting Check_StartFromLast "
      "Combo_Occurances Check_RegExp Check_CaseSensitive Option_Search1 Option_Search2 Option_Search3 RTxt_ID3Name "
      "Check_AllInfoPresent Check_MP3Extension TransferMethod Check_MoveEnable Txt_MoveTo RTxt_Unique_Other AdvancedType "
      "ShowThumbnails CurrentStyle Combo_Find Combo_Replace Combo_OriginalName <<<End Profile 12>>>\r");
}

// Each key is one of the file's, and each value comes back from it.
TEST_F(ProfileStoreTest, EverySettingComesBack) {
  for (Control* control : form.screen.Controls()) {
    const bool isKept = !control->Facts().key.empty();
    if (!isKept || control == &form.settings.Option_Search1 || control == &form.pane.Check_Thumbnails) continue;
    Load(-1);
    // Names and forms follow their choice of a custom one.
    form.settings.Combo_Original.Select(FormCustom);
    form.settings.Combo_Extension.Select(FormCustom);
    const std::string before = control->ValueText();
    Change(*control);
    if (control == &form.settings.TransferMethod) form.settings.Option_Move.Choose();
    if (control == &form.settings.AdvancedType) form.settings.Option_ChangeFileDate.Choose();
    const std::string value = control->ValueText();
    ASSERT_NE(value, before) << control->Name();
    ASSERT_TRUE(form.profiles.SaveProfile(1, "x"));
    Load(-1);
    EXPECT_NE(control->ValueText(), value) << control->Name();
    Load(1);
    EXPECT_EQ(control->ValueText(), value) << control->Name();
  }
  EXPECT_TRUE(form.profiles.Current().name == "x" && form.profiles.Current().id == 1);
}

TEST_F(ProfileStoreTest, ListsPanelsAndTheViewComeBackToo) {
  History* lists[] = {&form.settings.Combo_Find, &form.settings.Combo_Replace, &form.settings.Combo_OriginalName};
  const std::vector<std::string> items{"one", " é ", "x y"};
  for (History* list : lists) list->SetItems(items);
  form.settings.Option_Move.Choose();
  form.settings.Option_ChangeFileDate.Choose();
  form.operations.SetDateColumnMode(1);
  form.scan.SelectFolder(home.Path() + "sub");
  form.pane.Option1_Folders.Choose();
  form.profiles.SaveProfile(4, "all");
  Load(-1);
  EXPECT_TRUE(form.settings.Combo_Find.Items().empty());
  EXPECT_TRUE(form.settings.Option_Copy.On() && form.settings.Option_ChangeFileName.On() && form.pane.Option1_Files.On());
  EXPECT_EQ(form.ListView1.Caption(Column::Date), "Date Modified");
  form.scan.SelectFolder(home.Path());
  Load(4);
  for (History* list : lists) EXPECT_EQ(list->Items(), items);
  EXPECT_TRUE(form.settings.Option_Move.On() && form.settings.Option_ChangeFileDate.On() && form.pane.Option1_Folders.On());
  EXPECT_EQ(form.pages.Lbl_MoveTo.Caption(), "Move To:");
  EXPECT_EQ(form.scan.LastScanFolder, home.Path() + "sub/");
  EXPECT_EQ(form.ListView1.Caption(Column::Date), "Date Created");
  EXPECT_EQ(form.statusBar.Pane(0), "Current Profile: all");
}

// A name with a blank at its end comes back; one of two lines doesn't, and leads to no other folder.
TEST_F(ProfileStoreTest, StyleThumbnailsAndOddFoldersComeBackAndAPageMayStay) {
  for (const char* name : {"blank ", "two\nlines", "two"}) home.MakeFolder(name);
  home.Write("photo.jpg", "1");
  form.scan.SelectFolder(home.Path() + "blank ");
  form.scan.SetThumbnailMode(true);
  form.ApplyStyle("/styles/Office2007Aqua.dll");
  form.settings.TabIndex.Select(PageTags);
  form.profiles.SaveProfile(1, "one");
  form.scan.SelectFolder(home.Path() + "two\nlines");
  form.profiles.SaveProfile(2, "two lines");
  Load(-1);
  EXPECT_FALSE(form.scan.ThumbnailMode || form.pane.Check_Thumbnails.On());
  std::int32_t id = 1;
  form.profiles.LoadProfile(id, true);
  EXPECT_EQ(form.CurrentStyle, "/styles/Office2007Aqua.dll");
  EXPECT_TRUE(form.scan.ThumbnailMode && form.pane.Check_Thumbnails.On());
  EXPECT_EQ(WithSlash(form.scan.LastScanFolder), home.Path() + "blank /");
  EXPECT_EQ(form.settings.TabIndex.Index(), PageProperties);
  form.scan.SelectFolder(home.Path());
  EXPECT_EQ(form.ListView1.Count(), 1U) << "the photos alone";
  Load(2);
  EXPECT_EQ(WithSlash(form.scan.LastScanFolder), home.Path());
}

// Whoever closes the window while a profile's folder is being listed finds the profile at the next
// start, and not a half of it.
TEST_F(ProfileStoreTest, AnEndDuringALoadKeepsTheProfileAsAWhole) {
  for (int i = 0; i < 20; ++i) home.Write("n" + std::to_string(i), "");
  form.settings.Text_Suffix.Set("suffix");
  form.settings.Option_Move.Choose();
  form.profiles.SaveProfile(1, "one");
  Load(-1);
  events.atYield[events.yields + 1] = [this] { form.ExitProgram(); };
  Load(1);
  EXPECT_TRUE(form.ExitDone);
  Form1 next{With(events)};
  next.Load();
  EXPECT_EQ(next.settings.Text_Suffix.Value(), "suffix");
  EXPECT_TRUE(next.settings.Option_Move.On());
  EXPECT_TRUE(next.profiles.Current().name == "one" && next.profiles.Current().id == 0);
}

// Random letters are asked about where a user chooses them, not while a profile is loaded.
TEST_F(ProfileStoreTest, ALoadAsksNothing) {
  form.settings.Combo_Unique.Select(UniqueLetters);
  form.profiles.SaveProfile(1, "letters");
  form.settings.Combo_Unique.Select(UniqueNumbers);
  form.settings.Combo_Direction.Select(DirectionRandom);
  Load(1);
  EXPECT_EQ(form.settings.Combo_Unique.Index(), UniqueLetters);
}

TEST_F(ProfileStoreTest, AProfileThatIsNotThereStandsForTheDefaults) {
  Find("Text_UniqueMask").SetValueText("##");
  Find("Text_Extension").SetValueText("jpg");
  std::int32_t id = 77;
  form.profiles.LoadProfile(id);
  EXPECT_EQ(id, 0);
  EXPECT_EQ(form.settings.Text_Extension.Value() + form.settings.Combo_OriginalName.Value(), ".abcfilename");
  EXPECT_EQ(form.settings.Text_UniqueMask.Value() + " " + form.settings.Txt_RandomTo.Value(), "0000 0");
  EXPECT_EQ(form.settings.DTPicker_AdvancedDate.Value(), StartOfDay(clock.now));
  EXPECT_EQ(form.CurrentStyle, data.Path() + "Styles/Office2007Black.dll");
  EXPECT_FALSE(form.menus.Item("mnu_SaveProfile").Enabled());
}

// Whatever a line says, the others are read.
TEST_F(ProfileStoreTest, ValuesThatAreNoneLeaveTheirControls) {
  const struct { const char *key, *value, *name, *result; } rows[] = {
      {"Combo_Original=", "99", "Combo_Original", "0"}, {"Combo_Direction=", "-2", "Combo_Direction", "0"},
      {"Check_Prefix=", "2", "Check_Prefix", "0"}, {"Check_Suffix=", "one", "Check_Suffix", "0"},
      {"TabIndex=", "5", "TabIndex", "0"}, {"TabIndex=", "-1", "TabIndex", "0"}, {"TransferMethod=", "70000", "TransferMethod", "0"},
      {"Combo_AdvancedDate4=", "9999999999", "Combo_AdvancedDate4", "01"}, {"Text_Seperator=", "  ", "Text_Seperator", "-"},
      {"DTPicker_AdvancedDate=", "31/31/2011", "DTPicker_AdvancedDate", "9/11/2005"},
      {"LastDirectory=", "/no/such/folder", "Txt_Address", nullptr}, {"LastDirectory=", "relative", "Txt_Address", nullptr},
  };
  for (const auto& row : rows) {
    form.pages.ResetSettings();
    form.settings.DTPicker_AdvancedDate.Set(*MakeDate({2005, 9, 11}));
    data.Write("profile.cfg", std::string("<<<Start Profile 1>>>\r\nProfileID=1\r\n") + row.key + row.value +
                                  "\r\nText_Prefix=read\r\n<<<End Profile 1>>>\r\n");
    Load(1);
    EXPECT_EQ(Find(row.name).ValueText(), row.result ? row.result : home.Path()) << row.key;
    EXPECT_EQ(form.settings.Text_Prefix.Value(), "read") << row.key;
  }
}

// The day waits until its year is there.
TEST_F(ProfileStoreTest, ALeapDayComesBackIntoAnotherYear) {
  clock.now = *MakeDate({2023, 1, 31, 12, 0, 0});
  form.pages.ResetSettings();
  const auto set = [&](int month, int day, const char* year) {
    form.settings.Combo_UniqueDateStart2.Set(year);
    form.settings.Combo_UniqueDateStart0.Select(month - 1);
    form.settings.Combo_UniqueDateStart1.Select(day - 1);
  };
  set(2, 29, "2024");
  form.profiles.SaveProfile(1, "leap");
  set(1, 31, "2023");
  Load(1);
  EXPECT_EQ(form.settings.Combo_UniqueDateStart1.ItemText(), "29");
  EXPECT_EQ(form.settings.Combo_UniqueDateStart2.Value(), "2024");
}

TEST_F(ProfileStoreTest, AFullDiskIsToldOfAndLeavesTheOldFile) {
  for (const auto& [id, name] : {std::pair(1, "one"), {2, "two"}, {1, ""}}) form.profiles.SaveProfile(id, name);
  EXPECT_EQ(form.profiles.CountProfiles(), 2);
  const std::string before = Config("profile.cfg");
  faulty.FailPath(FileCall::Rewrite, data.Path() + "profile.cfg", FileError::NoSpace);
  dialogs.answers = {Answer::Ok, Answer::Ok, Answer::Yes, Answer::Ok};
  form.showSaveProfile = [](SaveProfileDialog& dialog) { dialog.Command_Save.Press(); };
  form.OpenSaveProfileDialog();
  form.SaveCurrentProfile();
  form.showManageProfiles = [](ManageProfiles& dialog) { dialog.Cmd_Delete.Press(); };
  form.OpenManageProfiles();
  std::string told;
  for (const MessageBox& box : dialogs.asked) told += box.text + "\n";
  EXPECT_EQ(told, "The profile could not be saved\nThe profile could not be saved\n"
                  "Are you sure you want to delete the profile ''?\nThe profile could not be deleted\n");
  EXPECT_EQ(Config("profile.cfg"), before);
}

TEST_F(ProfileStoreTest, TheConfigurationOutlivesTheProgram) {
  form.LoadSavedSettings = false;
  form.DisplayStartupTips = 7;
  form.ThumbnailWarning = 0;
  form.scan.ShowEXIFDateCreated = 0;
  form.WindowHeight = 9000;
  form.WindowWidth = 12345;
  form.WindowTop = -200;
  form.AutoUpdateLastCheck = "2/1/2024 7:08:09 AM";
  Find("Text_Prefix").SetValueText("kept");
  form.ExitProgram();
  EXPECT_EQ(Config("tallowbrook.cfg"),
            "LoadSavedSettings=False\r\nAutoUpdate=False\r\nAutoUpdateLastCheck=2/1/2024 7:08:09 AM\r\n"
            "DisplayStartupTips=7\r\nDisplayStartupTipsNew=0\r\nThumbnailWarning=0\r\nFirstRun=False\r\n"
            "ShowEXIFDateCreated=0\r\nWindowHeight=9000\r\nWindowWidth=12345\r\nWindowTop=-200\r\nWindowLeft=1\r\n");
  Form1 next{With(events)};
  int heights = 0;
  next.heightChanged = [&] { heights += next.WindowHeight; };
  next.Load();
  EXPECT_EQ(heights, 9000);
  EXPECT_TRUE(next.WindowTop == 1 && next.WindowWidth == 1 && next.scan.ShowEXIFDateCreated == 0);
  // The last state is there, but wasn't asked for.
  EXPECT_EQ(next.settings.Text_Prefix.Value(), "");
  Form1 restored{With(events)};
  std::string text = Config("tallowbrook.cfg");
  data.Write("tallowbrook.cfg", text.replace(text.find("False"), 5, "True"));
  restored.Load();
  EXPECT_EQ(restored.settings.Text_Prefix.Value(), "kept");
}

// A value that has another form than its line's is the default, and so is all of a missing file.
TEST_F(ProfileStoreTest, OddConfigurationsAreDefaults) {
  form.settings.Text_Prefix.Set("last");
  form.ExitProgram();
  for (const char* text : {"", "FirstRun=maybe\nWindowHeight=x\nWindowTop=99999999999\nLoadSavedSettings=7\nWindowLeft=-3"}) {
    data.Write("tallowbrook.cfg", text);
    dialogs.answers = {Answer::Yes, Answer::Ok};
    Form1 next{With(events)};
    next.Load();
    EXPECT_TRUE(dialogs.answers.empty() && next.LoadSavedSettings && next.AutoUpdate);
    EXPECT_TRUE(next.WindowHeight == 11100 && next.WindowTop == 1 && next.WindowLeft == 1);
    EXPECT_EQ(next.settings.Text_Prefix.Value(), "last");
  }
}

}  // namespace
}  // namespace tallowbrook
