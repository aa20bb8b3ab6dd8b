// Tags built field by field, as they stand in files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tallowbrook {

// The last `width` bytes of the number, highest first.
inline std::string BigEndianBytes(std::uint32_t number, int width = 4) {
  std::string bytes;
  for (int shift = (width - 1) * 8; shift >= 0; shift -= 8) {
    bytes += static_cast<char>(number >> shift);
  }
  return bytes;
}

inline std::string FrameHead(std::string_view id, std::uint32_t size) {
  return std::string(id) + BigEndianBytes(size) + std::string(2, '\0');
}

// Of versions 3 and 4; the payload as it stands in the file, encoding byte included.
inline std::string FrameBytes(std::string_view id, std::string_view payload) {
  return FrameHead(id, static_cast<std::uint32_t>(payload.size())).append(payload);
}

// A text in the first encoding.
inline std::string TextFrame(std::string_view id, std::string_view text) {
  return FrameBytes(id, std::string(1, '\0').append(text));
}

// Of version 2.
inline std::string ShortFrame(std::string_view id, std::string_view payload) {
  return std::string(id) + BigEndianBytes(static_cast<std::uint32_t>(payload.size()), 3) +
         std::string(payload);
}

inline std::string TagBytes(int version, std::uint32_t size, std::string_view frames) {
  return std::string("ID3") + static_cast<char>(version) + std::string(2, '\0') +
         BigEndianBytes(size) + std::string(frames);
}

// The text filled up to `width` bytes.
inline std::string Filled(std::string_view text, std::size_t width, char filler = ' ') {
  std::string bytes(text);
  bytes.resize(width, filler);
  return bytes;
}

}  // namespace tallowbrook
