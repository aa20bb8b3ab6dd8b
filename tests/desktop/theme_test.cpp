// The styles that come with the program, and files that are none.
#include "desktop/theme.h"

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
};

const char* const styles[] = {"Office2007Black.dll", "Office2007Blue.dll", "Office2007Silver.dll",
                              "Office2007Aqua.dll"};

TEST_F(ThemeTest, AllTextsOfTheStylesCanBeReadOnAllTheirGrounds) {
  std::set<QRgb> windows;
  for (const char* style : styles) {
    const Theme theme = Named(style);
    windows.insert(theme.window.rgb());
    const std::string file =
        *files.ReadWhole(QCoreApplication::applicationDirPath().toStdString() + "/Styles/" + style);
    for (const ThemeRole& role : ThemeRoles()) {
      EXPECT_NE(file.find(std::string("\n") + role.name + " = #"), std::string::npos) << role.name;
      const double least = role.kind == RoleKind::Text ? legibleContrast : 1.7;
      for (const auto ground : role.grounds) {
        EXPECT_GE(Contrast(theme.*role.colour, theme.*ground), least)
            << style << ": " << role.name << " on " << (theme.*ground).name().toStdString();
      }
    }
  }
  EXPECT_EQ(windows.size(), std::size(styles));
  EXPECT_EQ(Named(styles[0]), Theme()) << "the built-in one";
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

TEST_F(ThemeTest, ReadsWhatItUnderstandsAndPassesOverTheRest) {
  const QRgb builtIn = Theme().window.rgb();
  // clang-format off
  const std::pair<const char*, QRgb> rows[] = {
      {"window = #010203", 0xff010203}, {"; a style\r\n\t window=#0A0b0C ; the ground\r\n", 0xff0a0b0c},
      {"window = #010203\nwindow = #040506\nwindow = red", 0xff040506}, {"Window = #010203", builtIn},
      {"window #010203", builtIn}, {"window = #01020", builtIn}, {"window = #0102030", builtIn},
      {"window = 010203", builtIn}, {"window = #01020g", builtIn}, {"; window = #010203", builtIn},
      {"MZ\x90\xFF=\xFE\n=\n;\n = = \n", builtIn}, {"", builtIn}};
  // clang-format on
  for (const auto& [text, ground] : rows) EXPECT_EQ(ReadTheme(text).window.rgb(), ground) << text;
  EXPECT_EQ(ReadTheme("window = #010203").text, Theme().text);
}

TEST_F(ThemeTest, LooksForAMissingFileAmongThoseOfTheProgram) {
  const Theme blue = Named("Office2007Blue.dll");
  EXPECT_NE(blue, Theme());
  EXPECT_EQ(Load("C:\\Program Files\\Styles\\Office2007Blue.dll"), blue);
  home.Write("Office2007Blue.dll", "window = #010203");
  EXPECT_EQ(Load(home.Path("Office2007Blue.dll")).window, QColor(1, 2, 3));
  home.MakeFolder("large");
  home.Write("large/Office2007Blue.dll", "window = #010203\n" + std::string(1 << 20, ' '));
  EXPECT_EQ(Load(home.Path("large/Office2007Blue.dll")), blue);
  for (const char* none : {"", "..", "/dev/zero", "Office2007Pink.dll", "../Styles"}) {
    EXPECT_EQ(Load(none), Theme()) << none;
  }
}

TEST_F(ThemeTest, AColourStaysWhereItIsLegibleAndIsShadedElsewhere) {
  EXPECT_EQ(LegibleShade(successInk, {Qt::white}), successInk);
  for (int grey = 0; grey < 256; ++grey) {
    const QColor ground(grey, grey, grey);
    EXPECT_GE(Contrast(LegibleShade(keywordInk, {ground}), ground), legibleContrast) << grey;
  }
}

}  // namespace tallowbrook
