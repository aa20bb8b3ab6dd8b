// The list as pictures: what the view of icons does in its own way, and the way in and out of it.
#include "desktop/file_icons.h"

#include <QAbstractItemModelTester>

#include "desktop/contrast.h"
#include "desktop/look.h"
#include "desktop/packed_picture.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "shell/commands.h"
#include "tests/desktop/window_fixture.h"
#include "tests/support/engine_fixture.h"

namespace tallowbrook {

class FileIconsTest : public EngineTest {
 protected:
  void SetUp() override {
    list.SetIconView(true);
    QImage red(96, 48, QImage::Format_RGB32);
    red.fill(Qt::red);
    for (const char* name : {"a", "b.jpg", "c", "d", "e"}) {
      FileEntry entry;
      entry.name = entry.rowText = name;
      entry.folder = list.Folders().Intern("/d/");
      entry.image = list.AddImage(*Pack(red));
      list.Add(std::move(entry));
    }
    rows.model.Sync();
    icons.resize(460, 300);  // three pictures a row
    icons.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&icons));
  }
  QRect Cell(int row) { return icons.visualRect(rows.model.index(row, 0)); }
  QPoint Box(int row) { return Cell(row).topLeft() + QPoint(10, 14); }
  void Click(QPoint point, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers held = {}) {
    QTest::mouseClick(icons.viewport(), button, held, point);
  }
  // Of a part of a cell: is any pixel nearly that?
  bool Shows(int row, const QRect& part, QColor colour) {
    const QImage image = icons.viewport()->grab(part.translated(Cell(row).topLeft())).toImage();
    for (int i = 0; i < image.width() * image.height(); ++i) {
      const QColor c = image.pixelColor(i % image.width(), i / image.width());
      if (std::abs(c.red() - colour.red()) + std::abs(c.green() - colour.green()) +
              std::abs(c.blue() - colour.blue()) <
          40) {
        return true;
      }
    }
    return false;
  }
  QVariant Data(int row, int role) { return rows.model.index(row, 0).data(role); }

  FileRows rows{list, operations};
  FileIcons icons{rows, nullptr};
  QAbstractItemModelTester tester{&rows.model,
                                  QAbstractItemModelTester::FailureReportingMode::Fatal};
};

// What both views have in common is tested on the table.
TEST_F(FileIconsTest, ClicksAndKeysFindTheirPlaces) {
  EXPECT_EQ(Cell(0).top(), Cell(2).top());
  EXPECT_GT(Cell(3).top(), Cell(2).bottom() - 1);
  Click(Cell(1).center());
  Click(Box(3));
  EXPECT_EQ(Marks() + " " + Highlights(), "...x. .....") << "the box, and off the row chosen last";
  Click(Cell(1).center());
  QTest::keyClick(&icons, Qt::Key_Right, Qt::ShiftModifier);
  QTest::keyClick(&icons, Qt::Key_Space);
  EXPECT_EQ(Marks() + " " + Highlights(), ".xxx. .xx..");
  QTest::keyClick(&icons, Qt::Key_Left);
  QTest::keyClick(&icons, Qt::Key_Down);
  EXPECT_EQ(Highlights(), "....x") << "the row below";
  Click(Cell(1).center());
  for (const QPoint place : {Cell(1).center(), Box(1)}) {
    QTest::mouseDClick(icons.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(desktop.opened, Lines{"/d/b.jpg"});
  }
  QTest::keyClick(&icons, Qt::Key_F10, Qt::ShiftModifier);
  auto* menu = QApplication::activePopupWidget();
  ASSERT_TRUE(menu);
  menu->close();
  for (int i = 0; i < 100; ++i) list.Add(list.Row(1));
  rows.model.Sync();
  list.EnsureVisible(100);
  QTest::qWait(60);
  EXPECT_TRUE(icons.viewport()->rect().contains(Cell(99)));
}

TEST_F(FileIconsTest, TakesDroppedFiles) {
  QMimeData mime;
  mime.setData(QStringLiteral("text/uri-list"), "file:///a\r\n");
  QDragEnterEvent enter(Cell(1).center(), Qt::CopyAction, &mime, Qt::LeftButton, {});
  QDragMoveEvent move(Cell(1).center(), Qt::CopyAction, &mime, Qt::LeftButton, {});
  for (QDropEvent* event : std::initializer_list<QDropEvent*>{&enter, &move}) {
    QCoreApplication::sendEvent(icons.viewport(), event);
    EXPECT_TRUE(event->isAccepted());
  }
}

TEST_F(FileIconsTest, PaintsThePictureAndTheTextInTheColourOfItsOutcome) {
  const QRect picture(25, 10, 90, 90);
  const QRect text(4, 104, 132, 34);
  EXPECT_TRUE(Shows(0, picture, Qt::red));
  list.Row(2).colour = RowColour::Done;
  list.Row(3).colour = RowColour::Failed;
  list.Row(3).rowText = "(could not rename)";
  list.Row(4).colour = RowColour::Skipped;
  list.TellRows(1, 5);
  rows.model.Sync();
  for (const StyleChoice& style : Styles()) {
    const Theme theme = LoadTheme(disk, std::string(style.file));
    ApplyTheme(theme);
    EXPECT_TRUE(Shows(0, text, theme.text)) << style.file;
    EXPECT_TRUE(Shows(1, text, LegibleShade(successInk, {theme.field}))) << style.file;
    EXPECT_TRUE(Shows(2, text, LegibleShade(errorInk, {theme.field}))) << style.file;
    EXPECT_TRUE(Shows(3, text, theme.badge) && Shows(3, text, theme.badgeText)) << style.file;
  }
  ApplyTheme({});
  // The tip tells what the space doesn't, as it stands.
  EXPECT_EQ(Data(1, Qt::ToolTipRole), PlainToolTip(QStringLiteral("b.jpg")));
  EXPECT_EQ(Data(2, Qt::ToolTipRole), PlainToolTip(QStringLiteral("c\n(could not rename)")));
  // A row from before, without a text or a picture; and one whose picture is broken.
  list.Row(1).rowText.clear();
  list.Row(1).image = 0;
  list.Row(2).image = list.AddImage({96, 96, "broken"});
  EXPECT_FALSE(Shows(0, picture, Qt::red) || Shows(1, picture, Qt::red));
  EXPECT_EQ(Data(0, Qt::DisplayRole), QStringLiteral("a"));
}

class ThumbnailWindowTest : public WindowTest {
 protected:
  void SetUp() override {
    for (const char* name : {"a.txt", "photo 1.jpg", "photo 2.jpg"}) home.Write(name);
    form.Load();
    Activate(window);
    Settle();
  }
  // Leaves the keyboard where it is, unlike the mouse.
  void ClickBox() {
    Get<QCheckBox>("Check_Thumbnails").click();
    Settle();
  }
  QListView& Icons() { return Get<QListView>("ListView1_Icons"); }
};

TEST_F(ThumbnailWindowTest, TheBoxTurnsTheTableToPicturesAndBack) {
  table.setFocus();
  dialogs.answers = {Answer::Ok};
  ClickBox();
  EXPECT_EQ(dialogs.asked.size(), 1U);
  EXPECT_TRUE(Icons().isVisible() && Icons().hasFocus());
  EXPECT_FALSE(table.isVisible());
  EXPECT_EQ(Icons().model()->rowCount(), 2);
  EXPECT_EQ(Get<QLabel>("StatusPane0").text(),
            QStringLiteral("Scan Complete, 3 file(s) found of which 2 contained a thumbnail."));
  Get<QAbstractButton>("PushButton_Preview").click();
  EXPECT_EQ(Icons().model()->index(1, 0).data(), QStringLiteral("photo 2-0002.jpg"));
  home.Write("photo 2-0002.jpg");
  Get<QAbstractButton>("PushButton_Apply").click();
  EXPECT_EQ(Icons().model()->index(0, 0).data(), QStringLiteral("photo 1-0001.jpg (success)"));
  EXPECT_EQ(Icons().model()->index(1, 0).data(), QStringLiteral("(could not rename)"));
  remove(home.Path("photo 2-0002.jpg").c_str());
  ClickBox();
  EXPECT_TRUE(table.isVisible() && table.hasFocus());
  EXPECT_EQ(table.model()->rowCount(), 3);
  EXPECT_EQ(table.model()->index(1, 0).data(), QString());
  // Folders have none.
  ClickBox();
  Get<QAbstractButton>("Option1_Folders").click();
  Settle();
  dialogs.answers = {Answer::Ok};
  ClickBox();
  EXPECT_EQ(dialogs.asked.size(), 2U);
  EXPECT_TRUE(table.isVisible() && !Get<QCheckBox>("Check_Thumbnails").isChecked());
}

}  // namespace tallowbrook
