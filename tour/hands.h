// What a user does to a window: finds controls by their names, clicks, types, picks.
#pragma once

#include <QString>
#include <QTableView>
#include <QWidget>

namespace tallowbrook {

// Long enough for queued work and for what is painted at most 20 times a second.
void Settle();

class Hands {
 public:
  explicit Hands(QWidget& window) : window_(window) {}

  // Each throws std::runtime_error if there is no such control in sight.
  QWidget* Find(const char* name) const;
  QTableView* FindTable(const char* name) const;
  void Click(const char* name) const;
  void Type(const char* name, const QString& text) const;
  void Pick(const char* name, int steps) const;
  // In a table's row, from 0.
  void ClickRow(const char* table, int row, Qt::MouseButton button = Qt::LeftButton) const;
  void ClickCheckBox(const char* table, int row) const;
  void Press(const char* name, int key, Qt::KeyboardModifiers modifiers = {}) const;

 private:
  QWidget& window_;
};

}  // namespace tallowbrook
