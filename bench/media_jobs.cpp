// Runs that name files from what they know of themselves, and the search for a tag that isn't
// there.
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <fstream>

#include "bench/program.h"
#include "media/mp3_id3v2.h"

namespace tallowbrook::bench {
namespace {

constexpr int mediaCount = 5000;
constexpr std::size_t audioSize = 16 << 10;
constexpr std::size_t headSize = 4096;
constexpr std::size_t tailSize = 128;
constexpr std::size_t photoHeadSize = 7001;
constexpr std::size_t untaggedSize = std::size_t{500} << 20;
constexpr std::size_t searchBlock = std::size_t{1} << 18;

std::string Numbered(const char* format, int number) {
  char text[64];
  std::snprintf(text, sizeof text, format, number);
  return text;
}

std::string BigEndian(std::size_t value, int bytes) {
  std::string text;
  for (int i = bytes - 1; i >= 0; --i) text += static_cast<char>(value >> (8 * i) & 0xFF);
  return text;
}

std::string TextFrame(const char* id, const std::string& text) {
  return id + BigEndian(text.size() + 1, 4) + std::string(3, '\0') + text;
}

std::string Padded(std::string text, std::size_t size, char with) {
  text.resize(size, with);
  return text;
}

std::string Mp3(int number) {
  const std::string artist = Numbered("Artist %05d", number);
  const std::string title = Numbered("Title %05d", number);
  const std::string frames = TextFrame("TPE1", artist) + TextFrame("TIT2", title);
  const std::string tag = "ID3\x03" + std::string(2, '\0') + BigEndian(2048, 4) + frames;
  return Padded(tag, 2048, '\0') + Padded("\xFF\xFB\x90", audioSize, '\x55') + "TAG" +
         Padded(title, 30, ' ') + Padded(artist, 30, ' ') + std::string(65, '\0');
}

// An APP1 segment whose one date stands behind its one directory.
std::string Photo(int number) {
  const std::string date = "2024:02:09 " + Numbered("%02d", number / 3600) +
                           Numbered(":%02d", number / 60 % 60) + Numbered(":%02d", number % 60) +
                           '\0';
  const std::string entry =
      BigEndian(36867, 2) + BigEndian(2, 2) + BigEndian(date.size(), 4) + BigEndian(26, 4);
  const std::string tiff =
      "MM" + BigEndian(42, 2) + BigEndian(8, 4) + BigEndian(1, 2) + entry + BigEndian(0, 4) + date;
  return Padded(
      "\xFF\xD8\xFF\xE1" + BigEndian(tiff.size() + 8, 2) + "Exif" + std::string(2, '\0') + tiff,
      audioSize, '\x55');
}

std::string RenamedMp3(int number) {
  return Numbered("Artist %05d", number) + Numbered(" - Title %05d.mp3", number);
}

std::string RenamedPhoto(int number) {
  return Numbered("2024-02-09 %02d", number / 3600) + Numbered("%02d", number / 60 % 60) +
         Numbered("%02d.jpg", number % 60);
}

// One kind of file, and what a mask makes of it.
struct MediaJob {
  const char* name;
  const char* fileName;
  std::string (*renamed)(int number);
  std::string (*bytes)(int number);
  const char* settings;  // the page
  const char* field;
  const char* mask;
  std::size_t headSize;  // what reading it can't do without
  std::size_t tailSize;
};

class MediaFolder {
 public:
  explicit MediaFolder(const MediaJob& job) : job_(job) {
    for (int i = 1; i <= mediaCount; ++i) {
      oldPaths_.push_back(folder + Numbered(job.fileName, i));
      newPaths_.push_back(folder + job.renamed(i));
      std::ofstream(oldPaths_.back(), std::ios::binary) << job.bytes(i);
    }
  }

  double Program() {
    tallowbrook::bench::Program& p = TheProgram();
    p.form.scan.ScanFolder(folder);
    p.form.screen.Find("TabIndex")->SetValueText(job_.settings);
    p.form.screen.Find(job_.field)->SetValueText(job_.mask);
    const double seconds = Seconds([&] { p.form.run.RenameFiles(0, {}); });
    p.form.screen.Find("TabIndex")->SetValueText("0");
    RenameBack();
    return seconds;
  }

  double Bare() {
    const int log = open((folder + ".bare").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
    const std::string record(80, 'r');
    std::string buffer(photoHeadSize, '\0');
    const double seconds = Seconds([&] {
      for (std::size_t i = 0; i < oldPaths_.size(); ++i) {
        const int file = open(oldPaths_[i].c_str(), O_RDONLY);
        [[maybe_unused]] ssize_t done = 0;
        if (job_.headSize) done = read(file, buffer.data(), job_.headSize);
        if (job_.tailSize) {
          lseek(file, -static_cast<off_t>(job_.tailSize), SEEK_END);
          done = read(file, buffer.data(), job_.tailSize);
        }
        close(file);
        syscall(SYS_renameat2, AT_FDCWD, oldPaths_[i].c_str(), AT_FDCWD, newPaths_[i].c_str(),
                RENAME_NOREPLACE);
        done = write(log, record.data(), record.size());
      }
    });
    close(log);
    RenameBack();
    return seconds;
  }

 private:
  void RenameBack() {
    for (std::size_t i = 0; i < oldPaths_.size(); ++i) {
      Expect(rename(newPaths_[i].c_str(), oldPaths_[i].c_str()) == 0,
             oldPaths_[i] + " wasn't renamed to " + newPaths_[i]);
    }
  }

  const std::string folder = NewFolder();
  const MediaJob& job_;
  std::vector<std::string> oldPaths_, newPaths_;
};

// A file of half a gigabyte without a tag and without the mark of audio.
const std::string& UntaggedFile() {
  static const std::string path = [] {
    std::string made = NewFolder() + "untagged.mp3";
    std::ofstream file(made, std::ios::binary);
    std::string block(std::size_t{1} << 20, '\0');
    for (std::size_t i = 0; i < block.size(); ++i) block[i] = static_cast<char>(i * 31 >> 3 & 0x7F);
    for (std::size_t size = 0; size < untaggedSize; size += block.size()) file << block;
    return made;
  }();
  return path;
}

double SearchWithProgram() {
  UntaggedFile();
  return Seconds([] {
    cMP3ID3v2 tag(TheProgram().files);
    tag.SetMP3File(UntaggedFile());
    if (tag.HasID3v2Tag()) std::exit(1);
  });
}

double SearchBare() {
  std::string block(searchBlock, '\0');
  return Seconds([&] {
    const int file = open(UntaggedFile().c_str(), O_RDONLY);
    for (;;) {
      const ssize_t got = read(file, block.data(), block.size());
      if (got <= 0) break;
      if (memmem(block.data(), static_cast<std::size_t>(got), "ID3", 3) != nullptr) std::exit(1);
    }
    close(file);
  });
}

// clang-format off
constexpr MediaJob mediaJobs[] = {
    {"id3v1-5k", "track_%05d.mp3", RenamedMp3, Mp3, "4", "RTxt_ID3Name", "<v1Artist> - <v1Title>.mp3", 0, tailSize},
    {"id3v2-5k", "track_%05d.mp3", RenamedMp3, Mp3, "4", "RTxt_ID3Name", "<v2Artist> - <v2Title>.mp3", headSize, 0},
    {"id3-5k", "track_%05d.mp3", RenamedMp3, Mp3, "4", "RTxt_ID3Name", "<v1Artist> - <v2Title>.mp3", headSize, tailSize},
    {"exif-5k", "photo_%05d.jpg", RenamedPhoto, Photo, "3", "RTxt_Unique_Other", "<exif_yyyy>-<exif_mm>-<exif_dd> <exif_hh><exif_MM><exif_ss>.<ext>", photoHeadSize, 0},
};
// clang-format on

[[maybe_unused]] const bool registered = [] {
  for (const MediaJob& job : mediaJobs) {
    const auto folder = MadeOnDemand<MediaFolder>(job);
    Register(
        {job.name, [folder] { return folder().Program(); }, [folder] { return folder().Bare(); }});
  }
  Register({"id3-search", SearchWithProgram, SearchBare});
  return true;
}();

}  // namespace
}  // namespace tallowbrook::bench
