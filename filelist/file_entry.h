// One row of the file list.
#pragma once

#include <cstdint>
#include <string>

#include "base/date.h"
#include "filelist/folder_table.h"

namespace tallowbrook {

// The colour of "New File Name", by what it says; the window has the shades.
enum class RowColour : std::uint8_t {
  Plain,    // a previewed name
  Done,     // "success": blue (0, 0, 255)
  Failed,   // "error": red (255, 0, 0)
  Skipped,  // "(Not Selected)": light grey (224, 224, 224)
  Refused,  // the reason why there is no new name: the grey of shadows
};

struct FileEntry {
  std::string name;     // "File Name", with extension
  std::string newName;  // "New File Name": a preview, or how the run ended
  std::string rowText;  // the row's own text; only the thumbnail view shows one
  std::int64_t size = 0;
  // The date on show, and the date that sorting goes by: the one of the scan.
  Date shownDate;
  Date sortDate;
  FolderId folder = 0;
  std::uint32_t image = 0;  // of the list's ilsThumbs; 0 for none
  RowColour colour = RowColour::Plain;
  bool Checked = false;
  bool Selected = false;
  // A folder's row, or a file that was gone when its facts were asked for, has no size or date.
  bool hasFacts = false;
  // Whether shownDate is shown; a switch of the date column dates folders too.
  bool hasDate = false;
  bool isFolder = false;
};

}  // namespace tallowbrook
