// The whole window over real files, driven by keys and clicks.
#include "desktop/main_window.h"

#include <set>

#include "desktop/dialogs.h"
#include "desktop/folder_tree.h"
#include "shell/commands.h"
#include "tests/desktop/window_fixture.h"

namespace tallowbrook {

class MainWindowTest : public WindowTest {
 protected:
  void SetUp() override {
    home.Write("b.txt", "two");
    home.Write("a\xFF.txt", "one");
    home.MakeFolder("sub");
    home.Write("sub/inner.txt");
    form.Load();
    Activate(window);
    Settle();
  }
};

// A table leaves the key to the widgets around it; the question comes once all the same.
TEST_F(MainWindowTest, OnePressOfDeleteAsksOnce) {
  table.selectRow(1);
  dialogs.answers = {Answer::No};
  for (QWidget* focused : {static_cast<QWidget*>(&table), &Get("Txt_Address")}) {
    focused->setFocus();
    Press(Qt::Key_Delete);
    EXPECT_EQ(dialogs.asked.size(), 1U);
  }
}

TEST_F(MainWindowTest, OpensOnTheHomeFolderPreviewsRenamesLogsAndUndoes) {
  const QAbstractItemModel& model = *table.model();
  EXPECT_EQ(model.rowCount(), 2);
  auto& count = Get<QLabel>("StatusPane1");
  EXPECT_EQ(count.text(), QStringLiteral("Files in list: 2"));
  EXPECT_FALSE(count.visibleRegion().isEmpty());
  EXPECT_EQ(Get<FolderTree>("FolderTreeview1").currentIndex().data(), QStringLiteral("Home"));
  EXPECT_FALSE(Get("Frame_Progress").isVisible());
  Get<QAbstractButton>("PushButton_Preview").click();
  Settle();
  EXPECT_EQ(model.index(1, SectionOf(Column::NewFileName)).data(), QStringLiteral("b-0002.txt"));
  Get<QAbstractButton>("PushButton_Apply").click();
  EXPECT_EQ(home.Names(), (std::vector<std::string>{"a\xFF-0001.txt", "b-0002.txt", "sub"}));
  dialogs.answers = {Answer::Yes};
  QTimer::singleShot(0, [&] {
    Settle();
    QWidget* history = QApplication::activeModalWidget();
    ASSERT_TRUE(history && history->windowModality() == Qt::WindowModal);
    EXPECT_TRUE(window.geometry().contains(history->geometry().center()));
    history->findChild<QAbstractButton*>(QStringLiteral("Cmd_Undo"))->click();
    QTest::keyClick(history, Qt::Key_Escape);
  });
  Get<QAbstractButton>("PushButton_Undo").click();
  EXPECT_EQ(home.Names(), (std::vector<std::string>{"a\xFF.txt", "b.txt", "sub"}));
  EXPECT_EQ(form.ListView1.Row(2).name, "b.txt");
}

TEST_F(MainWindowTest, KeysReachTheProgramFromAnyControlAndEnterGoesOrFilters) {
  Get("Text_Prefix").setFocus();
  Press(Qt::Key_Escape);
  EXPECT_TRUE(form.scan.AbortRequested);
  Press(Qt::Key_D, Qt::AltModifier);
  auto& address = Get<QLineEdit>("Txt_Address");
  EXPECT_TRUE(address.hasFocus());
  EXPECT_EQ(address.cursorPosition(), address.text().size());
  Type("sub");
  Press(Qt::Key_Return);
  EXPECT_EQ(form.ListView1.Count(), 1U);
  EXPECT_EQ(address.text().toStdString(), home.Path("sub/"));
  EXPECT_EQ(Get<FolderTree>("FolderTreeview1").currentIndex().data(), QStringLiteral("sub"));
  Get<QComboBox>("Combo_Filter").setFocus();
  Type("x");
  Press(Qt::Key_Return);
  EXPECT_EQ(form.ListView1.Count(), 0U);
}

TEST_F(MainWindowTest, F2RenamesAndKeepsOddBytesAndEscapeClosesItsDialogAlone) {
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
    table.setFocus();
    table.selectRow(0);
    QTimer::singleShot(0, [key] {
      QWidget* dialog = QApplication::activeModalWidget();
      auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("Txt_NewFileName"));
      name->setCursorPosition(0);
      QTest::keyClicks(name, QStringLiteral("new "));
      QTest::keyClick(name, key);
    });
    QTest::keyClick(&table, Qt::Key_F2);
    EXPECT_EQ(home.Exists("new a\xFF.txt"), key == Qt::Key_Return);
    EXPECT_FALSE(form.scan.AbortRequested);
  }
}

TEST_F(MainWindowTest, KeysTurnToThePagesAndSomePutTheFocusIntoAField) {
  const char* fields[] = {"", "Combo_RemoveChars", "Combo_Find", "", "RTxt_ID3Name"};
  for (int page = 4; page >= 0; --page) {
    QTest::keyClick(&window, static_cast<Qt::Key>(Qt::Key_1 + page), Qt::AltModifier);
    EXPECT_EQ(form.settings.TabIndex.Index(), page);
    EXPECT_TRUE(!*fields[page] || Get(fields[page]).hasFocus()) << fields[page];
  }
}

// At its first size, and as small as it goes, no field is narrower than it needs. Of what shows at
// one time, no two things answer to one key.
TEST_F(MainWindowTest, NothingIsCutOffAndAccessKeysDontCollide) {
  auto& settings = form.settings;
  for (const QSize size : {window.size(), window.minimumSizeHint()}) {
    window.resize(size);
    EXPECT_TRUE(window.width() <= 1280 && window.height() <= 800);
    for (int page = 0; page < 5; ++page) {
      settings.TabIndex.Select(page);
      Get<QTabBar>("RibbonTabs").setCurrentIndex(page % 4);
      for (Option* type : {&settings.Option_ChangeFileName, &settings.Option_ChangeFileDate}) {
        type->Choose();
        Settle();
        std::multiset<std::string> keys;
        for (QWidget* field : window.findChildren<QWidget*>()) {
          if (!field->isVisible()) continue;
          const QVariant text = field->property(field->inherits("QGroupBox") ? "title" : "text");
          const QKeySequence key = QKeySequence::mnemonic(text.toString());
          if (!key.isEmpty()) keys.insert(key.toString().toStdString());
          const std::string name = field->objectName().toStdString();
          const bool isField = qobject_cast<QAbstractButton*>(field) ||
                               qobject_cast<QComboBox*>(field) || qobject_cast<QLineEdit*>(field);
          if (!isField || name.starts_with("qt_")) continue;
          EXPECT_GE(field->width(), field->minimumSizeHint().width()) << name;
          EXPECT_EQ(field->visibleRegion().boundingRect(), field->rect()) << name << page;
        }
        EXPECT_GT(keys.size(), 12U);
        for (const std::string& key : keys) EXPECT_EQ(keys.count(key), 1U) << key << page;
      }
    }
  }
}

TEST_F(MainWindowTest, PanelsStandInTheOrderOfTheNameAndADropClearsItsHistory) {
  const auto left = [&](const char* name) { return Get(name).mapTo(&window, QPoint()).x(); };
  const int separator = left("Text_Seperator");
  EXPECT_TRUE(left("Combo_Original") < separator && separator < left("Combo_Unique"));
  Get<QAbstractButton>("Check_UniqueFirst").click();
  Settle();
  EXPECT_LT(left("Combo_Unique"), left("Combo_Original"));
  form.settings.Combo_OriginalName.SetItems({"a", "b"});
  QMimeData text;
  text.setText(QStringLiteral("x"));
  QDragEnterEvent enter({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, {});
  QDropEvent drop({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, {});
  for (QEvent* event : std::initializer_list<QEvent*>{&enter, &drop}) {
    QCoreApplication::sendEvent(&Get("Frame_Filename"), event);
  }
  EXPECT_TRUE(form.settings.Combo_OriginalName.Items().empty());
}

// The window asks again at the scan's end; until then it stays.
TEST_F(MainWindowTest, ClosingDuringAScanWaitsForItsEnd) {
  for (int i = 0; i < 30; ++i) home.Write("sub/" + std::to_string(i));
  bool openAtEnd = false;
  form.statusBar.changed = [&](std::size_t) {
    if (!form.scan.ScanInProgress || form.scan.ExitAfterScan) return;
    window.close();
    openAtEnd = window.isVisible() && !form.ExitDone;
  };
  form.scan.ScanFolder(home.Path("sub"));
  EXPECT_TRUE(openAtEnd);
  EXPECT_TRUE(form.ExitDone);
  EXPECT_LT(form.ListView1.Count(), 30U);
  Settle();
  EXPECT_FALSE(window.isVisible());
}

// As a session ends it: from outside, with something on show that has a loop of its own.
TEST_F(MainWindowTest, TheProgramEndsWhileAMenuOrAWindowIsOpen) {
  window.hide();  // the end of the event loop would close it, too
  WindowDialogs boxes;
  const std::pair<const char*, std::function<void(MainWindow&, Form1&)>> rows[] = {
      {"menu", [](MainWindow& w, Form1&) { QTest::keyClick(&w, Qt::Key_F, Qt::AltModifier); }},
      {"menu of a row",
       [](MainWindow& w, Form1&) {
         auto& list = Child<FileTable>(w, "ListView1");
         list.selectRow(0);
         QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier);
       }},
      {"history", [](MainWindow&, Form1& f) { f.Undo.styled.Press(); }},
      {"options", [](MainWindow&, Form1& f) { f.Dispatch(commandOptions); }},
      {"question", [&](MainWindow&, Form1&) {
         boxes.Ask({"title", "text", Buttons::YesNo});
       }}};
  for (const auto& [what, open] : rows) {
    Form1 otherForm(With(events));
    MainWindow other(otherForm, files, home.Path());
    otherForm.Load();
    Activate(other);
    otherForm.settings.Text_Prefix.Set(what);
    bool wasOpen = false;
    QTimer::singleShot(0, &other, [&, opens = open] { opens(other, otherForm); });
    QTimer::singleShot(200, &other, [&] {
      wasOpen = QApplication::activeModalWidget() || QApplication::activePopupWidget();
      other.close();
    });
    QTimer::singleShot(5000, &other, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0) << what;
    EXPECT_TRUE(wasOpen && otherForm.ExitDone && !other.isVisible()) << what;
    EXPECT_FALSE(QApplication::activeModalWidget() || QApplication::activePopupWidget()) << what;
    EXPECT_NE(data.Read("profile.cfg").find(std::string("=") + what), std::string::npos) << what;
  }
}

// The names of all that `key` leads to from the tree until it is back there.
std::string Walk(QWidget& from, Qt::Key key) {
  std::string names;
  from.setFocus();
  do {
    Press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    names += QApplication::focusWidget()->objectName().toStdString() + " ";
  } while (QApplication::focusWidget() != &from && names.size() < 5000);
  return names;
}

// The same from behind, but for the last name, where both ways end.
std::string Reversed(const std::string& names) {
  QStringList words = QString::fromStdString(names).split(QLatin1Char(' '), Qt::SkipEmptyParts);
  std::reverse(words.begin(), words.end() - 1);
  return words.join(QLatin1Char(' ')).toStdString() + " ";
}

// From the top to the bottom and from the left to the right, and back the same way: in a window as
// the program makes it, whatever was on show before.
TEST_F(MainWindowTest, TabGoesThroughTheWindowAsTheEyeDoes) {
  Form1 shownForm(With(events));
  MainWindow shown(shownForm, files, home.Path(), MakePages::BehindFirstPaint);
  EXPECT_FALSE(shown.findChild<QWidget*>(QStringLiteral("Combo_Find")));
  shownForm.settings.TabIndex.Select(PageTags);
  EXPECT_TRUE(shown.findChild<QWidget*>(QStringLiteral("RTxt_ID3Name"))) << "comes to the front";
  shownForm.Load();
  Activate(shown);
  Settle();
  auto& tree = Child(shown, "FolderTreeview1");
  for (const int page : {PageTags, PageReplace, PageAdvanced, PageDelete, PageProperties}) {
    for (Form1* shows : {&shownForm, &form}) {
      shows->settings.TabIndex.Select(page);
      shows->settings.Check_MoveEnable.Set(1);
      shows->ListView1.SetIconView(page == PageReplace);
    }
    Settle();
    const std::string order = Walk(tree, Qt::Key_Tab);
    EXPECT_EQ(order, Reversed(Walk(tree, Qt::Key_Backtab))) << page;
    const std::string view = page == PageReplace ? "ListView1_Icons " : "ListView1 ";
    EXPECT_TRUE(order.starts_with(
        "Txt_Address Option1_Files Combo_Filter PushButton_Filter Check_Thumbnails "
        "PushButton_ScanSub " +
        view +
        "PushButton_SelectAll PushButton_SelectNone "
        "PushButton_SelectInverse Text_StartCheck Text_Step qt_tabwidget_tabbar "))
        << order;
    EXPECT_NE(
        order.find(" Check_MoveEnable Option_Copy PushButton_Browse Txt_MoveTo PushButton_Preview "
                   "PushButton_Apply PushButton_Undo PushButton_Exit SystemButton "),
        std::string::npos)
        << order;
    Activate(window);
    EXPECT_EQ(Walk(Get("FolderTreeview1"), Qt::Key_Tab), order) << "pages made at once";
    Activate(shown);
  }
}

}  // namespace tallowbrook
