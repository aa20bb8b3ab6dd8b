// The third chapter: a profile saved, changed and loaded back, the four styles, thumbnails, the
// update check at a server that fails in every way; and a second start that finds the last state.
#include "tour/shell_chapter.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <iostream>
#include <stdexcept>

#include "base/letter_case.h"
#include "desktop/program.h"
#include "desktop/text.h"
#include "shell/commands.h"
#include "tour/media_samples.h"
#include "tour/printed_dialogs.h"
#include "tour/update_server.h"

namespace tallowbrook {

namespace {

constexpr int patience = 6000;  // ms, for what the watchdog ends after three seconds

void Require(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error(what);
}

std::string CommandName(int number) {
  return "Command" + std::to_string(number);
}

void SaveProfile(Steps& steps, const char* name) {
  steps.InDialog(CommandName(commandSaveProfileAs).c_str(), [&](const Hands& hands) {
    hands.Type("Txt_ProfileName", QString::fromUtf8(name));
    steps.Picture("save-profile");
    hands.Click("Command_Save");
  });
}

void SaveAndLoadProfile(Steps& steps) {
  std::cout << "\n== A profile: saved, changed, loaded back\n";
  Form1& form = steps.form;
  steps.TypeAddress(steps.samples.Photos());
  steps.TurnToPage(1);
  steps.hands.Type("Text_Prefix", QStringLiteral("Lake-"));
  steps.TurnToPage(3);
  steps.hands.Type("Combo_Find", QStringLiteral("IMG_"));
  SaveProfile(steps, "Holiday & photos");
  steps.TypeAddress(steps.samples.Music());
  steps.TurnToPage(1);
  steps.hands.Type("Text_Prefix", QStringLiteral("Song-"));
  SaveProfile(steps, "Songs");
  steps.ClickMenu("SystemButton", "Holiday && photos");
  std::cout << "  " << form.statusBar.Pane(0) << "\n";
  Require(form.settings.Text_Prefix.Value() == "Lake-", "the profile's prefix isn't back");
  Require(form.settings.TabIndex.Index() == PageReplace, "the profile's page isn't back");
  Require(form.pane.Txt_Address.Value() == steps.samples.Photos(), "its folder isn't back");
  steps.Picture("profile-loaded");
  steps.InDialog(CommandName(commandManageProfiles).c_str(),
                 [&](const Hands&) { steps.Picture("manage-profiles"); });
  steps.InDialog(CommandName(commandAbout).c_str(), [&](const Hands&) { steps.Picture("about"); });
}

void WearStyles(Steps& steps) {
  std::cout << "\n== The four styles\n";
  steps.TurnToPage(1);
  steps.hands.Click("PushButton_Preview");
  for (const StyleChoice& style : Styles()) {
    steps.ClickMenu("StylesButton", std::string(style.caption).c_str());
    Require(steps.form.CurrentStyle.ends_with(style.file), "the style isn't the chosen one");
    steps.Picture(("style-" + ToLower(style.caption)).c_str());
  }
}

void ShowThumbnails(Steps& steps) {
  std::cout << "\n== Thumbnails\n";
  const std::string gallery = steps.samples.Home() + "Gallery/";
  const std::size_t pictures = MakeGallery(gallery);
  steps.TypeAddress(gallery);
  steps.hands.Click("Check_Thumbnails");
  Settle();
  std::cout << "  " << steps.form.statusBar.Pane(0) << "\n";
  Require(steps.form.ListView1.Count() == pictures, "not every picture has a thumbnail");
  steps.Picture("thumbnails");
  steps.hands.Click("PushButton_Preview");
  steps.Picture("thumbnails-preview");
  steps.hands.Click("Check_Thumbnails");
  Require(steps.form.ListView1.Count() == NamesIn(gallery).size(), "the table isn't back");
}

struct UpdateRow {
  const char* what;
  QByteArray answer;
  int delay;  // ms
  bool refuses;
};

// Each failure, asked for by hand and automatically: the one is told after three seconds, the other
// says nothing.
void CheckForUpdates(Steps& steps, UpdateServer& server, PrintedDialogs& dialogs) {
  const UpdateRow rows[] = {
      {"connection refused", "", 0, true},
      {"no answer", "", 0, false},
      {"an answer without its end", "4.1.0\a", 0, false},
      {"an answer after the watchdog", "4.1.0\a\r\n", 4000, false},
  };
  for (const UpdateRow& row : rows) {
    std::cout << "\n== Check for updates: " << row.what << "\n";
    server.Answer(row.answer, row.delay);
    server.Refuse(row.refuses);
    const std::size_t before = dialogs.asked.size();
    steps.hands.Click(CommandName(commandCheckForUpdates).c_str());
    Require(QTest::qWaitFor([&] { return dialogs.asked.size() > before; }, patience) &&
                dialogs.asked.back().text == "Could not connect to update server",
            "the failure isn't told");
    std::cout << "  request: " << Printable(server.LastRequest()) << "\n";
    steps.form.update.CheckForUpdates(0);
    QTest::qWait(row.delay + 500);
    Require(QTest::qWaitFor([&] { return !steps.form.update.UpdateAwaitingAnswer; }, patience) &&
                dialogs.asked.size() == before + 1,
            "an automatic check speaks of its failure");
    if (row.refuses) server.Refuse(false);
  }
  const std::pair<QByteArray, const char*> answers[] = {
      {"False\a\r\n", "You have the most recent version"},
      {"4.1.0\a<b>more</b>\r\n",
       "Version 4.1.0 is now available, would you like to download it now?"},
  };
  for (const auto& [answer, text] : answers) {
    std::cout << "\n== Check for updates: " << Printable(answer.toStdString()) << "\n";
    server.Answer(answer);
    const std::size_t before = dialogs.asked.size();
    steps.hands.Click(CommandName(commandCheckForUpdates).c_str());
    Require(QTest::qWaitFor([&] { return dialogs.asked.size() > before; }, patience) &&
                dialogs.asked.back().text == text,
            "the answer isn't told");
  }
}

}  // namespace

void ShellChapter(Steps& steps, UpdateServer& server, PrintedDialogs& dialogs) {
  SaveAndLoadProfile(steps);
  WearStyles(steps);
  ShowThumbnails(steps);
  steps.ClickRibbonTab("Help");
  CheckForUpdates(steps, server, dialogs);
}

void LeaveProgram(Steps& steps) {
  std::cout << "\n== The end, and another start\n";
  steps.TypeAddress(steps.samples.Music());
  steps.TurnToPage(2);
  steps.ClickMenu("StylesButton", "Silver");
  steps.hands.Click("PushButton_Exit");
  Require(QTest::qWaitFor([&] { return !steps.window.isVisible(); }), "the window stays open");
}

void FindLastState(Steps& steps, PrintedDialogs& dialogs) {
  Form1& form = steps.form;
  Require(dialogs.asked.empty(), "the second start asks something");
  Require(form.pane.Txt_Address.Value() == steps.samples.Music(), "another folder");
  Require(form.settings.TabIndex.Index() == PageDelete, "another page");
  Require(form.settings.Text_Prefix.Value() == "Lake-", "another prefix");
  Require(form.CurrentStyle.ends_with("Office2007Silver.dll"), "another style");
  Require(form.profiles.CountProfiles() == 3, "profiles are missing");
  steps.Picture("restarted");
  // The hosts of a build that nobody configured: nobody is there.
  steps.ClickRibbonTab("Help");
  steps.hands.Click(CommandName(commandCheckForUpdates).c_str());
  Require(QTest::qWaitFor([&] { return !dialogs.asked.empty(); }, patience) &&
              dialogs.asked.back().text == "Could not connect to update server",
          "an unknown host isn't told");
}

}  // namespace tallowbrook
