// The order of a folder's names: ignoring case, equal ones by bytes.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tallowbrook {

// The indexes of the names in their order, which is that of CompareIgnoringCase and then of the
// bytes. Made for a million names with much in common; they hold no NUL byte.
std::vector<std::uint32_t> OrderOfNames(std::span<const std::string_view> names);

}  // namespace tallowbrook
