#include "tests/monkey/playground.h"

#include <unistd.h>

#include <QBuffer>
#include <QImage>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/jpeg_bytes.h"
#include "tests/support/mp3_bytes.h"

namespace tallowbrook {

namespace fs = std::filesystem;

namespace {

// Behind a mark, so that a tag that is put at a file's end leaves it whole.
const std::string filler(300, '.');

struct Sample {
  const char* name;
  const char* kind;
};
constexpr Sample samples[] = {
    {"one.txt", "txt"},
    {"Two Words.TXT", "txt"},
    {"sub/three.html", "txt"},
    {"sub/song.mp3", "mp3"},
    {"song.mp3", "mp3"},
    {"Zo\xC3\xAB.MP3", "mp3"},
    {"photo.jpg", "jpg"},
    {"sub/deep/DSC_0001.JPG", "jpg"},
    {"picture.png", "png"},
    {"no extension", "txt"},
    {"many.dots.in.name.tar.gz", "txt"},
    {" blanks at both ends .txt", "txt"},
    {"it's \"quoted\" & <b>bold<b>, 100%.txt", "txt"},
    {"\xE5\x86\x99\xE7\x9C\x9F.png", "png"},
    {"party-\xF0\x9F\x8E\x89.txt", "txt"},
    {"latin-\xE9t\xE9.txt", "txt"},
    {"empty folder/sub/line\nfeed.txt", "txt"},
};

std::string PictureBytes(const char* format) {
  QImage image(320, 240, QImage::Format_RGB32);
  image.fill(Qt::darkCyan);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, format);
  return bytes.toStdString();
}

std::string Content(const std::string& kind, const std::string& mark) {
  if (kind == "png") return PictureBytes("PNG") + mark + filler;
  if (kind == "jpg") {
    const std::string small = PictureBytes("JPG");
    return PhotoTakenAt("2023:07:15 09:05:33") + small.substr(2) + mark + filler;
  }
  if (kind == "txt") return "text " + mark + filler;
  const std::string frames = TextFrame("TIT2", "Title <v1Artist>") + TextFrame("TPE1", "Artist");
  const std::string v1 = "TAG" + Filled("Title", 30) + Filled("Artist", 30) + Filled("Album", 65);
  return TagBytes(3, 200, Filled(frames, 190, '\0')) + "\xFF\xFB" + mark + filler + v1;
}

std::string Bytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Files by their bytes, and everything by its time.
void AddState(std::map<std::string, std::string>& state, const fs::path& folder) {
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    const auto time = entry.is_symlink() ? 0 : entry.last_write_time().time_since_epoch().count();
    state[entry.path()] =
        std::to_string(time) + (entry.is_regular_file() ? Bytes(entry.path()) : "");
  }
}

}  // namespace

Playground::Playground(const std::string& program)
    : world_(fs::canonical(folder_.MakeFolder("world")).string() + "/"), program_(program) {
  for (const char* name : {"copies", "data", "tmp", "xdg/cache", "xdg/config", "xdg/data", "run"}) {
    folder_.MakeFolder(std::string("world/") + name);
  }
  folder_.MakeFolder("guard/sub");
  for (int i = 0; i < 10; ++i) folder_.Write("guard/f" + std::to_string(i) + ".txt", filler);
  folder_.MakeLink("world/copies/way out", folder_.Path("guard"));
  const std::pair<const char*, const char*> places[] = {{"HOME", "copies"},
                                                        {"TMPDIR", "tmp"},
                                                        {"XDG_CACHE_HOME", "xdg/cache"},
                                                        {"XDG_CONFIG_HOME", "xdg/config"},
                                                        {"XDG_DATA_HOME", "xdg/data"},
                                                        {"XDG_RUNTIME_DIR", "run"}};
  for (const auto& [name, place] : places) setenv(name, (world_ + place).c_str(), 1);
  fs::permissions(world_ + "run", fs::perms::owner_all);
  fs::current_path(folder_.Path("guard"));
  guarded_ = Guarded();
}

Playground::~Playground() {
  fs::current_path("/");
}

// Beside the executable other programs may lie, and be built.
Playground::State Playground::Guarded() const {
  State state;
  AddState(state, folder_.Path("guard"));
  for (const char* name : {"Styles", "Images", "res"}) AddState(state, program_ + name);
  for (const char* name : {"id3genre.cfg", "startuptips.txt"}) state[name] = Bytes(program_ + name);
  for (const char* name : {"tallowbrook.cfg", "profile.cfg", "Logfile.txt"}) {
    state[name] = fs::exists(program_ + name) ? Bytes(program_ + name) : "none";
  }
  return state;
}

void Playground::Put(const std::string& name, const std::string& kind) {
  const fs::path path(Copies() + name);
  if (fs::exists(path)) return;
  std::error_code ignored;
  fs::create_directories(path.parent_path(), ignored);
  std::ofstream file(path, std::ios::binary);
  if (!file) return;
  file << Content(kind, MarkText(marks_++));
}

void Playground::Fill(std::size_t least) {
  for (int round = 0; round < 5 && Paths().size() < least; ++round) {
    const std::string below = round == 0 ? "" : "more " + std::to_string(round) + "/";
    for (const Sample& sample : samples) Put(below + sample.name, sample.kind);
  }
}

std::vector<std::string> Playground::Paths() const {
  std::vector<std::string> paths;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Copies())) {
    paths.push_back(entry.path().string() + (entry.is_directory() ? "/" : ""));
  }
  return paths;
}

std::vector<std::string> Playground::Faults(const std::set<int>& given) const {
  std::vector<std::string> faults;
  if (Guarded() != guarded_) faults.push_back("something has changed outside the copies");
  if (!fs::is_empty(world_ + "tmp")) faults.push_back("temporary files are left");
  std::set<int> found = given;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(world_)) {
    if (entry.is_regular_file()) found.merge(MarksIn(entry.path()));
    if (entry.path().filename().string().starts_with(".tallowbrook-")) {
      faults.push_back("left: " + entry.path().string());
    }
  }
  for (int mark = 0; mark < marks_; ++mark) {
    if (!found.contains(mark)) faults.push_back("lost: " + MarkText(mark));
  }
  return faults;
}

}  // namespace tallowbrook
