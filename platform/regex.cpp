// Regular expressions by PCRE2: the search, its limits, and the replacement.
//
// PCRE2 counts the steps of a match from each place of a name anew, so that its limit alone bounds
// no search. A search therefore runs twice at most. The light one has few steps a place: enough
// for nearly every pattern, and with all of PCRE2's short cuts. Where they don't suffice, the
// heavy one looks through all places in one match that a single limit bounds.
#include "platform/regex.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/text.h"
#include "platform/regex_stray_bytes.h"
#include "platform/regex_translation.h"

namespace tallowbrook {
namespace {

// Steps of a light search, shared by the places of a name, and of a heavy one. A step may run
// over all of the name and compare it with all of the pattern, most dearly with what its groups
// hold; so that every search has the same time, what is long gets fewer steps.
constexpr std::size_t lightSteps = 50'000;
constexpr std::size_t leastLightSteps = 20;  // from one place
constexpr std::size_t heavySteps = 100'000;
constexpr std::size_t longName = 256;
constexpr std::size_t longPattern = 128;
constexpr std::size_t manyReferences = 2;
constexpr int heavySearches = 8;
constexpr std::uint32_t heapLimitKib = 16 * 1024;
constexpr std::size_t jitStackStart = 32 * 1024;
constexpr std::size_t jitStackLimit = 1024 * 1024;

constexpr std::uint32_t options =
    PCRE2_UTF | PCRE2_DOLLAR_ENDONLY | PCRE2_ALLOW_EMPTY_CLASS | PCRE2_MATCH_UNSET_BACKREF;

template <auto Free>
struct FreeBy {
  template <typename T>
  void operator()(T* object) const {
    Free(object);
  }
};
using CompiledCode = std::unique_ptr<pcre2_code, FreeBy<pcre2_code_free>>;
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

// A pattern in PCRE2's form, and in the machine's where there is JIT.
struct Code {
  CompiledCode code;
  bool jit = false;

  // False for what is no pattern.
  bool Compile(std::string_view pattern, bool ignoreCase);
};

bool Code::Compile(std::string_view pattern, bool ignoreCase) {
  const CompileContext context(pcre2_compile_context_create(nullptr));
  if (context == nullptr) return false;
  pcre2_set_newline(context.get(), PCRE2_NEWLINE_LF);
  int error;
  PCRE2_SIZE errorPlace;
  code.reset(pcre2_compile(Units(pattern), pattern.size(),
                           ignoreCase ? options | PCRE2_CASELESS : options, &error, &errorPlace,
                           context.get()));
  jit = code != nullptr && pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE) == 0;
  return code != nullptr;
}

}  // namespace

// One text of a replacement, and the group that comes behind it; none behind the last.
struct ReplacementPiece {
  std::string text;
  std::optional<std::uint32_t> group;
};

struct Regex::State {
  std::string pattern;            // translated
  std::size_t patternWeight = 1;  // what a step costs, in steps by a short pattern
  bool ignoreCase = false;
  // Whether stand-ins in the pattern mean stray bytes, or are what its writer wrote.
  bool hasStrayBytes = false;
  bool holdsStandIns = false;
  std::uint32_t groups = 0;
  std::uint32_t leastLength = 0;  // of a match, in characters
  Code light;
  std::optional<Code> heavy;  // from the first heavy search on
  MatchContext context;
  MatchData match;
  JitStack stack;
  int heavySearchesLeft = 0;
  // The replacement asked for last, mostly the one of all names, in pieces.
  std::optional<std::string> parsed;
  std::vector<ReplacementPiece> pieces;

  // False if the pattern is none, or if there is no memory for it.
  bool Prepare();
  // PCRE2's own number: above 0 for a match.
  int Search(std::string_view subject, std::size_t start);
  std::size_t Dearness(std::string_view subject) const;
  int SearchHeavily(std::string_view subject, std::size_t start);
  int Run(const Code& code, std::size_t steps, std::string_view subject, std::size_t start);
  std::optional<std::string> Replace(std::string_view subject, std::string_view text, bool all);
  std::optional<std::string> ReplaceInBytes(std::string_view subject, std::string_view replacement,
                                            bool all);
  std::string_view Group(std::string_view subject, std::size_t group) const;
  void Parse(std::string_view text);
  // The group that "$" and `selector` stand for; nothing if they stand for something else.
  std::optional<std::uint32_t> GroupOf(char selector) const;
  void AppendReplacement(std::string& result, std::string_view subject) const;
};

bool Regex::State::Prepare() {
  if (!light.Compile(pattern, ignoreCase)) return false;
  context.reset(pcre2_match_context_create(nullptr));
  match.reset(pcre2_match_data_create_from_pattern(light.code.get(), nullptr));
  stack.reset(pcre2_jit_stack_create(jitStackStart, jitStackLimit, nullptr));
  if (context == nullptr || match == nullptr) return false;
  pcre2_set_heap_limit(context.get(), heapLimitKib);
  if (stack != nullptr) pcre2_jit_stack_assign(context.get(), nullptr, stack.get());
  pcre2_pattern_info(light.code.get(), PCRE2_INFO_CAPTURECOUNT, &groups);
  pcre2_pattern_info(light.code.get(), PCRE2_INFO_MINLENGTH, &leastLength);
  return true;
}

// What a step may cost, in steps over a short name by a short pattern.
std::size_t Regex::State::Dearness(std::string_view subject) const {
  return (1 + subject.size() / longName) * patternWeight;
}

int Regex::State::Search(std::string_view subject, std::size_t start) {
  const std::size_t steps = lightSteps / Dearness(subject) / (subject.size() + 1);
  const int found = Run(light, std::max(steps, leastLightSteps), subject, start);
  return found == PCRE2_ERROR_MATCHLIMIT ? SearchHeavily(subject, start) : found;
}

int Regex::State::SearchHeavily(std::string_view subject, std::size_t start) {
  if (heavySearchesLeft == 0) return PCRE2_ERROR_MATCHLIMIT;
  --heavySearchesLeft;
  if (!heavy) heavy.emplace().Compile("\\G(?s:.)*?\\K(?:" + pattern + ")", ignoreCase);
  if (heavy->code == nullptr) return PCRE2_ERROR_MATCHLIMIT;
  return Run(*heavy, heavySteps / Dearness(subject), subject, start);
}

// Subjects are valid UTF-8 and need no check; the direct way into the machine's code has none.
int Regex::State::Run(const Code& code, std::size_t steps, std::string_view subject,
                      std::size_t start) {
  pcre2_set_match_limit(context.get(), static_cast<std::uint32_t>(steps));
  const auto run = code.jit ? pcre2_jit_match : pcre2_match;
  return run(code.code.get(), Units(subject), subject.size(), start, PCRE2_NO_UTF_CHECK,
             match.get(), context.get());
}

std::string_view Regex::State::Group(std::string_view subject, std::size_t group) const {
  const PCRE2_SIZE* ends = pcre2_get_ovector_pointer(match.get()) + 2 * group;
  if (ends[0] >= ends[1]) return {};  // empty, or unset, which is the largest number twice
  return {subject.data() + ends[0], ends[1] - ends[0]};
}

std::optional<std::uint32_t> Regex::State::GroupOf(char selector) const {
  if (selector == '&') return 0;
  if (selector < '1' || selector > '9') return std::nullopt;
  const auto group = static_cast<std::uint32_t>(selector - '0');
  return group <= groups ? std::optional(group) : std::nullopt;
}

void Regex::State::Parse(std::string_view text) {
  if (parsed == text) return;
  parsed = text;
  pieces.assign(1, {});
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char selector = text[at] == '$' && at + 1 < text.size() ? text[at + 1] : '\0';
    if (const auto group = GroupOf(selector)) {
      pieces.back().group = group;
      pieces.emplace_back();
      ++at;
    } else {
      pieces.back().text += text[at];
      if (selector == '$') ++at;
    }
  }
}

void Regex::State::AppendReplacement(std::string& result, std::string_view subject) const {
  for (const ReplacementPiece& piece : pieces) {
    if (result.size() > maxResult) return;
    result.append(piece.text);
    if (piece.group) result.append(Group(subject, *piece.group));
  }
}

// An empty match lets one character pass, so that the next one is looked for behind it; where a
// match ended, an empty one may still follow.
std::optional<std::string> Regex::State::Replace(std::string_view subject, std::string_view text,
                                                 bool all) {
  Parse(text);
  std::string result;
  std::size_t copied = 0;
  std::size_t from = 0;
  do {
    const int found = Search(subject, from);
    if (found == PCRE2_ERROR_NOMATCH) break;
    if (found < 0) return std::nullopt;
    const PCRE2_SIZE* ends = pcre2_get_ovector_pointer(match.get());
    result.append(subject, copied, ends[0] - copied);
    AppendReplacement(result, subject);
    if (result.size() > maxResult) return std::nullopt;
    copied = ends[1];
    from = ends[0] == ends[1] ? BehindCharacter(subject, copied) : copied;
  } while (all && from + leastLength <= subject.size());
  result.append(subject, copied);
  if (result.size() > maxResult) return std::nullopt;
  return result;
}

std::optional<std::string> Regex::State::ReplaceInBytes(std::string_view subject,
                                                        std::string_view replacement, bool all) {
  if (IsValidUtf8(subject)) {
    if (hasStrayBytes && HoldsStandIns(subject)) return std::nullopt;
    return Replace(subject, replacement, all);
  }
  const std::optional<std::string> within = WithStandIns(subject);
  const std::optional<std::string> put = WithStandIns(replacement);
  if (!within || !put || holdsStandIns) return std::nullopt;
  const std::optional<std::string> result = Replace(*within, *put, all);
  return result ? std::optional(WithoutStandIns(*result)) : std::nullopt;
}

Regex::Regex(std::unique_ptr<State> state) : state_(std::move(state)) {}
Regex::Regex(Regex&&) noexcept = default;
Regex& Regex::operator=(Regex&&) noexcept = default;
Regex::~Regex() = default;

std::optional<Regex> Regex::Compile(std::string_view pattern, bool ignoreCase) {
  auto state = std::make_unique<State>();
  state->ignoreCase = ignoreCase;
  state->hasStrayBytes = !IsValidUtf8(pattern);
  state->holdsStandIns = HoldsStandIns(pattern);
  const std::optional<std::string> valid =
      state->hasStrayBytes ? WithStandIns(pattern) : std::string(pattern);
  const auto translation = valid ? TranslateRegex(*valid, maxResult) : std::nullopt;
  if (!translation) return std::nullopt;
  state->pattern = translation->pattern;
  state->patternWeight =
      1 + pattern.size() / longPattern + translation->backReferences / manyReferences;
  if (!state->Prepare()) return std::nullopt;
  return Regex(std::move(state));
}

std::optional<std::string> Regex::Replace(std::string_view subject, std::string_view replacement,
                                          bool all) const {
  state_->heavySearchesLeft = heavySearches;
  return state_->ReplaceInBytes(subject, replacement, all);
}

std::optional<std::string> Regex::ReplaceInTurn(std::string_view subject,
                                                std::string_view replacement, int times) const {
  state_->heavySearchesLeft = heavySearches;
  std::optional<std::string> text(subject);
  for (int turn = 0; turn < times; ++turn) {
    std::optional<std::string> next = state_->ReplaceInBytes(*text, replacement, false);
    if (!next && turn == 0) return std::nullopt;
    if (!next || *next == *text) break;
    text = std::move(next);
  }
  return text;
}

}  // namespace tallowbrook
