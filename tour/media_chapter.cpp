// The second chapter: songs named from their tags, a tag edited, pictures named by the moment they
// were taken, their dates set and undone.
#include <QLineEdit>
#include <chrono>
#include <iostream>
#include <stdexcept>

#include "desktop/text.h"
#include "tour/media_samples.h"
#include "tour/steps.h"

namespace tallowbrook {

namespace {

void Require(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error(what);
}

std::chrono::seconds FullSecond(std::int64_t nanoseconds) {
  return std::chrono::floor<std::chrono::seconds>(std::chrono::nanoseconds(nanoseconds));
}

void NameSongs(Steps& steps) {
  steps.TypeAddress(steps.samples.Music());
  steps.TurnToPage(5);
  steps.hands.Click("Check_MP3Extension");
  steps.hands.Type("RTxt_ID3Name", QStringLiteral("<v1Track> <v1Artist> - <v2Title>"));
  steps.Rename("ID3v1 / ID3v2: ten songs from their tags");
  const std::vector<std::string> names = NamesIn(steps.folder);
  Require(names.size() == 10 && names[0] == "1 Zo\xC3\xAB Lund - First Light.mp3",
          "the songs aren't named by their tags");
}

void EditTag(Steps& steps) {
  std::cout << "\n== The tag editor: another title\n";
  steps.TypeAddress(steps.samples.Music());
  const std::string path = steps.folder + NamesIn(steps.folder)[0];
  const QString title = QStringLiteral("First Light (2024 mix)");
  steps.InTagEditor(0, [&](const Hands& hands) {
    steps.Picture("tag-editor");
    hands.Type("Txt_v1Title", title);
    hands.Type("Txt_v2Title", title);
    hands.Click("Cmd_Save");
    steps.Picture("tag-saved");
    hands.Click("Cmd_Next");
    hands.Click("Cmd_Previous");
    const auto* box = qobject_cast<QLineEdit*>(hands.Find("Txt_v2Title"));
    Require(box && box->text() == title, "the editor doesn't read back what it saved");
  });
  const std::string tags = TagsByTool(path);
  std::cout << tags;
  Require(tags.find(": " + ToBytes(title)) != std::string::npos, "the tool reads another title");
}

void NamePictures(Steps& steps) {
  steps.TypeAddress(steps.samples.Camera());
  steps.TurnToPage(4);
  steps.hands.Click("Option_ChangeFileName");
  steps.hands.Click("PushButton_InsertKeyword1");
  steps.Picture("keywords");
  steps.window.findChild<QWidget*>(QStringLiteral("frmInsertKeyword"))->close();
  steps.hands.Type("RTxt_Unique_Other",
                   QStringLiteral("<exif_yyyy>-<exif_mm>-<exif_dd> <exif_hh><exif_MM><exif_ss> "
                                  "<exif_width>x<exif_height>.<ext>"));
  steps.Rename("Advanced: pictures by the moment they were taken");
  Require(NamesIn(steps.folder)[0] == "2023-07-15 090533 160x120.JPG",
          "the pictures aren't named by their dates");
}

// The undo gives the dates back in universal time, which is the tour's own.
void DatePictures(Steps& steps) {
  const FolderState before = Photographed(steps.folder);
  steps.hands.Click("Option_ChangeFileDate");
  steps.hands.Pick("Combo_UpdateDateType", 1);
  steps.Apply("Advanced: the pictures' dates of modification");
  for (const auto& [name, state] : Photographed(steps.folder)) {
    Require(state.first == before.at(name).first && state.second != before.at(name).second,
            "no other date: " + name);
  }
  steps.InHistory([&](const Hands& hands) {
    steps.Picture("history-dates");
    hands.Click("Cmd_Undo");
    steps.Picture("history-dates-undone");
  });
  for (const auto& [name, state] : Photographed(steps.folder)) {
    Require(FullSecond(state.second) == FullSecond(before.at(name).second), "not undone: " + name);
  }
  std::cout << "\nThe dates are what they were, to the second.\n";
}

}  // namespace

void MediaChapter(Steps& steps) {
  NameSongs(steps);
  EditTag(steps);
  NamePictures(steps);
  DatePictures(steps);
}

}  // namespace tallowbrook
