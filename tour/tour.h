// A guided tour: the window driven as a user drives it, by clicks and keys, with a picture of each
// step and a look at the disk after each run.
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

class Tour {
 public:
  // Pictures are saved in the folder `pictures`, which exists.
  Tour(Form1& form, MainWindow& window, const SampleFiles& samples, QString pictures);

  // All steps. Throws std::runtime_error with what is wrong if the disk isn't what the preview
  // said, or if a step finds no control to act on.
  void Run();

 private:
  // What a user does.
  void TurnToPage(int number);
  void TypeAddress();
  void ClickFolder();

  // A preview, an apply and the checks behind them.
  void Rename(const char* title);
  std::map<std::string, std::string> PreviewedNames() const;
  void CheckDisk(const std::map<std::string, std::string>& names) const;
  void PrintNewRecords();

  void ShowMenu();
  void UndoEverything();
  void InHistory(const std::function<void(const Hands&)>& visit);
  // Presses Undo in the history; that many files must get other names.
  void Undo(const Hands& hands, int rows);

  void Picture(const char* what);

  Form1& form_;
  MainWindow& window_;
  const SampleFiles& samples_;
  QString pictures_;
  Hands hands_;
  int pictureCount_ = 0;
  std::size_t logSeen_ = 0;
};

}  // namespace tallowbrook
