// The images of commands, by the numbers that the commands have, and those of folders.
//
// Two files beside the executable, "NAME.png" and "NAME@2x.png", hold one row of square cells each,
// for displays of one and of two pixels a point. The build draws them from resources/icons/ and
// resources/folders/.
#pragma once

#include <QIcon>
#include <memory>
#include <span>

namespace tallowbrook {

// In points.
inline constexpr int iconEdge = 32;
// Whose image each cell of the strip is, from left to right.
inline constexpr int stripNumbers[] = {
    4008,   4009,   4010,   57604,  4011,   57606,  57609,  1230,   1235,   1233,   1231,   1234,
    113002, 114201, 112011, 112012, 112002, 112003, 112004, 150003, 111003, 111004, 120000, 150050};
inline constexpr int systemIconNumber = 1200;  // has files of its own

class IconStrip {
 public:
  // The two files, each read when its pixels are first asked for.
  class Images;

  // `path` without ".png", `edge` of a cell in points. Cells that a file lacks, or all where it is
  // missing, are no images.
  IconStrip(const QString& path, int edge, std::span<const int> numbers);

  // Null for a number without a cell.
  QIcon Icon(int number) const;

 private:
  std::span<const int> numbers_;
  std::shared_ptr<Images> images_;
};

// The image of a command, of its own or one that stands for it; null for one that has none, or
// where the program's images are missing.
QIcon CommandIcon(int number);

// In the order of their cells.
enum class FolderPicture { Folder, Link, Home, Computer };
inline constexpr int folderIconEdge = 16;
QIcon FolderIcon(FolderPicture picture);

}  // namespace tallowbrook
