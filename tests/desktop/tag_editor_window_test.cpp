// The tag editor's window over real files, driven by keys and clicks.
#include "desktop/tag_editor_window.h"

#include "tests/desktop/window_fixture.h"
#include "tests/support/mp3_bytes.h"

namespace tallowbrook {

using namespace std::string_literals;

class TagEditorWindowTest : public WindowTest {
 protected:
  // Opens the editor on a row by the button of the page; it is closed by Escape.
  void Edit(int row, const std::function<void(QWidget&)>& use) {
    form.Load();
    form.settings.TabIndex.Select(PageTags);
    Activate(window);
    Settle();
    table.selectRow(row);
    bool wasOpen = false;
    QTimer::singleShot(0, &window, [&] {
      QWidget* editor = QApplication::activeModalWidget();
      ASSERT_TRUE(wasOpen = editor != nullptr);
      ASSERT_TRUE(
          QTest::qWaitFor([&] { return editor->isAncestorOf(QApplication::focusWidget()); }));
      use(*editor);
      QTest::keyClick(editor, Qt::Key_Escape);
      EXPECT_FALSE(editor->isVisible());
    });
    Get<QAbstractButton>("PushButton_EditID3").click();
    ASSERT_TRUE(wasOpen);
  }
  std::string SavedLyrics(const char* name) {
    cMP3ID3v2 tag(files);
    tag.SetMP3File(home.Path(name));
    return tag.Lyrics();
  }
};

// Tags mix the ends of lines: only a text that was edited gets one kind. In a tag no-break spaces
// are bytes of their own.
TEST_F(TagEditorWindowTest, LyricsThatNobodyEditsAreSavedAsTheyWere) {
  const std::string frame = TextFrame("USLT", "<b>one\r\ntwo\rthree\nfour\xA0\xA0 ");
  for (const char* name : {"a.mp3", "b.mp3"}) {
    home.Write(name, Filled(TagBytes(3, 2000, frame), 2000, '\0') + "sound");
  }
  Edit(0, [this](QWidget& editor) {
    auto& lyrics = Child<QPlainTextEdit>(editor, "Txt_v2Lyrics");
    EXPECT_EQ(lyrics.document()->toRawText(),
              QStringLiteral("<b>one\u2029two\u2029three\u2029four\u00A0\u00A0 "));
    lyrics.setFocus();
    Press(Qt::Key_Down);
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(SavedLyrics("a.mp3"), "<b>one\r\ntwo\rthree\nfour\xC2\xA0\xC2\xA0 ");
    Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_TRUE(lyrics.hasFocus());
    Press(Qt::Key_End, Qt::ControlModifier);
    Type("x");
    Press(Qt::Key_Return);
    Type("y");
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(SavedLyrics("b.mp3"), "<b>one\r\ntwo\r\nthree\r\nfour\xC2\xA0\xC2\xA0 x\r\ny");
    Press(Qt::Key_Left, Qt::AltModifier);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(lyrics.blockCount(), 4) << "no way back to the text of another file";
  });
}

TEST_F(TagEditorWindowTest, KeysStepAndTheFieldKeepsTheFocusAndTheListFollows) {
  for (const char* name : {"a.mp3", "b\x01<i>\xFF.mp3", "c.mp3"}) home.Write(name, "sound");
  Edit(0, [this](QWidget& editor) {
    EXPECT_EQ(editor.pos() - window.pos(), QPoint(67, 67));
    auto& artist = Child<QLineEdit>(editor, "Txt_v1Artist");
    EXPECT_TRUE(artist.hasFocus());
    Type("unsaved");
    Press(Qt::Key_Return);
    EXPECT_EQ(artist.text(), QStringLiteral("unsaved")) << "Enter presses nothing";
    Child(editor, "Combo_v1Genre").setFocus();
    const auto& name = Child<QLineEdit>(editor, "Txt_FileName");
    // clang-format off
    const std::tuple<Qt::Key, Qt::KeyboardModifier, int> rows[] = {
        {Qt::Key_PageDown, Qt::ControlModifier, 1}, {Qt::Key_Right, Qt::AltModifier, 2},
        {Qt::Key_Right, Qt::AltModifier, 2}, {Qt::Key_PageUp, Qt::ControlModifier, 1},
        {Qt::Key_Left, Qt::AltModifier, 0}};
    // clang-format on
    for (const auto& [key, held, row] : rows) {
      Press(key, held);
      EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("Combo_v1Genre"));
      const QModelIndexList selected = table.selectionModel()->selectedRows();
      ASSERT_EQ(selected.size(), 1);
      EXPECT_TRUE(selected[0].row() == row && table.currentIndex().row() == row);
    }
    EXPECT_EQ(artist.text(), QString());
    Press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(name.text(), QStringLiteral("b\uFFFD<i>\uFFFD.mp3"));
    QTest::mouseClick(&Child<QPushButton>(editor, "Cmd_Next"), Qt::LeftButton);
    EXPECT_EQ(name.text(), QStringLiteral("c.mp3"));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("Combo_v1Genre"));
  });
}

TEST_F(TagEditorWindowTest, TheEditedRowIsFramedAndScrolledIntoSight) {
  for (int i = 100; i < 160; ++i) home.Write(std::to_string(i) + ".mp3", "sound");
  const auto isFramed = [this](int row) {
    const QRect cell = table.visualRect(table.model()->index(row, 1));
    return table.viewport()->grab().toImage().pixelColor(cell.center().x(), cell.top()) ==
           QApplication::palette().color(QPalette::Highlight);
  };
  Edit(0, [&](QWidget&) {
    for (int i = 0; i < 40; ++i) Press(Qt::Key_Right, Qt::AltModifier);
    Settle();
    EXPECT_TRUE(isFramed(40) && !isFramed(39));
  });
  Settle();
  EXPECT_FALSE(isFramed(40));
}

// Through the first tag, the second and the buttons; nothing is cut at the least size.
TEST_F(TagEditorWindowTest, TabGoesThroughTheTagsAndNothingIsCutOff) {
  home.Write("a.mp3", "sound");
  Edit(0, [](QWidget& editor) {
    editor.resize(editor.minimumSizeHint());
    Settle();
    std::string order;
    for (int i = 0; i < 26; ++i) {
      const QWidget& field = *QApplication::focusWidget();
      order += field.objectName().mid(4).toStdString() + " ";
      EXPECT_GE(field.width(), field.minimumSizeHint().width());
      Press(Qt::Key_Tab);
    }
    EXPECT_EQ(order,
              "v1Artist v1Title v1Album v1Track v1Year o_v1Genre v1Comments v2Artist v2Title "
              "v2Album v2Track v2Year o_v2Genre v2Comments v2OriginalArtist v2Copyright v2Composer "
              "v2EncodedBy v2LinkTo v2Lyrics CopyV1toV2 CopyV2toV1 Previous Next Save Close ");
  });
}

}  // namespace tallowbrook
