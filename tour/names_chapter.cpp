// The first chapter: odd names on the pages that need nothing but names, and all of it undone.
#include <algorithm>
#include <iostream>
#include <iterator>
#include <stdexcept>

#include "tour/steps.h"

namespace tallowbrook {

namespace {

void Undo(Steps& steps, const Hands& hands, int rows) {
  const std::vector<std::string> before = NamesIn(steps.folder);
  hands.Click("Cmd_Undo");
  std::vector<std::string> changed;
  std::ranges::set_difference(NamesIn(steps.folder), before, std::back_inserter(changed));
  for (const std::string& name : changed) std::cout << "  " << Printable(name) << "\n";
  if (static_cast<int>(changed.size()) != rows) {
    throw std::runtime_error("undone: " + std::to_string(changed.size()) + " rows of " +
                             std::to_string(rows));
  }
}

// Of the last batch two rows, then the others; then the batches before it, from last to first.
void UndoEverything(Steps& steps) {
  std::cout << "\n== The history: two rows, then the rest\n";
  steps.InHistory([&](const Hands& hands) {
    steps.Picture("history");
    hands.Click("Cmd_Switch");
    steps.Picture("history-files");
    hands.Press("ListView2", Qt::Key_A, Qt::ControlModifier);
    hands.Press("ListView2", Qt::Key_Space);
    for (const int row : {1, 4}) hands.ClickCheckBox("ListView2", row);
    Undo(steps, hands, 2);
    steps.Picture("history-two-undone");
    hands.Press("ListView2", Qt::Key_A, Qt::ControlModifier);
    hands.Press("ListView2", Qt::Key_Space);
    for (const int row : {1, 4}) hands.ClickCheckBox("ListView2", row);
    Undo(steps, hands, static_cast<int>(NamesIn(steps.folder).size()) - 2);
    steps.Picture("history-rest-undone");
    for (const int batch : {1, 0}) {
      hands.Click("Cmd_Switch");
      hands.ClickRow("ListView1", batch);
      Undo(steps, hands, static_cast<int>(NamesIn(steps.folder).size()));
    }
  });
  steps.Picture("undone");
}

}  // namespace

void NamesChapter(Steps& steps) {
  steps.TypeAddress(steps.samples.Photos());
  steps.ClickFolder(SampleFiles::photosName);
  steps.Picture("folder");
  const FolderState before = Photographed(steps.folder);
  steps.ShowMenu();

  steps.hands.Click("Check_Prefix");
  steps.hands.Type("Text_Prefix", QStringLiteral("Trip "));
  steps.hands.Pick("Combo_Original", 2);
  steps.Rename("File Name Properties: a prefix, upper case, a number");

  steps.TurnToPage(2);
  steps.hands.Pick("Combo_RemoveChars", 5);
  steps.Rename("Delete / Remove: the first five characters");

  steps.TurnToPage(3);
  steps.hands.Type("Combo_Find", QStringLiteral("-0"));
  steps.hands.Type("Combo_Replace", QStringLiteral(" no. "));
  steps.Rename("Find / Replace: \"-0\" by \" no. \"");

  steps.TurnToPage(4);
  steps.Picture("advanced");
  steps.hands.Click("Option_ChangeFileDate");
  steps.Picture("advanced-date");
  steps.TurnToPage(5);
  steps.Picture("tags");

  UndoEverything(steps);
  if (Photographed(steps.folder) != before) {
    throw std::runtime_error("the undone folder isn't what it was: names, contents or times");
  }
  std::cout << "\nThe folder is byte for byte as it was: names, contents, times.\n";
}

}  // namespace tallowbrook
