// Names and paths as text: what may be a name, what a filter matches, how paths are joined.
#include <algorithm>

#include "base/letter_case.h"
#include "base/text.h"
#include "platform/files.h"

namespace tallowbrook {
namespace {

constexpr std::size_t maxNameBytes = 255;
constexpr std::string_view anyName = "*.*";

bool IsRefusedInNames(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F || c == '/' || c == '?';
}

// "*.*" was the filter for everything when each name had a dot; it still is one without.
std::string_view WithoutAnyExtension(std::string_view pattern) {
  if (pattern.ends_with(anyName)) pattern.remove_suffix(2);
  return pattern;
}

// A text that is read character by character and can be read again from a place before.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}
  bool AtEnd() const { return rest_.empty(); }
  char First() const { return rest_.empty() ? '\0' : rest_[0]; }
  char32_t Take() {
    const Character character = FirstCharacter(rest_);
    rest_.remove_prefix(character.length);
    return FoldCase(character.code);
  }

 private:
  std::string_view rest_;
};

// Takes one character of the name and what stands for it; false if they differ.
bool TakePair(Reader& name, Reader& pattern) {
  if (pattern.AtEnd()) return false;
  const bool wild = pattern.First() == '?';
  const char32_t wanted = pattern.Take();
  return name.Take() == wanted || wild;
}

// Only the last star met is ever tried again: what an earlier one could take more, this one can
// as well. Time is thus bounded by the product of the lengths.
bool MatchesWildcards(Reader name, Reader pattern) {
  Reader nameAtStar = name;
  Reader behindStar = pattern;
  bool starSeen = false;
  for (;;) {
    if (pattern.First() == '*') {
      pattern.Take();
      starSeen = true;
      nameAtStar = name;
      behindStar = pattern;
    } else if (name.AtEnd()) {
      return pattern.AtEnd();
    } else if (!TakePair(name, pattern)) {
      if (!starSeen) return false;
      nameAtStar.Take();
      name = nameAtStar;
      pattern = behindStar;
    }
  }
}

}  // namespace

bool IsValidName(std::string_view name) {
  if (name.empty() || name.size() > maxNameBytes) return false;
  if (name == "." || name == "..") return false;
  return std::none_of(name.begin(), name.end(), IsRefusedInNames);
}

bool IsHiddenName(std::string_view name) {
  return name.starts_with('.');
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  pattern = WithoutAnyExtension(pattern);
  if (pattern == "*") return true;
  return MatchesWildcards(Reader(name), Reader(pattern));
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  std::string path;
  path.reserve(folder.size() + 1 + name.size());
  path = folder;
  if (!path.empty() && path.back() != '/') path += '/';
  return path.append(name);
}

std::string WithSlash(std::string_view path) {
  return JoinPath(path, {});
}

}  // namespace tallowbrook
