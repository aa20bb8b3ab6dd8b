// Bytes of tags and text: every byte comes back as itself.
#include "base/code_page.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace tallowbrook {
namespace {

TEST(CodePage, EveryByteIsOneCharacterAndComesBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const std::string text = FromCodePage(bytes);
  EXPECT_TRUE(IsValidUtf8(text));
  EXPECT_EQ(CountCharacters(text), 256u);
  EXPECT_EQ(ToCodePage(text), bytes);
  EXPECT_EQ(FromCodePage("\x80\x81\x8E\x9F\xA0\xE9\xFF"), "€\u0081ŽŸ\u00A0éÿ");
}

TEST(CodePage, WhatThePageDoesNotHoldBecomesOneQuestionMark) {
  // clang-format off
  const std::pair<const char*, const char*> rows[] = {
      {"a漢b", "a?b"}, {"\U0001F600", "?"}, {"\u0080\u0099", "??"}, {"Āā", "??"}, {"e\u0301", "e?"},
      {"\xff\xe9 \xc3", "?? ?"}, {"\xed\xa0\x80", "???"}};
  // clang-format on
  for (const auto& [text, bytes] : rows) EXPECT_EQ(ToCodePage(text), bytes) << text;
}

}  // namespace
}  // namespace tallowbrook
