// The editor of a mask and the picker beside it, by keys, mouse and clipboard.
#include "desktop/mask_edit.h"

#include "desktop/contrast.h"
#include "desktop/look.h"
#include "desktop/theme.h"
#include "tests/desktop/window_fixture.h"

namespace tallowbrook {

class MaskEditTest : public WindowTest {
 protected:
  void SetUp() override {
    form.Load();
    form.settings.TabIndex.Select(PageTags);
    Activate(window);
    edit.setFocus();
  }
  // The text with what is blue as "#".
  std::string Shown(const MaskEdit& shown) {
    QString text = shown.Text();
    const QTextLayout& layout = *shown.document()->firstBlock().layout();
    for (const QTextLayout::FormatRange& range : layout.formats()) {
      EXPECT_EQ(range.format.foreground().color(),
                LegibleShade(keywordInk, {CurrentTheme().field}));
      text.replace(range.start, range.length, QString(range.length, QLatin1Char('#')));
    }
    return text.toStdString();
  }
  void Keys(std::initializer_list<Qt::Key> keys) {
    for (const Qt::Key key : keys) Press(key);
  }
  void Paste(const QString& text) {
    QApplication::clipboard()->setText(text);
    Press(Qt::Key_V, Qt::ControlModifier);
  }
  QDialog& Picker() { return Get<QDialog>("frmInsertKeyword"); }
  void OpenPicker(const char* button, const char* list) {
    Get<QAbstractButton>(button).click();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Picker()));
    keywords = &Child<QTableView>(Picker(), list);
    ASSERT_TRUE(QTest::qWaitFor([this] { return keywords->hasFocus(); }));
  }
  void DoubleClickRow(int row) {
    const QPoint place = keywords->visualRect(keywords->model()->index(row, 0)).center();
    QTest::mouseClick(keywords->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(keywords->viewport(), Qt::LeftButton, {}, place);
  }

  MaskEdit& edit{dynamic_cast<MaskEdit&>(Get("RTxt_ID3Name"))};
  MaskText& mask = form.settings.RTxt_ID3Name;
  QTableView* keywords = nullptr;
};

TEST_F(MaskEditTest, TypingColoursAndUndoesInTheStepsOfTheTyping) {
  Type("x <v1artist> <V1ARTIST>");
  EXPECT_EQ(Shown(edit), "x ########## <V1ARTIST>");
  Keys({Qt::Key_Backspace, Qt::Key_Home, Qt::Key_Delete});
  EXPECT_EQ(Shown(edit), " ########## <V1ARTIST");
  for (int i = 0; i < 3; ++i) Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(mask.Value(), "") << "one step a stretch of typing, none for colours";
  Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Shown(edit), "x ########## <V1ARTIST>");
  EXPECT_EQ(mask.Value(), "x <v1artist> <V1ARTIST>");
}

TEST_F(MaskEditTest, ASelectionReachesTheModelInCharactersAndStaysWhatItIs) {
  form.settings.RTxt_ID3Name.Set("\xF0\x9F\x98\x80\xFF<v1Year>");
  Keys({Qt::Key_Home, Qt::Key_Right});
  Press(Qt::Key_End, Qt::ShiftModifier);
  EXPECT_TRUE(mask.SelStart() == 1 && mask.SelLength() == 9);
  EXPECT_EQ(edit.textCursor().selectionStart(), 2);
  Type("b");
  EXPECT_EQ(mask.Value(), "\U0001F600b");
  EXPECT_EQ(mask.SelStart(), 2U);
  mask.Select(0, 1);
  EXPECT_EQ(edit.textCursor().selectionEnd(), 2) << "a pair of units is one character";
}

TEST_F(MaskEditTest, WhatIsPastedStaysOnOneLineAndPlainAndKeepsItsBlanks) {
  Paste(QStringLiteral("a\r\nb\nc\u2029d\u00A0e  <b>\t<v1Year>"));
  EXPECT_EQ(mask.Value(), "a b c d\u00A0e  <b>\t<v1Year>");
  QInputMethodEvent preedit(QStringLiteral("<v1"), {}), cancel, commit;
  commit.setCommitString(QStringLiteral("<v1Title>\n"));
  QCoreApplication::sendEvent(&edit, &preedit);
  QCoreApplication::sendEvent(&edit, &cancel);
  EXPECT_TRUE(Shown(edit).ends_with("\t########")) << "what is given up leaves nothing";
  QCoreApplication::sendEvent(&edit, &preedit);
  QCoreApplication::sendEvent(&edit, &commit);
  EXPECT_TRUE(mask.Value().ends_with("<v1Year><v1Title> "));
  EXPECT_TRUE(Shown(edit).ends_with("################# "));
  EXPECT_EQ(edit.document()->blockCount(), 1);
  mask.Set("a\xC2\xA0z");
  Keys({Qt::Key_Home});
  for (const Qt::Key key : {Qt::Key_A, Qt::Key_X, Qt::Key_V, Qt::Key_V})
    Press(key, Qt::ControlModifier);
  EXPECT_EQ(mask.Value(), "a\xC2\xA0za\xC2\xA0z");
  // A line break from a profile can't be shown, but isn't lost before somebody edits the mask.
  mask.Set("a\nb");
  Keys({Qt::Key_Home, Qt::Key_End});
  EXPECT_EQ(mask.Value(), "a\nb");
  Type("!");
  EXPECT_EQ(mask.Value(), "a b!");
}

TEST_F(MaskEditTest, EnterPreviewsAndTypesNothingAndTabGoesOn) {
  home.Write("a.mp3");
  form.scan.FilterList();
  std::string& newName = form.ListView1.Row(1).newName;
  newName = "old";
  Type("new");
  QTest::keyRelease(&edit, Qt::Key_Return);
  EXPECT_EQ(newName, "old") << "pressed elsewhere";
  Press(Qt::Key_Return);
  EXPECT_NE(newName, "old");
  EXPECT_EQ(mask.Value(), "new");
  // Fast hands press Enter before the last letter is let go.
  newName = "old";
  QTest::keyPress(&edit, Qt::Key_W);
  QTest::keyPress(&edit, Qt::Key_Return);
  QTest::keyRelease(&edit, Qt::Key_W);
  QTest::keyRelease(&edit, Qt::Key_Return);
  EXPECT_NE(newName, "old");
  Press(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("PushButton_InsertKeyword"));
}

TEST_F(MaskEditTest, ThePickerInsertsWhereTheUserIsAndStaysOpen) {
  Type("ab");
  Press(Qt::Key_Left);
  OpenPicker("PushButton_InsertKeyword", "List1");
  Press(Qt::Key_Return);
  EXPECT_EQ(mask.Value(), "ab") << "no row is selected";
  DoubleClickRow(1);
  EXPECT_EQ(Shown(edit), "a##########b");
  EXPECT_TRUE(Picker().isVisible());
  // The user goes back to the mask meanwhile, by the mouse.
  Activate(window);
  QTest::mouseClick(edit.viewport(), Qt::LeftButton, {}, QPoint(1, 8));
  EXPECT_EQ(mask.SelStart(), 0U);
  QTest::mouseClick(&Child(Picker(), "Cmd_Insert"), Qt::LeftButton);
  EXPECT_EQ(mask.Value(), "<v1Artist>a<v1Artist>b");
  QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(mask.Value(), "a<v1Artist>b");
}

TEST_F(MaskEditTest, ThePickerTurnsToTheOtherMaskGoesByKeysAndEndsWithTheWindow) {
  OpenPicker("PushButton_InsertKeyword", "List1");
  EXPECT_EQ(Picker().pos() - window.pos(), QPoint(67, 67));
  form.settings.TabIndex.Select(PageAdvanced);
  OpenPicker("PushButton_InsertKeyword1", "ListView1");
  EXPECT_FALSE(Child(Picker(), "List1").isVisible());
  EXPECT_EQ(keywords->model()->index(1, 1).data(), QStringLiteral("Today's day"));
  Keys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return, Qt::Key_Return});
  EXPECT_EQ(form.settings.RTxt_Unique_Other.Value(), "<d><d>");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Picker().isVisible());
  EXPECT_EQ(form.picker.KeywordTarget, 0);
  OpenPicker("PushButton_InsertKeyword1", "ListView1");
  EXPECT_TRUE(keywords->selectionModel()->selectedRows().empty());
  window.close();
  QTest::qWait(50);
  EXPECT_FALSE(Picker().isVisible());
}

}  // namespace tallowbrook
