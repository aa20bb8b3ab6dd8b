#include "shell/tag_editor.h"

#include <algorithm>
#include <utility>

#include "base/decimal.h"
#include "base/guards.h"
#include "base/letter_case.h"
#include "base/text.h"

namespace tallowbrook {

namespace {

constexpr std::uint8_t noGenre = 255;

}  // namespace

TagEditor::TagEditor(const TagEditorWorld& world)
    : world_(world), stepsV1_(V1Steps()), stepsV2_(V2Steps()) {
  for (Text* box : {&Txt_FileName, &Txt_v1Genre, &Txt_v2Genre}) box->SetReadOnly(true);
  WireButtons();
  LoadSelectedFile();
}

TagEditor::~TagEditor() {
  world_.list.SetDropHighlight(0);
}

void TagEditor::WireButtons() {
  Cmd_Save.rule = [this] { Save(); };
  Cmd_Next.rule = [this] { StepSelection(1); };
  Cmd_Previous.rule = [this] { StepSelection(-1); };
  Cmd_CopyV1toV2.rule = [this] { Transfer(true); };
  Cmd_CopyV2toV1.rule = [this] { Transfer(false); };
  Cmd_Close.rule = [this] {
    if (close) close();
  };
}

std::vector<TagEditor::Step> TagEditor::V1Steps() {
  cMP3ID3v1& tag = world_.v1;
  const auto text = [&tag](Text& box, std::string cMP3ID3v1::*field) {
    return Step{[&tag, &box, field] { box.Set(tag.*field); },
                [&tag, &box, field] { tag.*field = box.Value(); }};
  };
  return {text(Txt_v1Artist, &cMP3ID3v1::Artist),
          text(Txt_v1Title, &cMP3ID3v1::Title),
          text(Txt_v1Album, &cMP3ID3v1::Album),
          {[this, &tag] { Txt_v1Track.Set(std::to_string(tag.Track)); },
           [this, &tag] {
             tag.Track = WholeNumber<std::uint8_t>(Txt_v1Track.Value()).value_or(tag.Track);
           }},
          text(Txt_v1Year, &cMP3ID3v1::Year),
          {[this, &tag] { Txt_v1Genre.Set(tag.GenreName(tag.Genre)); },
           [this, &tag] { tag.Genre = ChosenGenre(genreV1_).value_or(tag.Genre); }},
          text(Txt_v1Comments, &cMP3ID3v1::Comment)};
}

// The order is that in which a save leaves the frames behind.
std::vector<TagEditor::Step> TagEditor::V2Steps() {
  using Tag = cMP3ID3v2;
  Tag& tag = world_.v2;
  const auto text = [&tag](Text& box, const std::string& (Tag::*get)() const,
                           void (Tag::*set)(std::string_view)) {
    return Step{[&tag, &box, get] { box.Set((tag.*get)()); },
                [&tag, &box, set] { (tag.*set)(box.Value()); }};
  };
  return {text(Txt_v2Album, &Tag::Album, &Tag::SetAlbum),
          text(Txt_v2Artist, &Tag::Artist, &Tag::SetArtist),
          text(Txt_v2Title, &Tag::Title, &Tag::SetTitle),
          text(Txt_v2Track, &Tag::Track, &Tag::SetTrack),
          text(Txt_v2Year, &Tag::Year, &Tag::SetYear),
          {[this, &tag] { Txt_v2Genre.Set(tag.GenreName(tag.Genre())); },
           [this, &tag] {
             if (const auto genre = ChosenGenre(genreV2_)) tag.SetGenre(*genre);
           }},
          text(Txt_v2Comments, &Tag::Comment, &Tag::SetComment),
          text(Txt_v2OriginalArtist, &Tag::OriginalArtist, &Tag::SetOriginalArtist),
          text(Txt_v2Copyright, &Tag::Copyright, &Tag::SetCopyright),
          text(Txt_v2Composer, &Tag::Composer, &Tag::SetComposer),
          text(Txt_v2EncodedBy, &Tag::EncodedBy, &Tag::SetEncodedBy),
          text(Txt_v2LinkTo, &Tag::LinkTo, &Tag::SetLinkTo),
          text(Txt_v2Lyrics, &Tag::Lyrics, &Tag::SetLyrics)};
}

// A tag that can't be read leaves the boxes empty: the objects reset themselves first.
void TagEditor::LoadSelectedFile() {
  FileList& list = world_.list;
  Combo_v1Genre.SetItems({});
  Combo_v2Genre.SetItems({});
  const std::size_t row = list.HighlightedRow();
  list.SetDropHighlight(row);
  list.EnsureVisible(row);
  // Other files are stepped over; with a tag in front they would be spoilt.
  Cmd_Save.SetEnabled(row && EqualIgnoringCase(ExtensionOf(list.Row(row).name), "mp3"));
  const std::string path = row ? list.FullPath(row) : std::string();
  Attempt([&] { world_.v1.SetMP3File(path); });
  Attempt([&] { world_.v2.SetMP3File(path); });
  Txt_FileName.Set(row ? list.Row(row).name : std::string());
  for (const Step& step : stepsV1_) Attempt(step.load);
  FillGenres(genreV1_);
  SelectGenreV1(world_.v1.Genre);
  for (const Step& step : stepsV2_) Attempt(step.load);
  FillGenres(genreV2_);
  SelectGenreV2(world_.v2.Genre());
  statusBar.Set(0, "Loaded: '" + path + "'");
}

// What it says at its end it says whatever became of the steps: this is wanted.
void TagEditor::Save() {
  for (const Step& step : stepsV1_) Attempt(step.save);
  for (const Step& step : stepsV2_) Attempt(step.save);
  Attempt([this] { world_.v1.Update(); });
  Attempt([this] { world_.v2.Update(); });
  statusBar.Set(0, "Changes were saved successfully");
}

// The list may have become another one while the window was open.
void TagEditor::StepSelection(int step) {
  FileList& list = world_.list;
  const std::size_t row = list.HighlightedRow();
  const auto next = static_cast<std::ptrdiff_t>(row) + step;
  if (!row || next < 1 || next > static_cast<std::ptrdiff_t>(list.Count())) return;
  const auto number = static_cast<std::size_t>(next);
  list.SetSelected(row, false);
  list.SetSelected(number, true);
  list.SelectItem(number);
  LoadSelectedFile();
}

// The combo ends one entry before its list does: this is wanted. Its places are the list's indexes.
void TagEditor::FillGenres(const GenreChoice& genre) {
  std::vector<std::string> items{"None Selected"};
  for (std::size_t i = 1; i + 1 < genre.names.size(); ++i) items.push_back(genre.names[i]);
  genre.combo.SetItems(std::move(items));
  genre.combo.Select(0);
}

bool TagEditor::SelectGenre(const GenreChoice& genre, int number) {
  if (number >= noGenre) return true;
  const std::size_t places = genre.combo.Items().size();
  for (std::size_t i = 1; i <= places; ++i) {
    if (i >= genre.ids.size()) return false;
    if (genre.ids[i] != number) continue;
    if (i == places) return false;
    genre.combo.Select(static_cast<int>(i));
    return true;
  }
  return true;
}

std::optional<std::uint8_t> TagEditor::ChosenGenre(const GenreChoice& genre) {
  if (genre.combo.Index() < 1) return noGenre;
  return WholeNumber<std::uint8_t>(
      std::to_string(genre.ids.at(static_cast<std::size_t>(genre.combo.Index()))));
}

// "None Selected" stands for the list's number at 0, which is 0: the other tag then gets the genre
// of that number. This is wanted, and texts go over whatever they are.
void TagEditor::Transfer(bool toV2) {
  const std::pair<Text&, Text&> fields[] = {
      {Txt_v1Artist, Txt_v2Artist}, {Txt_v1Title, Txt_v2Title}, {Txt_v1Album, Txt_v2Album},
      {Txt_v1Track, Txt_v2Track},   {Txt_v1Year, Txt_v2Year},   {Txt_v1Comments, Txt_v2Comments}};
  for (const auto& [v1, v2] : fields) toV2 ? v2.Set(v1.Value()) : v1.Set(v2.Value());
  const GenreChoice& source = toV2 ? genreV1_ : genreV2_;
  const int number = source.ids.at(static_cast<std::size_t>(std::max(source.combo.Index(), 0)));
  if (toV2 ? SelectGenreV2(number) : SelectGenreV1(number)) return;
  world_.dialogs.Ask(
      {std::string(caption),
       "The other list of genres offers no entry for genre number " + std::to_string(number) + ".",
       Buttons::Ok});
}

}  // namespace tallowbrook
