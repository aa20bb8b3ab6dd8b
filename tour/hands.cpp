#include "tour/hands.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyle>
#include <QTest>
#include <stdexcept>

namespace tallowbrook {

void Settle() {
  QTest::qWait(150);
}

QWidget* Hands::Find(const char* name) const {
  auto* widget = window_.findChild<QWidget*>(QLatin1String(name));
  if (!widget) throw std::runtime_error(std::string("no control named ") + name);
  if (!widget->isVisible()) throw std::runtime_error(std::string("out of sight: ") + name);
  return widget;
}

QTableView* Hands::FindTable(const char* name) const {
  auto* table = qobject_cast<QTableView*>(Find(name));
  if (!table) throw std::runtime_error(std::string("no table: ") + name);
  return table;
}

void Hands::Click(const char* name) const {
  QWidget* widget = Find(name);
  // At the left, where a check box has its box.
  QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(10, widget->height() / 2));
  Settle();
}

void Hands::Type(const char* name, const QString& text) const {
  QWidget* widget = Find(name);
  QWidget* edit = qobject_cast<QPlainTextEdit*>(widget);
  if (!edit) edit = qobject_cast<QLineEdit*>(widget);
  if (!edit) edit = widget->findChild<QLineEdit*>();
  if (!edit) throw std::runtime_error(std::string("takes no text: ") + name);
  edit->setFocus(Qt::MouseFocusReason);
  QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(edit, Qt::Key_Delete);
  QTest::keyClicks(edit, text);
  Settle();
}

void Hands::Pick(const char* name, int steps) const {
  QWidget* list = Find(name);
  list->setFocus(Qt::TabFocusReason);
  for (int step = 0; step < steps; ++step) QTest::keyClick(list, Qt::Key_Down);
  Settle();
}

void Hands::ClickRow(const char* name, int row, Qt::MouseButton button) const {
  const QTableView* table = FindTable(name);
  const QModelIndex cell = table->model()->index(row, 1);
  if (!cell.isValid()) throw std::runtime_error(std::string("no such row in ") + name);
  QTest::mouseClick(table->viewport(), button, {}, table->visualRect(cell).center());
  Settle();
}

void Hands::ClickCheckBox(const char* name, int row) const {
  const QTableView* table = FindTable(name);
  const QRect cell = table->visualRect(table->model()->index(row, 0));
  const int inset = table->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 7;
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                    QPoint(cell.left() + inset, cell.center().y()));
  Settle();
}

void Hands::Press(const char* name, int key, Qt::KeyboardModifiers modifiers) const {
  QTest::keyClick(Find(name), static_cast<Qt::Key>(key), modifiers);
  Settle();
}

}  // namespace tallowbrook
