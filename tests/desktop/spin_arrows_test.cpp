// A line with its arrows: every way to step it, and what keeps it from stepping.
#include "desktop/spin_arrows.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>

#include "desktop/binder.h"

namespace tallowbrook {

class SpinArrowsTest : public testing::Test {
 protected:
  SpinArrowsTest() {
    spin.rule = [this] { text.Set(std::to_string(spin.Value())); };
    auto* row = new QHBoxLayout(&window);
    row->addWidget(&line);
    row->addWidget(&other);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
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

  Screen screen;
  Text text{screen, {.name = "Text"}, "50"};
  Spin spin{screen, {.name = "Spin"}, 1, 100, 50};
  QWidget window;
  Binder binder{screen};
  QLineEdit& line{*binder.Add(text, spin, &window)};
  QLineEdit& other{*new QLineEdit(&window)};
};

TEST_F(SpinArrowsTest, ArrowsStepAndPutTheFocusIntoTheLine) {
  QTest::mouseClick(&Arrow("Up"), Qt::LeftButton);
  EXPECT_EQ(text.Value(), "51");
  EXPECT_TRUE(line.hasFocus());
  QTest::mouseClick(&Arrow("Down"), Qt::LeftButton);
  EXPECT_EQ(text.Value(), "50");
  QTest::mousePress(&Arrow("Down"), Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([&] { return spin.Value() < 47; })) << "held";
  QTest::mouseRelease(&Arrow("Down"), Qt::LeftButton);
  spin.Set(100);
  line.selectAll();
  QTest::mouseClick(&Arrow("Up"), Qt::LeftButton);
  EXPECT_FALSE(line.hasSelectedText()) << "also at an end, where the text stays";
}

TEST_F(SpinArrowsTest, KeysAndTheWheelStepALineThatHasTheFocus) {
  Turn(120);
  EXPECT_EQ(text.Value(), "50") << "the page scrolls instead";
  line.setFocus();
  Turn(120);
  Turn(240);
  EXPECT_EQ(text.Value(), "53");
  for (int i = 0; i < 8; ++i) Turn(-15);
  EXPECT_EQ(text.Value(), "52");
  QTest::keyClick(&line, Qt::Key_Up);
  QTest::keyClick(&line, Qt::Key_Up);
  QTest::keyClick(&line, Qt::Key_Down);
  QTest::keyClick(&line, Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(text.Value(), "53");
}

TEST_F(SpinArrowsTest, NothingStepsAGreyLineOrOneWithoutArrows) {
  text.SetEnabled(false);
  EXPECT_FALSE(Arrow("Up").isEnabled());
  QTest::mouseClick(&Arrow("Up"), Qt::LeftButton);
  text.SetEnabled(true);
  text.SetReadOnly(true);
  QTest::mouseClick(&Arrow("Up"), Qt::LeftButton);
  text.SetReadOnly(false);
  spin.SetVisible(false);
  EXPECT_TRUE(line.isVisible() && !Arrow("Up").isVisible());
  line.setFocus();
  QTest::keyClick(&line, Qt::Key_Up);
  EXPECT_EQ(text.Value(), "50");
  spin.SetVisible(true);
  EXPECT_TRUE(Arrow("Up").isVisible());
}

TEST_F(SpinArrowsTest, BothAreToldWhenTheKeyboardLeaves) {
  std::string told;
  text.focusLost = [&] { told += "text "; };
  spin.focusLost = [&] { told += "spin "; };
  line.setFocus();
  QTest::mouseClick(&Arrow("Up"), Qt::LeftButton);
  EXPECT_EQ(told, "") << "the arrows are part of the field";
  other.setFocus();
  EXPECT_EQ(told, "spin text ");
}

}  // namespace tallowbrook
