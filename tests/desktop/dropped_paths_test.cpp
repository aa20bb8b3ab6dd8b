#include "desktop/dropped_paths.h"

#include <gtest/gtest.h>

namespace tallowbrook {

TEST(DroppedPaths, AreLocalPathsOfAnyBytes) {
  // clang-format off
  const std::pair<const char*, std::vector<std::string>> rows[] = {
      {"", {}}, {"file:///a\r\nfile:///b", {"/a", "/b"}}, {"file:///a\nfile:///b\n", {"/a", "/b"}},
      {"file://localhost/a", {"/a"}}, {"FILE:/a", {"/a"}}, {"# file:///comment\r\nfile:///a", {"/a"}},
      {"file:///caf%C3%A9%20%25", {"/caf\xC3\xA9 %"}}, {"file:///latin%e9%FF", {"/latin\xE9\xFF"}},
      {"file:///line%0Aend", {"/line\nend"}}, {"file:///hash#1?x", {"/hash#1?x"}},
      {"file:///100%", {"/100%"}}, {"file:///%4", {"/%4"}}, {"file:///%zz", {"/%zz"}},
      {"file:///nul%00byte", {}},
      {"http://host/a\r\nfile://server/share/a\r\nnonsense\r\nfile:", {}}};
  // clang-format on
  for (const auto& [list, paths] : rows) EXPECT_EQ(DroppedPaths(list), paths) << list;
}

}  // namespace tallowbrook
