// The styles that come with the program, and files that are none.
#include "desktop/theme.h"

#include <QRegularExpression>
#include <set>

#include "desktop/contrast.h"
#include "desktop/look.h"
#include "tests/desktop/window_fixture.h"

namespace tallowbrook {

class ThemeTest : public WindowTest {
 protected:
  ~ThemeTest() override { ApplyTheme({}); }
  Theme Load(const std::string& path) { return LoadTheme(files, path); }
  // The style of the program with that file name.
  Theme Named(const std::string& name) { return Load("/nowhere/" + name); }
  static bool Same(const Theme& a, const Theme& b) {
    return std::ranges::all_of(
        ThemeRoles(), [&](const ThemeRole& role) { return a.*role.colour == b.*role.colour; });
  }
};

const char* const styles[] = {"Office2007Black.dll", "Office2007Blue.dll", "Office2007Silver.dll",
                              "Office2007Aqua.dll"};

TEST_F(ThemeTest, AllTextsOfTheStylesCanBeReadOnAllTheirGrounds) {
  std::set<QRgb> windows;
  for (const char* style : styles) {
    const Theme theme = Named(style);
    windows.insert(theme.window.rgb());
    for (const ThemeRole& role : ThemeRoles()) {
      const double least = role.kind == RoleKind::Text ? legibleContrast : 1.7;
      for (const auto ground : role.grounds) {
        EXPECT_GE(Contrast(theme.*role.colour, theme.*ground), least)
            << style << ": " << role.name << " on " << (theme.*ground).name().toStdString();
      }
    }
  }
  EXPECT_EQ(windows.size(), std::size(styles));
  EXPECT_TRUE(Same(Named(styles[0]), Theme())) << "the built-in one";
}

struct OpenDelegate : RowDelegate {
  using RowDelegate::initStyleOption;
};

TEST_F(ThemeTest, TheOutcomeOfARowCanBeReadInEveryStyleHighlightedOrNot) {
  home.Write("a.txt");
  form.Load();
  form.scan.FilterList();
  for (const char* style : styles) {
    const Theme theme = Named(style);
    ApplyTheme(theme);
    for (const RowColour colour : {RowColour::Plain, RowColour::Done, RowColour::Failed,
                                   RowColour::Skipped, RowColour::Refused}) {
      form.ListView1.Row(1).colour = colour;
      static_cast<RowModel*>(table.model())->Sync();
      QStyleOptionViewItem option;
      option.palette = table.palette();
      OpenDelegate().initStyleOption(&option,
                                     table.model()->index(0, SectionOf(Column::NewFileName)));
      const bool hasBadge = colour == RowColour::Skipped;
      const auto expectLegible = [&](QPalette::ColorRole text, const QColor& ground) {
        EXPECT_GE(Contrast(option.palette.color(text), ground), legibleContrast)
            << style << " " << static_cast<int>(colour);
      };
      expectLegible(QPalette::Text, hasBadge ? theme.badge : theme.field);
      expectLegible(QPalette::Text, hasBadge ? theme.badge : theme.alternateRow);
      expectLegible(QPalette::HighlightedText, theme.rowHighlight);
    }
  }
}

// Whoever adds a role says where it is read, or what is read on it.
TEST_F(ThemeTest, EveryRoleHasItsPlaceAndEveryStyleItsColour) {
  std::set<QColor Theme::*, bool (*)(QColor Theme::*, QColor Theme::*)> used(
      [](QColor Theme::*a, QColor Theme::*b) {
        static const Theme theme;
        return &(theme.*a) < &(theme.*b);
      });
  for (const ThemeRole& role : ThemeRoles()) used.insert(role.grounds.begin(), role.grounds.end());
  for (const ThemeRole& role : ThemeRoles()) {
    const bool isText = role.kind == RoleKind::Text || role.kind == RoleKind::Faint;
    EXPECT_EQ(!role.grounds.empty(), isText) << role.name;
    EXPECT_EQ(used.contains(role.colour), role.kind == RoleKind::Ground) << role.name;
    for (const char* style : styles) {
      const auto path = QCoreApplication::applicationDirPath().toStdString() + "/Styles/" + style;
      EXPECT_NE(files.ReadWhole(path)->find(std::string("\n") + role.name + " = #"),
                std::string::npos)
          << style << ": " << role.name;
    }
  }
}

TEST_F(ThemeTest, ReadsWhatItUnderstandsAndPassesOverTheRest) {
  struct Row {
    const char* text;
    QRgb ground;
  };
  const QRgb builtIn = Theme().window.rgb();
  // clang-format off
  const Row rows[] = {
      {"window = #010203", 0xff010203},
      {"; a style\r\n\t window=#0A0b0C ; the ground\r\n", 0xff0a0b0c},
      {"window = #010203\nwindow = #040506\nwindow = red", 0xff040506},
      {"Window = #010203", builtIn},
      {"window #010203", builtIn},
      {"window = #01020", builtIn},
      {"window = #0102030", builtIn},
      {"window = 010203", builtIn},
      {"window = #01020g", builtIn},
      {"; window = #010203", builtIn},
      {"MZ\x90\xFF=\xFE\n=\n;\n = = \n", builtIn},
      {"", builtIn},
  };
  // clang-format on
  for (const auto& [text, ground] : rows) EXPECT_EQ(ReadTheme(text).window.rgb(), ground) << text;
  EXPECT_EQ(ReadTheme("window = #010203").text, Theme().text);
}

TEST_F(ThemeTest, LooksForAMissingFileAmongThoseOfTheProgram) {
  const Theme blue = Named("Office2007Blue.dll");
  EXPECT_FALSE(Same(blue, Theme()));
  EXPECT_TRUE(Same(Load("C:\\Program Files\\Styles\\Office2007Blue.dll"), blue));
  home.Write("Office2007Blue.dll", "window = #010203");
  EXPECT_EQ(Load(home.Path("Office2007Blue.dll")).window, QColor(1, 2, 3));
  home.MakeFolder("large");
  home.Write("large/Office2007Blue.dll", "window = #010203\n" + std::string(1 << 20, ' '));
  EXPECT_TRUE(Same(Load(home.Path("large/Office2007Blue.dll")), blue));
  for (const char* none : {"", "/", "..", "/dev/zero", "Office2007Pink.dll", "../Styles"}) {
    EXPECT_TRUE(Same(Load(none), Theme())) << none;
  }
}

TEST_F(ThemeTest, AnOpenWindowTurnsToAnotherStyleAtOnce) {
  home.Write("a.txt");
  form.Load();
  Activate(window);
  form.scan.FilterList();
  form.ListView1.Row(1).colour = RowColour::Done;
  Settle();
  for (const char* style : styles) {
    const Theme theme = Named(style);
    ApplyTheme(theme);
    Settle();
    EXPECT_FALSE(qApp->styleSheet().contains(QLatin1Char('@')));
    const QImage shown = window.grab().toImage();
    const auto colourAt = [&](const QWidget& widget, QPoint place) {
      return shown.pixelColor(widget.mapTo(&window, place));
    };
    const QWidget& list = *table.viewport();
    EXPECT_EQ(colourAt(window, {2, window.height() - 2}), theme.status);
    EXPECT_EQ(colourAt(list, list.rect().bottomRight() - QPoint(3, 3)), theme.field);
    EXPECT_EQ(table.palette().color(QPalette::Highlight), theme.rowHighlight);
    EXPECT_EQ(colourAt(Get("PushButton_Apply"), {4, 12}), theme.accent);
    EXPECT_EQ(colourAt(Get("Text_Extension"), {4, 6}), theme.fixedField);
  }
}

TEST_F(ThemeTest, AColourStaysWhereItIsLegibleAndIsShadedElsewhere) {
  struct Row {
    QColor colour;
    QColor ground;
    QColor shade;
  };
  const Row rows[] = {{successInk, Qt::white, successInk},
                      {errorInk, Qt::white, {232, 0, 0}},
                      {errorInk, Qt::black, errorInk},
                      {shadowInk, Qt::white, {116, 116, 116}},
                      {Qt::black, Qt::black, {119, 119, 119}}};
  for (const auto& [colour, ground, shade] : rows) {
    EXPECT_EQ(LegibleShade(colour, {ground}), shade) << colour.name().toStdString();
  }
  for (int grey = 0; grey < 256; ++grey) {
    const QColor ground(grey, grey, grey);
    EXPECT_GE(Contrast(LegibleShade(keywordInk, {ground}), ground), legibleContrast) << grey;
  }
}

}  // namespace tallowbrook
