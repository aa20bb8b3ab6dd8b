// Layouts are those of ID3v2.2 to 2.4, read more simply than they are meant: no flags, no extended
// header, no sync-safe sizes. Two quirks are wanted, and what Update writes back depends on them:
// each frame is charged more of the tag's size than its header takes, and the walk ends where its
// place in the file, not in the tag, is beyond that size.
#include "media/id3v2_walk.h"

#include <algorithm>
#include <array>
#include <string>

#include "media/file_failure.h"

namespace tallowbrook {
namespace {

struct FrameLayout {
  std::size_t idWidth, sizeWidth, headerWidth;
  std::int64_t charge;
};

constexpr FrameLayout layoutOfVersion2{3, 3, 6, 9};
constexpr FrameLayout layoutOfLaterVersions{4, 4, 10, 16};

// All other frames of version 2 come under an empty id.
constexpr std::string_view shortIds[][2] = {{"TP1", "TPE1"}, {"TT2", "TIT2"}, {"TAL", "TALB"},
                                            {"COM", "COMM"}, {"TRK", "TRCK"}, {"TEN", "TENC"},
                                            {"TYE", "TYER"}, {"TCO", "TCON"}};

std::string_view FullId(std::string_view id) {
  if (id.size() != layoutOfVersion2.idWidth) return id;
  const auto* found = std::ranges::find(shortIds, id, [](const auto& row) { return row[0]; });
  return found != std::end(shortIds) ? (*found)[1] : std::string_view{};
}

bool IsAllZero(std::string_view bytes) {
  return bytes.find_first_not_of('\0') == bytes.npos;
}

// Behind the file's end there are only zero bytes, so that no size makes us hold more than there
// is.
void ReadText(BufferedFile& file, std::int64_t at, std::int64_t size, std::int64_t expected,
              std::string& text) {
  text.clear();
  while (size > 0) {
    const std::string_view bytes = file.Bytes(at, size, expected);
    if (bytes.empty()) return;
    const std::size_t length = text.size();
    text.resize(length + bytes.size());
    char* end = std::remove_copy(bytes.begin(), bytes.end(), text.data() + length, '\0');
    text.resize(static_cast<std::size_t>(end - text.data()));
    at += std::ssize(bytes);
    size -= std::ssize(bytes);
  }
}

}  // namespace

std::int32_t BigEndian(std::string_view bytes) {
  std::uint32_t value = 0;
  for (const char byte : bytes.substr(0, 4)) value = value << 8 | static_cast<unsigned char>(byte);
  return static_cast<std::int32_t>(value);
}

void WalkTag(BufferedFile& file, std::int64_t at, std::uint8_t& version,
             const std::function<void(std::string_view id, std::string_view text)>& frame) {
  std::array<char, 7> head;  // version, revision, flags, size
  file.Fill(at, head);
  version = static_cast<std::uint8_t>(head[0]);
  if (version < 2 || version > 4) return;
  const std::int64_t tagSize = BigEndian({head.data() + 3, 4});
  const FrameLayout layout = version == 2 ? layoutOfVersion2 : layoutOfLaterVersions;
  std::array<char, layoutOfLaterVersions.headerWidth> bytes;
  const std::string_view header(bytes.data(), layout.headerWidth);
  std::string text;
  std::int64_t charged = 0;
  at += std::ssize(head);
  do {
    file.Fill(at, std::span(bytes).first(layout.headerWidth), tagSize - charged);
    charged += layout.charge;
    const std::string_view id = header.substr(0, layout.idWidth);
    if (IsAllZero(id)) return;  // the padding
    std::int64_t size = BigEndian(header.substr(layout.idWidth, layout.sizeWidth));
    if (charged + size > tagSize) return;
    if (size < 0) Raise(failureInvalidArgument, "cMP3ID3v2");
    at += static_cast<std::int64_t>(layout.headerWidth);
    ReadText(file, at, size, tagSize - charged, text);
    at += size;
    charged += size;
    frame(FullId(id), text);
  } while (at + 1 <= tagSize);
}

}  // namespace tallowbrook
