// The editor of a mask and the picker beside it, by keys, mouse and clipboard.
#include "desktop/mask_edit.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>

#include "desktop/events.h"
#include "desktop/look.h"
#include "desktop/main_window.h"
#include "tests/support/test_world.h"

namespace tallowbrook {

class MaskEditTest : public testing::Test, protected TestWorld {
 protected:
  void SetUp() override {
    form.Load();
    form.settings.TabIndex.Select(PageTags);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    edit.setFocus();
  }
  // The text with what is blue as "#".
  std::string Shown(const MaskEdit& shown) {
    QString text = shown.Text();
    const QTextLayout& layout = *shown.document()->firstBlock().layout();
    for (const QTextLayout::FormatRange& range : layout.formats()) {
      EXPECT_EQ(range.format.foreground().color(), QColor(0, 0, 255));
      text.replace(range.start, range.length, QString(range.length, QLatin1Char('#')));
    }
    return text.toStdString();
  }
  void Keys(QWidget& widget, std::initializer_list<Qt::Key> keys) {
    for (const Qt::Key key : keys) QTest::keyClick(&widget, key);
  }
  void Paste(const QString& text) {
    QApplication::clipboard()->setText(text);
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
  }
  QDialog& Picker() { return *window.findChild<QDialog*>(QStringLiteral("frmInsertKeyword")); }
  void OpenPicker(const char* button, const char* list) {
    window.findChild<QAbstractButton*>(QLatin1String(button))->click();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Picker()));
    table = Picker().findChild<QTableView*>(QLatin1String(list));
    ASSERT_TRUE(QTest::qWaitFor([this] { return table->hasFocus(); }));
  }
  void DoubleClickRow(int row) {
    const QPoint place = table->visualRect(table->model()->index(row, 0)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, place);
  }

  WindowEvents events;
  Form1 form{With(events)};
  MainWindow window{form, files, home.Path()};
  MaskEdit& edit{*dynamic_cast<MaskEdit*>(window.findChild<QWidget*>("RTxt_ID3Name"))};
  MaskText& mask = form.settings.RTxt_ID3Name;
  QTableView* table = nullptr;
};

TEST_F(MaskEditTest, TypingColoursAndUndoesInTheStepsOfTheTyping) {
  QTest::keyClicks(&edit, QStringLiteral("x <v1artist> <V1ARTIST>"));
  EXPECT_EQ(Shown(edit), "x ########## <V1ARTIST>");
  QTest::keyClick(&edit, Qt::Key_Backspace);
  QTest::keyClick(&edit, Qt::Key_Home);
  QTest::keyClick(&edit, Qt::Key_Delete);
  EXPECT_EQ(Shown(edit), " ########## <V1ARTIST");
  EXPECT_EQ(mask.SelStart(), 0U);
  for (int i = 0; i < 3; ++i) QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(mask.Value(), "") << "one step a stretch of typing, none for colours";
  QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Shown(edit), "x ########## <V1ARTIST>");
  EXPECT_EQ(mask.Value(), "x <v1artist> <V1ARTIST>");
}

TEST_F(MaskEditTest, ASelectionReachesTheModelInCharactersAndStaysWhatItIs) {
  form.settings.RTxt_ID3Name.Set("\xF0\x9F\x98\x80\xFF<v1Year>");
  EXPECT_EQ(edit.Text(),
            QString::fromUtf8("\xF0\x9F\x98\x80") + QChar(0xDCFF) + QStringLiteral("<v1Year>"));
  QTest::keyClick(&edit, Qt::Key_Home);
  QTest::keyClick(&edit, Qt::Key_Right);
  QTest::keyClick(&edit, Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(mask.SelStart(), 1U);
  EXPECT_EQ(mask.SelLength(), 9U);
  EXPECT_EQ(edit.textCursor().selectionStart(), 2);
  QTest::keyClicks(&edit, QStringLiteral("b"));
  EXPECT_EQ(mask.Value(),
            "\xF0\x9F\x98\x80"
            "b");
  EXPECT_EQ(mask.SelStart(), 2U);
  mask.Select(0, 1);
  EXPECT_EQ(edit.textCursor().selectionEnd(), 2) << "a pair of units is one character";
}

TEST_F(MaskEditTest, WhatIsPastedStaysOnOneLineAndPlainAndKeepsItsBlanks) {
  Paste(QStringLiteral("a\r\nb\nc\u2029d\u00A0e  <b>\t<v1Year>"));
  EXPECT_EQ(mask.Value(),
            "a b c d\xC2\xA0"
            "e  <b>\t<v1Year>");
  EXPECT_TRUE(Shown(edit).ends_with("\t########"));
  EXPECT_EQ(edit.document()->blockCount(), 1);
  QInputMethodEvent preedit(QStringLiteral("<v1"), {});
  QCoreApplication::sendEvent(&edit, &preedit);
  QInputMethodEvent cancel;
  QCoreApplication::sendEvent(&edit, &cancel);
  EXPECT_TRUE(Shown(edit).ends_with("\t########"))
      << "what is composed and given up leaves nothing";
  QCoreApplication::sendEvent(&edit, &preedit);
  QInputMethodEvent commit;
  commit.setCommitString(QStringLiteral("<v1Title>\n"));
  QCoreApplication::sendEvent(&edit, &commit);
  EXPECT_TRUE(mask.Value().ends_with("<v1Year><v1Title> "));
  EXPECT_TRUE(Shown(edit).ends_with("################# "));
  EXPECT_EQ(edit.document()->blockCount(), 1);
}

// A line break from a profile can't be shown, but isn't lost before somebody edits the mask.
TEST_F(MaskEditTest, AMaskThatIsOnlyLookedAtStaysAsItIs) {
  mask.Set("a\nb");
  Keys(edit, {Qt::Key_Home, Qt::Key_End});
  EXPECT_EQ(mask.Value(), "a\nb");
  QTest::keyClicks(&edit, QStringLiteral("!"));
  EXPECT_EQ(mask.Value(), "a b!");
}

TEST_F(MaskEditTest, EnterPreviewsAndTypesNothingAndTabGoesOn) {
  home.Write("a.mp3");
  form.scan.FilterList();
  std::string& newName = form.ListView1.Row(1).newName;
  newName = "old";
  QTest::keyClicks(&edit, QStringLiteral("new"));
  QTest::keyRelease(&edit, Qt::Key_Return);
  EXPECT_EQ(newName, "old") << "pressed elsewhere";
  QTest::keyClick(&edit, Qt::Key_Return);
  EXPECT_NE(newName, "old");
  EXPECT_EQ(mask.Value(), "new");
  QTest::keyClick(&edit, Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("PushButton_InsertKeyword"));
}

TEST_F(MaskEditTest, ALongMaskFollowsTheCaretInAFieldAsHighAsTheOthers) {
  EXPECT_EQ(edit.height(), QLineEdit().sizeHint().height());
  Paste(QString(300, QLatin1Char('w')) + QString::fromUtf8("\xF0\x9F\x98\x80"));
  EXPECT_TRUE(edit.viewport()->rect().contains(edit.cursorRect().center()));
  EXPECT_EQ(edit.verticalScrollBar()->maximum(), 0);
  QTest::keyClick(&edit, Qt::Key_Home);
  EXPECT_TRUE(edit.viewport()->rect().contains(edit.cursorRect().center()));
}

TEST_F(MaskEditTest, KeywordsAreLegibleOnAnyGround) {
  const auto luminance = [](const QColor& c) {
    const auto part = [](double v) {
      return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(c.redF()) + 0.7152 * part(c.greenF()) + 0.0722 * part(c.blueF());
  };
  EXPECT_EQ(KeywordColour(Qt::white), QColor(0, 0, 255));
  for (int grey = 0; grey < 256; ++grey) {
    const QColor ground(grey, grey, grey);
    const auto [dark, light] = std::minmax({luminance(ground), luminance(KeywordColour(ground))});
    EXPECT_GE((light + 0.05) / (dark + 0.05), 4.5) << grey;
  }
}

TEST_F(MaskEditTest, ThePickerInsertsWhereTheUserIsAndStaysOpen) {
  QTest::keyClicks(&edit, QStringLiteral("ab"));
  QTest::keyClick(&edit, Qt::Key_Left);
  OpenPicker("PushButton_InsertKeyword", "List1");
  QTest::keyClick(table, Qt::Key_Return);
  EXPECT_EQ(mask.Value(), "ab") << "no row is selected";
  DoubleClickRow(1);
  EXPECT_EQ(Shown(edit), "a##########b");
  EXPECT_TRUE(Picker().isVisible());
  // The user goes back to the mask meanwhile, by the mouse.
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::mouseClick(edit.viewport(), Qt::LeftButton, {}, QPoint(1, 8));
  EXPECT_EQ(mask.SelStart(), 0U);
  QTest::mouseClick(Picker().findChild<QWidget*>("Cmd_Insert"), Qt::LeftButton);
  EXPECT_EQ(mask.Value(), "<v1Artist>a<v1Artist>b");
  QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(mask.Value(), "a<v1Artist>b");
}

TEST_F(MaskEditTest, ThePickerTurnsToTheOtherMaskGoesByKeysAndEndsWithTheWindow) {
  OpenPicker("PushButton_InsertKeyword", "List1");
  EXPECT_EQ(Picker().pos() - window.pos(), QPoint(67, 67));
  form.settings.TabIndex.Select(PageAdvanced);
  OpenPicker("PushButton_InsertKeyword1", "ListView1");
  EXPECT_FALSE(Picker().findChild<QWidget*>("List1")->isVisible());
  EXPECT_FALSE(Picker().findChild<QWidget*>("Label1")->isVisible());
  EXPECT_EQ(table->model()->index(1, 1).data(), QStringLiteral("Today's day"));
  Keys(*table, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return, Qt::Key_Return});
  EXPECT_EQ(form.settings.RTxt_Unique_Other.Value(), "<d><d>");
  QTest::keyClick(table, Qt::Key_Escape);
  EXPECT_FALSE(Picker().isVisible());
  EXPECT_EQ(form.picker.KeywordTarget, 0);
  OpenPicker("PushButton_InsertKeyword1", "ListView1");
  EXPECT_TRUE(table->selectionModel()->selectedRows().empty());
  window.close();
  QTest::qWait(50);
  EXPECT_FALSE(Picker().isVisible());
}

}  // namespace tallowbrook
