// The dialogs over the main window, opened by their commands and driven by clicks.
#include <set>

#include "desktop/dialogs.h"
#include "shell/commands.h"
#include "tests/desktop/window_fixture.h"

namespace tallowbrook {

class DialogsTest : public WindowTest {
 protected:
  void SetUp() override {
    home.Write("a.txt", "1");
    home.MakeFolder("sub");
    data.Write("startuptips.txt", "~one & only~" + std::string(4000, 'w') + " end");
    form.Load();
    form.profiles.SaveProfile(1, "R&D");
    form.profiles.LoadProfileList();
    Activate(window);
  }

  // Lets `visit` act in the dialog that `open` shows, which it must leave closed.
  static void In(const std::function<void()>& open, const std::function<void(QWidget&)>& visit) {
    bool visited = false;
    QTimer::singleShot(0, [&] {
      Settle();
      QPointer<QWidget> dialog = QApplication::activeModalWidget();
      ASSERT_TRUE(dialog);
      ExpectWhole(*dialog);
      visit(*dialog);
      visited = true;
      EXPECT_FALSE(dialog && dialog->isVisible());
      if (dialog) dialog->close();
    });
    open();
    EXPECT_TRUE(visited);
  }
  static void Click(QWidget& in, const char* name) {
    auto& button = Child<QAbstractButton>(in, name);
    QTest::mouseClick(&button, Qt::LeftButton, {}, {10, button.height() / 2});
  }

  // Nothing is cut off, and no two things answer to one key.
  static void ExpectWhole(const QWidget& dialog) {
    std::set<QString> keys;
    for (const QWidget* shown : dialog.findChildren<QWidget*>()) {
      const bool isControl = qobject_cast<const QAbstractButton*>(shown) ||
                             qobject_cast<const QLineEdit*>(shown) ||
                             qobject_cast<const QGroupBox*>(shown);
      if (!shown->isVisible() || !isControl) continue;
      const std::string name = shown->objectName().toStdString();
      EXPECT_EQ(shown->visibleRegion().boundingRect(), shown->rect()) << name;
      EXPECT_GE(shown->width(), shown->minimumSizeHint().width()) << name;
      if (qobject_cast<const QLineEdit*>(shown)) continue;
      const QString key = QKeySequence::mnemonic(shown->property("text").toString()).toString();
      EXPECT_TRUE(key.isEmpty() || keys.insert(key).second) << name;
    }
  }
};

TEST_F(DialogsTest, EachOpensByItsCommandAndDoesWhatIsClicked) {
  struct Row {
    const char* what;
    std::function<void()> open;
    std::function<void(QWidget&)> act;
    std::function<bool()> done;
  };
  const auto command = [&](int number) { return [&, number] { form.Dispatch(number); }; };
  const auto hasProfile = [&](const char* name) {
    return std::ranges::count(form.ribbon.LoadProfile.Items(), name) == 1;
  };
  const auto type = [](QWidget& dialog, const char* field, const char* text) {
    auto& line = Child<QLineEdit>(dialog, field);
    line.selectAll();
    QTest::keyClicks(&line, QString::fromUtf8(text));
  };
  form.settings.Text_Prefix.Set("typed");
  const auto browse = [&] { Get<QAbstractButton>("PushButton_Browse").click(); };
  const std::string site = "https://www.tallowbrook.invalid";
  // clang-format off
  const Row rows[] = {
      {"options saved", command(commandOptions), [](QWidget& d) {
         for (const char* box : {"Option_DateCreated", "Check_StartupTips", "Command_Save"}) Click(d, box); },
       [&] { return form.DisplayStartupTipsNew == 1 && form.scan.DateColumnMode == 1; }},
      {"options left by Enter", command(commandOptions), [](QWidget& d) {
         Click(d, "Check_LoadSavedSettings");
         Child<QWidget>(d, "Command_Done").setFocus();
         Press(Qt::Key_Return); },
       [&] { return form.LoadSavedSettings; }},
      {"a row of the profiles chosen by Enter", command(commandManageProfiles), [](QWidget&) {
         Press(Qt::Key_Down);
         Press(Qt::Key_Return); },
       [&] { return ProfileBlock(data.Read("profile.cfg"), 1).find("=typed") == std::string_view::npos; }},
      {"the links", command(commandAbout), [](QWidget& d) {
         for (const char* link : {"Label1", "Label12", "Label14", "Label5", "cmdOK"}) Click(d, link); },
       [&] { return desktop.opened == std::vector<std::string>{site, site, site + "/products_Tallowbrook.cfm",
                                                               "mailto:support@tallowbrook.invalid"}; }},
      {"a new profile", command(commandSaveProfileAs), [&](QWidget& d) {
         type(d, "Txt_ProfileName", "two");
         Press(Qt::Key_Return); },
       [&] { return hasProfile("two"); }},
      {"no new profile", command(commandSaveProfileAs), [&](QWidget& d) {
         type(d, "Txt_ProfileName", "three");
         QTest::keyClick(&d, Qt::Key_Escape); },
       [&] { return !hasProfile("three"); }},
      {"a profile renamed", command(commandManageProfiles), [&](QWidget& d) {
         auto& list = Child<QTableView>(d, "ListView1");
         const QPoint second = list.visualRect(list.model()->index(1, 0)).center();
         QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
         EXPECT_EQ(Child<QLineEdit>(d, "Txt_ProfileName").text(), QStringLiteral("R&D"));
         type(d, "Txt_ProfileName", "four");
         Click(d, "Command_Save");
         Click(d, "Command_Done"); },
       [&] { return hasProfile("four") && hasProfile("two") && !hasProfile("R&D"); }},
      {"a folder chosen", browse, [&](QWidget& d) {
         QTest::keyClick(&Child<QTreeView>(d, "FolderTreeview1"), Qt::Key_Right);
         Settle();
         EXPECT_EQ(Child<QLabel>(d, "StatusPane0").text(), QString::fromStdString(home.Path("sub")));
         Click(d, "Command_Save"); },
       [&] { return form.settings.Txt_MoveTo.Value() == home.Path("sub/"); }},
  };
  // clang-format on
  form.settings.Check_MoveEnable.Set(1);
  for (const Row& row : rows) {
    In(row.open, row.act);
    EXPECT_TRUE(row.done()) << row.what;
  }
}

// They stand beside the window, which works on.
TEST_F(DialogsTest, TipsOfAnyLengthArePlainText) {
  form.ShowStartupTips();
  Settle();
  auto& tips = Get("frmTips");
  EXPECT_FALSE(tips.isModal());
  const QSize size = tips.size();
  for (int i = 0; i < 2; ++i) {
    ExpectWhole(tips);
    EXPECT_EQ(Child<QLabel>(tips, "Lbl_Tip").textFormat(), Qt::PlainText);
    Click(tips, "Cmd_Next");
    Settle();
    EXPECT_EQ(tips.size(), size);
  }
  Click(tips, "Cmd_Close");
  EXPECT_FALSE(tips.isVisible());
}

// Whatever a server or a file says, a box stays one that can be read and closed.
TEST_F(DialogsTest, BoxesShowPlainTextOfBoundedLength) {
  std::string lines;
  for (int i = 0; i < 5000; ++i) lines += "x\r\n";
  const std::tuple<std::string, const char*, int> rows[] = {
      {"<b>a</b>\r\nb\x06", "<b>a</b>\nb\uFFFD", 11},
      {std::string(1 << 16, 'w'), "www", 1100},
      {std::string(1 << 16, '\xFF'), "\uFFFD", 1100},
      {std::string(1 << 16, '\n'), "\n", 21},
      {lines, "x\nx\n", 40}};
  WindowDialogs boxes;
  boxes.SetParent(&window);
  for (const auto& [text, shown, atMost] : rows) {
    const auto read = [&, start = shown, most = atMost](QWidget& dialog) {
      const auto& box = static_cast<QMessageBox&>(dialog);
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_TRUE(box.text().startsWith(QString::fromUtf8(start))) << start;
      EXPECT_TRUE(box.text().size() <= most && box.windowTitle().size() <= 116) << start;
      EXPECT_TRUE(box.width() <= 800 && box.height() <= 700) << start;
      QTest::keyClick(&dialog, Qt::Key_Escape);
    };
    In(
        [&, asked = text] {
          EXPECT_EQ(boxes.Ask({asked, asked, Buttons::YesNo}), Answer::No);
        },
        read);
  }
}

}  // namespace tallowbrook
