// The main window: puts the regions together and hands the program what only a window can do.
#pragma once

#include <QMainWindow>
#include <memory>
#include <optional>
#include <string>

#include "desktop/binder.h"
#include "desktop/page_tabs.h"
#include "desktop/status_panes.h"
#include "desktop/window_layout.h"
#include "shell/form1.h"

class QSplitter;

namespace tallowbrook {

class KeywordPickerWindow;
class ListArea;
class TipsWindow;

class MainWindow : public QMainWindow {
 public:
  // `files` and `home` are what the folder tree shows. `form` must outlive the window.
  MainWindow(Form1& form, Files& files, const std::string& home, MakePages pages = MakePages::Now);
  ~MainWindow() override;

  // What a user arranges.
  WindowParts Parts() const;

 protected:
  // Closing asks the program to end; it may want to stop a scan first.
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  QWidget* MakeTop(Files& files, const std::string& home);
  QLayout* MakeBottom(MakePages pages);
  QLayout* MakeButtons();
  void WireForm();
  void WireDialogs();
  void WireTimers();
  void ShowStyle();
  void KeepPlace();
  void Unload();
  // The tree has at least 15 percent of the window.
  void KeepTreeShare();

  Form1& form_;
  Binder binder_;
  RibbonBar* ribbon_ = nullptr;
  QSplitter* splitter_ = nullptr;
  ListArea* list_ = nullptr;
  std::unique_ptr<StatusPanes> status_;
  Files& files_;
  std::string home_;
  std::optional<std::string> shownStyle_;  // its path
  // Once they were asked for.
  KeywordPickerWindow* picker_ = nullptr;
  TipsWindow* tips_ = nullptr;
  bool tipsWait_ = false;  // for the window to show
  bool unloaded_ = false;
};

}  // namespace tallowbrook
