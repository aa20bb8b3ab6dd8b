// The whole program without a window, driven by the names of its controls.
#include "shell/form1.h"

#include <stdexcept>

#include "shell/commands.h"
#include "tests/support/test_world.h"

namespace tallowbrook {
namespace {

class Form1Test : public testing::Test, protected TestWorld {
 protected:
  Form1Test() {
    home.Write("a.txt", "1");
    home.Write("b.txt", "2");
    form.unload = [this] { ++unloads; };
  }
  Control& Find(std::string_view name) { return *form.screen.Find(name); }
  void Press(std::string_view name) { dynamic_cast<Button&>(Find(name)).Press(); }

  FakeEvents events;
  Form1 form{With(events)};
  int unloads = 0;
};

TEST_F(Form1Test, AFirstStartShowsTheHomeFolderAndAFoldersViewSearchesWholeNames) {
  form.Load();
  EXPECT_FALSE(form.ProgramLoading);
  EXPECT_EQ(form.ListView1.Count(), 2U);
  EXPECT_EQ(form.pane.Txt_Address.Value(), home.Path());
  EXPECT_EQ(form.pages.Label_SampleFileName.Caption(), "filename-0001.abc");
  Find("Option_Search3").SetValueText("True");
  for (const char* view : {"Option1_Folders", "Option1_Files"}) {
    Find(view).SetValueText("True");
    EXPECT_TRUE(form.settings.Option_Search1.On());
    EXPECT_EQ(form.settings.Option_Search2.Visible(), form.pane.Option1_Files.On());
  }
}

// Through scan, preview, run and log, and from the log back to the same bytes. The last four are
// refused with a prefix, as names that no file gets any more, and leave for new ones.
TEST_F(Form1Test, NamesOfAnyBytesGoAllTheWay) {
  const std::vector<std::string> odd = {
      " both ends ", "\"quotes\" '",     "\xff\xfe stray", "日本語 😀 e\xcc\x81",
      "new\nline\r", "\x05\x06\x07\x10", "what?",          std::string(255, 'n')};
  for (const std::string& name : odd) home.Write(name, name);
  form.Load();
  ASSERT_EQ(form.ListView1.Count(), odd.size() + 2);
  for (const auto& [name, value] : {std::pair{"Check_Prefix", "1"},
                                    {"Text_Prefix", "p-"},
                                    {"Check_Unique", "0"},
                                    {"Check_Seperator", "0"}}) {
    Find(name).SetValueText(value);
  }
  Press("Cmd_Apply");
  for (std::size_t i = 0; i < odd.size(); ++i) {
    EXPECT_TRUE(home.Exists(i < 4 ? "p-" + odd[i] : odd[i])) << odd[i];
  }
  Find("Check_Unique").SetValueText("1");
  Find("Combo_Original").SetValueText("1");
  Find("Combo_OriginalName").SetValueText(" é ");
  Press("Cmd_Preview");
  std::vector<std::string> previewed;
  for (std::size_t i = 1; i <= form.ListView1.Count(); ++i) {
    previewed.push_back(form.ListView1.Row(i).newName);
  }
  Press("Cmd_Apply");
  for (const std::string& name : previewed) EXPECT_TRUE(home.Exists(name)) << name;
  // And back, the second run first.
  int shown = 0;
  form.showHistory = [&](LogHistory& history) {
    ++shown;
    dialogs.answers = {Answer::Yes, Answer::Yes};
    history.Open();
    history.Cmd_Undo.Press();
    history.Cmd_Switch.Press();
    history.SelectBatches({1}, 1);
    history.Cmd_Undo.Press();
  };
  Press("PushButton_Undo");
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(home.Names().size(), odd.size() + 2);
  for (const std::string& name : odd) EXPECT_EQ(home.Read(name), name);
}

// Whatever fails on the way, a scan ends, the program starts, and it can be closed.
TEST_F(Form1Test, AFailingStepIsLeftOut) {
  for (int i = 0; i < 20; ++i) home.Write("n" + std::to_string(i), "");
  events.atYield[1] = [] { throw std::runtime_error("no memory"); };
  form.Load();
  EXPECT_FALSE(form.ProgramLoading);
  EXPECT_FALSE(form.scan.ScanInProgress);
  EXPECT_TRUE(form.ListView1.Visible());
  EXPECT_EQ(form.log.Path(), data.Path() + "Logfile.txt");
  form.ExitProgram();
  EXPECT_EQ(unloads, 1);
}

TEST_F(Form1Test, TheEndComesOnceAndStopsAPreviewAndAWalk) {
  for (int i = 0; i < 40; ++i) home.Write("n" + std::to_string(i), "");
  home.MakeFolder("sub");
  home.Write("sub/x", "");
  form.Load();
  const int before = events.yields;
  events.atYield[before + 1] = [this] { Press("PushButton_Exit"); };
  Press("Cmd_Preview");
  EXPECT_EQ(events.yields, before + 1);
  form.Dispatch(commandExit);
  EXPECT_EQ(unloads, 1);
  form.ExitDone = false;
  events.atYield[before + 2] = [this] { form.ExitProgram(); };
  form.scan.AbortRequested = false;
  Press("Cmd_ScanSub");
  EXPECT_EQ(form.ListView1.Count(), 10U);
  EXPECT_EQ(unloads, 2);
}

TEST_F(Form1Test, ARowIsRenamedByHand) {
  form.Load();
  std::string steps;
  form.showManualRename = [&](ManualRename& dialog) {
    dialog.close = [&] { steps += "closed"; };
    steps += dialog.Txt_OldName.Value();
    for (const char* name : {"", "typed name"}) {
      dialog.Txt_NewFileName.Set(name);
      dialog.Cmd_Rename.Press();
      steps += "|";
    }
  };
  dialogs.answers = {Answer::Ok};
  form.OpenManualRename();  // no row is highlighted
  form.ListView1.Row(2).Selected = true;
  form.ListView1.SetChecked(2, false);
  form.OpenManualRename();
  EXPECT_EQ(steps, "b.txt|closed|");
  EXPECT_EQ(dialogs.asked.back().text, "You must specify a new filename");
  EXPECT_TRUE(home.Exists("typed name"));
}

}  // namespace
}  // namespace tallowbrook
