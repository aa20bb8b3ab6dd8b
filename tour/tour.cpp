#include "tour/tour.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

#include "desktop/text.h"

namespace tallowbrook {

Tour::Tour(Form1& form, MainWindow& window, const SampleFiles& samples, QString pictures)
    : form_(form),
      window_(window),
      samples_(samples),
      pictures_(std::move(pictures)),
      hands_(window) {}

void Tour::Run() {
  if (!QTest::qWaitForWindowExposed(&window_)) throw std::runtime_error("the window doesn't show");
  window_.activateWindow();
  Settle();
  Picture("start");
  TypeAddress();
  ClickFolder();
  Picture("folder");
  const SampleFiles::State before = samples_.Photographed();
  ShowMenu();

  hands_.Click("Check_Prefix");
  hands_.Type("Text_Prefix", QStringLiteral("Trip "));
  hands_.Pick("Combo_Original", 2);
  Rename("File Name Properties: a prefix, upper case, a number");

  TurnToPage(2);
  hands_.Pick("Combo_RemoveChars", 5);
  Rename("Delete / Remove: the first five characters");

  TurnToPage(3);
  hands_.Type("Combo_Find", QStringLiteral("-0"));
  hands_.Type("Combo_Replace", QStringLiteral(" no. "));
  Rename("Find / Replace: \"-0\" by \" no. \"");

  TurnToPage(4);
  Picture("advanced");
  hands_.Click("Option_ChangeFileDate");
  Picture("advanced-date");
  TurnToPage(5);
  Picture("tags");

  UndoEverything();
  if (samples_.Photographed() != before) {
    throw std::runtime_error("the undone folder isn't what it was: names, contents or times");
  }
  std::cout << "\nThe folder is byte for byte as it was: names, contents, times.\n";
}

void Tour::TurnToPage(int number) {
  QTest::keyClick(&window_, static_cast<Qt::Key>(Qt::Key_0 + number), Qt::AltModifier);
  Settle();
  if (form_.settings.TabIndex.Index() != number - 1) throw std::runtime_error("no such page");
}

void Tour::TypeAddress() {
  QTest::keyClick(&window_, Qt::Key_D, Qt::AltModifier);
  auto* address = qobject_cast<QLineEdit*>(hands_.Find("Txt_Address"));
  if (!address->hasFocus()) throw std::runtime_error("Alt+D doesn't reach the address");
  hands_.Type("Txt_Address", ToText(samples_.Photos()));
  QTest::keyClick(address, Qt::Key_Return);
  Settle();
  if (form_.scan.LastScanFolder + "/" != samples_.Photos()) {
    throw std::runtime_error("the address leads to " + form_.scan.LastScanFolder);
  }
}

// First to another folder, so that the click on this one scans it.
void Tour::ClickFolder() {
  auto* tree = qobject_cast<QTreeView*>(hands_.Find("FolderTreeview1"));
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
  hands_.Click("PushButton_Preview");
  Picture("preview");
  const std::map<std::string, std::string> names = PreviewedNames();
  hands_.Click("PushButton_Apply");
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

void Tour::ShowMenu() {
  hands_.ClickRow("ListView1", 0, Qt::RightButton);
  QWidget* menu = QApplication::activePopupWidget();
  if (!menu) throw std::runtime_error("a right click shows no menu");
  Picture("menu");
  menu->close();
  Settle();
}

// The window of the history keeps the click that opened it waiting until it closes.
void Tour::InHistory(const std::function<void(const Hands&)>& visit) {
  std::exception_ptr failure;
  QTimer::singleShot(500, &window_, [&] {
    QWidget* history = QApplication::activeModalWidget();
    try {
      if (!history) throw std::runtime_error("the history doesn't open");
      visit(Hands(*history));
    } catch (...) {
      failure = std::current_exception();
    }
    if (history) history->close();
  });
  hands_.Click("PushButton_Undo");
  if (failure) std::rethrow_exception(failure);
}

// Of the last batch two rows, then the others; then the batches before it, from last to first.
void Tour::UndoEverything() {
  std::cout << "\n== The history: two rows, then the rest\n";
  InHistory([this](const Hands& hands) {
    Picture("history");
    hands.Click("Cmd_Switch");
    Picture("history-files");
    hands.Press("ListView2", Qt::Key_A, Qt::ControlModifier);
    hands.Press("ListView2", Qt::Key_Space);
    for (const int row : {1, 4}) hands.ClickCheckBox("ListView2", row);
    Undo(hands, 2);
    Picture("history-two-undone");
    hands.Press("ListView2", Qt::Key_A, Qt::ControlModifier);
    hands.Press("ListView2", Qt::Key_Space);
    for (const int row : {1, 4}) hands.ClickCheckBox("ListView2", row);
    Undo(hands, static_cast<int>(samples_.Names().size()) - 2);
    Picture("history-rest-undone");
    for (const int batch : {1, 0}) {
      hands.Click("Cmd_Switch");
      hands.ClickRow("ListView1", batch);
      Undo(hands, static_cast<int>(samples_.Names().size()));
    }
  });
  Picture("undone");
}

void Tour::Undo(const Hands& hands, int rows) {
  const std::vector<std::string> before = samples_.Names();
  hands.Click("Cmd_Undo");
  std::vector<std::string> changed;
  std::ranges::set_difference(samples_.Names(), before, std::back_inserter(changed));
  for (const std::string& name : changed) std::cout << "  " << Printable(name) << "\n";
  if (static_cast<int>(changed.size()) != rows) {
    throw std::runtime_error("undone: " + std::to_string(changed.size()) + " rows of " +
                             std::to_string(rows));
  }
}

// The main window, with what stands over it.
void Tour::Picture(const char* what) {
  const QString path = pictures_ + QStringLiteral("/%1-%2.png")
                                       .arg(++pictureCount_, 2, 10, QLatin1Char('0'))
                                       .arg(QLatin1String(what));
  QPixmap picture = window_.grab();
  QPainter painter(&picture);
  for (QWidget* over : {QApplication::activeModalWidget(), QApplication::activePopupWidget()}) {
    if (!over) continue;
    const QPixmap inner = over->grab();
    const QPoint place = window_.mapFromGlobal(over->mapToGlobal(QPoint()));
    painter.drawPixmap(place, inner);
    painter.drawRect(QRect(place, over->size()));
  }
  painter.end();
  if (!picture.save(path)) throw std::runtime_error("can't save " + ToBytes(path));
}

}  // namespace tallowbrook
