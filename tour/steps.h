// The steps that a tour is made of: the window driven as a user drives it, by clicks and keys, with
// a picture of each step and a look at the disk after each run.
#pragma once

#include <QPixmap>
#include <QString>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "desktop/main_window.h"
#include "shell/form1.h"
#include "tour/hands.h"
#include "tour/sample_files.h"

namespace tallowbrook {

// The pictures of a tour, numbered in a folder that exists.
class Album {
 public:
  explicit Album(QString folder) : folder_(std::move(folder)) {}
  // Throws std::runtime_error if the picture can't be saved.
  void Add(const QPixmap& picture, const char* name);

 private:
  QString folder_;
  int count_ = 0;
};

class Steps {
 public:
  // Each step throws std::runtime_error
  // with what is wrong if it finds no control to act on, or if the disk isn't as it should be.
  Steps(Form1& form, MainWindow& window, const SampleFiles& samples, Album& album);

  void Begin();
  // Closes the tips that a start shows, so that later ones don't.
  void CloseTips();
  void TurnToPage(int number);
  // Types the path of a folder and lists it.
  void TypeAddress(const std::string& folder);
  // Clicks a folder of the home in the tree.
  void ClickFolder(const char* name);

  // A preview, an apply and a look whether the listed folder is what the preview said.
  void Rename(const char* title);
  // The same for a run whose outcome is no name; prints the records.
  void Apply(const char* title);
  // Opens the history and lets `visit` act in it.
  void InHistory(const std::function<void(const Hands&)>& visit);
  // Opens the tag editor of a row, from 0, and lets `visit` act in it.
  void InTagEditor(int row, const std::function<void(const Hands&)>& visit);
  void ShowMenu();
  // Opens the menu of a button of the ribbon and picks the entry of that text.
  void ClickMenu(const char* button, const char* entry);
  void ClickRibbonTab(const char* caption);
  // Presses a button that opens a window, and lets `visit` act in it.
  void InDialog(const char* button, const std::function<void(const Hands&)>& visit);

  void Picture(const char* what);

  Form1& form;
  MainWindow& window;
  const SampleFiles& samples;
  Hands hands;
  // The folder that is listed, with "/" at its end.
  std::string folder;

 private:
  std::map<std::string, std::string> PreviewedNames() const;
  void CheckDisk(const std::map<std::string, std::string>& names) const;
  void PrintNewRecords();

  Album& album_;
  std::size_t batchCount_ = 0;
};

// The chapters of the tour.
void NamesChapter(Steps& steps);
void MediaChapter(Steps& steps);

}  // namespace tallowbrook
