// The words that masks may hold: what the picker offers, what is coloured in a mask, and what is
// taken out of a name that nothing was put in for.
#pragma once

#include <span>
#include <string_view>

namespace tallowbrook {

struct Keyword {
  std::string_view keyword;  // with its brackets
  std::string_view description;
};

// Of the advanced mask, in their order. Their letters count as they are: some differ in case alone.
// Of those with commas the user types over each "?".
std::span<const Keyword> AdvancedKeywords();
// Of the tag mask: first those of version 1, then those of version 2. They have no descriptions.
std::span<const Keyword> TagKeywords();

}  // namespace tallowbrook
