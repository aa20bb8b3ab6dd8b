#include "tour/sample_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

#include "base/text.h"
#include "tour/media_samples.h"

namespace tallowbrook {

namespace fs = std::filesystem;

namespace {

const std::vector<std::string> names = {
    "IMG_1001.jpg",
    "IMG_1002.jpg",
    "IMG_1003.jpg",
    "beach-at-noon.jpg",
    " leading and trailing .txt",
    "it's a \"quoted\" name.txt",
    "salt & pepper, 100%.html",
    "no extension",
    "many.dots.in.name.tar.gz",
    "\xE5\x86\x99\xE7\x9C\x9F-\xE6\x9D\xB1\xE4\xBA\xAC.png",  // Japanese
    "party-\xF0\x9F\x8E\x89-\xF0\x9F\x98\x80.txt",            // emoji
    "cafe\xCC\x81-menu.txt",                                  // a combining accent
    "latin-\xE9t\xE9.txt",                                    // not UTF-8
};

void Write(const fs::path& path, std::size_t size) {
  std::ofstream file(path, std::ios::binary);
  file << std::string(size, 'x');
  if (!file.flush()) throw std::runtime_error("can't write " + path.string());
}

}  // namespace

SampleFiles::SampleFiles() {
  std::random_device random;
  const fs::path root =
      fs::temp_directory_path() / ("tallowbrook-tour-" + std::to_string(random()));
  if (!fs::create_directory(root)) throw std::runtime_error(root.string() + " exists");
  root_ = root.string() + "/";
  fs::create_directories(Photos());
  fs::create_directories(Home() + "Documents");
  fs::create_directories(Music());
  fs::create_directories(Camera());
  fs::create_directories(Data());
  std::size_t size = 700;
  for (const std::string& name : names) Write(Photos() + name, size += size / 2);
  MakeSongs(Music());
  MakePictures(Camera());
}

SampleFiles::~SampleFiles() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> found;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    found.push_back(entry.path().filename().string());
  }
  std::ranges::sort(found);
  return found;
}

FolderState Photographed(const std::string& folder) {
  FolderState state;
  for (const std::string& name : NamesIn(folder)) {
    std::ifstream file(folder + name, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    state[name] = {std::move(bytes), fs::last_write_time(folder + name).time_since_epoch().count()};
  }
  return state;
}

std::string Printable(const std::string& bytes) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string line;
  for (std::string_view rest = bytes; !rest.empty();) {
    const Character character = FirstCharacter(rest);
    const auto byte = static_cast<unsigned char>(rest.front());
    const bool isStray = character.length == 1 && byte >= 0x80;
    if (isStray || byte < 0x20 || byte == 0x7F) {
      line.append("\\x") += digits[byte >> 4];
      line += digits[byte & 15];
    } else {
      line += rest.substr(0, character.length);
    }
    rest.remove_prefix(character.length);
  }
  return line;
}

}  // namespace tallowbrook
