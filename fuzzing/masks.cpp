// Both masks and their colours: any mask for any name, and any bytes as the file that bears it,
// with whatever tags and facts they make.
//
// Aborts if anything is thrown, if a name grows beyond its bound or isn't the same twice, if a rule
// of the tag mask doesn't hold, or if a colour lies on anything but a keyword.
#include <cstdint>

#include "base/letter_case.h"
#include "base/text.h"
#include "engine/mask_highlighting.h"
#include "engine/name_builder.h"
#include "fuzzing/memory_files.h"
#include "fuzzing/pieces.h"
#include "fuzzing/require.h"
#include "fuzzing/whole_program.h"

namespace {

using namespace tallowbrook;

constexpr std::size_t longest = 64 << 10;

struct OneFile : MemoryFiles {
  FileFacts facts;

  std::optional<FileFacts> Facts(const std::string& path) override {
    return files.contains(path) ? std::optional(facts) : std::nullopt;
  }
};

bool Holds(std::string_view text, std::string_view ascii) {
  return FindIgnoringCase(text, ascii) != std::string_view::npos;
}

std::string_view Part(std::string_view text, ColourSpan span) {
  Require(span.start + span.length <= CountCharacters(text));
  text.remove_prefix(LeftCharacters(text, static_cast<std::ptrdiff_t>(span.start))->size());
  return *LeftCharacters(text, static_cast<std::ptrdiff_t>(span.length));
}

void RequireColours(std::string_view mask, std::span<const Keyword> table) {
  const std::vector<ColourSpan> spans = FindKeywords(mask, table);
  Require(spans.size() <= table.size());
  for (const ColourSpan span : spans) {
    const std::string_view part = Part(mask, span);
    const auto isKeyword = [&](const Keyword& row) {
      const std::size_t comma = row.keyword.find(',');
      if (comma == std::string_view::npos) return EqualIgnoringCase(row.keyword, part);
      return EqualIgnoringCase(row.keyword.substr(0, comma + 1), part.substr(0, comma + 1)) &&
             part.find('>') + 1 == part.size();
    };
    Require(std::ranges::any_of(table, isKeyword));
  }
}

void RequireTagName(const std::string& mask, OneFile& disk, const std::string& name) {
  for (const TagMaskRules rules : {TagMaskRules{false, false}, TagMaskRules{true, true}}) {
    const std::string result = TagMask(disk).Compose(mask, rules, "/d/", name);
    Require(result.size() <= std::max(longest, mask.size()) + 4);
    if (result.starts_with(FailureMarker)) continue;
    Require(!rules.mp3Extension || Holds(result, ".mp3"));
    Require(!rules.allInfoPresent || (!Holds(result, "<v1") && !Holds(result, "<v2")));
  }
}

}  // namespace

// The mask, the name, two texts that make up the times, and the file's bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Pieces pieces(data, size);
  const std::string mask(pieces.Next());
  const std::string name(pieces.Next().substr(0, 255));
  OneFile disk;
  for (std::int64_t* time : {&disk.facts.created, &disk.facts.modified}) {
    pieces.Next().copy(reinterpret_cast<char*>(time), sizeof *time);
  }
  for (const char* extension : {"", ".jpg", ".mp3"}) {
    disk.Put("/d/" + name + extension, pieces.Rest());
  }
  WholeProgram::StoppedClock clock;
  KeywordMask keywords(disk, clock);
  for (const std::string& fullName : {name, name + ".jpg"}) {
    const auto expand = [&] {
      return keywords.ExpandKeywords(mask, BaseNameOf(fullName), fullName, "/d/",
                                     ExtensionOf(fullName));
    };
    const std::string result = expand();
    Require(result.size() <= std::max(longest, mask.size()));
    Require(result == expand());
    Require(mask.find('<') != std::string::npos || result == mask);
  }
  RequireTagName(mask, disk, name + ".mp3");
  RequireColours(mask, AdvancedKeywords());
  RequireColours(mask, TagKeywords());
  return 0;
}
