// Every command by its number, and every surface that carries one.
#include "shell/commands.h"

#include "tests/support/effects.h"

namespace tallowbrook {
namespace {

class CommandsTest : public testing::Test, protected TestWorld {
 protected:
  CommandsTest() {
    home.Write("a.txt", "1");
    form.repaint = [this] { effects.Note("repaint"); };
    form.styleChanged = [this] { effects.Note(form.CurrentStyle.substr(data.Path().size())); };
  }
  std::string Run(int number) {
    return effects.Of([&] { form.Dispatch(number); });
  }
  Button& Item(std::string_view name) { return dynamic_cast<Button&>(*form.screen.Find(name)); }

  FakeEvents events;
  Form1 form{With(events)};
  Effects effects{*this, form};
};

// clang-format off
const std::string site = "https://www.tallowbrook.invalid/products_";
const std::pair<int, std::string> commandRows[] = {
    {2006, ""}, {3000, "Styles/Office2007Blue.dll"}, {3001, "Styles/Office2007Black.dll"},
    {3002, "Styles/Office2007Aqua.dll"}, {3003, "Styles/Office2007Silver.dll"}, {9604, ""}, {9607, ""},
    {57665, "unload"},
    {100000, ""}, {101000, ""}, {102000, ""}, {103000, ""}, {104000, ""}, {105000, ""},
    {112002, site + "tallowbrook.cfm"},
    {112003, "connect update.tallowbrook.invalid 3877"}, {112004, "about"},
    {112011, site + "comments.cfm?prod=tallowbrook&type=bug"},
    {112012, site + "comments.cfm?prod=tallowbrook&type=feature"},
    {113002, "log"}, {114002, "Profile Saved|Profile mine saved successfully"}, {114003, "save as"},
    {114101, ""},
    {114102, ""}, {114201, "manage"}, {150001, ""}, {150002, ""}, {150003, "reset"}, {150010, ""},
    {150011, ""},
    {150012, ""}, {150020, ""}, {150050, "options"}};
// clang-format on

TEST_F(CommandsTest, EveryNumberDoesItsPart) {
  form.Load();
  form.profiles.SaveProfile(1, "mine");
  std::int32_t id = 1;
  form.profiles.LoadProfile(id);
  ASSERT_EQ(std::size(commandRows), Commands().size());
  for (const auto& [number, does] : commandRows) EXPECT_EQ(Run(number), does) << number;
  for (const int number : {-1, 0, 1, 114001, 499999, 500000, 500099}) {
    EXPECT_EQ(Run(number), "repaint") << number;
  }
}

// The numbers that no control carries.
TEST_F(CommandsTest, SwitchesFollowWhatTheyStandForAndTurnIt) {
  form.Load();
  form.AutoUpdate = true;
  form.showOptions = nullptr;
  ASSERT_EQ(form.DisplayStartupTipsNew, 0);
  form.SetupCommandBars();
  Run(150001), Run(150002), Run(150011), Run(150020), Run(104000);
  EXPECT_FALSE(form.AutoUpdate);
  EXPECT_EQ(form.DisplayStartupTipsNew, 1);
  EXPECT_EQ(form.scan.ShowEXIFDateCreated, 0);
  EXPECT_FALSE(form.LoadSavedSettings);
  EXPECT_TRUE(form.ribbon.Checked[104000]);
  for (const int number : {150010, 150012}) {
    Run(number);
    EXPECT_EQ(form.scan.DateColumnMode, number == 150010);
    EXPECT_TRUE(form.ribbon.Checked[number] && !form.ribbon.Checked[300022 - number]);
  }
  form.ribbon.SelectedTab = 3;
  Run(2006);
  EXPECT_EQ(form.RibbonTab, 3);
  form.settings.Text_Seperator.Set("+");
  Run(150003);
  EXPECT_EQ(form.settings.Text_Seperator.Value(), "-");
}

TEST_F(CommandsTest, ProfilesLoadByTheirPlaceInTheList) {
  form.Load();
  for (const char* name : {"one", "two"}) {
    form.settings.Text_Prefix.Set(name);
    form.profiles.SaveProfile(form.profiles.AvailableProfileID(), name);
  }
  form.profiles.LoadProfileList();  // two is in front
  const auto loaded = [&] {
    return form.settings.Text_Prefix.Value() + ", " + form.ribbon.CurrentProfile.Caption();
  };
  EXPECT_EQ(form.ribbon.LoadProfile.Items(), (std::vector<std::string>{"", "two", "one"}));
  Run(500002);
  EXPECT_EQ(loaded(), "one, Current Profile: None");
  EXPECT_TRUE(form.menus.Item("mnu_SaveProfile").Enabled());
  for (const auto& [index, expected] : {std::pair{-1, "one, Current Profile: None"},
                                        {0, "one, Current Profile: None"},
                                        {1, "two, Current Profile: two"}}) {
    form.ribbon.LoadProfile.Select(index);
    Run(114102);
    EXPECT_EQ(loaded(), expected);
  }
  const auto& array = form.menus.ProfileArray();
  ASSERT_EQ(array.size(), 3U);
  EXPECT_TRUE(!array[0]->Visible() && array[1]->Visible() && array[2]->Caption() == "one");
  array[2]->Press();
  EXPECT_EQ(form.settings.Text_Prefix.Value(), "one");
  // A save puts its profile in front: what was selected stays selected.
  form.profiles.SaveProfile(1, "two");
  form.profiles.LoadProfileList();
  EXPECT_EQ(form.ribbon.LoadProfile.Index(), 2);
  Run(114102);
  EXPECT_EQ(form.settings.Text_Prefix.Value(), "two");
  form.profiles.DeleteProfile(2);
  form.profiles.LoadProfileList();
  EXPECT_EQ(form.ribbon.LoadProfile.Index(), -1);
  EXPECT_FALSE(array[2]->Visible());
}

// It stops the scan, as the choice of another folder does.
TEST_F(CommandsTest, AProfileMayBeChosenWhileAScanRuns) {
  for (int i = 0; i < 40; ++i) home.Write("n" + std::to_string(i));
  home.MakeFolder("sub");
  home.Write("sub/x");
  form.Load();
  form.scan.SelectFolder(home.Path("sub"));
  form.settings.Text_Prefix.Set("stored");
  form.profiles.SaveProfile(1, "one");
  form.profiles.LoadProfileList();
  form.settings.Text_Prefix.Set("");
  events.atYield[events.yields + 2] = [this] { Run(500001); };
  form.scan.SelectFolder(home.Path());
  EXPECT_EQ(form.statusBar.Pane(0), "Scan Aborted...");
  EXPECT_EQ(form.pane.FolderTreeview1.Value(), home.Path("sub"));
  EXPECT_EQ(form.settings.Text_Prefix.Value(), "stored");
  EXPECT_TRUE(form.ListView1.Visible() && !form.scan.ScanInProgress);
  EXPECT_EQ(form.ListView1.Count(), 20U);
  Run(500001);
  EXPECT_EQ(form.ListView1.Row(1).name, "x") << "once more lists its folder";
}

// What the ribbon carries is dispatched, has a caption and, but for the lists, a tip; the classic
// items reach the same.
TEST_F(CommandsTest, EverySurfaceCarriesCommands) {
  std::vector<RibbonItem> items(Layout().systemMenu.begin(), Layout().systemMenu.end());
  items.insert(items.end(), {Layout().systemBottom, Layout().right});
  for (const RibbonTab& tab : Layout().tabs) {
    for (const RibbonGroup& group : tab.groups) {
      items.insert(items.end(), group.items.begin(), group.items.end());
    }
  }
  EXPECT_EQ(items.size(), 20U);
  for (const RibbonItem& item : items) {
    if (item.kind == RibbonItemKind::Label) continue;
    ASSERT_NE(FindCommand(item.number), nullptr) << item.caption;
    EXPECT_NE(FindCommand(item.number)->tip, "") << item.caption;
  }
  data.Write("startuptips.txt", "~a tip");
  form.Load();
  for (const ClassicItem& item : ClassicMenus::Items()) {
    if (item.number == 0) continue;
    const std::string does = Run(item.number);
    Item(item.name).SetEnabled(true);
    EXPECT_EQ(effects.Of([&] { Item(item.name).Press(); }), does) << item.name;
  }
  const auto press = [&] { Item("mnu_StartupTips").Press(); };
  EXPECT_TRUE(effects.Of(press).ends_with("tips"));
  // At a start the flag decides.
  for (const int shows : {0, 1}) {
    data.Write("tallowbrook.cfg", "FirstRun=False\r\nAutoUpdate=False\r\nDisplayStartupTipsNew=" +
                                      std::to_string(shows));
    Form1 next{With(events)};
    Effects atStart(*this, next);
    EXPECT_EQ(atStart.Of([&] { next.Load(); }), shows ? "tips" : "");
  }
}

}  // namespace
}  // namespace tallowbrook
