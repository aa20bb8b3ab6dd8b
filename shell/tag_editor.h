// The tag editor: both tags of the highlighted row side by side. It holds nothing but what its
// controls show; it steps along the list by moving the highlight there.
//
// Whatever fails in a load or a save is left out, step by step, and nothing is told of it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/controls.h"
#include "base/dialogs.h"
#include "base/status_bar.h"
#include "filelist/file_list.h"
#include "media/genres.h"
#include "media/mp3_id3v1.h"
#include "media/mp3_id3v2.h"

namespace tallowbrook {

// What the editor works on. All must outlive it.
struct TagEditorWorld {
  FileList& list;
  const GenreLists& genres;
  cMP3ID3v1& v1;
  cMP3ID3v2& v2;
  Dialogs& dialogs;
};

class TagEditor {
 public:
  // Loads the highlighted row's file.
  explicit TagEditor(const TagEditorWorld& world);
  ~TagEditor();
  TagEditor(const TagEditor&) = delete;
  TagEditor& operator=(const TagEditor&) = delete;

  static constexpr std::string_view caption = "Edit ID3 Tag";
  Screen screen;
  StatusBar statusBar;

  // clang-format off
  Text Txt_FileName{screen, {.name = "Txt_FileName", .caption = "Filename:"}};

  Frame Frame1{screen, {.name = "Frame1", .caption = "ID3v1"}};
  Text Txt_v1Artist{screen, {.name = "Txt_v1Artist", .caption = "Artist"}};
  Text Txt_v1Title{screen, {.name = "Txt_v1Title", .caption = "Title"}};
  Text Txt_v1Album{screen, {.name = "Txt_v1Album", .caption = "Album"}};
  Text Txt_v1Track{screen, {.name = "Txt_v1Track", .caption = "Track"}};
  Text Txt_v1Year{screen, {.name = "Txt_v1Year", .caption = "Year"}};
  Text Txt_v1Genre{screen, {.name = "Txt_v1Genre", .caption = "Genre", .tip = "What the file has"}};
  List Combo_v1Genre{screen, {.name = "Combo_v1Genre", .tip = "What a save writes"}};
  TextLines Txt_v1Comments{screen, {.name = "Txt_v1Comments", .caption = "Comments"}};

  Frame Frame2{screen, {.name = "Frame2", .caption = "ID3v2"}};
  Text Txt_v2Artist{screen, {.name = "Txt_v2Artist", .caption = "Artist"}};
  Text Txt_v2Title{screen, {.name = "Txt_v2Title", .caption = "Title"}};
  Text Txt_v2Album{screen, {.name = "Txt_v2Album", .caption = "Album"}};
  Text Txt_v2Track{screen, {.name = "Txt_v2Track", .caption = "Track"}};
  Text Txt_v2Year{screen, {.name = "Txt_v2Year", .caption = "Year"}};
  Text Txt_v2Genre{screen, {.name = "Txt_v2Genre", .caption = "Genre", .tip = "What the file has"}};
  List Combo_v2Genre{screen, {.name = "Combo_v2Genre", .tip = "What a save writes"}};
  TextLines Txt_v2Comments{screen, {.name = "Txt_v2Comments", .caption = "Comments"}};
  Text Txt_v2OriginalArtist{screen, {.name = "Txt_v2OriginalArtist", .caption = "Original Artist"}};
  Text Txt_v2Copyright{screen, {.name = "Txt_v2Copyright", .caption = "Copyright"}};
  Text Txt_v2Composer{screen, {.name = "Txt_v2Composer", .caption = "Composer"}};
  Text Txt_v2EncodedBy{screen, {.name = "Txt_v2EncodedBy", .caption = "Encoded By"}};
  Text Txt_v2LinkTo{screen, {.name = "Txt_v2LinkTo", .caption = "Link To"}};
  TextLines Txt_v2Lyrics{screen, {.name = "Txt_v2Lyrics", .caption = "Lyrics"}};

  Button Cmd_CopyV1toV2{screen, {.name = "Cmd_CopyV1toV2", .caption = "Transfer 3v1 to 3v2"}};
  Button Cmd_CopyV2toV1{screen, {.name = "Cmd_CopyV2toV1", .caption = "Transfer 3v2 to 3v1"}};
  Button Cmd_Previous{screen, {.name = "Cmd_Previous", .caption = "Previous MP3"}};
  Button Cmd_Next{screen, {.name = "Cmd_Next", .caption = "Next MP3"}};
  Button Cmd_Save{screen, {.name = "Cmd_Save", .caption = "Save"}};
  Button Cmd_Close{screen, {.name = "Cmd_Close", .caption = "Close"}};
  // clang-format on

  // Closes the window; set by what shows it.
  std::function<void()> close;

 private:
  // One tag: how its steps read the boxes and fill them, in the order of a load, and its genre.
  struct Step {
    std::function<void()> load;
    std::function<void()> save;
  };
  struct GenreChoice {
    List& combo;
    const std::vector<std::string>& names;
    const std::vector<std::int16_t>& ids;
  };

  std::vector<Step> V1Steps();
  std::vector<Step> V2Steps();
  void WireButtons();
  void LoadSelectedFile();
  void Save();
  // To the next or the previous row, of whatever kind; at the ends of the list nothing happens.
  void StepSelection(int step);

  static void FillGenres(const GenreChoice& genre);
  // Selects the entry of a number; one of 255 or more, or that no entry has, changes nothing. False
  // for a number whose entry the combo doesn't offer.
  static bool SelectGenre(const GenreChoice& genre, int number);
  bool SelectGenreV1(int number) const { return SelectGenre(genreV1_, number); }
  bool SelectGenreV2(int number) const { return SelectGenre(genreV2_, number); }
  // The number of the entry that is selected; 255 without one, nothing for one beyond a byte.
  static std::optional<std::uint8_t> ChosenGenre(const GenreChoice& genre);
  // Copies the fields that both tags have, and the genre.
  void Transfer(bool toV2);

  TagEditorWorld world_;
  GenreChoice genreV1_{Combo_v1Genre, world_.genres.GenreNamesV1, world_.genres.GenreIdsV1};
  GenreChoice genreV2_{Combo_v2Genre, world_.genres.GenreNamesV2, world_.genres.GenreIdsV2};
  std::vector<Step> stepsV1_;
  std::vector<Step> stepsV2_;
};

}  // namespace tallowbrook
