// Names and paths as text: what may be a name, what a filter matches, how paths are joined.
#include <algorithm>

#include "base/letter_case.h"
#include "base/text.h"
#include "platform/files.h"

namespace tallowbrook {
namespace {

constexpr std::size_t maxNameBytes = 255;

// Looks at all bytes without a branch, many at a time.
bool HoldsRefused(std::string_view name) {
  unsigned found = 0;
  for (const char c : name) {
    found |= unsigned(static_cast<unsigned char>(c) < 0x20) | (c == 0x7F) | (c == '/') | (c == '?');
  }
  return found != 0;
}

// A text that is read character by character and can be read again from a place before.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}
  bool AtEnd() const { return rest_.empty(); }
  char First() const { return rest_.empty() ? '\0' : rest_[0]; }
  // A name that has no extension is one whose extension is empty: "*.*" and "a.*" match it.
  bool MatchesTheEnd() const { return rest_.find_first_not_of(".*") == std::string_view::npos; }
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
      return pattern.MatchesTheEnd();
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
  return !HoldsRefused(name);
}

bool IsHiddenName(std::string_view name) {
  return name.starts_with('.');
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  // "*", "*.*" and their like match whatever there is; nearly every scan asks for one of them.
  if (pattern.starts_with('*') && pattern.ends_with('*') && Reader(pattern).MatchesTheEnd()) {
    return true;
  }
  // A dot at the very end asks for a name without extension.
  if (pattern.ends_with('.') && !name.ends_with('.') && name.find('.') != name.npos) return false;
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

std::string WithoutSlash(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  return std::string(path);
}

}  // namespace tallowbrook
