// The steps that a tour is made of: the window driven as a user drives it, by clicks and keys, with
// a picture of each step and a look at the disk after each run.
#pragma once

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

class Steps {
 public:
  // Pictures are saved in the folder `pictures`, which exists. Each step throws std::runtime_error
  // with what is wrong if it finds no control to act on, or if the disk isn't as it should be.
  Steps(Form1& form, MainWindow& window, const SampleFiles& samples, QString pictures);

  void Begin();
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
  void InDialog(const char* button, const std::function<void(const Hands&)>& visit);

  QString pictures_;
  int pictureCount_ = 0;
  std::size_t batchCount_ = 0;
};

// The chapters of the tour.
void NamesChapter(Steps& steps);
void MediaChapter(Steps& steps);

}  // namespace tallowbrook
