#include "desktop/dropped_paths.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace tallowbrook {

namespace {

int HexDigit(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  return -1;
}

std::string PercentDecoded(std::string_view text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '%' && at + 2 < text.size() && HexDigit(text[at + 1]) >= 0 &&
        HexDigit(text[at + 2]) >= 0) {
      bytes += static_cast<char>(HexDigit(text[at + 1]) * 16 + HexDigit(text[at + 2]));
      at += 2;
    } else {
      bytes += text[at];
    }
  }
  return bytes;
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
  const auto same = [](unsigned char a, unsigned char b) {
    return std::tolower(a) == std::tolower(b);
  };
  if (text.size() < prefix.size() ||
      !std::equal(prefix.begin(), prefix.end(), text.begin(), same)) {
    return false;
  }
  text.remove_prefix(prefix.size());
  return true;
}

std::optional<std::string> LocalPath(std::string_view uri) {
  if (!TakePrefix(uri, "file:")) return {};
  if (TakePrefix(uri, "//")) TakePrefix(uri, "localhost");
  if (!uri.starts_with('/')) return {};
  std::string path = PercentDecoded(uri);
  if (path.find('\0') != std::string::npos) return {};
  return path;
}

}  // namespace

std::vector<std::string> DroppedPaths(std::string_view uriList) {
  std::vector<std::string> paths;
  while (!uriList.empty()) {
    const std::size_t end = std::min(uriList.find_first_of("\r\n"), uriList.size());
    if (std::optional<std::string> path = LocalPath(uriList.substr(0, end))) {
      paths.push_back(*std::move(path));
    }
    uriList.remove_prefix(std::min(end + 1, uriList.size()));
  }
  return paths;
}

}  // namespace tallowbrook
