// Several texts out of one input.
#pragma once

#include <cstdint>
#include <string_view>

namespace tallowbrook {

// Each piece ends at a line feed; the last one may hold any bytes.
class Pieces {
 public:
  Pieces(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  std::string_view Next() {
    const std::string_view piece = rest_.substr(0, rest_.find('\n'));
    rest_.remove_prefix(piece.size() < rest_.size() ? piece.size() + 1 : piece.size());
    return piece;
  }
  // The first byte of a piece, 0 for an empty one.
  unsigned NextByte() {
    const std::string_view piece = Next();
    return piece.empty() ? 0 : static_cast<unsigned char>(piece[0]);
  }
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

}  // namespace tallowbrook
