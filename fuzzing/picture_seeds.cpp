// PNG files and icons, whole and disturbed.
#include "fuzzing/seeds.h"
#include "tests/support/jpeg_bytes.h"

namespace tallowbrook {

namespace {

std::string Chunk(const std::string& type, const std::string& data) {
  return Bytes(ByteOrder::Big, static_cast<std::uint32_t>(data.size()), 4) + type + data + "sum.";
}

std::string Png(const std::string& chunks) {
  return "\x89PNG\r\n\x1A\n" + Chunk("IHDR", std::string(13, 'h')) + chunks + Chunk("IEND", "");
}

std::string IconEntry(int side, std::uint32_t bits, std::uint32_t size, std::uint32_t at) {
  std::string entry(4, '\0');
  entry[0] = entry[1] = static_cast<char>(side);
  return entry + Bytes(ByteOrder::Little, 1, 2) + Bytes(ByteOrder::Little, bits, 2) +
         Bytes(ByteOrder::Little, size, 4) + Bytes(ByteOrder::Little, at, 4);
}

}  // namespace

Seeds PngSeeds() {
  const std::string text = Chunk("tEXt", std::string("Key\0text", 8));
  const std::string pixels = Chunk("PLTE", "abc") + Chunk("IDAT", "pixels");
  const std::string start = std::string("\0\n\xff\n", 4) + "Key\ntext\n";
  Seeds seeds = {start,
                 start + Png(pixels),
                 std::string("\0\n\4\nK\n\n", 7) + Png(pixels),
                 start + Png(text + pixels + text),
                 start + Png(Chunk("zTXt", std::string("Other\0\0text", 11)) + pixels),
                 "\4\n\x40\nK\n\nabcd" + Png(Chunk("fdAT", "x") + pixels)};
  // A checksum that looks like a key.
  seeds.push_back(start + Png(Bytes(ByteOrder::Big, 0, 4) + "zTXt" + std::string("Key\0", 4)));
  AddDisturbed(seeds);
  return seeds;
}

Seeds IconSeeds() {
  const std::string head("\0\0\1\0\2\0", 6);
  const std::string png = Png(Chunk("IDAT", "pixels"));
  const auto size = static_cast<std::uint32_t>(png.size());
  const std::string bitmap = Bytes(ByteOrder::Little, 40, 4) + std::string(60, 'b');
  Seeds seeds = {"",
                 head,
                 head + IconEntry(16, 8, 64, 38) + IconEntry(16, 32, 64, 38) + bitmap,
                 head + IconEntry(0, 32, size, 38) + IconEntry(32, 32, size, 38) + png,
                 head + IconEntry(0, 32, 0xFFFFFFFF, 0xFFFFFFFF) + IconEntry(0, 32, 4, 38) + png,
                 head + IconEntry(0, 32, 4, 38) + IconEntry(9, 32, size, 38) + png};
  AddDisturbed(seeds);
  return seeds;
}

}  // namespace tallowbrook
