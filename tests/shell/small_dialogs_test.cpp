// Options, tips, folder, about, and the two windows on profiles, driven by their controls.
#include "tests/support/test_world.h"

namespace tallowbrook {
namespace {

// clang-format off
class SmallDialogsTest : public testing::Test, protected TestWorld {
 protected:
  SmallDialogsTest() {
    home.Write("a.txt", "1");
    home.SetTime("a.txt", 951829509);
    home.MakeFolder("sub");
    form.Load();
  }

  FakeEvents events;
  Form1 form{With(events)};
};

TEST_F(SmallDialogsTest, OptionsAreTakenOverBySaveAlone) {
  for (const bool save : {false, true}) {
    int closed = 0;
    form.showOptions = [&](Options& options) {
      options.close = [&] { ++closed; };
      EXPECT_TRUE(options.Option_DateModified.On() && options.Check_LoadSavedSettings.On());
      EXPECT_FALSE(options.Check_AutoUpdate.On() || options.Check_StartupTips.On());
      options.Option_DateCreated.Choose();
      for (Tick* box : {&options.Check_StartupTips, &options.Check_AutoUpdate}) box->Set(1);
      for (Tick* box : {&options.Check_LoadSavedSettings, &options.Check_ShowEXIFDateCreated}) box->Set(0);
      (save ? options.Command_Save : options.Command_Done).Press();
    };
    const std::string before = form.ListView1.Cell(1, Column::Date);
    form.OpenOptions();
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(form.AutoUpdate, save);
    EXPECT_EQ(form.DisplayStartupTipsNew == 1, save);
    EXPECT_EQ(form.LoadSavedSettings, !save);
    EXPECT_EQ(form.scan.ShowEXIFDateCreated == 0, save);
    EXPECT_EQ(form.ListView1.Caption(Column::Date), save ? "Date Created" : "Date Modified");
    EXPECT_EQ(form.ListView1.Cell(1, Column::Date) != before, save);
    EXPECT_EQ(data.Read("tallowbrook.cfg").starts_with("LoadSavedSettings=False"), save);
  }
}

TEST_F(SmallDialogsTest, TipsGoRoundAndCloseKeepsTheTick) {
  const std::string path = data.Write("tips", "never shown~one~two\r\nlines~ three \n");
  random.values = {0.99};
  ASSERT_TRUE(form.tips.Load(path));
  EXPECT_EQ(form.tips.Lbl_Tip.Caption(), "three");
  for (const char* next : {"one", "two\r\nlines", "three"}) {
    form.tips.Cmd_Next.Press();
    EXPECT_EQ(form.tips.Lbl_Tip.Caption(), next);
  }
  for (const char* previous : {"two\r\nlines", "one", "three"}) {
    form.tips.Cmd_Previous.Press();
    EXPECT_EQ(form.tips.Lbl_Tip.Caption(), previous);
  }
  EXPECT_FALSE(form.tips.Check1.On());
  form.tips.Check1.Set(1);
  EXPECT_EQ(form.DisplayStartupTipsNew, 0);
  form.tips.Cmd_Close.Press();
  EXPECT_EQ(form.DisplayStartupTipsNew, 1);
  for (const char* none : {"", "no separator"}) EXPECT_FALSE(form.tips.Load(data.Write("tips", none)));
  EXPECT_FALSE(form.tips.Load(data.Path() + "missing"));
  EXPECT_TRUE(form.tips.Load(data.Write("tips", "~caf\xe9")));
  EXPECT_EQ(form.tips.Lbl_Tip.Caption(), "café");
}

TEST_F(SmallDialogsTest, BrowseSetsTheTargetWithASlash) {
  const struct { std::string before, begins, chosen; bool save; std::string after; } rows[] = {
      {"", home.Path().substr(0, home.Path().size() - 1), home.Path() + "sub", true, home.Path() + "sub/"},
      {home.Path() + "sub/", home.Path() + "sub", "/", true, "/"},
      {home.Path() + "sub", home.Path() + "sub", "/", false, home.Path() + "sub/"},
      {"nowhere", home.Path().substr(0, home.Path().size() - 1), "/", false, "nowhere/"},
      {"", home.Path().substr(0, home.Path().size() - 1), "/", false, ""},
  };
  for (const auto& row : rows) {
    form.settings.Txt_MoveTo.Set(row.before);
    form.showBrowse = [&](Browse& browse) {
      EXPECT_EQ(browse.statusBar.Pane(0), row.begins);
      browse.FolderTreeview1.Set(row.chosen);
      EXPECT_EQ(browse.statusBar.Pane(0), row.chosen);
      (row.save ? browse.Command_Save : browse.Command_Done).Press();
    };
    dynamic_cast<Button&>(*form.screen.Find("Cmd_BrowseMoveTo")).Press();
    EXPECT_EQ(form.settings.Txt_MoveTo.Value(), row.after);
  }
}

TEST_F(SmallDialogsTest, ProfilesAreSavedOverwrittenAndDeleted) {
  const auto saveAs = [&](const char* name) {
    form.showSaveProfile = [name](SaveProfileDialog& dialog) {
      if (name) dialog.Txt_ProfileName.Set(name);
      (name ? dialog.Command_Save : dialog.Command_Done).Press();
    };
    form.OpenSaveProfileDialog();
  };
  const auto names = [&] {
    std::string all;
    for (const auto& [name, id] : form.profiles.ProfileList()) all += name + std::to_string(id) + " ";
    return all;
  };
  form.showManageProfiles = [&](ManageProfiles& empty) {
    empty.Command_Save.Press();
    empty.Cmd_Delete.Press();
    EXPECT_TRUE(empty.Rows().empty());
  };
  form.OpenManageProfiles();
  for (const char* name : {"same", "same", static_cast<const char*>(nullptr), "other"}) saveAs(name);
  EXPECT_EQ(names(), "0 other3 same2 same1 ");
  form.showManageProfiles = [&](ManageProfiles& dialog) {
    EXPECT_EQ(dialog.Txt_ProfileName.Value(), "other");
    dialog.Select(2);
    dialog.Select(9);
    EXPECT_EQ(dialog.Txt_ProfileName.Value(), "same");
    dialog.Txt_ProfileName.Set("renamed");
    form.settings.Text_Prefix.Set("new prefix");
    dialog.Command_Save.Press();
    EXPECT_EQ(dialog.StatusBar1.Pane(0), "Profile Updated");
    EXPECT_EQ(names(), "0 renamed1 other3 same2 ");
    EXPECT_EQ(dialog.SelectedRow(), 0U);
    dialog.Select(1);
    dialogs.answers = {Answer::No, Answer::Yes};
    dialog.Cmd_Delete.Press();
    EXPECT_EQ(dialog.Rows().size(), 3U);
    dialog.Cmd_Delete.Press();
    EXPECT_EQ(dialogs.asked.back().text, "Are you sure you want to delete the profile 'other'?");
    EXPECT_EQ(dialog.StatusBar1.Pane(0), "Profile Deleted");
    EXPECT_EQ(names(), "0 renamed1 same2 ");
  };
  form.OpenManageProfiles();
  form.settings.Text_Prefix.Set("");
  form.Dispatch(500001);
  EXPECT_EQ(form.settings.Text_Prefix.Value(), "new prefix");
}

// The first start of all asks once, and is a first one no more.
TEST_F(SmallDialogsTest, TheFirstStartAsksAboutUpdatesOnce) {
  const struct { Answer answer; const char* title; bool on; } rows[] = {
      {Answer::Yes, "Auto Updated Check Enabled", true}, {Answer::No, "Auto Update Check Disabled", false},
  };
  for (const auto& row : rows) {
    data.Write("tallowbrook.cfg", "");
    dialogs.asked.clear(), socket.calls.clear();
    dialogs.answers = {row.answer, Answer::Ok};
    Form1 first{With(events)};
    first.Load();
    ASSERT_EQ(dialogs.asked.size(), 2U);
    EXPECT_EQ(dialogs.asked[1].title, row.title);
    EXPECT_EQ(first.AutoUpdate, row.on);
    EXPECT_NE(data.Read("tallowbrook.cfg").find("FirstRun=False"), std::string::npos);
    EXPECT_TRUE(socket.calls.empty());  // the last check counts as today's
    clock.now = *AddInterval(clock.now, DateInterval::Day, 7);
    Form1 second{With(events)};
    second.Load();
    EXPECT_EQ(dialogs.asked.size(), 2U);
    EXPECT_EQ(socket.IsOpen(), row.on);
    socket.Close();
  }
}

}  // namespace
}  // namespace tallowbrook
