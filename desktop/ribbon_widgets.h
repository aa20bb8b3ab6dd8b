// The widgets that a ribbon is made of. Access keys in their captions are for the ribbon alone,
// which may share letters with the rest of the window: they are drawn while the ribbon has the
// keyboard, and the toolkit never learns of them.
#pragma once

#include <QLabel>
#include <QTabBar>
#include <QToolButton>
#include <functional>
#include <string_view>

#include "desktop/quiet_combo.h"

namespace tallowbrook {

class List;

// The caption without its "&", and the letter behind it in lower case; null without one.
QString PlainCaption(std::string_view caption);
QChar MarkedLetter(std::string_view caption);
// A tool tip of a title and a description, both as they stand, not much wider than 180 points.
QString CommandToolTip(const QString& title, std::string_view description);

// Takes the keyboard by Tab only. Enter presses it as the blank does.
class RibbonButton : public QToolButton {
 public:
  RibbonButton(std::string_view caption, QWidget* parent);

  // The icon above the caption, which takes two lines.
  void ShowLarge(const QIcon& icon);
  void SetMarked(bool marked);
  QChar Letter() const { return MarkedLetter(caption_); }
  // The key Up.
  std::function<void()> up;

 protected:
  void initStyleOption(QStyleOptionToolButton* option) const override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::string_view caption_;
  bool marked_ = false;
};

class RibbonTabs : public QTabBar {
 public:
  explicit RibbonTabs(QWidget* parent);

  // `caption` must outlive the tabs.
  void AddTab(std::string_view caption);
  void SetMarked(bool marked);
  // The tab whose caption marks the letter, -1 for none.
  int TabOf(QChar letter) const;
  // The key Down.
  std::function<void()> down;
  // On a tab; the second click of a double click is none of its own.
  std::function<void()> clicked;
  std::function<void()> doubleClicked;

 protected:
  void initStyleOption(QStyleOptionTab* option, int tab) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  std::vector<std::string_view> captions_;
  bool marked_ = false;
};

class GroupCaption : public QLabel {
 public:
  GroupCaption(std::string_view caption, QWidget* parent);
  void SetMarked(bool marked);
  QChar Letter() const { return MarkedLetter(caption_); }

 private:
  std::string_view caption_;
};

// A list whose entries act when they are chosen: only its popup chooses.
class ActingCombo : public QuietCombo {
 public:
  // `chosen` runs behind the selection in the list, also for the entry that was selected already.
  ActingCombo(List& list, std::function<void()> chosen, QWidget* parent);
  // Shows what the list holds, long entries cut in their middle.
  void Refresh();
  std::function<void()> up;

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
  void keyPressEvent(QKeyEvent* event) override;

 private:
  List& list_;
};

}  // namespace tallowbrook
