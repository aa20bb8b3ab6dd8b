// The ribbon of the whole window, driven by clicks and keys.
#include "desktop/ribbon_bar.h"

#include <optional>

#include "desktop/look.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "shell/commands.h"
#include "tests/desktop/window_fixture.h"
#include "tests/support/effects.h"

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
  // The same once the events behind it are through, by which the buttons dispatch.
  std::string Effect(const std::function<void()>& act) {
    return effects_.emplace(static_cast<TestWorld&>(*this), form).Of([&] {
      act();
      Settle();
    });
  }
  std::optional<Effects> effects_;  // the form's hooks refer to it, of the last act to their end
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
  expectSame(Layout().systemBottom, [&] { menu.last()->trigger(); });
  auto* right =
      Bar().findChild<QToolButton*>(QStringLiteral("Command112004"), Qt::FindDirectChildrenOnly);
  expectSame(Layout().right, [&] { QTest::mouseClick(right, Qt::LeftButton); });
  EXPECT_EQ(count, 18);
  EXPECT_LE(Bar().height(), 132);
}

// A name is text and nothing else, in the menu as in the list.
TEST_F(RibbonBarTest, ProfilesAreShownPlainlyAndLoadedByMenuAndList) {
  auto& list = Get<QComboBox>("LoadProfile");
  auto& save = Get<QToolButton>("Command114002");
  EXPECT_FALSE(save.isEnabled() || Action(114002).isEnabled());
  SaveProfiles({std::string(3000, 'w'), "<b>\x07", "R&D"});
  EXPECT_EQ(Action(profileCommands + 1).text() + list.itemText(1), QStringLiteral("R&&DR&D"));
  EXPECT_EQ(Action(profileCommands + 2).text(), QStringLiteral("<b>\uFFFD"));
  EXPECT_LT(Action(profileCommands + 3).text().size() + list.itemText(3).size(), 140);
  Action(profileCommands + 2).trigger();
  Settle();
  EXPECT_EQ(form.settings.Text_Prefix.Value(), "<b>");
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
  // The same entry once more loads once more.
  for (const Qt::Key step : {Qt::Key_Down, Qt::Key_Shift}) {
    form.settings.Text_Prefix.Set("now");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Down);
    QWidget* popup = QApplication::focusWidget();
    QTest::keyClick(popup, step);
    QTest::keyClick(popup, Qt::Key_Return);
    Settle();
    EXPECT_EQ(form.settings.Text_Prefix.Value(), "R&D");
    EXPECT_EQ(Get<QLabel>("CurrentProfile").text(), QStringLiteral("Current Profile: R&D"));
  }
}

TEST_F(RibbonBarTest, AStyleColoursTheWindowIsCheckedAndSurvivesARestart) {
  form.Dispatch(profileCommands + 1);
  QMenu* menu = Get<QToolButton>("StylesButton").menu();
  for (const StyleChoice& style : Styles()) {
    Action(style.number).trigger();
    Settle();
    EXPECT_EQ(CurrentTheme(), LoadTheme(files, "/" + std::string(style.file))) << style.caption;
    EXPECT_EQ(window.palette().color(QPalette::Window), CurrentTheme().window);
    EXPECT_FALSE(qApp->styleSheet().contains(QLatin1Char('@')));
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
  EXPECT_EQ(CurrentTheme(), last);
}

// The ribbon shares letters with the window: its own count while it has the keyboard.
TEST_F(RibbonBarTest, AltAloneLeadsToItsLettersAndEscapeBack) {
  EXPECT_EQ(Focused(), "ListView1");
  // clang-format off
  const std::pair<Qt::Key, const char*> steps[] = {
      {Qt::Key_H, "Command112002"}, {Qt::Key_I, "Command112011"}, {Qt::Key_Up, "RibbonTabs"},
      {Qt::Key_P, "LoadProfile"}, {Qt::Key_Right, "Command114003"},
      {Qt::Key_Escape, "ListView1"}};  // past what is grey
  // clang-format on
  for (const bool byAlt : {true, false}) {
    byAlt ? TapAlt() : Press(Qt::Key_F10);
    EXPECT_EQ(Focused(), "RibbonTabs");
    for (const auto& [key, reached] : steps) {
      Press(key);
      EXPECT_EQ(Focused(), reached);
    }
    EXPECT_FALSE(form.scan.AbortRequested);
  }
  TapAlt();
  const auto pressA = [] {
    Press(Qt::Key_A);
    QTest::qWait(200);
  };
  EXPECT_EQ(Effect(pressA), "about");
  EXPECT_EQ(Focused(), "ListView1");
  // Alt that was held for another key leads nowhere.
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

TEST_F(RibbonBarTest, ADoubleClickLeavesTheTabsAloneAndAKeyLeadsBehindThem) {
  const int high = Bar().height();
  const QPoint tab = Tabs().tabRect(0).center();
  QTest::mouseClick(&Tabs(), Qt::LeftButton, {}, tab);
  QTest::mouseDClick(&Tabs(), Qt::LeftButton, {}, tab);
  Settle();
  EXPECT_TRUE(Bar().IsMinimised() && Bar().height() < high / 2);
  TapAlt();
  Press(Qt::Key_L);
  EXPECT_FALSE(Bar().IsMinimised());
  EXPECT_EQ(Focused(), "Command113002");
}

}  // namespace tallowbrook
