// What the window remembers of its arrangement, and a file that somebody else wrote.
#include "desktop/window_layout.h"

#include <QSettings>

#include "desktop/ribbon_bar.h"
#include "tests/desktop/window_fixture.h"

namespace tallowbrook {

class WindowLayoutTest : public WindowTest {
 protected:
  void SetUp() override {
    form.Load();
    Activate(window);
  }
  struct Arrangement {
    int tree;
    int name;
    int tab;
    bool minimised;
    bool operator==(const Arrangement&) const = default;
  };
  static Arrangement Of(const MainWindow& shown) {
    Settle();
    const WindowParts parts = shown.Parts();
    return {parts.splitter.sizes().value(0), parts.columns.sectionSize(1),
            parts.ribbon.SelectedTab(), parts.ribbon.IsMinimised()};
  }
  QString Path() const { return QString::fromStdString(home.Path("layout.ini")); }
};

TEST_F(WindowLayoutTest, TheNextWindowIsArrangedAsTheLastOneWas) {
  const WindowParts parts = window.Parts();
  const int drawn = parts.splitter.sizes().value(0);
  QWidget& handle = Get("Picture2");
  QTest::mousePress(&handle, Qt::LeftButton, {}, {2, 50});
  QTest::mouseMove(&handle, {102, 50});
  QTest::mouseRelease(&handle, Qt::LeftButton, {}, {2, 50});
  parts.columns.resizeSection(1, 333);
  parts.ribbon.SelectTab(2);
  parts.ribbon.SetMinimised(true);
  const Arrangement last = Of(window);
  EXPECT_NEAR(last.tree, drawn + 100, 5);
  {
    QSettings file(Path(), QSettings::IniFormat);
    SaveLayout(parts, file);
  }
  Form1 nextForm(With(events));
  MainWindow next(nextForm, files, home.Path());
  nextForm.Load();
  next.show();
  RestoreLayout(next.Parts(), QSettings(Path(), QSettings::IniFormat));
  const Arrangement restored = Of(next);
  EXPECT_NEAR(restored.tree, last.tree, 2);
  EXPECT_TRUE(restored.name == 333 && restored.tab == 2 && restored.minimised);
  EXPECT_EQ(nextForm.RibbonTab, 2);
}

TEST_F(WindowLayoutTest, WhatMakesNoSenseChangesNothing) {
  const Arrangement before = Of(window);
  const char* const broken[] = {
      "",
      "\x01\x02\xFF[[",
      "tree=-5\ncolumns=a, b, c\nribbonTab=99\nribbonMinimised=maybe",
      "tree=1",
      "tree=100000\ncolumns=5\nribbonTab=-1",
      "tree=99999999999999999999\ncolumns=\"1,2\"\nribbonTab=x",
      "columns=0, -1, 99999999, 0, 3, 9999999999999, 0, 0, 0, 0, 0, 0",
      "columns=@Invalid()\ntree=@ByteArray(xx)\nribbonTab=@Variant(\\0\\0)"};
  for (const char* text : broken) {
    home.Write("layout.ini", std::string("[General]\n") + text + "\n");
    RestoreLayout(window.Parts(), QSettings(Path(), QSettings::IniFormat));
    EXPECT_EQ(Of(window), before) << text;
  }
}

}  // namespace tallowbrook
