// Thumbnails of real files: where they come from, which way up they are, and what is left alone.
#include "desktop/thumbnail_pictures.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QColorSpace>
#include <QImageWriter>
#include <QtGui>

#include "desktop/packed_picture.h"
#include "tests/support/faulty_files.h"
#include "tests/support/jpeg_bytes.h"
#include "tests/support/peak_memory.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {

namespace {

// Four quarters: top left, top right, bottom left, bottom right. 'r', 'g', 'b', 'w' or 'k'.
QImage Quarters(QSize size, const char* colours) {
  const std::map<char, QColor> all = {
      {'r', Qt::red}, {'g', Qt::green}, {'b', Qt::blue}, {'w', Qt::white}, {'k', Qt::black}};
  QImage picture(size, QImage::Format_RGB32);
  QPainter painter(&picture);
  const int x = size.width() / 2;
  const int y = size.height() / 2;
  for (int i = 0; i < 4; ++i) {
    painter.fillRect(QRect(i % 2 ? x : 0, i / 2 ? y : 0, x + 1, y + 1), all.at(colours[i]));
  }
  return picture;
}

std::string Saved(const QImage& picture, const char* format = "JPEG", bool progressive = false) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  writer.setProgressiveScanWrite(progressive);
  EXPECT_TRUE(writer.write(picture)) << format;
  return bytes.toStdString();
}
std::string Plain(QSize size, const char* colours) {
  return Saved(Quarters(size, colours));
}
// A photo with a small picture inside.
std::string Photo(const std::string& whole, const std::string& small, int orientation = 1) {
  return PhotoWithThumbnail(ByteOrder::Big, static_cast<std::uint32_t>(orientation), small) +
         whole.substr(2);
}

// An icon file of several pictures, each the bytes of one, of a side of so many pixels.
std::string Icon(const std::vector<std::pair<int, std::string>>& pictures, int type = 1) {
  const auto little = [](std::size_t value, int size) {
    return Bytes(ByteOrder::Little, static_cast<std::uint32_t>(value), size);
  };
  std::string directory =
      little(0, 2) + little(static_cast<std::size_t>(type), 2) + little(pictures.size(), 2);
  std::string data;
  for (const auto& [side, bytes] : pictures) {
    const std::size_t at = 6 + 16 * pictures.size() + data.size();
    directory += std::string(2, static_cast<char>(side)) + little(0, 4) + little(32, 2) +
                 little(bytes.size(), 4) + little(at, 4);
    data += bytes;
  }
  return directory + data;
}

// Of a few hundred KB, and many times that when its texts are unpacked.
std::string PngOfTexts() {
  QImage picture = Quarters({64, 64}, "rgbw");
  const QString text(7'000'000, QLatin1Char('x'));
  for (int i = 0; i < 24; ++i) picture.setText(QString::number(i), text);
  return Saved(picture, "PNG");
}

char Colour(const QImage& picture, double x, double y) {
  const QColor c = picture.pixelColor(int(picture.width() * x), int(picture.height() * y));
  const int code = (c.red() > 127) + 2 * (c.green() > 127) + 4 * (c.blue() > 127);
  return "krg?b??w"[code];
}

}  // namespace

class ThumbnailPicturesTest : public testing::Test {
 protected:
  // Size and colours of the quarters, "96x48 rgbw"; "none".
  std::string Thumbnail(const std::string& name) {
    const std::string path = folder.Path(name);
    packed = source.Extract(path, *disk.Facts(path), 96, 96);
    if (!packed) return "none";
    const QImage picture = Unpack(*packed);
    EXPECT_EQ(picture.size(), QSize(packed->width, packed->height));
    std::string told =
        std::to_string(picture.width()) + "x" + std::to_string(picture.height()) + " ";
    for (const double y : {0.25, 0.75}) {
      for (const double x : {0.25, 0.75}) told += Colour(picture, x, y);
    }
    return told;
  }
  std::string ThumbnailOf(const std::string& bytes) {
    const std::string name = "f" + std::to_string(++made);
    folder.Write(name, bytes);
    return Thumbnail(name);
  }
  // Puts a picture into the cache as another program would.
  void Keep(const std::string& name, const char* size, const char* colours, std::int64_t time,
            const QString& uri, QSize pixels = {100, 50}, const QString& fileSize = {}) {
    QImage picture = Quarters(pixels, colours);
    if (!fileSize.isEmpty()) picture.setText(QStringLiteral("Thumb::Size"), fileSize);
    picture.setText(QStringLiteral("Thumb::URI"), uri);
    picture.setText(QStringLiteral("Thumb::MTime"), QString::number(time));
    WritePrivateFile(places.PlaceOf(folder.Path(name), size), Saved(picture, "PNG"));
  }
  QString Uri(const std::string& name) {
    return QStringLiteral("file://") + QString::fromStdString(folder.Path(name));
  }
  int Mode(const std::string& path) {
    struct stat facts {};
    stat(path.c_str(), &facts);
    return static_cast<int>(facts.st_mode & 07777);
  }

  TemporaryFolder folder;
  TemporaryFolder cache;
  SystemFiles disk;
  FaultyFiles files{disk};
  ThumbnailPictures source{files, cache.Path()};
  ThumbnailCache places{files, cache.Path()};
  std::optional<PackedBitmap> packed;
  int made = 0;
};

// The same from the photo itself, and from its small picture, which has a black quarter.
TEST_F(ThumbnailPicturesTest, PicturesStandUpright) {
  // clang-format off
  const char* upright[] = {"96x48 rgbw", "96x48 grwb", "96x48 wbgr", "96x48 bwrg",
                           "48x96 rbgw", "48x96 brwg", "48x96 wgbr", "48x96 gwrb"};
  // clang-format on
  for (int orientation = 1; orientation <= 8; ++orientation) {
    std::string expected = upright[orientation - 1];
    const std::string whole = Plain({400, 200}, "rgbw");
    EXPECT_EQ(ThumbnailOf(Photo(whole, "", orientation)), expected) << orientation;
    expected.replace(expected.find('w'), 1, "k");
    EXPECT_EQ(ThumbnailOf(Photo(whole, Plain({160, 80}, "rgbk"), orientation)), expected)
        << orientation;
  }
}

// Green ones are the cameras', which no cache needs; red ones come from the photos themselves.
TEST_F(ThumbnailPicturesTest, ACamerasPictureServesIfItIsThatPhotoAndLargeEnough) {
  // clang-format off
  const std::tuple<QSize, QSize, const char*> rows[] = {
      {{1200, 800}, {160, 107}, "96x64 gggg"}, {{1200, 800}, {160, 106}, "96x64 gggg"},
      {{1200, 800}, {96, 64}, "96x64 gggg"}, {{1200, 800}, {160, 120}, "96x64 rrrr"},
      {{1200, 800}, {107, 160}, "96x64 rrrr"}, {{1200, 800}, {90, 60}, "96x64 rrrr"},
      {{60, 40}, {60, 40}, "60x40 gggg"}, {{60, 40}, {48, 32}, "60x40 rrrr"},
      {{1200, 800}, {1200, 800}, "96x64 rrrr"}};
  // clang-format on
  for (const auto& [photo, small, expected] : rows) {
    const bool isCameras = expected[6] == 'g';
    folder.Write("p", Photo(Plain(photo, "rrrr"), Plain(small, "gggg")));
    EXPECT_EQ(Thumbnail("p"), expected) << small.width() << " x " << small.height();
    EXPECT_EQ(disk.Exists(places.PlaceOf(folder.Path("p"), "normal")), !isCameras);
    disk.Delete(places.PlaceOf(folder.Path("p"), "normal"));
  }
  // What is broken inside gives way to the photo.
  const std::string whole = Plain({160, 107}, "gggg");
  for (const std::string& broken :
       {whole.substr(0, whole.find("\xFF\xDA")), std::string("\xFF\xD8\xFF no")}) {
    EXPECT_EQ(ThumbnailOf(Photo(Plain({1200, 800}, "rrrr"), broken)), "96x64 rrrr");
  }
}

TEST_F(ThumbnailPicturesTest, TheCacheServesWhatIsOfThisFileAsItIsNow) {
  folder.Write("p", Plain({1200, 800}, "rrrr"));
  folder.SetTime("p", 1'000'000'000, 5);
  const std::string large = places.PlaceOf(folder.Path("p"), "large");
  const QString itsSize = QString::number(disk.Facts(folder.Path("p"))->size);
  // clang-format off
  struct Row { const char* size; int time; const char* of; QSize pixels; QString bytes; const char* told; };
  const int now = 1'000'000'000;
  const Row rows[] = {
      {"normal", now, "p", {100, 50}, {}, "96x48 gggg"}, {"large", now, "p", {100, 50}, {}, "96x48 gggg"},
      {"normal", now + 1, "p", {100, 50}, {}, "96x64 rrrr"}, {"large", now, "q", {100, 50}, {}, "96x64 rrrr"},
      {"large", now, "p", {256, 128}, itsSize, "96x48 gggg"},
      {"large", now, "p", {257, 128}, itsSize, "96x64 rrrr"},
      {"large", now, "p", {100, 50}, QStringLiteral("1"), "96x64 rrrr"}};
  // clang-format on
  for (const auto& row : rows) {
    Keep("p", row.size, "gggg", row.time, Uri(row.of), row.pixels, row.bytes);
    EXPECT_EQ(Thumbnail("p"), row.told) << row.size << row.pixels.width();
    disk.Delete(places.PlaceOf(folder.Path("p"), "normal"));
    disk.Delete(large);
  }
  WritePrivateFile(large, "\x89PNG\r\n\x1A\n broken");
  EXPECT_EQ(Thumbnail("p"), "96x64 rrrr");
  // What was made is kept for the next time, until the file changes; an upright picture stays so.
  const auto write = [&](const std::string& bytes) {
    folder.Write("p", bytes);
    folder.SetTime("p", 1'000'000'000);
  };
  write(Photo(Plain({1200, 800}, "rgbw"), "", 6));
  EXPECT_EQ(Thumbnail("p"), "64x96 brwg");
  const int opened = files.Count(FileCall::Open);
  EXPECT_EQ(Thumbnail("p"), "64x96 brwg");
  EXPECT_EQ(files.Count(FileCall::Open), opened + 2) << "the head and the cache, not the photo";
  write(Plain({1200, 800}, "gggg"));
  EXPECT_EQ(Thumbnail("p"), "96x64 gggg") << "another file of that second";
}

TEST_F(ThumbnailPicturesTest, StoresAsTheStandardSays) {
  EXPECT_EQ(places.PlaceOf("/home/jens/photos/me.png", "normal"),
            cache.Path("thumbnails/normal/c6ee772d9e49320e97ec29a7eb5b1697.png"));
  EXPECT_EQ(places.PlaceOf("/a \xC3\xA4;%\xFF+(1)@b", "large"),
            cache.Path("thumbnails/large/4d5beeb4777ee15f85d809d859d6fa24.png"));
  const std::string bytes = Plain({1200, 800}, "rgbw");
  folder.Write("p", bytes);
  folder.SetTime("p", 1'000'000'000);
  Thumbnail("p");
  const std::string place = places.PlaceOf(folder.Path("p"), "normal");
  const QImage stored(QString::fromStdString(place));
  EXPECT_EQ(stored.size(), QSize(128, 85));
  const auto text = [&](const char* key) { return stored.text(QLatin1String(key)).toStdString(); };
  EXPECT_EQ(text("Thumb::URI") + " " + text("Thumb::MTime") + " " + text("Thumb::Size"),
            Uri("p").toStdString() + " 1000000000 " + std::to_string(bytes.size()));
  EXPECT_EQ(Mode(place), 0600);
  for (const char* level : {"thumbnails", "thumbnails/normal"})
    EXPECT_EQ(Mode(cache.Path(level)), 0700);
  EXPECT_EQ(cache.Names("thumbnails/normal").size(), 1U);
  // Other programs look for texts that aren't compressed.
  const std::string longName(200, 'n');
  folder.Write(longName, bytes);
  Thumbnail(longName);
  const std::string raw = *disk.ReadWhole(places.PlaceOf(folder.Path(longName), "normal"));
  const std::string uri = Uri(longName).toStdString();
  EXPECT_NE(raw.find("tEXtThumb::URI" + std::string(1, '\0') + uri), std::string::npos);
  disk.Delete(places.PlaceOf(folder.Path(longName), "normal"));
  // One place for all ways to write a path; what lies in the cache, by whatever path, gets none of
  // its own; and a cache that is none is no error.
  folder.MakeFolder("sub");
  EXPECT_EQ(places.PlaceOf(folder.Path("sub/..//./p"), "normal"), place);
  folder.MakeLink("link", cache.Path("thumbnails/normal"));
  EXPECT_EQ(Thumbnail("link/" + place.substr(place.rfind('/') + 1)), "96x64 rgbw");
  EXPECT_EQ(cache.Names("thumbnails/normal").size(), 1U);
  folder.Write("file");
  ThumbnailPictures elsewhere(files, folder.Path("file/"));
  EXPECT_TRUE(elsewhere.Extract(folder.Path("p"), *disk.Facts(folder.Path("p")), 96, 96));
}

TEST_F(ThumbnailPicturesTest, KnowsPicturesByTheirBytesAndRefusesTheRest) {
  const QImage quarters = Quarters({200, 100}, "rgbw");
  QImage clear = quarters.convertToFormat(QImage::Format_ARGB32);
  for (int x = 0; x < 100; ++x) clear.setPixel(x, 30, 0);
  const std::string png = Saved(quarters, "PNG");
  const std::string jpeg = Saved(Quarters({400, 200}, "rrrr"));
  std::string large = jpeg;  // 30,000 x 30,000 in its frame
  large.replace(large.find("\xFF\xC0") + 5, 4, "\x75\x30\x75\x30");
  std::string bitmap = Saved(quarters, "BMP");
  bitmap.replace(18, 8, std::string("\x30\x75\0\0\x30\x75\0\0", 8));
  std::string scans = Saved(Quarters({400, 200}, "rrrr"), "JPEG", true);
  EXPECT_EQ(ThumbnailOf(scans), "96x48 rrrr");
  std::string manyScans = scans;  // 6,300 x 6,300 pixels, more often than can be waited for
  manyScans.replace(manyScans.find("\xFF\xC2") + 5, 4, "\x18\x9C\x18\x9C");
  for (int i = 0; i < 20; ++i) manyScans += "\xFF\xDA";
  scans.replace(scans.find("\xFF\xC2") + 5, 4, std::string("\x20\0\x20\0", 4));
  const std::string hidden =
      "\xFF\xD8\xFF" + std::string("\0\0\x15", 3) + scans.substr(scans.find("\xFF\xC2"));
  const std::string bigPixmap = Saved(quarters, "PPM").replace(0, 11, "P6\t200 100 ");
  const std::string red = Saved(Quarters({16, 16}, "rrrr"), "PNG");
  const std::string green = Saved(Quarters({64, 64}, "gggg"), "PNG");
  const std::string redIcon = Saved(Quarters({16, 16}, "rrrr"), "ICO").substr(22);
  const std::string greenIcon = Saved(Quarters({64, 64}, "gggg"), "ICO").substr(22);
  const std::string dot =
      QByteArray::fromHex("47494638396101000100800000ffffff0000002c00000000010001000002024401003b")
          .toStdString();
  // clang-format off
  const std::pair<std::string, const char*> rows[] = {
      {png, "96x48 rgbw"}, {Saved(quarters, "BMP"), "96x48 rgbw"}, {Saved(quarters, "PPM"), "96x48 rgbw"},
      {Saved(clear, "PNG"), "96x48 rgbw"}, {Plain({1, 1000}, "rrrr"), "1x96 rrrr"},
      {bigPixmap, "96x48 rgbw"}, {dot, "1x1 wwww"}, {Saved(quarters, "XPM"), "96x48 rgbw"},
      {Icon({{16, red}, {64, green}}), "64x64 gggg"}, {Icon({{64, green}, {16, red}}), "64x64 gggg"},
      {Icon({{16, redIcon}, {64, greenIcon}}), "64x64 gggg"}, {Icon({{64, greenIcon},
      {16, red}}, 2), "64x64 gggg"},
      {Icon({}), "none"}, {Icon({{16, "no"}}), "none"}, {Icon({{16, red}}).substr(0, 20), "none"},
      {hidden, "none"}, {manyScans, "none"},
      {"", "none"}, {"no picture", "none"}, {"P6 of words", "none"}, {"BM\xFF\xFF", "none"},
      {"<?xml version='1.0'?><svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", "none"},
      {"<svg width='9' height='9'/>", "none"}, {large, "none"}, {bitmap, "none"}, {scans, "none"},
      {png.substr(0, 100), "none"}, {jpeg.substr(0, 200), "none"}, {png.substr(0, 20), "none"}};
  // clang-format on
  for (const auto& [bytes, told] : rows) EXPECT_EQ(ThumbnailOf(bytes), told) << bytes.substr(0, 40);
  folder.MakeFolder("name \xFF");
  folder.Write("name \xFF/p.txt", png);
  EXPECT_EQ(Thumbnail("name \xFF/p.txt"), "96x48 rgbw");
  // One that is cut in its middle may show what is left.
  EXPECT_EQ(ThumbnailOf(Plain({1200, 800}, "rrrr").substr(0, 8000)).substr(0, 8), "96x64 rr");
  for (const char* format : {"WEBP", "TIFF"}) {
    if (QImageWriter::supportedImageFormats().contains(QByteArray(format).toLower())) {
      EXPECT_EQ(ThumbnailOf(Saved(quarters, format)), "96x48 rgbw") << format;
    }
  }
}

TEST_F(ThumbnailPicturesTest, NotesWhatItCannotDecodeUntilTheFileChanges) {
  const std::string png = Saved(Quarters({200, 100}, "rgbw"), "PNG");
  const auto write = [&](const std::string& bytes, std::int64_t time) {
    folder.Write("p", bytes);
    folder.SetTime("p", time);
  };
  write(png.substr(0, 100) + std::string(png.size() - 100, 'x'), 1'000'000'000);
  EXPECT_EQ(Thumbnail("p"), "none");
  const std::string note = places.PlaceOf(folder.Path("p"), ThumbnailCache::failures);
  EXPECT_EQ(QImage(QString::fromStdString(note)).text(QStringLiteral("Thumb::URI")), Uri("p"));
  EXPECT_EQ(Mode(note), 0600);
  write(png, 1'000'000'000);
  EXPECT_EQ(Thumbnail("p"), "none") << "the same for all that the disk tells";
  write(png, 1'000'000'001);
  EXPECT_EQ(Thumbnail("p"), "96x48 rgbw");
  ThumbnailOf("no picture");
  ThumbnailOf("P6 of words");
  EXPECT_EQ(cache.Names("thumbnails/fail/tallowbrook-" TALLOWBROOK_VERSION).size(), 1U);
}

// Nothing is kept of it, neither half a picture nor that it failed.
TEST_F(ThumbnailPicturesTest, AFileThatCannotBeReadToItsEndGivesNone) {
  QImage noise(600, 400, QImage::Format_RGB32);
  QRandomGenerator chance(1);
  for (int i = 0; i < 240'000; ++i) noise.setPixel(i % 600, i / 600, chance.generate());
  for (const char* format : {"JPEG", "PNG", "BMP", "ICO"}) {
    folder.Write("p", Saved(format == QByteArray("ICO") ? noise.scaled(200, 100) : noise, format));
    int reads = format == QByteArray("JPEG") ? 0 : 1;  // the head's, which others don't need
    for (bool fails = true; fails; ++reads) {
      const int next = files.Count(FileCall::Read) + 1 + reads;
      files.FailAt(FileCall::Read, next, FileError::Other);
      const bool isThere = Thumbnail("p") != "none";
      fails = files.Count(FileCall::Read) >= next;
      EXPECT_NE(isThere, fails) << format << " " << reads;
      EXPECT_NE(cache.Exists("thumbnails"), fails) << format << " " << reads;
    }
    EXPECT_GT(reads, 4) << format;
    std::filesystem::remove_all(cache.Path("thumbnails"));
  }
}

TEST_F(ThumbnailPicturesTest, NoPictureTakesTooMuchMemory) {
  const std::string png = PngOfTexts();
  EXPECT_EQ(ThumbnailOf(png), "64x64 rgbw");
  disk.Delete(places.PlaceOf(folder.Path("f1"), "normal"));
  folder.Write("icon", Icon({{64, png}}));
  folder.Write("kept", Plain({1200, 800}, "rrrr"));
  WritePrivateFile(places.PlaceOf(folder.Path("kept"), "normal"), png);
  std::vector<std::pair<const char*, const char*>> rows = {
      {"f1", "64x64 rgbw"}, {"icon", "64x64 rgbw"}, {"kept", "96x64 rrrr"}};
  if (QImageWriter::supportedImageFormats().contains("webp")) {
    folder.Write("w", Saved(Quarters({8, 8}, "rrrr"), "WEBP"));
    std::filesystem::resize_file(folder.Path("w"), 700'000'000);
    rows.emplace_back("w", "none");
  }
  for (const auto& [name, told] : rows) {
    std::string found;
    EXPECT_LT(PeakMegabytes([&, n = name] { found = Thumbnail(n); }).value_or(0), 100) << name;
    EXPECT_EQ(found, told) << name;
  }
}

// One between two colours of a palette is in none of its places.
TEST_F(ThumbnailPicturesTest, APictureOfFewColoursIsScaledWithAllColours) {
  QImage picture(600, 600, QImage::Format_Indexed8);
  picture.setColorTable({qRgb(0, 128, 0), qRgb(0, 0, 255)});
  for (int y = 0; y < 600; ++y) std::memset(picture.scanLine(y), y % 2, 600);
  ThumbnailOf(Saved(picture, "PNG"));
  ASSERT_TRUE(packed);
  const QColor colour = Unpack(*packed).pixelColor(48, 48);
  EXPECT_NEAR(colour.green(), 64, 12);
  EXPECT_NEAR(colour.blue(), 128, 12);
}

TEST_F(ThumbnailPicturesTest, PicturesStaySmallAndClearWhereTheyAreClear) {
  QImage picture(100, 100, QImage::Format_ARGB32);
  picture.fill(Qt::transparent);
  picture.setPixelColor(50, 50, Qt::red);
  EXPECT_EQ(qAlpha(Unpack(*Pack(picture)).pixel(0, 0)), 0);
  QRandomGenerator chance(1);
  for (int i = 0; i < 10'000; ++i) picture.setPixel(i % 100, i / 100, chance.generate());
  picture.setText(QStringLiteral("Comment"), QString(20'000, QLatin1Char('x')));
  EXPECT_LT(Pack(picture)->bytes.size(), 15'000U);
  EXPECT_FALSE(Pack({}));
  EXPECT_TRUE(Unpack({96, 96, "no picture"}).isNull());
}

}  // namespace tallowbrook
