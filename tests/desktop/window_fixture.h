// Windows over real files, driven by keys and clicks.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>

#include "desktop/events.h"
#include "desktop/file_table.h"
#include "desktop/main_window.h"
#include "tests/support/test_world.h"

namespace tallowbrook {

// Shows a window and waits until it has the keyboard.
inline void Activate(QWidget& window) {
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

// Lets events through until the views have caught up.
inline void Settle() {
  QTest::qWait(60);
}

// The widget of that name in another one; throws if there is none.
template <typename Widget = QWidget>
Widget& Child(const QWidget& in, const char* name) {
  auto* widget = in.findChild<Widget*>(QLatin1String(name));
  if (!widget) throw std::runtime_error(name);
  return *widget;
}

// Keys for what has the focus.
inline void Press(Qt::Key key, Qt::KeyboardModifiers held = {}) {
  QTest::keyClick(QApplication::focusWidget(), key, held);
}
inline void Type(const char* text) {
  QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
}

// The whole program with its window.
class WindowTest : public testing::Test, protected TestWorld {
 protected:
  template <typename Widget = QWidget>
  Widget& Get(const char* name) {
    return Child<Widget>(window, name);
  }

  WindowEvents events;
  Form1 form{With(events)};
  MainWindow window{form, files, home.Path()};
  FileTable& table{Get<FileTable>("ListView1")};
};

}  // namespace tallowbrook
