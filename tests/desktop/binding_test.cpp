// Each kind of control with a real widget: what the user does reaches the control once, what code
// sets shows and isn't handed back.
#include "desktop/binding.h"

#include "desktop/binder.h"
#include "desktop/spin_arrows.h"
#include "desktop/text.h"
#include "tests/desktop/window_fixture.h"

namespace tallowbrook {

class BindingTest : public testing::Test {
 protected:
  // Counts how often the rule of a control runs.
  void Count(Control& control) {
    control.rule = [this] { ++rules; };
  }

  Screen screen;
  QWidget window;
  Binder binder{screen};
  int rules = 0;
};

// Both kinds of field that are typed into, as a user would.
class TypedFieldTest : public BindingTest {
 protected:
  TypedFieldTest() {
    binder.AddCaption(text, binder.Add(text, &window));
    binder.Add(list, &window);
    list.SetItems({"item"});
    Activate(window);
  }
  Text text{screen, {.name = "Text"}, "abc"};
  FreeList list{screen, {.name = "List"}, "abc"};
  Text* const fields[2] = {&text, &list};
};

TEST_F(BindingTest, TicksOptionsDatesAndButtonsFollowBothWays) {
  Tick tick(screen, {.name = "Check", .caption = "In&clude", .tip = "<b>"}, 0);
  QCheckBox* box = binder.Add(tick, &window, 'i');
  EXPECT_EQ(box->text(), QStringLiteral("&In&&clude"));
  EXPECT_EQ(box->toolTip(), PlainToolTip(QStringLiteral("<b>")));
  Button button(screen, {.name = "Push", .caption = "Scan"});
  QPushButton* push = binder.Add(button, &window, 's');
  Option files(screen, {.name = "Files"}, "View", true),
      folders(screen, {.name = "Folders"}, "View");
  Option other(screen, {.name = "Other"}, "Else", true);
  QRadioButton* buttons[] = {binder.Add(files, &window), binder.Add(folders, &window),
                             binder.Add(other, &window)};
  const auto chosen = [&] {
    std::string marks;
    for (const QRadioButton* shown : buttons) marks += shown->isChecked() ? 'x' : '.';
    return marks;
  };
  for (Control* control : std::initializer_list<Control*>{&tick, &button, &folders})
    Count(*control);
  box->click();
  EXPECT_EQ(tick.Value(), 1);
  tick.Set(0);
  EXPECT_FALSE(box->isChecked());
  buttons[1]->click();
  EXPECT_TRUE(folders.On());
  EXPECT_EQ(chosen(), ".xx");
  files.Choose();
  EXPECT_EQ(chosen(), "x.x");
  push->click();
  button.SetCaption("Stop Scan");
  EXPECT_EQ(push->text(), QStringLiteral("&Stop Scan"));
  button.SetEnabled(false);
  push->click();
  EXPECT_EQ(rules, 4);
  DateField date(screen, {.name = "Date"}, *MakeDate({2005, 9, 11, 7, 1, 2}));
  QDateEdit* edit = binder.Add(date, &window);
  edit->setDate(QDate(2024, 2, 29));
  EXPECT_EQ(date.Value(), *MakeDate({2024, 2, 29, 7, 1, 2})) << "the time of day stays";
  date.Set(*MakeDate({1601, 1, 1, 0, 0, 0}));
  EXPECT_EQ(edit->date(), QDate(1601, 1, 1));
}

TEST_F(BindingTest, ATextKeepsItsBytesAndItsCaretAndObeysItsRule) {
  Text text(screen, {.name = "Text"}, "x\xFFy");
  Count(text);
  QLineEdit* edit = binder.Add(text, &window);
  edit->setCursorPosition(1);
  QTest::keyClicks(edit, QStringLiteral("z"));
  EXPECT_EQ(text.Value(), "xz\xFFy");
  text.Set("axyz");
  EXPECT_EQ(edit->text(), QStringLiteral("axyz"));
  EXPECT_EQ(edit->cursorPosition(), 2);
  EXPECT_EQ(rules, 2);
  text.rule = [&] {
    if (text.Value().empty()) text.Set("0");
  };
  edit->clear();
  EXPECT_EQ(edit->text(), QStringLiteral("0")) << "a rule that corrects what is typed";
  delete edit;
  text.Set("x");
  EXPECT_EQ(text.Value(), "x") << "a change behind the widget's end";
}

TEST_F(BindingTest, LinesKeepTheirEndsAndTheirZeroBytesUntilTheyAreEdited) {
  const std::string mixed("a\0\r\nb\rc\nd\xFF\xC2\xA0", 12);
  TextLines text(screen, {.name = "Lines"}, mixed);
  QPlainTextEdit* edit = binder.Add(text, &window);
  edit->moveCursor(QTextCursor::End);
  EXPECT_EQ(text.Value(), mixed);
  QTest::keyClicks(edit, QStringLiteral("x"));
  EXPECT_EQ(text.Value(), std::string("a\0\r\nb\r\nc\r\nd\xFF\xC2\xA0x", 15));
}

TEST_F(BindingTest, AListShowsItemsAndSelectionAsTheyCome) {
  List list(screen, {.name = "List"});
  QComboBox* box = binder.Add(list, &window);
  list.SetItems({"one", "two", "three"});
  EXPECT_EQ(box->currentIndex(), -1);
  list.Select(1);
  EXPECT_EQ(box->currentText(), QStringLiteral("two"));
  QTest::keyClick(box, Qt::Key_Down);
  EXPECT_EQ(list.Index(), 2);
  list.rule = [&] { list.Select(0); };
  QTest::keyClick(box, Qt::Key_Up);
  EXPECT_EQ(box->currentIndex(), 0) << "a rule that takes the choice back";
}

TEST_F(BindingTest, AHistoryIsTypedIntoAndPickedFromUnlessItIsReadOnly) {
  History history(screen, {.name = "History"}, "first");
  std::string picked;
  history.picked = [&] { picked += history.Value(); };
  QComboBox* box = binder.Add(history, &window);
  QTest::keyClicks(box->lineEdit(), QStringLiteral("!"));
  EXPECT_EQ(history.Value(), "first!");
  history.SetItems({"newer", "new", "old"});
  EXPECT_EQ(box->currentText(), QStringLiteral("first!")) << "items leave the text alone";
  history.Set("new");
  QTest::keyClick(box, Qt::Key_Down);
  history.SetReadOnly(true);
  QTest::keyClicks(box->lineEdit(), QStringLiteral("x"));
  QTest::keyClick(box, Qt::Key_Up);
  box->showPopup();
  EXPECT_EQ(history.Value() + " " + picked, "old old");
  EXPECT_FALSE(box->view()->isVisible());
  // The proposals may change with every key.
  FreeList field(screen, {.name = "Combo"});
  field.rule = [&] { field.SetItems({field.Value() + "1", field.Value() + "2"}); };
  box = binder.Add(field, &window);
  QTest::keyClicks(box->lineEdit(), QStringLiteral("abc"));
  EXPECT_EQ(box->currentText() + box->itemText(1), QStringLiteral("abcabc2"));
}

// The caret comes in behind the text, with nothing selected.
TEST_F(TypedFieldTest, TypingIsRefusedByTheModelAndPastingIsNot) {
  for (Text* field : fields) {
    field->takesKey = [](std::string_view key) { return key == "1" || key == "\xF0\x9F\x98\x80"; };
    screen.RequestFocus(*field);
    Type("a1 b1,1");
    EXPECT_EQ(field->Value(), "abc111");
    Press(Qt::Key_Home, Qt::ShiftModifier);
    Press(Qt::Key_Delete);
    QApplication::clipboard()->setText(QStringLiteral("x1"));
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field->Value(), "x1");
    QInputMethodEvent input;
    input.setCommitString(QString::fromUtf8("b1\xF0\x9F\x98\x80\xC3\xA9"));
    QCoreApplication::sendEvent(QApplication::focusWidget(), &input);
    EXPECT_EQ(field->Value(), "x11\xF0\x9F\x98\x80");
    field->takesKey = nullptr;
    Type("a");
    EXPECT_EQ(field->Value(),
              "x11\xF0\x9F\x98\x80"
              "a");
  }
}

TEST_F(TypedFieldTest, TheModelIsToldWhenTheKeyboardLeavesButNotWhenAMenuBorrowsIt) {
  QWidget other;
  QMenu menu;
  menu.addAction(QStringLiteral("item"));
  for (Text* field : fields) {
    int left = 0;
    field->focusLost = [&] { ++left; };
    screen.RequestFocus(*field);
    menu.popup({});
    menu.close();
    EXPECT_EQ(left, 0);
    Press(Qt::Key_Tab);
    EXPECT_EQ(left, 1);
    screen.RequestFocus(*field);
    Activate(other);
    EXPECT_EQ(left, 2);
    other.hide();
    Activate(window);
    field->focusLost = nullptr;
  }
}

TEST_F(BindingTest, LookFollowsAndHiddenPlacesComeBackAndLabelsArePlain) {
  Text text(screen, {.name = "Text", .caption = "Mask"});
  Frame frame(screen, {.name = "Frame"}, false);
  Label label(screen, {.name = "Label"});
  auto* panel = new QGroupBox(&window);
  binder.BindPanel(frame, panel);
  QLineEdit* edit = binder.Add(text, panel);
  QLabel* caption = binder.AddCaption(text, edit, 'm');
  QLabel* shown = binder.Add(label, panel);
  Activate(window);
  EXPECT_FALSE(panel->isVisible() || edit->isWindow());
  frame.SetVisible(true);
  for (const bool visible : {true, false, true}) {
    text.SetVisible(visible);
    EXPECT_TRUE(edit->isVisible() == visible && caption->isVisible() == visible);
  }
  text.SetEnabled(false);
  text.SetReadOnly(true);
  EXPECT_TRUE(!edit->isEnabled() && !caption->isEnabled() && edit->isReadOnly());
  label.SetCaption("<img src=x> & \n");
  EXPECT_EQ(shown->textFormat(), Qt::PlainText);
  EXPECT_EQ(shown->text(), QStringLiteral("<img src=x> & \u21B5"));
}

// A line with its arrows: every way to step it, and what keeps it from stepping.
class SpinArrowsTest : public BindingTest {
 protected:
  SpinArrowsTest() {
    spin.rule = [this] { text.Set(std::to_string(spin.Value())); };
    auto* row = new QHBoxLayout(&window);
    row->addWidget(&line);
    row->addWidget(&other);
    Activate(window);
    other.setFocus();
  }
  QAbstractButton& Arrow(const char* name) {
    auto* arrows = line.findChild<QWidget*>(QStringLiteral("Spin"));
    return *arrows->findChild<QAbstractButton*>(QLatin1String(name));
  }
  void Turn(int eighths) {
    QWheelEvent wheel({3, 3}, line.mapToGlobal(QPointF(3, 3)), {}, {0, eighths}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&line, &wheel);
  }

  Text text{screen, {.name = "Text"}, "50"};
  Spin spin{screen, {.name = "Spin"}, 1, 100, 50};
  QLineEdit& line{*binder.Add(text, spin, &window)};
  QLineEdit& other{*new QLineEdit(&window)};
};

TEST_F(SpinArrowsTest, ArrowsKeysAndTheWheelStepTheLineThatHasTheFocus) {
  std::string told;
  text.focusLost = [&] { told += "text "; };
  spin.focusLost = [&] { told += "spin "; };
  Turn(120);
  EXPECT_EQ(text.Value(), "50") << "the page scrolls instead";
  QTest::mouseClick(&Arrow("Up"), Qt::LeftButton);
  EXPECT_EQ(text.Value(), "51");
  EXPECT_TRUE(line.hasFocus());
  QTest::mousePress(&Arrow("Down"), Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([&] { return spin.Value() < 47; })) << "held";
  QTest::mouseRelease(&Arrow("Down"), Qt::LeftButton);
  spin.Set(50);
  Turn(240);
  for (int i = 0; i < 8; ++i) Turn(-15);
  EXPECT_EQ(text.Value(), "51");
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Down}) QTest::keyClick(&line, key);
  QTest::keyClick(&line, Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(text.Value(), "52");
  spin.Set(100);
  line.selectAll();
  QTest::mouseClick(&Arrow("Up"), Qt::LeftButton);
  EXPECT_FALSE(line.hasSelectedText()) << "also at an end, where the text stays";
  EXPECT_EQ(told, "") << "the arrows are part of the field";
  other.setFocus();
  EXPECT_EQ(told, "spin text ");
}

}  // namespace tallowbrook
