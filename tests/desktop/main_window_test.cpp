// The whole window over real files, driven by keys and clicks.
#include "desktop/main_window.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDropEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <set>

#include "desktop/dialogs.h"
#include "desktop/events.h"
#include "desktop/file_table.h"
#include "desktop/folder_tree.h"
#include "shell/commands.h"
#include "tests/support/fakes.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {

class MainWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    home.Write("b.txt", "two");
    home.Write("a\xFF.txt", "one");
    home.MakeFolder("sub");
    home.Write("sub/inner.txt");
    form.Load();
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Settle();
  }
  template <typename Widget>
  Widget& Get(const char* name) {
    auto* widget = window.findChild<Widget*>(QLatin1String(name));
    if (!widget) throw std::runtime_error(name);
    return *widget;
  }
  void Settle() { QTest::qWait(80); }
  std::vector<std::string> NewNames() {
    std::vector<std::string> names;
    for (std::size_t row = 1; row <= form.ListView1.Count(); ++row) {
      names.push_back(form.ListView1.Row(row).newName);
    }
    return names;
  }

  TemporaryFolder home;
  TemporaryFolder data;
  SystemFiles files;
  FakeClock clock;
  FakeRandom random;
  FakeDialogs dialogs;
  WindowEvents events;
  Form1 form{{files,
              clock,
              random,
              dialogs,
              events,
              EnglishDateNames(),
              {data.Path(), data.Path()},
              home.Path()}};
  MainWindow window{form, files, home.Path()};
};

TEST_F(MainWindowTest, OpensOnTheHomeFolderAndPreviewsIt) {
  EXPECT_EQ(Get<FileTable>("ListView1").model()->rowCount(), 2);
  auto& count = Get<QLabel>("StatusPane1");
  EXPECT_EQ(count.text(), QStringLiteral("Files in list: 2"));
  EXPECT_FALSE(count.visibleRegion().isEmpty());
  EXPECT_EQ(Get<FolderTree>("FolderTreeview1").currentIndex().data(), QStringLiteral("Home"));
  EXPECT_FALSE(Get<QWidget>("Frame_Progress").isVisible());
  Get<QAbstractButton>("PushButton_Preview").click();
  EXPECT_EQ(NewNames(), (std::vector<std::string>{"a\xFF-0001.txt", "b-0002.txt"}));
  Settle();
  EXPECT_EQ(Get<FileTable>("ListView1").model()->index(1, SectionOf(Column::NewFileName)).data(),
            QStringLiteral("b-0002.txt"));
}

TEST_F(MainWindowTest, RenamesOnTheDiskAndLogsIt) {
  Get<QAbstractButton>("PushButton_Apply").click();
  EXPECT_EQ(home.Names(), (std::vector<std::string>{"a\xFF-0001.txt", "b-0002.txt", "sub"}));
  EXPECT_TRUE(data.Exists("Logfile.txt"));
}

TEST_F(MainWindowTest, KeysReachTheProgramFromAnyControl) {
  Get<QWidget>("Text_Prefix").setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(form.scan.AbortRequested);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_D, Qt::AltModifier);
  auto& address = Get<QLineEdit>("Txt_Address");
  EXPECT_TRUE(address.hasFocus());
  EXPECT_EQ(address.cursorPosition(), address.text().size());
  EXPECT_FALSE(address.hasSelectedText());
}

TEST_F(MainWindowTest, EnterInTheAddressGoesThere) {
  auto& address = Get<QLineEdit>("Txt_Address");
  address.setFocus();
  address.setText(QString::fromStdString(home.Path("sub")));
  QTest::keyClick(&address, Qt::Key_Return);
  EXPECT_EQ(form.ListView1.Count(), 1U);
  EXPECT_EQ(address.text().toStdString(), home.Path("sub/"));
  EXPECT_EQ(Get<FolderTree>("FolderTreeview1").currentIndex().data(), QStringLiteral("sub"));
}

TEST_F(MainWindowTest, EnterInTheFilterFilters) {
  auto& filter = Get<QComboBox>("Combo_Filter");
  filter.setFocus();
  filter.lineEdit()->setText(QStringLiteral("b*"));
  QTest::keyClick(filter.lineEdit(), Qt::Key_Return);
  EXPECT_EQ(form.ListView1.Count(), 1U);
}

TEST_F(MainWindowTest, F2RenamesTheHighlightedRowAndKeepsItsOddBytes) {
  auto& table = Get<FileTable>("ListView1");
  table.setFocus();
  table.selectRow(0);
  QTimer::singleShot(0, [&] {
    QWidget* dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("Txt_NewFileName"));
    name->setCursorPosition(0);
    QTest::keyClicks(name, QStringLiteral("new "));
    QTest::keyClick(name, Qt::Key_Return);
  });
  QTest::keyClick(&table, Qt::Key_F2);
  EXPECT_TRUE(home.Exists("new a\xFF.txt"));
}

TEST_F(MainWindowTest, EscapeInTheRenameDialogClosesItAlone) {
  auto& table = Get<FileTable>("ListView1");
  table.selectRow(0);
  QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
  QTest::keyClick(&table, Qt::Key_F2);
  EXPECT_FALSE(form.scan.AbortRequested);
  EXPECT_TRUE(home.Exists("a\xFF.txt"));
}

TEST_F(MainWindowTest, EachPageShowsItsFieldsAndTheProgramFollows) {
  const char* fields[] = {"Text_Prefix", "Combo_RemoveChars", "Combo_Find", "RTxt_Unique_Other",
                          "RTxt_ID3Name"};
  for (int page = 4; page >= 0; --page) {
    QTest::keyClick(&window, static_cast<Qt::Key>(Qt::Key_1 + page), Qt::AltModifier);
    EXPECT_EQ(form.settings.TabIndex.Index(), page);
    for (int other = 0; other < 5; ++other) {
      EXPECT_EQ(Get<QWidget>(fields[other]).isVisible(), other == page) << fields[other];
    }
  }
  form.settings.TabIndex.Select(PageReplace);
  EXPECT_TRUE(Get<QComboBox>("Combo_Find").isVisible());
}

// At its first size, and as small as it goes, no field is narrower than it needs.
TEST_F(MainWindowTest, NothingIsCutOff) {
  for (const QSize size : {window.size(), window.minimumSizeHint()}) {
    window.resize(size);
    EXPECT_LE(window.width(), 1280);
    EXPECT_LE(window.height(), 800);
    for (int page = 0; page < 5; ++page) {
      form.settings.TabIndex.Select(page);
      Settle();
      for (QWidget* field : window.findChildren<QWidget*>()) {
        const bool isField = qobject_cast<QAbstractButton*>(field) ||
                             qobject_cast<QComboBox*>(field) || qobject_cast<QLineEdit*>(field);
        if (!isField || !field->isVisible() ||
            field->objectName().startsWith(QLatin1String("qt_"))) {
          continue;
        }
        EXPECT_GE(field->width(), field->minimumSizeHint().width())
            << field->objectName().toStdString();
        EXPECT_EQ(field->visibleRegion().boundingRect(), field->rect())
            << field->objectName().toStdString() << " on page " << page;
      }
    }
  }
}

TEST_F(MainWindowTest, PanelsStandInTheOrderOfTheName) {
  const auto left = [&](const char* field) {
    return Get<QWidget>(field).mapTo(&window, QPoint()).x();
  };
  EXPECT_LT(left("Combo_Original"), left("Text_Seperator"));
  EXPECT_LT(left("Text_Seperator"), left("Combo_Unique"));
  Get<QAbstractButton>("Check_UniqueFirst").click();
  Settle();
  EXPECT_LT(left("Combo_Unique"), left("Text_Seperator"));
  EXPECT_LT(left("Text_Seperator"), left("Combo_Original"));
}

// Of what shows at one time, no two things answer to one key.
TEST_F(MainWindowTest, AccessKeysDontCollide) {
  for (int page = 0; page < 5; ++page) {
    form.settings.TabIndex.Select(page);
    for (Option* type :
         {&form.settings.Option_ChangeFileName, &form.settings.Option_ChangeFileDate}) {
      type->Choose();
      std::multiset<std::string> keys{"Alt+D"};
      const auto add = [&](const QWidget* widget, const QString& text) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (widget->isVisible() && !key.isEmpty() && key != QKeySequence(Qt::ALT | Qt::Key_D)) {
          keys.insert(key.toString().toStdString());
        }
      };
      for (auto* button : window.findChildren<QAbstractButton*>()) add(button, button->text());
      for (auto* box : window.findChildren<QGroupBox*>()) add(box, box->title());
      for (auto* label : window.findChildren<QLabel*>()) {
        if (label->buddy()) add(label, label->text());
      }
      EXPECT_GT(keys.size(), 12U);
      for (const std::string& key : keys) EXPECT_EQ(keys.count(key), 1U) << key << page;
    }
  }
}

TEST_F(MainWindowTest, TextDroppedOnTheFilenameClearsItsHistory) {
  form.settings.Combo_OriginalName.SetItems({"a", "b"});
  QMimeData text;
  text.setText(QStringLiteral("x"));
  QDragEnterEvent enter({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&Get<QWidget>("Frame_Filename"), &enter);
  QDropEvent drop({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&Get<QWidget>("Frame_Filename"), &drop);
  EXPECT_TRUE(form.settings.Combo_OriginalName.Items().empty());
}

TEST_F(MainWindowTest, CommandsRunByTheirNumbers) {
  form.settings.Text_UniqueMask.Set("00");
  Get<QAbstractButton>(("Command" + std::to_string(commandReset)).c_str()).click();
  EXPECT_EQ(Get<QLineEdit>("Text_UniqueMask").text(), QStringLiteral("0000"));
}

TEST_F(MainWindowTest, ClosingEndsTheProgramFirst) {
  window.close();
  EXPECT_TRUE(form.ExitDone);
  Settle();
  EXPECT_FALSE(window.isVisible());
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

TEST_F(MainWindowTest, BoxesShowPlainText) {
  WindowDialogs boxes;
  boxes.SetParent(&window);
  QString text;
  Qt::TextFormat format = Qt::RichText;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    text = box->text();
    format = box->textFormat();
    QTest::keyClick(box, Qt::Key_Escape);
  });
  EXPECT_EQ(boxes.Ask({"Title", "<b>a</b>\r\nb\x06", Buttons::YesNo}), Answer::No);
  EXPECT_EQ(text, QStringLiteral("<b>a</b>\nb\uFFFD"));
  EXPECT_EQ(format, Qt::PlainText);
}

}  // namespace tallowbrook
