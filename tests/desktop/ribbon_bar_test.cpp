// The ribbon of the whole window, driven by clicks and keys.
#include "desktop/ribbon_bar.h"

#include "desktop/look.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "shell/commands.h"
#include "tests/desktop/window_fixture.h"

namespace tallowbrook {

namespace {

QString Plain(std::string_view caption) {
  return QString::fromUtf8(caption.data(), static_cast<int>(caption.size())).remove(u'&');
}

}  // namespace

class RibbonBarTest : public WindowTest {
 protected:
  void SetUp() override {
    form.Load();
    Activate(window);
  }
  ~RibbonBarTest() override { ApplyTheme({}); }

  // Newest first in the list: the last one of these has index 1.
  void SaveProfiles(std::initializer_list<std::string> names) {
    for (const std::string& name : names) {
      form.settings.Text_Prefix.Set(name.substr(0, 3));
      form.profiles.SaveProfile(form.profiles.AvailableProfileID(), name);
    }
    form.profiles.LoadProfileList();
    form.settings.Text_Prefix.Set("now");
  }
  QAction& Action(int number) {
    auto* action = Get("RibbonBar").findChild<QAction*>(QStringLiteral("Command%1").arg(number));
    if (!action) throw std::runtime_error("no item " + std::to_string(number));
    return *action;
  }
  // All that an act leads to.
  std::string Effect(const std::function<void()>& act) {
    std::string done;
    form.showSaveProfile = [&](SaveProfileDialog&) { done += "save as"; };
    form.showManageProfiles = [&](ManageProfiles&) { done += "manage"; };
    form.showOptions = [&](Options&) { done += "options"; };
    form.showAbout = [&](About&) { done += "about"; };
    form.showHistory = [&](LogHistory&) { done += "history"; };
    form.unload = [&] { done += "exit"; };
    form.ExitDone = false;
    form.settings.Text_UniqueMask.Set("x");
    desktop.opened.clear();
    dialogs.asked.clear();
    dialogs.answers = {Answer::Ok};
    socket.calls.clear();
    act();
    Settle();
    if (form.settings.Text_UniqueMask.Value() != "x") done += "reset";
    for (const std::string& address : desktop.opened) done += address;
    for (const MessageBox& box : dialogs.asked) done += box.text;
    for (const std::string& call : socket.calls) done += call == "close" ? "" : call.substr(0, 7);
    return done;
  }
  RibbonBar& Bar() { return static_cast<RibbonBar&>(Get("RibbonBar")); }
  QTabBar& Tabs() { return Get<QTabBar>("RibbonTabs"); }
  static std::string Focused() {
    QWidget* widget = QApplication::focusWidget();
    return widget ? widget->objectName().toStdString() : "";
  }
  // Pressed and released by itself.
  static void TapAlt() {
    QWidget* widget = QApplication::focusWidget();
    QTest::keyPress(widget, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyRelease(widget, Qt::Key_Alt);
  }
};

// Each item, wherever it stands, shows its caption and does what its number does.
TEST_F(RibbonBarTest, ShowsItsWholeLayoutAndDispatchesWhatIsClicked) {
  SaveProfiles({"one"});
  form.Dispatch(profileCommands + 1);
  int count = 0;
  const auto expectSame = [&](const RibbonItem& item, const std::function<void()>& click) {
    const std::string effect = Effect([&] { form.Dispatch(item.number); });
    EXPECT_FALSE(effect.empty()) << item.caption;
    EXPECT_EQ(Effect(click), effect) << item.caption;
    ++count;
  };
  ASSERT_EQ(Tabs().count(), static_cast<int>(Layout().tabs.size()));
  for (int at = 0; at < Tabs().count(); ++at) {
    const RibbonTab& tab = Layout().tabs[static_cast<std::size_t>(at)];
    EXPECT_EQ(Tabs().tabText(at), Plain(tab.caption));
    QTest::mouseClick(&Tabs(), Qt::LeftButton, {}, Tabs().tabRect(at).center());
    EXPECT_TRUE(form.RibbonTab == at && form.ribbon.SelectedTab == at);
    QStringList captions;
    for (const auto* label : Bar().findChildren<QLabel*>(QStringLiteral("RibbonCaption"))) {
      if (label->isVisible()) captions += label->text();
    }
    QStringList expected;
    for (const RibbonGroup& group : tab.groups) {
      expected += Plain(group.caption);
      for (const RibbonItem& item : group.items) {
        if (item.kind != RibbonItemKind::Button) continue;
        QToolButton* shown = nullptr;
        for (auto* button : Get("RibbonGroups").findChildren<QToolButton*>()) {
          const bool isItem = button->text().simplified() == Plain(item.caption);
          if (isItem && button->isVisible()) shown = button;
        }
        ASSERT_TRUE(shown) << item.caption;
        EXPECT_FALSE(shown->icon().isNull()) << item.caption;
        const QString tip = ToText(FindCommand(item.number)->tip).toHtmlEscaped();
        EXPECT_TRUE(shown->toolTip().contains(tip)) << item.caption;
        expectSame(item, [&] { QTest::mouseClick(shown, Qt::LeftButton); });
      }
    }
    EXPECT_EQ(captions, expected);
  }
  for (const RibbonItem& item : Layout().systemMenu) {
    EXPECT_EQ(Action(item.number).text(), ToText(item.caption));
    EXPECT_FALSE(Action(item.number).icon().isNull()) << item.caption;
    expectSame(item, [&] { Action(item.number).trigger(); });
  }
  const QList<QAction*> menu = Get<QToolButton>("SystemButton").menu()->actions();
  EXPECT_EQ(menu.at(5)->text(), ToText(Layout().profilesCaption));
  EXPECT_EQ(menu.last()->text(), ToText(Layout().systemBottom.caption));
  expectSame(Layout().systemBottom, [&] { menu.last()->trigger(); });
  expectSame(Layout().right, [&] {
    QTest::mouseClick(
        Bar().findChild<QToolButton*>(QStringLiteral("Command112004"), Qt::FindDirectChildrenOnly),
        Qt::LeftButton);
  });
  EXPECT_EQ(count, 18);
  EXPECT_LE(Bar().height(), 132);
}

// A name is text and nothing else, in the menu as in the list.
TEST_F(RibbonBarTest, ProfilesAreShownPlainlyAndLoadedByMenuAndList) {
  auto& list = Get<QComboBox>("LoadProfile");
  auto& save = Get<QToolButton>("Command114002");
  EXPECT_FALSE(save.isEnabled() || Action(114002).isEnabled());
  SaveProfiles({std::string(3000, 'w'), "<b>\x07", "R&D"});
  struct Row {
    int index;
    const char* inMenu;
    const char* inList;
  };
  for (const auto& [index, inMenu, inList] :
       {Row{1, "R&&D", "R&D"}, Row{2, "<b>\uFFFD", "<b>\uFFFD"}}) {
    EXPECT_EQ(Action(profileCommands + index).text(), QString::fromUtf8(inMenu));
    EXPECT_EQ(list.itemText(index), QString::fromUtf8(inList));
  }
  EXPECT_LT(Action(profileCommands + 3).text().size(), 60);
  EXPECT_LT(list.itemText(3).size(), 80);
  EXPECT_TRUE(list.count() == 4 && list.itemText(0).isEmpty());

  auto& label = Get<QLabel>("CurrentProfile");
  Action(profileCommands + 2).trigger();
  Settle();
  EXPECT_EQ(form.settings.Text_Prefix.Value(), "<b>");
  EXPECT_EQ(label.text(), QStringLiteral("Current Profile: None"));
  EXPECT_TRUE(save.isEnabled() && Action(114002).isEnabled());
  // No key and no turn of the wheel chooses unseen.
  list.setFocus();
  QTest::keyClicks(&list, QStringLiteral("r"));
  QTest::keyClick(&list, Qt::Key_End);
  QWheelEvent wheel({5, 5}, list.mapToGlobal(QPoint(5, 5)), {}, {0, -120}, {}, {},
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&list, &wheel);
  Settle();
  EXPECT_EQ(form.settings.Text_Prefix.Value(), "<b>");
  // The same entry once more loads once more; the empty one does nothing.
  const auto choose = [&](Qt::Key step) {
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Down);
    QWidget* popup = QApplication::focusWidget();
    QTest::keyClick(popup, step);
    QTest::keyClick(popup, Qt::Key_Return);
    Settle();
  };
  for (const Qt::Key step : {Qt::Key_Down, Qt::Key_Shift}) {
    form.settings.Text_Prefix.Set("now");
    choose(step);
    EXPECT_EQ(form.settings.Text_Prefix.Value(), "R&D");
    EXPECT_EQ(label.text(), QStringLiteral("Current Profile: R&D"));
  }
  form.settings.Text_Prefix.Set("now");
  choose(Qt::Key_Up);
  EXPECT_EQ(list.currentIndex(), 0);
  EXPECT_EQ(form.settings.Text_Prefix.Value(), "now");
}

TEST_F(RibbonBarTest, AStyleColoursTheWindowIsCheckedAndSurvivesARestart) {
  form.Dispatch(profileCommands + 1);
  QMenu* menu = Get<QToolButton>("StylesButton").menu();
  for (const StyleChoice& style : Styles()) {
    Action(style.number).trigger();
    Settle();
    const Theme theme = LoadTheme(files, "/" + std::string(style.file));
    EXPECT_TRUE(form.CurrentStyle.ends_with(style.file));
    EXPECT_EQ(CurrentTheme(), theme) << style.caption;
    EXPECT_EQ(window.palette().color(QPalette::Window), theme.window);
    Q_EMIT menu->aboutToShow();
    for (const StyleChoice& other : Styles()) {
      EXPECT_EQ(Action(other.number).isChecked(), other.number == style.number);
    }
  }
  const Theme last = CurrentTheme();
  form.SaveSettings();
  ApplyTheme({});
  Form1 next(With(events));
  MainWindow nextWindow(next, files, home.Path());
  next.Load();
  EXPECT_EQ(next.CurrentStyle, form.CurrentStyle);
  EXPECT_EQ(CurrentTheme(), last);
}

// The ribbon shares letters with the window: its own count while it has the keyboard.
TEST_F(RibbonBarTest, AltAloneLeadsToItsLettersAndEscapeBack) {
  EXPECT_EQ(Focused(), "ListView1");
  for (const bool byAlt : {true, false}) {
    byAlt ? TapAlt() : Press(Qt::Key_F10);
    EXPECT_EQ(Focused(), "RibbonTabs");
    Press(Qt::Key_H);
    EXPECT_EQ(Focused(), "Command112002");
    Press(Qt::Key_I);
    EXPECT_EQ(Focused(), "Command112011");
    EXPECT_EQ(form.RibbonTab, 3);
    Press(Qt::Key_Up);
    EXPECT_EQ(Focused(), "RibbonTabs");
    Press(Qt::Key_P);
    EXPECT_EQ(Focused(), "LoadProfile");
    Press(Qt::Key_Right);
    EXPECT_EQ(Focused(), "Command114003") << "what is greyed is passed by";
    Press(Qt::Key_Escape);
    EXPECT_EQ(Focused(), "ListView1");
    EXPECT_FALSE(form.scan.AbortRequested);
  }
  TapAlt();
  EXPECT_EQ(Effect([&] {
              Press(Qt::Key_A);
              QTest::qWait(200);
            }),
            "about");
  EXPECT_EQ(Focused(), "ListView1");
  // Alt that was held for another key, or a click, leads nowhere.
  QWidget* list = QApplication::focusWidget();
  QTest::keyPress(list, Qt::Key_Alt, Qt::AltModifier);
  QTest::keyClick(list, Qt::Key_2, Qt::AltModifier);
  QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Alt);
  EXPECT_EQ(form.settings.TabIndex.Index(), 1);
  EXPECT_FALSE(Bar().HasKeyboard());

  bool opened = false;
  QTimer::singleShot(100, [&] {
    QWidget* menu = QApplication::activePopupWidget();
    opened = menu && menu == Get<QToolButton>("SystemButton").menu();
    if (menu) menu->close();
  });
  QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
  QTest::qWait(200);
  EXPECT_TRUE(opened);
}

TEST_F(RibbonBarTest, ADoubleClickOrAKeyLeavesTheTabsAlone) {
  const int high = Bar().height();
  const QPoint tab = Tabs().tabRect(0).center();
  const auto doubleClick = [&] {
    QTest::mouseClick(&Tabs(), Qt::LeftButton, {}, tab);
    QTest::mouseDClick(&Tabs(), Qt::LeftButton, {}, tab);
    Settle();
  };
  doubleClick();
  EXPECT_TRUE(Bar().IsMinimised());
  EXPECT_LT(Bar().height(), high / 2);
  doubleClick();
  EXPECT_FALSE(Bar().IsMinimised());
  QTest::keyClick(&window, Qt::Key_F1, Qt::ControlModifier);
  EXPECT_TRUE(Bar().IsMinimised());
  TapAlt();
  Press(Qt::Key_L);
  EXPECT_FALSE(Bar().IsMinimised());
  EXPECT_EQ(Focused(), "Command113002");
}

}  // namespace tallowbrook
