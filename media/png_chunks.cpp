#include "media/png_chunks.h"

#include <algorithm>

namespace tallowbrook {

namespace {

using namespace std::string_view_literals;

constexpr auto signature = "\x89PNG\r\n\x1A\n"sv;
constexpr std::int64_t headSize = 8;       // a chunk's length and type
constexpr std::int64_t checksumSize = 4;   // behind its data
constexpr std::size_t headerEnd = 8 + 25;  // of the first chunk, behind the signature
constexpr std::uint32_t longestText = 4 << 10;
constexpr int mostChunks = 200'000;

struct Needed {
  std::string_view type;
  std::uint32_t longest;  // bytes of data
};

constexpr Needed needed[] = {{"IHDR", 13},      {"PLTE", 768},        {"tRNS", 256},
                             {"gAMA", 4},       {"cHRM", 32},         {"sRGB", 1},
                             {"iCCP", 1 << 20}, {"IDAT", 0x7FFFFFFF}, {"IEND", 0}};
constexpr std::string_view textTypes[] = {"tEXt", "zTXt", "iTXt"};

std::uint32_t BigEndian(std::string_view bytes) {
  std::uint32_t number = 0;
  for (const char c : bytes.substr(0, 4)) number = number << 8 | static_cast<unsigned char>(c);
  return number;
}

std::string BigEndian(std::uint32_t number) {
  std::string bytes(4, '\0');
  for (char& c : bytes) {
    c = static_cast<char>(number >> 24);
    number <<= 8;
  }
  return bytes;
}

// CRC-32 of ISO 3309.
std::uint32_t Checksum(std::string_view bytes) {
  std::uint32_t rest = 0xFFFFFFFF;
  for (const char c : bytes) {
    rest ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) rest = rest >> 1 ^ (rest & 1 ? 0xEDB88320 : 0);
  }
  return ~rest;
}

// A chunk's length, type and first data, as many as a text's key may take.
class ChunkStart {
 public:
  ChunkStart(RandomAccessFile& file, std::int64_t at) {
    std::size_t got = 0;
    hasFailed_ = file.Read(at, bytes_, got) != FileError::None;
    if (!hasFailed_) start_ = {bytes_, got};
  }
  bool HasFailed() const { return hasFailed_; }
  bool IsThere() const { return std::ssize(start_) >= headSize; }
  std::uint32_t Length() const { return BigEndian(start_); }
  std::string_view Type() const { return start_.substr(4, 4); }
  bool IsNeeded() const {
    const auto* chunk = std::ranges::find(needed, Type(), &Needed::type);
    return chunk != std::end(needed) && Length() <= chunk->longest;
  }
  // Empty for what is no text, or a long one.
  std::string_view Key() const {
    if (Length() > longestText || std::ranges::count(textTypes, Type()) == 0) return {};
    const std::string_view data = start_.substr(headSize, Length());
    return data.substr(0, std::min(data.find('\0'), data.size()));
  }

 private:
  char bytes_[96];
  bool hasFailed_;
  std::string_view start_;
};

}  // namespace

FileParts PngParts(RandomAccessFile& file, FilePart png, std::span<const std::string_view> keys) {
  char start[signature.size()];
  std::size_t got = 0;
  if (png.size < std::ssize(signature) || file.Read(png.at, start, got) != FileError::None ||
      std::string_view(start, got) != signature) {
    return {};
  }
  std::vector<std::string_view> missing(keys.begin(), keys.end());
  FileParts parts = {{png.at, std::ssize(signature)}};
  std::int64_t at = parts[0].size;
  for (int i = 0; i < mostChunks; ++i) {
    const ChunkStart chunk(file, png.at + at);
    if (chunk.HasFailed()) return {};
    if (!chunk.IsThere() || at + headSize > png.size) return parts;
    const std::int64_t size = headSize + chunk.Length() + checksumSize;
    if (chunk.IsNeeded() || std::erase(missing, chunk.Key()) > 0) {
      AddPart(parts, {png.at + at, std::min(size, png.size - at)});
    }
    if (chunk.Type() == "IEND") return parts;
    at += size;
  }
  return {};
}

std::string PngWithTexts(std::string_view png,
                         std::span<const std::pair<std::string_view, std::string>> texts) {
  std::string bytes(png.substr(0, headerEnd));
  for (const auto& [key, text] : texts) {
    const std::string data = std::string(key) + '\0' + text;
    const std::string chunk = "tEXt" + data;
    bytes +=
        BigEndian(static_cast<std::uint32_t>(data.size())) + chunk + BigEndian(Checksum(chunk));
  }
  return bytes.append(png.substr(std::min(headerEnd, png.size())));
}

}  // namespace tallowbrook
