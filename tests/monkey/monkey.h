// The monkey: clicks, keys, wheel, drags and drops by chance, into whatever is open.
//
// It acts from single shots of a timer, each of which orders the next one before it acts: so it
// goes on inside the loops of dialogs and menus that its own act has opened. Input goes in where
// the platform's would, so that popups and modal dialogs keep it from others as they do a user's.
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <atomic>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "shell/form1.h"
#include "tests/monkey/playground.h"

namespace tallowbrook {

class Monkey : public QObject {
 public:
  // Tells each act to `trail` before it does it, if given.
  Monkey(unsigned seed, const Playground& playground, std::FILE* trail);

  // Plays until told to stop; `form` is the program that lives meanwhile, null while none does.
  void Start();
  void Stop() { stopped_ = true; }
  Form1* form = nullptr;
  QPointer<QWidget> window;  // the main one

  // Counts up; may be read from another thread.
  std::atomic<int> acts = 0;
  std::map<std::string, int> dialogs;  // by name, how often each was entered
  std::map<std::string, int> popups;   // likewise, by kind
  std::vector<std::string> faults;

 private:
  struct Habit;
  static const std::vector<Habit>& Habits();

  void Act();
  void Order();
  void LeaveModal(QWidget* modal);
  int Below(int end);  // from 0
  std::size_t Index(std::size_t size);
  bool Chance(int percent) { return Below(100) < percent; }
  QWidget* Target();
  QPoint Spot(QWidget& target);
  Qt::KeyboardModifiers Held();
  void Tell(const std::string& text);

  void Mouse(QWidget& target, QEvent::Type type, QPoint at, Qt::MouseButton button,
             Qt::KeyboardModifiers held = {});
  void Press(QWidget& target, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers held = {});
  void Key(int key, Qt::KeyboardModifiers held = {}, const QString& text = {});
  void Type(const QString& text);

  void Click();
  void ClickRight();
  void ClickTwice();
  void ClickNamed();
  void ClickOn(const char* name);
  void Work();
  void UseRow();
  void Drag();
  void Wheel();
  void TypeSnippet();
  void TypePath();
  void PressKey();
  void PressAccessKey();
  void PressShortcut();
  void LeaveByKey();
  void Drop();
  void Resize();
  void Close();
  void Command();

  std::mt19937 chance_;
  const Playground& playground_;
  std::FILE* trail_;
  bool stopped_ = false;
  Qt::MouseButtons held_;
  int time_ = 0;  // of input, in milliseconds
  QPointer<QWidget> modal_, popup_;
  int actsInModal_ = 0;
};

}  // namespace tallowbrook
