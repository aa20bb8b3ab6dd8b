// The filter of PNG files: any bytes as one, somewhere in a file.
//
// Aborts if its parts aren't stretches of that file in their order, if they aren't such a file
// again that stays whole, or if a text that we add isn't found, or changes anything else.
#include "media/png_chunks.h"

#include <cstdint>

#include "fuzzing/memory_files.h"
#include "fuzzing/pieces.h"
#include "fuzzing/require.h"

namespace {

using namespace tallowbrook;
using Keys = std::span<const std::string_view>;

constexpr std::string_view begin("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16);

// What the parts of a PNG file hold that stands from a place on.
std::string Kept(const std::string& bytes, FilePart png, Keys keys) {
  MemoryFiles disk;
  disk.Put("p", bytes);
  const auto file = disk.Open("p", FileAccess::Read, nullptr);
  std::string kept;
  std::int64_t end = png.at;
  for (const FilePart& part : PngParts(*file, png, keys)) {
    Require(part.at >= end && part.size > 0);
    end = part.at + part.size;
    if (part.at < std::ssize(bytes)) {
      kept += bytes.substr(static_cast<std::size_t>(part.at), static_cast<std::size_t>(part.size));
    }
  }
  Require(end <= png.at + png.size);
  return kept;
}

std::string Kept(const std::string& bytes, Keys keys) {
  return Kept(bytes, {0, std::ssize(bytes)}, keys);
}

void RequireText(const std::string& png, std::string_view key, const std::string& text) {
  if (!png.starts_with(begin) || png.size() < 33) return;
  const std::pair<std::string_view, std::string> texts[] = {{key, text}};
  const std::string with = PngWithTexts(png, texts);
  Require(with.size() == png.size() + 12 + key.size() + 1 + text.size());
  Require(Kept(with, {}) == Kept(png, {}));
  const bool isShort = key.size() + 1 + text.size() <= 4096;
  const bool isFound =
      Kept(with, {&key, 1}).find("tEXt" + std::string(key) + '\0' + text) != std::string::npos;
  Require(isFound == isShort || Kept(png, {}).find(key) != std::string::npos);
}

}  // namespace

// Where the PNG file begins and how long it is said to be, a byte each; a key, a text, the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Pieces pieces(data, size);
  const unsigned at = pieces.NextByte(), length = pieces.NextByte();
  std::string key(pieces.Next().substr(0, 79));
  std::erase(key, '\0');
  const std::string text(pieces.Next()), bytes(pieces.Rest());
  const std::string_view keys[] = {key.empty() ? "Key" : std::string_view(key), "Other"};
  Kept(bytes, {at, length}, keys);
  const std::string kept = Kept(bytes, keys);
  Require(Kept(kept, keys) == kept);
  RequireText(bytes, keys[0], text);
  return 0;
}
