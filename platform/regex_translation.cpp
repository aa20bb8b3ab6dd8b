// One pass over the pattern, term by term, after a look ahead at its groups: what "\3" and
// "\k<x>" mean depends on the groups of the whole pattern.
#include "platform/regex_translation.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/text.h"

namespace tallowbrook {
namespace {

// What "\s" stands for; PCRE2's own knows the first six.
constexpr std::u32string_view blanks =
    U"\t\n\v\f\r \u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A"
    U"\u2028\u2029\u202F\u205F\u3000\uFEFF";

// The escaped letters that stand for a set of characters, and whether blanks are among them.
constexpr struct CharacterSet {
  char letter;
  bool holdsBlanks;
} characterSets[] = {{'d', false}, {'D', true}, {'w', false},
                     {'W', true},  {'s', true}, {'S', false}};

constexpr std::string_view noLineEnd = "[^\\n\\r\\x{2028}\\x{2029}]";
constexpr std::string_view noCharacter = "[]";

constexpr struct {
  char letter, control;
} controlEscapes[] = {{'f', '\f'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'v', '\v'}};

constexpr struct {
  std::string_view start;
  bool repeatable;
} groupStarts[] = {{"(?:", true}, {"(?=", true}, {"(?!", true}, {"(?<=", false}, {"(?<!", false}};

bool IsAsciiLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// "\c" takes a letter; in a class also these.
bool IsControlLetter(char c, bool inClass) {
  return IsAsciiLetter(c) || (inClass && (IsDigit(c) || c == '_'));
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::optional<char32_t> HexNumber(std::string_view text, std::size_t digits) {
  if (text.size() < digits) return std::nullopt;
  char32_t number = 0;
  for (const char c : text.substr(0, digits)) {
    const int digit = HexDigit(c);
    if (digit < 0) return std::nullopt;
    number = number * 16 + static_cast<char32_t>(digit);
  }
  return number;
}

bool IsHighSurrogate(char32_t code) {
  return code >= 0xD800 && code <= 0xDBFF;
}

bool IsLowSurrogate(char32_t code) {
  return code >= 0xDC00 && code <= 0xDFFF;
}

bool IsHalfOfPair(char32_t code) {
  return IsHighSurrogate(code) || IsLowSurrogate(code);
}

char At(std::string_view text, std::size_t at) {
  return at < text.size() ? text[at] : '\0';
}

// Takes the digits at the start of `text`; nothing without one. A number beyond every use stays
// at the largest.
std::optional<std::uint32_t> TakeNumber(std::string_view& text) {
  if (!IsDigit(At(text, 0))) return std::nullopt;
  constexpr std::uint32_t largest = 1'000'000;
  std::uint32_t number = 0;
  for (; IsDigit(At(text, 0)); text.remove_prefix(1)) {
    number = std::min(number * 10 + static_cast<std::uint32_t>(text[0] - '0'), largest);
  }
  return number;
}

// Takes "x>" behind "(?<" or "\k<"; nothing if that is no name.
std::optional<std::string_view> TakeGroupName(std::string_view& text) {
  const std::string_view name = text.substr(0, text.find('>'));
  if (name.empty() || name.size() == text.size() || IsDigit(name[0])) return std::nullopt;
  const bool wellFormed = std::all_of(name.begin(), name.end(), [](char c) {
    return IsAsciiLetter(c) || IsDigit(c) || c == '_' || c == '$' || (c & 0x80) != 0;
  });
  if (!wellFormed) return std::nullopt;
  text.remove_prefix(name.size() + 1);
  return name;
}

bool StartsNamedGroup(std::string_view text) {
  return text.starts_with("(?<") && At(text, 3) != '=' && At(text, 3) != '!';
}

// The groups that a pattern's back references may name: one element each, empty without a name.
class Groups {
 public:
  explicit Groups(std::string_view pattern);
  std::size_t Count() const { return names_.size(); }
  bool Named() const { return named_; }
  // From 1; 0 for a name that no group has.
  std::size_t NumberOf(std::string_view name) const;
  bool NamesDiffer() const;

 private:
  void Add(std::string_view group);

  std::vector<std::string_view> names_;
  bool named_ = false;
};

Groups::Groups(std::string_view pattern) {
  bool inClass = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char c = pattern[i];
    if (c == '\\') ++i;
    if (c == '[') inClass = true;
    if (c == ']') inClass = false;
    if (c == '(' && !inClass) Add(pattern.substr(i));
  }
}

void Groups::Add(std::string_view group) {
  if (StartsNamedGroup(group)) {
    group.remove_prefix(3);
    names_.push_back(TakeGroupName(group).value_or(""));
    named_ = true;
  } else if (At(group, 1) != '?') {
    names_.emplace_back();
  }
}

std::size_t Groups::NumberOf(std::string_view name) const {
  const auto found = std::find(names_.begin(), names_.end(), name);
  return found == names_.end() ? 0 : static_cast<std::size_t>(found - names_.begin()) + 1;
}

bool Groups::NamesDiffer() const {
  std::vector<std::string_view> names = names_;
  std::erase(names, "");
  std::sort(names.begin(), names.end());
  return std::adjacent_find(names.begin(), names.end()) == names.end();
}

void AppendLiteral(std::string& text, char32_t code) {
  constexpr std::u32string_view meaningful = U"\\^$.*+?()[]{}|-";
  if (meaningful.find(code) != std::u32string_view::npos) text += '\\';
  AppendCharacter(text, code);
}

void AppendLiterals(std::string& text, std::u32string_view codes) {
  for (const char32_t code : codes) AppendLiteral(text, code);
}

const CharacterSet* FindCharacterSet(char letter) {
  const auto* found = std::find_if(std::begin(characterSets), std::end(characterSets),
                                   [=](const CharacterSet& set) { return set.letter == letter; });
  return found == std::end(characterSets) ? nullptr : found;
}

// A part of a class: a set, or one character if there is none.
struct ClassAtom {
  const CharacterSet* set;
  char32_t code;
};

// The members of a class. PCRE2 has no word for all but these blanks, and listing them takes
// long where case is ignored. So a class with "\S" is written by its complement, the blanks that
// it lacks.
class ClassMembers {
 public:
  void Add(const CharacterSet& set);
  void Add(char32_t first, char32_t last);
  std::string Written(bool negated) const;

 private:
  std::string listed_;
  std::u32string missingBlanks_{blanks};
  bool allButBlanks_ = false;
};

void ClassMembers::Add(const CharacterSet& set) {
  if (set.holdsBlanks) missingBlanks_.clear();
  if (set.letter == 'S') {
    allButBlanks_ = true;
  } else if (set.letter == 's') {
    AppendLiterals(listed_, blanks);
  } else {
    listed_ += '\\';
    listed_ += set.letter;
  }
}

// Halves of pairs are no characters: the range goes without them at its ends.
void ClassMembers::Add(char32_t first, char32_t last) {
  if (IsHalfOfPair(first)) first = 0xE000;
  if (IsHalfOfPair(last)) last = 0xD7FF;
  if (first > last) return;
  std::erase_if(missingBlanks_, [=](char32_t blank) { return blank >= first && blank <= last; });
  AppendLiteral(listed_, first);
  if (first == last) return;
  listed_ += '-';
  AppendLiteral(listed_, last);
}

std::string ClassMembers::Written(bool negated) const {
  std::string written = negated != allButBlanks_ ? "[^" : "[";
  if (allButBlanks_) {
    AppendLiterals(written, missingBlanks_);
  } else {
    written += listed_;
  }
  return written + "]";
}

struct Bounds {
  std::uint32_t least;
  std::optional<std::uint32_t> most;
};

// Each Take reads one thing from the head of what is left, and answers false or nothing where
// the grammar knows no such thing.
class Translation {
 public:
  Translation(std::string_view pattern, unsigned longest)
      : groups_(pattern), longest_(longest), rest_(pattern) {}
  std::optional<RegexTranslation> Result();

 private:
  bool TakeTerm();
  bool TakeGroupStart();
  bool TakeGroupEnd();
  bool TakeBrace();
  std::optional<Bounds> TakeBounds();
  bool TakeQuantifier(std::string_view written);
  bool TakeEscape();
  bool TakeBackReference();
  bool TakeNamedReference();
  bool TakeClass();
  bool TakeClassRange(ClassMembers& members);
  std::optional<ClassAtom> TakeClassAtom();
  // At a backslash; what an escape means that stands for one character.
  std::optional<char32_t> TakeCharacterEscape(bool inClass);
  char32_t TakeControlEscape(bool inClass);
  char32_t TakeUnicodeEscape();
  char32_t TakeOctalEscape();
  char32_t TakeCharacter();

  // Takes `count` bytes of the pattern for `written`.
  bool Put(std::size_t count, std::string_view written, bool repeatable = true);
  bool PutLiteral(char32_t code);
  bool PutReference(std::size_t group);
  bool PutSet(const CharacterSet& set);

  const Groups groups_;
  const unsigned longest_;
  std::string_view rest_;
  RegexTranslation result_;
  // Whether a quantifier may follow here, and behind each group that is open.
  bool repeatable_ = false;
  std::vector<bool> open_;
};

std::optional<RegexTranslation> Translation::Result() {
  if (!groups_.NamesDiffer()) return std::nullopt;
  while (!rest_.empty()) {
    if (!TakeTerm()) return std::nullopt;
  }
  return std::move(result_);
}

bool Translation::Put(std::size_t count, std::string_view written, bool repeatable) {
  rest_.remove_prefix(count);
  result_.pattern += written;
  repeatable_ = repeatable;
  return true;
}

bool Translation::TakeTerm() {
  switch (rest_[0]) {
    case '\\':
      return TakeEscape();
    case '[':
      return TakeClass();
    case '(':
      return TakeGroupStart();
    case ')':
      return TakeGroupEnd();
    case '{':
      return TakeBrace();
    case '*':
    case '+':
    case '?':
      return TakeQuantifier(rest_.substr(0, 1));
    case '.':
      return Put(1, noLineEnd);
    case '|':
    case '^':
    case '$':
      return Put(1, rest_.substr(0, 1), false);
    default:
      return PutLiteral(TakeCharacter());
  }
}

// Groups have numbers only, which are all that a reference needs.
bool Translation::TakeGroupStart() {
  for (const auto& [start, repeatable] : groupStarts) {
    if (!rest_.starts_with(start)) continue;
    open_.push_back(repeatable);
    return Put(start.size(), start, false);
  }
  const bool named = StartsNamedGroup(rest_);
  if (!named && At(rest_, 1) == '?') return false;
  open_.push_back(true);
  Put(named ? 3 : 1, "(", false);
  return !named || TakeGroupName(rest_);
}

bool Translation::TakeGroupEnd() {
  if (open_.empty()) return false;
  const bool repeatable = open_.back();
  open_.pop_back();
  return Put(1, ")", repeatable);
}

// A brace that opens no count is itself.
bool Translation::TakeBrace() {
  const std::optional<Bounds> bounds = TakeBounds();
  if (!bounds) return PutLiteral(TakeCharacter());
  if (bounds->most && *bounds->most < bounds->least) return false;
  std::string written = "{" + std::to_string(std::min(bounds->least, longest_ + 1)) + ",";
  if (bounds->most && *bounds->most <= longest_) written += std::to_string(*bounds->most);
  return TakeQuantifier(written + "}");
}

std::optional<Bounds> Translation::TakeBounds() {
  std::string_view text = rest_.substr(1);
  const std::optional<std::uint32_t> least = TakeNumber(text);
  if (!least) return std::nullopt;
  Bounds bounds = {*least, least};
  if (At(text, 0) == ',') {
    text.remove_prefix(1);
    bounds.most = TakeNumber(text);
  }
  if (At(text, 0) != '}') return std::nullopt;
  rest_ = text;
  return bounds;
}

// With the quantifier's last byte still in place.
bool Translation::TakeQuantifier(std::string_view written) {
  if (!repeatable_) return false;
  Put(1, written, false);
  return At(rest_, 0) != '?' || Put(1, "?", false);
}

bool Translation::TakeEscape() {
  const char escaped = At(rest_, 1);
  if (const CharacterSet* set = FindCharacterSet(escaped)) return PutSet(*set);
  if (escaped == 'b' || escaped == 'B') return Put(2, rest_.substr(0, 2), false);
  if (escaped == 'k' && groups_.Named()) return TakeNamedReference();
  if (escaped >= '1' && escaped <= '9' && TakeBackReference()) return true;
  const std::optional<char32_t> code = TakeCharacterEscape(false);
  return code && PutLiteral(*code);
}

bool Translation::PutSet(const CharacterSet& set) {
  if (set.letter != 's' && set.letter != 'S') return Put(2, rest_.substr(0, 2));
  ClassMembers members;
  members.Add(set);
  return Put(2, members.Written(false));
}

bool Translation::TakeBackReference() {
  std::string_view behind = rest_.substr(1);
  const std::size_t group = TakeNumber(behind).value_or(0);
  if (group > groups_.Count()) return false;
  rest_ = behind;
  return PutReference(group);
}

bool Translation::TakeNamedReference() {
  if (!rest_.starts_with("\\k<")) return false;
  rest_.remove_prefix(3);
  const std::optional<std::string_view> name = TakeGroupName(rest_);
  const std::size_t group = name ? groups_.NumberOf(*name) : 0;
  return group != 0 && PutReference(group);
}

bool Translation::PutReference(std::size_t group) {
  ++result_.backReferences;
  return Put(0, "\\g{" + std::to_string(group) + "}");
}

bool Translation::TakeClass() {
  const bool negated = At(rest_, 1) == '^';
  rest_.remove_prefix(negated ? 2 : 1);
  ClassMembers members;
  while (At(rest_, 0) != ']') {
    if (!TakeClassRange(members)) return false;
  }
  return Put(1, members.Written(negated));
}

// A "-" beside a set joins nothing and is itself.
bool Translation::TakeClassRange(ClassMembers& members) {
  const std::optional<ClassAtom> first = TakeClassAtom();
  if (!first) return false;
  const bool joined = At(rest_, 0) == '-' && At(rest_, 1) != ']';
  if (joined) rest_.remove_prefix(1);
  const std::optional<ClassAtom> last = joined ? TakeClassAtom() : first;
  if (!last) return false;
  if (first->set == nullptr && last->set == nullptr) {
    members.Add(first->code, last->code);
    return first->code <= last->code;
  }
  if (joined) members.Add('-', '-');
  for (const ClassAtom& atom : {*first, *last}) {
    atom.set != nullptr ? members.Add(*atom.set) : members.Add(atom.code, atom.code);
  }
  return true;
}

std::optional<ClassAtom> Translation::TakeClassAtom() {
  if (rest_.empty()) return std::nullopt;
  if (rest_[0] != '\\') return ClassAtom{nullptr, TakeCharacter()};
  if (const CharacterSet* set = FindCharacterSet(At(rest_, 1))) {
    rest_.remove_prefix(2);
    return ClassAtom{set, 0};
  }
  const std::optional<char32_t> code = TakeCharacterEscape(true);
  return code ? std::optional(ClassAtom{nullptr, *code}) : std::nullopt;
}

// An escape without a meaning of its own stands for the character behind the backslash.
std::optional<char32_t> Translation::TakeCharacterEscape(bool inClass) {
  if (rest_.size() == 1) return std::nullopt;
  rest_.remove_prefix(1);
  const char escaped = rest_[0];
  if (escaped == 'c') return TakeControlEscape(inClass);
  if (escaped == 'u') return TakeUnicodeEscape();
  if (escaped >= '0' && escaped <= '7') return TakeOctalEscape();
  const char32_t itself = TakeCharacter();
  if (escaped == 'b' && inClass) return U'\b';
  for (const auto& [letter, control] : controlEscapes) {
    if (letter == escaped) return static_cast<char32_t>(control);
  }
  const std::optional<char32_t> hex = escaped == 'x' ? HexNumber(rest_, 2) : std::nullopt;
  if (hex) rest_.remove_prefix(2);
  return hex.value_or(itself);
}

// A backslash before a "c" that controls nothing is itself.
char32_t Translation::TakeControlEscape(bool inClass) {
  const char letter = At(rest_, 1);
  if (!IsControlLetter(letter, inClass)) return U'\\';
  rest_.remove_prefix(2);
  return static_cast<char32_t>(letter & 0x1F);
}

char32_t Translation::TakeUnicodeEscape() {
  rest_.remove_prefix(1);
  const std::optional<char32_t> code = HexNumber(rest_, 4);
  if (!code) return U'u';
  rest_.remove_prefix(4);
  if (!IsHighSurrogate(*code) || !rest_.starts_with("\\u")) return *code;
  const std::optional<char32_t> low = HexNumber(rest_.substr(2), 4);
  if (!low || !IsLowSurrogate(*low)) return *code;
  rest_.remove_prefix(6);
  return 0x10000 + ((*code - 0xD800) << 10) + (*low - 0xDC00);
}

// Up to the largest that a byte holds.
char32_t Translation::TakeOctalEscape() {
  char32_t code = 0;
  for (int i = 0; i < 3 && At(rest_, 0) >= '0' && At(rest_, 0) <= '7' && code < 040; ++i) {
    code = code * 8 + static_cast<char32_t>(rest_[0] - '0');
    rest_.remove_prefix(1);
  }
  return code;
}

char32_t Translation::TakeCharacter() {
  const Character character = FirstCharacter(rest_);
  rest_.remove_prefix(character.length);
  return character.code;
}

// Half a pair is no character, so that no text holds it.
bool Translation::PutLiteral(char32_t code) {
  if (IsHalfOfPair(code)) return Put(0, noCharacter);
  AppendLiteral(result_.pattern, code);
  return Put(0, "");
}

}  // namespace

std::optional<RegexTranslation> TranslateRegex(std::string_view pattern, unsigned longest) {
  return Translation(pattern, longest).Result();
}

}  // namespace tallowbrook
