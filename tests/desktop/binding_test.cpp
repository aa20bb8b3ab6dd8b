// Each kind of control with a real widget: what the user does reaches the control once, what code
// sets shows and isn't handed back.
#include "desktop/binding.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>

#include "desktop/binder.h"

namespace tallowbrook {

class BindingTest : public testing::Test {
 protected:
  // Counts how often the rule of a control runs.
  void Count(Control& control) {
    control.rule = [this] { ++rules; };
  }
  void Show() {
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  Screen screen;
  QWidget window;
  Binder binder{screen};
  int rules = 0;
};

TEST_F(BindingTest, ATickFollowsBothWays) {
  Tick tick(screen, {.name = "Check", .caption = "In&clude", .tip = "<b>"}, 0);
  Count(tick);
  QCheckBox* box = binder.Add(tick, &window, 'i');
  EXPECT_EQ(box->text(), QStringLiteral("&In&&clude"));
  EXPECT_EQ(box->toolTip(), QStringLiteral("<p style='white-space:pre-wrap'>&lt;b&gt;</p>"));
  box->click();
  EXPECT_EQ(tick.Value(), 1);
  tick.Set(0);
  EXPECT_FALSE(box->isChecked());
  EXPECT_EQ(rules, 2);
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

TEST_F(BindingTest, AListShowsItemsAndSelectionAsTheyCome) {
  List list(screen, {.name = "List"});
  Count(list);
  QComboBox* box = binder.Add(list, &window);
  list.SetItems({"one", "two", "three"});
  EXPECT_EQ(box->currentIndex(), -1);
  list.Select(1);
  EXPECT_EQ(box->currentText(), QStringLiteral("two"));
  Show();
  box->setFocus();
  QTest::keyClick(box, Qt::Key_Down);
  EXPECT_EQ(list.Index(), 2);
  EXPECT_EQ(rules, 2);
  list.rule = [&] { list.Select(0); };
  QTest::keyClick(box, Qt::Key_Up);
  EXPECT_EQ(box->currentIndex(), 0) << "a rule that takes the choice back";
}

TEST_F(BindingTest, AHistoryIsTypedIntoAndPickedFromUnlessItIsReadOnly) {
  History history(screen, {.name = "History"}, "first");
  Count(history);
  QComboBox* box = binder.Add(history, &window);
  history.SetItems({"new", "old"});
  EXPECT_EQ(box->currentText(), QStringLiteral("first")) << "items leave the text alone";
  QTest::keyClicks(box->lineEdit(), QStringLiteral("!"));
  EXPECT_EQ(history.Value(), "first!");
  history.SetItems({"newer", "new", "old"});
  EXPECT_EQ(box->currentText(), QStringLiteral("first!"));
  box->setCurrentIndex(2);
  history.SetReadOnly(true);
  QTest::keyClicks(box->lineEdit(), QStringLiteral("x"));
  QTest::keyClick(box, Qt::Key_Up);
  box->showPopup();
  EXPECT_EQ(history.Value(), "old");
  EXPECT_FALSE(box->view()->isVisible());
  EXPECT_EQ(rules, 2);
}

TEST_F(BindingTest, ProposalsMayChangeWithEveryKey) {
  FreeList field(screen, {.name = "Combo"});
  field.rule = [&] { field.SetItems({field.Value() + "1", field.Value() + "2"}); };
  QComboBox* box = binder.Add(field, &window);
  QTest::keyClicks(box->lineEdit(), QStringLiteral("abc"));
  EXPECT_EQ(box->currentText(), QStringLiteral("abc"));
  EXPECT_EQ(box->itemText(1), QStringLiteral("abc2"));
}

TEST_F(BindingTest, OneOptionOfAGroupIsOn) {
  Option files(screen, {.name = "Files"}, "View", true);
  Option folders(screen, {.name = "Folders"}, "View");
  Option other(screen, {.name = "Other"}, "Else", true);
  Count(folders);
  QRadioButton* filesButton = binder.Add(files, &window);
  QRadioButton* foldersButton = binder.Add(folders, &window);
  QRadioButton* otherButton = binder.Add(other, &window);
  foldersButton->click();
  EXPECT_TRUE(folders.On());
  EXPECT_TRUE(otherButton->isChecked() && !filesButton->isChecked());
  files.Choose();
  EXPECT_TRUE(filesButton->isChecked() && !foldersButton->isChecked());
  EXPECT_EQ(rules, 1);
}

TEST_F(BindingTest, ADateKeepsItsTimeOfDay) {
  DateField date(screen, {.name = "Date"}, *MakeDate({2005, 9, 11, 7, 1, 2}));
  QDateEdit* edit = binder.Add(date, &window);
  edit->setDate(QDate(2024, 2, 29));
  EXPECT_EQ(date.Value(), *MakeDate({2024, 2, 29, 7, 1, 2}));
  date.Set(*MakeDate({1601, 1, 1, 0, 0, 0}));
  EXPECT_EQ(edit->date(), QDate(1601, 1, 1));
}

TEST_F(BindingTest, AButtonPressesAndShowsItsCaption) {
  Button button(screen, {.name = "Push", .caption = "Scan"});
  Count(button);
  QPushButton* push = binder.Add(button, &window, 's');
  push->click();
  button.SetCaption("Stop Scan");
  EXPECT_EQ(push->text(), QStringLiteral("&Stop Scan"));
  button.SetEnabled(false);
  push->click();
  EXPECT_EQ(rules, 1);
}

TEST_F(BindingTest, LabelsShowTextFromFilesAsPlainText) {
  Label label(screen, {.name = "Label"});
  QLabel* shown = binder.Add(label, &window);
  label.SetCaption("<img src=x> & \n");
  EXPECT_EQ(shown->textFormat(), Qt::PlainText);
  EXPECT_EQ(shown->text(), QStringLiteral("<img src=x> & \u21B5"));
}

// Both kinds of field, with what they have typed into them as a user would.
TEST_F(BindingTest, TypingIsRefusedByTheModelAndPastingIsNot) {
  Text text(screen, {.name = "Text"});
  FreeList list(screen, {.name = "List"});
  binder.Add(text, &window);
  binder.Add(list, &window);
  Show();
  for (Text* field : std::initializer_list<Text*>{&text, &list}) {
    field->takesKey = [](std::string_view key) { return key == "1" || key == "\xF0\x9F\x98\x80"; };
    screen.RequestFocus(*field);
    QWidget* focused = QApplication::focusWidget();
    QTest::keyClicks(focused, QStringLiteral("a1 b1,1"));
    EXPECT_EQ(field->Value(), "111");
    QTest::keyClick(focused, Qt::Key_Backspace);
    QTest::keyClick(focused, Qt::Key_Home, Qt::ShiftModifier);
    QTest::keyClick(focused, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(focused, Qt::Key_Delete);
    EXPECT_EQ(field->Value(), "");
    QApplication::clipboard()->setText(QStringLiteral("x1"));
    QTest::keyClick(focused, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field->Value(), "x1");
    QInputMethodEvent input;
    input.setCommitString(QString::fromUtf8("b1\xF0\x9F\x98\x80\xC3\xA9"));
    QCoreApplication::sendEvent(focused, &input);
    EXPECT_EQ(field->Value(), "x11\xF0\x9F\x98\x80");
    field->Set("");
    field->takesKey = nullptr;
    QTest::keyClicks(focused, QStringLiteral("a"));
    EXPECT_EQ(field->Value(), "a");
  }
}

TEST_F(BindingTest, TheModelIsToldWhenTheKeyboardLeavesButNotWhenAMenuBorrowsIt) {
  Text text(screen, {.name = "Text"});
  FreeList list(screen, {.name = "List"});
  binder.Add(text, &window);
  binder.Add(list, &window)->addItem(QStringLiteral("item"));
  Show();
  QWidget other;
  QMenu menu;
  menu.addAction(QStringLiteral("item"));
  for (Text* field : std::initializer_list<Text*>{&text, &list}) {
    int left = 0;
    field->focusLost = [&] { ++left; };
    screen.RequestFocus(*field);
    menu.popup({});
    menu.close();
    EXPECT_EQ(left, 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(left, 1);
    screen.RequestFocus(*field);
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(left, 2);
    other.hide();
    Show();
    field->focusLost = nullptr;
  }
}

TEST_F(BindingTest, LookFollowsAndHiddenPlacesComeBack) {
  Text text(screen, {.name = "Text", .caption = "Mask"});
  Frame frame(screen, {.name = "Frame"}, false);
  auto* panel = new QGroupBox(&window);
  binder.BindPanel(frame, panel);
  QLineEdit* edit = binder.Add(text, panel);
  QLabel* caption = binder.AddCaption(text, edit, 'm');
  Show();
  EXPECT_FALSE(panel->isVisible());
  EXPECT_FALSE(edit->isWindow());
  frame.SetVisible(true);
  EXPECT_TRUE(edit->isVisible());
  text.SetVisible(false);
  EXPECT_FALSE(edit->isVisible() || caption->isVisible());
  text.SetVisible(true);
  EXPECT_TRUE(edit->isVisible());
  text.SetEnabled(false);
  EXPECT_FALSE(edit->isEnabled() || caption->isEnabled());
  text.SetReadOnly(true);
  EXPECT_TRUE(edit->isReadOnly());
}

TEST_F(BindingTest, TheModelMayAskForTheFocus) {
  Text first(screen, {.name = "First"}, "abc");
  Text second(screen, {.name = "Second"}, "abc");
  QLineEdit* firstEdit = binder.Add(first, &window);
  QLineEdit* secondEdit = binder.Add(second, &window);
  binder.AddCaption(second, secondEdit);
  Show();
  firstEdit->setFocus();
  screen.RequestFocus(second);
  EXPECT_TRUE(secondEdit->hasFocus());
  EXPECT_TRUE(secondEdit->cursorPosition() == 3 && !secondEdit->hasSelectedText());
}

}  // namespace tallowbrook
