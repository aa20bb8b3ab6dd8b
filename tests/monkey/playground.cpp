#include "tests/monkey/playground.h"

#include <QBuffer>
#include <QImage>
#include <filesystem>
#include <fstream>

#include "platform/files.h"
#include "tests/support/jpeg_bytes.h"
#include "tests/support/mp3_bytes.h"

namespace tallowbrook {

namespace fs = std::filesystem;

namespace {

// Behind a mark, so that a tag that is put at a file's end leaves it whole.
const std::string filler(300, '.');

// clang-format off
constexpr const char* samples[] = {
    "one.txt", "Two Words.TXT", "sub/three.html", "sub/song.mp3", "song.mp3", "Zo\xC3\xAB.MP3", "photo.jpg",
    "sub/deep/DSC_0001.JPG", "picture.png", "no extension", "many.dots.in.name.tar.gz",
    " blanks at both ends .txt", "it's \"quoted\" & <b>bold<b>, 100%.txt", "\xE5\x86\x99\xE7\x9C\x9F.png",
    "party-\xF0\x9F\x8E\x89.txt", "latin-\xE9t\xE9.txt", "empty folder/sub/line\nfeed.txt"};
// clang-format on

std::string PictureBytes(const char* format) {
  QImage image(320, 240, QImage::Format_RGB32);
  image.fill(Qt::darkCyan);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, format);
  return bytes.toStdString();
}

std::string Content(std::string_view extension, const std::string& mark) {
  if (extension == ".png") return PictureBytes("PNG") + mark + filler;
  if (extension == ".jpg" || extension == ".JPG") {
    return PhotoTakenAt("2023:07:15 09:05:33") + PictureBytes("JPG").substr(2) + mark + filler;
  }
  if (extension != ".mp3" && extension != ".MP3") return "text " + mark + filler;
  const std::string frames = TextFrame("TIT2", "Title <v1Artist>") + TextFrame("TPE1", "Artist");
  const std::string v1 = "TAG" + Filled("Title", 30) + Filled("Artist", 30) + Filled("Album", 65);
  return TagBytes(3, 200, Filled(frames, 190, '\0')) + "\xFF\xFB" + mark + filler + v1;
}

// Empty for what isn't a file.
std::string Bytes(const fs::path& path) {
  return SystemFiles().ReadWhole(path).value_or("");
}

}  // namespace

std::set<int> MarksIn(const std::string& path) {
  const std::string bytes = Bytes(path);
  std::set<int> marks;
  for (std::size_t at = 0; (at = bytes.find("<mark ", at)) != std::string::npos; ++at) {
    int number = 0;
    char end = 0;
    const std::string text = bytes.substr(at, 20);
    const int read = std::sscanf(text.c_str(), "<mark %d%c", &number, &end);
    if (read == 2 && end == '>') marks.insert(number);
  }
  return marks;
}

Playground::Playground(const std::string& program)
    : world_(fs::canonical(folder_.MakeFolder("world")).string() + "/"), program_(program) {
  folder_.MakeFolder("guard/sub");
  for (int i = 0; i < 10; ++i) folder_.Write("guard/f" + std::to_string(i) + ".txt", filler);
  folder_.MakeFolder("world/data");
  const std::pair<const char*, const char*> places[] = {
      {"HOME", "copies"},          {"TMPDIR", "tmp"},
      {"XDG_CACHE_HOME", "cache"}, {"XDG_CONFIG_HOME", "config"},
      {"XDG_DATA_HOME", "xdg"},    {"XDG_RUNTIME_DIR", "run"}};
  for (const auto& [name, place] : places) {
    folder_.MakeFolder(std::string("world/") + place);
    setenv(name, (world_ + place).c_str(), 1);
  }
  folder_.MakeLink("world/copies/way out", folder_.Path("guard"));
  fs::permissions(world_ + "run", fs::perms::owner_all);
  fs::current_path(folder_.Path("guard"));
  guarded_ = Guarded();
}

Playground::~Playground() {
  fs::current_path("/");
}

// Files by their bytes, and everything by its time. Beside the executable other programs may lie,
// and be built.
std::map<std::string, std::string> Playground::Guarded() const {
  std::map<std::string, std::string> state;
  const std::string folders[] = {folder_.Path("guard"), program_ + "Styles", program_ + "Images",
                                 program_ + "res"};
  for (const std::string& folder : folders) {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
      const auto time = entry.is_symlink() ? 0 : entry.last_write_time().time_since_epoch().count();
      state[entry.path()] = std::to_string(time) + Bytes(entry.path());
    }
  }
  for (const char* name :
       {"id3genre.cfg", "startuptips.txt", "tallowbrook.cfg", "profile.cfg", "Logfile.txt"}) {
    state[name] = fs::exists(program_ + name) ? Bytes(program_ + name) : "none";
  }
  return state;
}

void Playground::Put(const std::string& name) {
  const fs::path path(Copies() + name);
  if (fs::exists(path)) return;
  std::error_code ignored;
  fs::create_directories(path.parent_path(), ignored);
  std::ofstream file(path, std::ios::binary);
  if (!file) return;
  file << Content(path.extension().string(), "<mark " + std::to_string(marks_++) + ">");
}

void Playground::Fill(std::size_t least) {
  for (int round = 0; round < 5 && Paths().size() < least; ++round) {
    const std::string below = round == 0 ? "" : "more " + std::to_string(round) + "/";
    for (const char* sample : samples) Put(below + sample);
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
    found.merge(MarksIn(entry.path()));
    if (entry.path().filename().string().starts_with(".tallowbrook-")) {
      faults.push_back("left: " + entry.path().string());
    }
  }
  for (int mark = 0; mark < marks_; ++mark) {
    if (!found.contains(mark)) faults.push_back("lost: mark " + std::to_string(mark));
  }
  return faults;
}

}  // namespace tallowbrook
