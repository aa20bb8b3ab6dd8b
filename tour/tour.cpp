#include "tour/tour.h"

#include <QLineEdit>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

#include "desktop/text.h"

namespace tallowbrook {

namespace {

// Long enough for queued work and for what is painted at most 20 times a second.
void Settle() {
  QTest::qWait(150);
}

}  // namespace

Tour::Tour(Form1& form, MainWindow& window, const SampleFiles& samples, QString pictures)
    : form_(form), window_(window), samples_(samples), pictures_(std::move(pictures)) {}

void Tour::Run() {
  if (!QTest::qWaitForWindowExposed(&window_)) throw std::runtime_error("the window doesn't show");
  window_.activateWindow();
  Settle();
  Picture("start");
  TypeAddress();
  ClickFolder();
  Picture("folder");

  Click("Check_Prefix");
  Type("Text_Prefix", QStringLiteral("Trip "));
  Pick("Combo_Original", 2);
  Rename("File Name Properties: a prefix, upper case, a number");

  TurnToPage(2);
  Pick("Combo_RemoveChars", 5);
  Rename("Delete / Remove: the first five characters");

  TurnToPage(3);
  Type("Combo_Find", QStringLiteral("-0"));
  Type("Combo_Replace", QStringLiteral(" no. "));
  Rename("Find / Replace: \"-0\" by \" no. \"");

  TurnToPage(4);
  Picture("advanced");
  Click("Option_ChangeFileDate");
  Picture("advanced-date");
  TurnToPage(5);
  Picture("tags");
}

QWidget* Tour::Find(const char* name) const {
  auto* widget = window_.findChild<QWidget*>(QLatin1String(name));
  if (!widget) throw std::runtime_error(std::string("no control named ") + name);
  if (!widget->isVisible()) throw std::runtime_error(std::string("out of sight: ") + name);
  return widget;
}

void Tour::Click(const char* name) {
  QWidget* widget = Find(name);
  // At the left, where a check box has its box.
  QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(10, widget->height() / 2));
  Settle();
}

void Tour::Type(const char* name, const QString& text) {
  QWidget* widget = Find(name);
  auto* edit = qobject_cast<QLineEdit*>(widget);
  if (!edit) edit = widget->findChild<QLineEdit*>();
  if (!edit) throw std::runtime_error(std::string("takes no text: ") + name);
  QTest::mouseClick(edit, Qt::LeftButton);
  QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(edit, Qt::Key_Delete);
  QTest::keyClicks(edit, text);
  Settle();
}

void Tour::Pick(const char* name, int steps) {
  QWidget* list = Find(name);
  list->setFocus(Qt::TabFocusReason);
  for (int step = 0; step < steps; ++step) QTest::keyClick(list, Qt::Key_Down);
  Settle();
}

void Tour::TurnToPage(int number) {
  QTest::keyClick(&window_, static_cast<Qt::Key>(Qt::Key_0 + number), Qt::AltModifier);
  Settle();
  if (form_.settings.TabIndex.Index() != number - 1) throw std::runtime_error("no such page");
}

void Tour::TypeAddress() {
  QTest::keyClick(&window_, Qt::Key_D, Qt::AltModifier);
  auto* address = qobject_cast<QLineEdit*>(Find("Txt_Address"));
  if (!address->hasFocus()) throw std::runtime_error("Alt+D doesn't reach the address");
  Type("Txt_Address", ToText(samples_.Photos()));
  QTest::keyClick(address, Qt::Key_Return);
  Settle();
  if (form_.scan.LastScanFolder + "/" != samples_.Photos()) {
    throw std::runtime_error("the address leads to " + form_.scan.LastScanFolder);
  }
}

// First to another folder, so that the click on this one scans it.
void Tour::ClickFolder() {
  auto* tree = qobject_cast<QTreeView*>(Find("FolderTreeview1"));
  const QModelIndex home = tree->model()->index(0, 0);
  QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(home).center());
  Settle();
  for (int row = 0; row < tree->model()->rowCount(home); ++row) {
    const QModelIndex folder = tree->model()->index(row, 0, home);
    if (folder.data().toString() != QLatin1String(SampleFiles::photosName)) continue;
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(folder).center());
    Settle();
    if (form_.ListView1.Count() == samples_.Names().size()) return;
  }
  throw std::runtime_error("a click in the tree doesn't list the folder");
}

void Tour::Rename(const char* title) {
  std::cout << "\n== " << title << "\n";
  Click("PushButton_Preview");
  Picture("preview");
  const std::map<std::string, std::string> names = PreviewedNames();
  Click("PushButton_Apply");
  Picture("applied");
  for (const auto& [oldName, newName] : names) {
    std::cout << "  " << Printable(oldName) << "  ->  " << Printable(newName) << "\n";
  }
  PrintNewRecords();
  CheckDisk(names);
}

std::map<std::string, std::string> Tour::PreviewedNames() const {
  std::map<std::string, std::string> names;
  for (std::size_t row = 1; row <= form_.ListView1.Count(); ++row) {
    const FileEntry& entry = form_.ListView1.Row(row);
    names[entry.name] = entry.newName;
  }
  return names;
}

void Tour::CheckDisk(const std::map<std::string, std::string>& names) const {
  std::vector<std::string> expected;
  for (const auto& [oldName, newName] : names) expected.push_back(newName);
  std::ranges::sort(expected);
  const std::vector<std::string> found = samples_.Names();
  if (found == expected) return;
  std::string message = "the disk isn't what the preview said; it holds";
  for (const std::string& name : found) message += "\n  " + Printable(name);
  throw std::runtime_error(message);
}

void Tour::PrintNewRecords() {
  std::ifstream file(samples_.Data() + "Logfile.txt", std::ios::binary);
  const std::string log{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (log.size() <= logSeen_) throw std::runtime_error("the log has no new batch");
  std::cout << "  log:\n";
  while (logSeen_ < log.size()) {
    const std::size_t end = std::min(log.find("\r\n", logSeen_), log.size());
    std::cout << "    " << Printable(log.substr(logSeen_, end - logSeen_)) << "\n";
    logSeen_ = std::min(end + 2, log.size());
  }
}

void Tour::Picture(const char* what) {
  const QString path = pictures_ + QStringLiteral("/%1-%2.png")
                                       .arg(++pictureCount_, 2, 10, QLatin1Char('0'))
                                       .arg(QLatin1String(what));
  if (!window_.grab().save(path)) throw std::runtime_error("can't save " + ToBytes(path));
}

}  // namespace tallowbrook
