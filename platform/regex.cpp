// Regular expressions by PCRE2, held to the ECMAScript grammar.
//
// PCRE2 reads a larger language. Its options bring the meaning of what both know in line; what
// only PCRE2 knows would surprise in a pattern written for the other, so a pass over the pattern
// takes it away first: letters escaped for no reason, POSIX classes, verbs.
#include "platform/regex.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <algorithm>
#include <cstdint>
#include <utility>

#include "base/text.h"

namespace tallowbrook {
namespace {

// Steps that a match may take from one place of a name before it counts as exploding: some
// milliseconds. An ordinary pattern needs thousands.
constexpr std::uint32_t matchLimit = 1'000'000;
constexpr std::uint32_t heapLimitKib = 16 * 1024;
constexpr std::size_t jitStackStart = 32 * 1024;
constexpr std::size_t jitStackLimit = 1024 * 1024;

constexpr std::uint32_t options = PCRE2_UTF | PCRE2_MATCH_INVALID_UTF | PCRE2_ALT_BSUX |
                                  PCRE2_DOLLAR_ENDONLY | PCRE2_ALLOW_EMPTY_CLASS |
                                  PCRE2_MATCH_UNSET_BACKREF | PCRE2_NEVER_BACKSLASH_C;

template <auto Free>
struct FreeBy {
  template <typename T>
  void operator()(T* object) const {
    Free(object);
  }
};
using Code = std::unique_ptr<pcre2_code, FreeBy<pcre2_code_free>>;
using CompileContext = std::unique_ptr<pcre2_compile_context, FreeBy<pcre2_compile_context_free>>;
using MatchContext = std::unique_ptr<pcre2_match_context, FreeBy<pcre2_match_context_free>>;
using MatchData = std::unique_ptr<pcre2_match_data, FreeBy<pcre2_match_data_free>>;
using JitStack = std::unique_ptr<pcre2_jit_stack, FreeBy<pcre2_jit_stack_free>>;

PCRE2_SPTR Units(std::string_view text) {
  return reinterpret_cast<PCRE2_SPTR>(text.empty() ? "" : text.data());
}

// Behind the character at `at`; beyond the text when it is at the end.
std::size_t BehindCharacter(std::string_view text, std::size_t at) {
  return at == text.size() ? at + 1 : at + FirstCharacter(text.substr(at)).length;
}

bool IsAsciiLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Writes a pattern of the ECMAScript grammar in PCRE2's.
class Translation {
 public:
  explicit Translation(std::string_view pattern) : rest_(pattern) {}
  // Nothing for a pattern that would reach into PCRE2's control verbs.
  std::optional<std::string> Result();

 private:
  void TakeEscape();
  void TakeClassStart();
  void TakeInClass();
  void Take(std::size_t count = 1) {
    result_.append(rest_.substr(0, count));
    rest_.remove_prefix(std::min(count, rest_.size()));
  }

  std::string_view rest_;
  std::string result_;
  bool inClass_ = false;
};

std::optional<std::string> Translation::Result() {
  while (!rest_.empty()) {
    if (rest_.starts_with("(*") && !inClass_) return std::nullopt;
    if (rest_[0] == '\\') {
      TakeEscape();
    } else if (inClass_) {
      TakeInClass();
    } else if (rest_[0] == '[') {
      TakeClassStart();
    } else {
      Take();
    }
  }
  return std::move(result_);
}

// An escaped letter without a meaning is the letter.
void Translation::TakeEscape() {
  constexpr std::string_view lettersWithMeaning = "dDwWsSbBtnfrcxu";
  const char escaped = rest_.size() > 1 ? rest_[1] : '\0';
  const bool isGroupName = rest_.starts_with("\\k<") && !inClass_;
  if (escaped == 'v') {
    result_ += "\\x0B";
    rest_.remove_prefix(2);
  } else if (IsAsciiLetter(escaped) && !isGroupName &&
             lettersWithMeaning.find(escaped) == std::string_view::npos) {
    rest_.remove_prefix(1);
    Take();
  } else {
    Take(2);
  }
}

// "[.", "[:" and "[=" begin a class like any other.
void Translation::TakeClassStart() {
  inClass_ = true;
  const char first = rest_.size() > 1 ? rest_[1] : '\0';
  if (first == '.' || first == ':' || first == '=') {
    Take();
    result_ += '\\';
    Take();
  } else {
    Take(first == '^' ? 2 : 1);
  }
}

void Translation::TakeInClass() {
  if (rest_[0] == ']') inClass_ = false;
  if (rest_[0] == '[') result_ += '\\';
  Take();
}

}  // namespace

struct Regex::State {
  Code code;
  MatchContext context;
  MatchData match;
  JitStack stack;  // null without JIT
  std::uint32_t groups = 0;

  // Prepares everything that matching needs; false if there is no memory for it.
  bool Prepare();
  // PCRE2's own number: above 0 for a match.
  int MatchFrom(std::string_view subject, std::size_t start) const;
  std::string_view Group(std::string_view subject, std::size_t group) const;
  // What "$" and `selector` stand for; nothing if they stand for themselves.
  std::optional<std::string_view> Insert(std::string_view subject, char selector) const;
  void AppendReplacement(std::string& result, std::string_view subject,
                         std::string_view replacement) const;
};

bool Regex::State::Prepare() {
  context.reset(pcre2_match_context_create(nullptr));
  match.reset(pcre2_match_data_create_from_pattern(code.get(), nullptr));
  if (context == nullptr || match == nullptr) return false;
  pcre2_set_match_limit(context.get(), matchLimit);
  pcre2_set_heap_limit(context.get(), heapLimitKib);
  pcre2_pattern_info(code.get(), PCRE2_INFO_CAPTURECOUNT, &groups);
  if (pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE) != 0) return true;
  stack.reset(pcre2_jit_stack_create(jitStackStart, jitStackLimit, nullptr));
  if (stack != nullptr) pcre2_jit_stack_assign(context.get(), nullptr, stack.get());
  return true;
}

// The direct way into the compiled code checks no subject. That is allowed here, since the
// pattern was compiled for subjects that aren't valid UTF-8.
int Regex::State::MatchFrom(std::string_view subject, std::size_t start) const {
  const auto run = stack != nullptr ? pcre2_jit_match : pcre2_match;
  return run(code.get(), Units(subject), subject.size(), start, 0, match.get(), context.get());
}

std::string_view Regex::State::Group(std::string_view subject, std::size_t group) const {
  const PCRE2_SIZE* ends = pcre2_get_ovector_pointer(match.get()) + 2 * group;
  return ends[0] == PCRE2_UNSET ? std::string_view{} : subject.substr(ends[0], ends[1] - ends[0]);
}

std::optional<std::string_view> Regex::State::Insert(std::string_view subject,
                                                     char selector) const {
  if (selector == '$') return "$";
  if (selector == '&') return Group(subject, 0);
  if (selector < '1' || selector > '9') return std::nullopt;
  const auto group = static_cast<std::uint32_t>(selector - '0');
  if (group > groups) return std::nullopt;
  return Group(subject, group);
}

void Regex::State::AppendReplacement(std::string& result, std::string_view subject,
                                     std::string_view replacement) const {
  while (!replacement.empty() && result.size() <= maxResult) {
    const std::size_t dollar = replacement.find('$');
    result.append(replacement.substr(0, dollar));
    if (dollar == std::string_view::npos) return;
    replacement.remove_prefix(dollar);
    const auto insert = replacement.size() > 1 ? Insert(subject, replacement[1]) : std::nullopt;
    result.append(insert.value_or("$"));
    replacement.remove_prefix(insert ? 2 : 1);
  }
}

Regex::Regex(std::unique_ptr<State> state) : state_(std::move(state)) {}
Regex::Regex(Regex&&) noexcept = default;
Regex& Regex::operator=(Regex&&) noexcept = default;
Regex::~Regex() = default;

std::optional<Regex> Regex::Compile(std::string_view pattern, bool ignoreCase) {
  const std::optional<std::string> translated = Translation(pattern).Result();
  const CompileContext context(pcre2_compile_context_create(nullptr));
  if (!translated || context == nullptr) return std::nullopt;
  pcre2_set_newline(context.get(), PCRE2_NEWLINE_ANYCRLF);
  int error;
  PCRE2_SIZE errorPlace;
  auto state = std::make_unique<State>();
  state->code.reset(pcre2_compile(Units(*translated), translated->size(),
                                  ignoreCase ? options | PCRE2_CASELESS : options, &error,
                                  &errorPlace, context.get()));
  if (state->code == nullptr || !state->Prepare()) return std::nullopt;
  return Regex(std::move(state));
}

// An empty match lets one character pass, so that the next one is looked for behind it; where a
// match ended, an empty one may still follow.
std::optional<std::string> Regex::Replace(std::string_view subject, std::string_view replacement,
                                          bool all) const {
  std::string result;
  std::size_t copied = 0;
  std::size_t from = 0;
  do {
    const int found = state_->MatchFrom(subject, from);
    if (found == PCRE2_ERROR_NOMATCH) break;
    if (found < 0) return std::nullopt;
    const PCRE2_SIZE* ends = pcre2_get_ovector_pointer(state_->match.get());
    result.append(subject, copied, ends[0] - copied);
    state_->AppendReplacement(result, subject, replacement);
    if (result.size() > maxResult) return std::nullopt;
    copied = ends[1];
    from = ends[0] == ends[1] ? BehindCharacter(subject, copied) : copied;
  } while (all && from <= subject.size());
  result.append(subject, copied);
  if (result.size() > maxResult) return std::nullopt;
  return result;
}

}  // namespace tallowbrook
