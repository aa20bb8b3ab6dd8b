// The ribbon on top of the window, built from its constant layout: a row of tabs between the system
// menu and the styles, and below it the groups of the tab in front.
//
// Whatever is pressed dispatches its number. The keyboard reaches everything by Tab and the arrows;
// RibbonKeys adds the letters that the captions mark.
#pragma once

#include <QFrame>
#include <QPointer>
#include <vector>

#include "desktop/binder.h"
#include "shell/form1.h"

class QMenu;
class QStackedWidget;

namespace tallowbrook {

class GroupCaption;
class RibbonButton;
class RibbonTabs;

class RibbonBar : public QFrame {
 public:
  // `binder` is that of the program's screen.
  RibbonBar(Form1& form, Binder& binder, QWidget* parent);
  ~RibbonBar() override;

  int SelectedTab() const;
  // Brings a tab to the front; one that there isn't changes nothing.
  void SelectTab(int tab);
  // The row of tabs alone, or the groups below it too.
  bool IsMinimised() const;
  void SetMinimised(bool minimised);

  // The keyboard comes to the tabs, and goes back to where it came from.
  void TakeKeyboard();
  // False, and nothing done, where it came by Tab.
  bool GiveKeyboardBack();
  bool HasKeyboard() const;
  // Follows the letter that a caption of the row with the keyboard marks: the row of tabs, or the
  // groups. False, and nothing done, where none does.
  bool PressLetter(QChar letter);

 private:
  QLayout* MakeTabRow();
  QWidget* MakeGroups(const RibbonTab& tab);
  QWidget* MakeGroup(const RibbonGroup& group);
  QWidget* MakeItem(const RibbonItem& item, QWidget* parent);
  QWidget* MakeProfileList(const RibbonItem& item, QWidget* parent);
  QWidget* MakeCurrentProfile(QWidget* parent);
  QWidget* MakeCommandButton(const RibbonItem& item, QWidget* parent);
  RibbonButton* MakeSystemButton();
  RibbonButton* MakeStylesButton();
  RibbonButton* MakeRightButton();
  QAction* AddAction(QMenu& menu, const RibbonItem& item);
  // Greyed while the program says so.
  template <typename Shown>
  void FollowCommand(int number, Shown* shown);
  void FillProfiles();
  void NameSavedProfile();
  void ShowMarks();
  void TurnTo(int tab);
  bool PressTabRowLetter(QChar letter);
  bool PressGroupLetter(QChar letter);
  // Hands the number over once the widget that was pressed has done with the click.
  void Run(int number);

  Form1& form_;
  Binder& binder_;
  RibbonButton* system_ = nullptr;
  RibbonTabs* tabs_ = nullptr;
  RibbonButton* right_ = nullptr;
  QStackedWidget* groups_ = nullptr;
  std::vector<GroupCaption*> captions_;
  QMenu* systemMenu_ = nullptr;
  QAction* behindProfiles_ = nullptr;
  std::vector<QAction*> profiles_;
  QPointer<QWidget> before_;  // what had the keyboard before TakeKeyboard
  bool restoredByClick_ = false;
};

}  // namespace tallowbrook
