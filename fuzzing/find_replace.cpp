// The page that finds and replaces: any text or pattern in any name.
//
// Aborts if anything is thrown, if a part that isn't searched changes, if what isn't a pattern
// gives another name than the slow way, or if a pattern's outcome is longer than its bound. That
// it comes in time is for the engine to see.
#include <cstdint>

#include "base/letter_case.h"
#include "base/text.h"
#include "fuzzing/pieces.h"
#include "fuzzing/require.h"
#include "fuzzing/whole_program.h"

namespace {

using namespace tallowbrook;

std::vector<std::string_view> Characters(std::string_view text) {
  std::vector<std::string_view> characters;
  while (!text.empty()) {
    characters.push_back(text.substr(0, FirstCharacter(text).length));
    text.remove_prefix(characters.back().size());
  }
  return characters;
}

bool Alike(std::string_view a, std::string_view b, bool ignoreCase) {
  return a == b ||
         (ignoreCase && FoldCase(FirstCharacter(a).code) == FoldCase(FirstCharacter(b).code));
}

std::string SlowlyReplaced(std::string_view text, const RenameSettings& s) {
  const auto find = Characters(s.Combo_Find.Value());
  const auto in = Characters(text);
  const bool ignoreCase = !s.Check_CaseSensitive.On();
  const int limit = s.Combo_Occurances.Index() == 0 ? 1 << 20 : s.Combo_Occurances.Index();
  std::string result;
  int times = 0;
  for (std::size_t at = 0; at < in.size();) {
    std::size_t same = 0;
    while (same < find.size() && at + same < in.size() &&
           Alike(in[at + same], find[same], ignoreCase)) {
      ++same;
    }
    const bool isFound = same == find.size() && times < limit;
    result += isFound ? std::string_view(s.Combo_Replace.Value()) : in[at];
    at += isFound ? find.size() : 1;
    times += isFound ? 1 : 0;
  }
  return result;
}

void RequireReplaced(std::string_view part, std::string_view result, const RenameSettings& s) {
  if (s.Combo_Find.Value().empty()) {
    Require(result.empty());
  } else if (s.Check_RegExp.On()) {
    Require(result.size() <= std::max(part.size(), Regex::maxResult));
  } else {
    Require(result == SlowlyReplaced(part, s));
  }
}

}  // namespace

// Two bytes of choices, the text to find, what replaces it, and the name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static TextFiles none;
  static WholeProgram program(none);
  RenameSettings& s = program.form.settings;
  Pieces pieces(data, size);
  const unsigned choices = pieces.NextByte();
  s.TabIndex.Select(PageReplace);
  s.Check_RegExp.Set(choices & 1);
  s.Check_CaseSensitive.Set(choices >> 1 & 1);
  (choices & 4 ? s.Option_Search2 : choices & 8 ? s.Option_Search3 : s.Option_Search1).Choose();
  s.Combo_Occurances.Select(
      static_cast<int>(pieces.NextByte() % s.Combo_Occurances.Items().size()));
  s.Combo_Find.SetItems({});
  s.Combo_Replace.SetItems({});
  s.Combo_Find.Set(pieces.Next());
  s.Combo_Replace.Set(pieces.Next());
  const std::string name(pieces.Rest().substr(0, 255));
  const std::string whole = program.form.names.BuildNewName(name, 0, "/d/");
  const std::string_view result = whole;
  if (s.Option_Search2.On()) {
    const std::string kept = "." + std::string(ExtensionOf(name));
    Require(result.ends_with(kept));
    RequireReplaced(BaseNameOf(name), result.substr(0, result.size() - kept.size()), s);
  } else if (s.Option_Search3.On()) {
    const std::string kept = std::string(BaseNameOf(name)) + ".";
    Require(result.starts_with(kept));
    RequireReplaced(ExtensionOf(name), result.substr(kept.size()), s);
  } else {
    RequireReplaced(name, result, s);
  }
  return 0;
}
