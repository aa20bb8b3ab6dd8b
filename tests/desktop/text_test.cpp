#include "desktop/text.h"

#include <gtest/gtest.h>

namespace tallowbrook {

TEST(WindowText, EveryByteComesBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  // clang-format off
  const std::string rows[] = {
      "", all, all + all, "caf\xC3\xA9", "\xF0\x9F\x98\x80 grin", "\xEF\xBB\xBF byte order mark",
      "cut off \xF0\x9F\x98", "\xED\xB2\x80 a surrogate in UTF-8", "\xED\xA0\x80\xED\xB0\x80",
      "\xC0\x80 overlong", "\xF4\x90\x80\x80 beyond Unicode", "\xF0\x9F\x98\x80\xFF\xF0\x9F\x98\x80"};
  // clang-format on
  for (const std::string& row : rows) {
    EXPECT_EQ(ToBytes(ToText(row)), row) << testing::PrintToString(row);
  }
}

TEST(WindowText, WhatTheUserTypesBesideStrayBytesLeavesThemAlone) {
  QString text = ToText("x\xFFy");
  EXPECT_EQ(text.size(), 3);
  text.insert(2, QStringLiteral("\u00E9"));
  EXPECT_EQ(ToBytes(text), "x\xFF\xC3\xA9y");
  EXPECT_EQ(ToBytes(QString(QChar(0xD83D))), "\xEF\xBF\xBD") << "half a character";
}

TEST(WindowText, NothingInANameIsInvisibleOrTurnsOthersRound) {
  EXPECT_EQ(VisibleText("a\nb\tc\x06\x7F"), QStringLiteral("a\u21B5b\u21E5c\uFFFD\uFFFD"));
  EXPECT_EQ(VisibleText("x\xFFy"), QStringLiteral("x\uFFFDy"));
  EXPECT_EQ(VisibleText("gpj.\xE2\x80\xAE.exe"), QStringLiteral("gpj.\uFFFD.exe"));
  EXPECT_EQ(VisibleText("\xE2\x80\xA8"), QStringLiteral("\u21B5"));
  EXPECT_EQ(VisibleText("\xF0\x9F\x98\x80"), QString::fromUtf8("\xF0\x9F\x98\x80"));
}

TEST(WindowText, MarkupInAToolTipIsShownAsItStands) {
  EXPECT_EQ(PlainToolTip(QStringLiteral("<b>x</b> & y")),
            QStringLiteral("<p style='white-space:pre-wrap'>&lt;b&gt;x&lt;/b&gt; &amp; y</p>"));
  EXPECT_EQ(PlainToolTip({}), QString());
}

TEST(WindowText, AccessKeysStandAtTheStartOfAWordIfTheyCan) {
  const std::tuple<const char*, char, const char*> rows[] = {
      {"Preview", 'p', "&Preview"}, {"Search the end", 'e', "Search the &end"},
      {"Apply", 'y', "Appl&y"},     {"Copy & Move", 'm', "Copy && &Move"},
      {"Include", 0, "Include"},    {"Include", 'z', "Include"}};
  for (const auto& [caption, key, expected] : rows) {
    EXPECT_EQ(WithAccessKey(caption, key).toStdString(), expected);
  }
}

}  // namespace tallowbrook
