// The order of a folder's names, ignoring case, equal ones by bytes; and that of the list's texts.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tallowbrook {

// The indexes of the names in their order, which is that of CompareIgnoringCase and then of the
// bytes. Made for a million names with much in common; they hold no NUL byte.
std::vector<std::uint32_t> OrderOfNames(std::span<const std::string_view> names);

// The indexes of keys, each ended by a NUL byte, in the order of their bytes or its reverse; equal
// ones stay as they stand.
std::vector<std::uint32_t> OrderOfKeys(const std::string& keys, std::size_t count, bool ascending);

}  // namespace tallowbrook
