// Stand-ins lie at the end of the last private plane, where fonts and systems put nothing.
#include "platform/regex_stray_bytes.h"

#include "base/text.h"

namespace tallowbrook {
namespace {

// What FirstCharacter adds to a stray byte, and what a stand-in adds.
constexpr char32_t strayBase = 0xDC00;
constexpr char32_t standInBase = 0x10FF00;

bool IsStray(char32_t code) {
  return code >= strayBase + 0x80 && code <= strayBase + 0xFF;
}

bool IsStandIn(char32_t code) {
  return code >= standInBase + 0x80 && code <= standInBase + 0xFF;
}

// The text with each character put through `map`.
template <typename Map>
std::string Mapped(std::string_view text, Map map) {
  std::string result;
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    AppendCharacter(result, map(character.code));
    text.remove_prefix(character.length);
  }
  return result;
}

}  // namespace

bool HoldsStandIns(std::string_view text) {
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    if (IsStandIn(character.code)) return true;
    text.remove_prefix(character.length);
  }
  return false;
}

std::optional<std::string> WithStandIns(std::string_view text) {
  if (HoldsStandIns(text)) return std::nullopt;
  return Mapped(
      text, [](char32_t code) { return IsStray(code) ? code - strayBase + standInBase : code; });
}

std::string WithoutStandIns(std::string_view text) {
  return Mapped(
      text, [](char32_t code) { return IsStandIn(code) ? code - standInBase + strayBase : code; });
}

}  // namespace tallowbrook
