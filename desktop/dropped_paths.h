// What was dropped on the list, as paths of any bytes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallowbrook {

// The local paths of a text/uri-list (RFC 2483): comment lines, other schemes and other hosts are
// passed over, percent-encoded bytes are decoded as bytes. A "%" without two hex digits stands
// for itself; a path with a NUL byte is none.
std::vector<std::string> DroppedPaths(std::string_view uriList);

}  // namespace tallowbrook
