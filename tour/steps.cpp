#include "tour/steps.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

#include "desktop/text.h"
#include "store/log_format.h"

namespace tallowbrook {

void Album::Add(const QPixmap& picture, const char* name) {
  const QString path =
      folder_ +
      QStringLiteral("/%1-%2.png").arg(++count_, 2, 10, QLatin1Char('0')).arg(QLatin1String(name));
  if (!picture.save(path)) throw std::runtime_error("can't save " + ToBytes(path));
}

Steps::Steps(Form1& shownForm, MainWindow& shownWindow, const SampleFiles& files, Album& album)
    : form(shownForm), window(shownWindow), samples(files), hands(shownWindow), album_(album) {}

void Steps::Begin() {
  if (!QTest::qWaitForWindowExposed(&window)) throw std::runtime_error("the window doesn't show");
  window.activateWindow();
  Settle();
  Picture("start");
}

void Steps::CloseTips() {
  for (QWidget* over : QApplication::topLevelWidgets()) {
    if (over->objectName() != QLatin1String("frmTips") || !over->isVisible()) continue;
    Hands tips(*over);
    tips.Click("Cmd_Next");
    tips.Click("Check1");
    tips.Click("Cmd_Close");
    window.activateWindow();
    return Settle();
  }
  throw std::runtime_error("a first start shows no tips");
}

void Steps::TurnToPage(int number) {
  QTest::keyClick(&window, static_cast<Qt::Key>(Qt::Key_0 + number), Qt::AltModifier);
  Settle();
  if (form.settings.TabIndex.Index() != number - 1) throw std::runtime_error("no such page");
}

void Steps::TypeAddress(const std::string& path) {
  QTest::keyClick(&window, Qt::Key_D, Qt::AltModifier);
  auto* address = qobject_cast<QLineEdit*>(hands.Find("Txt_Address"));
  if (!address->hasFocus()) throw std::runtime_error("Alt+D doesn't reach the address");
  hands.Type("Txt_Address", ToText(path));
  QTest::keyClick(address, Qt::Key_Return);
  Settle();
  if (form.scan.LastScanFolder + "/" != path) {
    throw std::runtime_error("the address leads to " + form.scan.LastScanFolder);
  }
  folder = path;
}

// First to another folder, so that the click on this one scans it.
void Steps::ClickFolder(const char* name) {
  auto* tree = qobject_cast<QTreeView*>(hands.Find("FolderTreeview1"));
  const QModelIndex home = tree->model()->index(0, 0);
  QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(home).center());
  Settle();
  for (int row = 0; row < tree->model()->rowCount(home); ++row) {
    const QModelIndex found = tree->model()->index(row, 0, home);
    if (found.data().toString() != QLatin1String(name)) continue;
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(found).center());
    Settle();
    folder = samples.Home() + name + "/";
    if (form.ListView1.Count() == NamesIn(folder).size()) return;
  }
  throw std::runtime_error("a click in the tree doesn't list the folder");
}

void Steps::Rename(const char* title) {
  std::cout << "\n== " << title << "\n";
  hands.Click("PushButton_Preview");
  Picture("preview");
  const std::map<std::string, std::string> names = PreviewedNames();
  hands.Click("PushButton_Apply");
  Picture("applied");
  for (const auto& [oldName, newName] : names) {
    std::cout << "  " << Printable(oldName) << "  ->  " << Printable(newName) << "\n";
  }
  PrintNewRecords();
  CheckDisk(names);
}

void Steps::Apply(const char* title) {
  std::cout << "\n== " << title << "\n";
  hands.Click("PushButton_Apply");
  Picture("applied");
  PrintNewRecords();
}

std::map<std::string, std::string> Steps::PreviewedNames() const {
  std::map<std::string, std::string> names;
  for (std::size_t row = 1; row <= form.ListView1.Count(); ++row) {
    const FileEntry& entry = form.ListView1.Row(row);
    names[entry.name] = entry.newName;
  }
  return names;
}

void Steps::CheckDisk(const std::map<std::string, std::string>& names) const {
  std::vector<std::string> expected;
  for (const auto& [oldName, newName] : names) expected.push_back(newName);
  std::ranges::sort(expected);
  const std::vector<std::string> found = NamesIn(folder);
  if (found == expected) return;
  std::string message = "the disk isn't what the preview said; it holds";
  for (const std::string& name : found) message += "\n  " + Printable(name);
  throw std::runtime_error(message);
}

// Those of the last batch: an undo may have shortened what stands before it.
void Steps::PrintNewRecords() {
  std::ifstream file(samples.Data() + "Logfile.txt", std::ios::binary);
  const std::string log{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const std::vector<std::string_view> batches = log_format::SplitBatches(log);
  if (batches.size() != ++batchCount_) throw std::runtime_error("the log has no new batch");
  std::cout << "  log:\n";
  std::string_view rest = batches.back();
  rest.remove_prefix(std::min(rest.find_first_not_of("\r\n"), rest.size()));
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find("\r\n"), rest.size());
    std::cout << "    " << Printable(std::string(rest.substr(0, end))) << "\n";
    rest.remove_prefix(std::min(end + 2, rest.size()));
  }
}

void Steps::ShowMenu() {
  hands.ClickRow("ListView1", 0, Qt::RightButton);
  QWidget* menu = QApplication::activePopupWidget();
  if (!menu) throw std::runtime_error("a right click shows no menu");
  Picture("menu");
  menu->close();
  Settle();
}

void Steps::ClickMenu(const char* name, const char* entry) {
  auto* button = qobject_cast<QToolButton*>(hands.Find(name));
  QMenu* menu = button ? button->menu() : nullptr;
  if (!menu) throw std::runtime_error(std::string("no menu: ") + name);
  bool picked = false;
  QTimer::singleShot(300, &window, [&] {
    Picture("menu");
    for (QAction* action : menu->actions()) {
      if (action->text() != QLatin1String(entry)) continue;
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
      picked = true;
    }
    menu->close();
  });
  hands.Click(name);
  if (!QTest::qWaitFor([&] { return picked; })) {
    throw std::runtime_error(std::string("no such entry: ") + entry);
  }
  window.activateWindow();
  Settle();
}

void Steps::ClickRibbonTab(const char* caption) {
  auto* tabs = qobject_cast<QTabBar*>(hands.Find("RibbonTabs"));
  for (int tab = 0; tabs && tab < tabs->count(); ++tab) {
    if (!tabs->tabText(tab).contains(QLatin1String(caption))) continue;
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab).center());
    return Settle();
  }
  throw std::runtime_error(std::string("no such tab: ") + caption);
}

// The window that opens keeps the click that opened it waiting until it closes.
void Steps::InDialog(const char* button, const std::function<void(const Hands&)>& visit) {
  std::exception_ptr failure;
  bool hasVisited = false;
  QTimer::singleShot(500, &window, [&] {
    hasVisited = true;
    QWidget* dialog = QApplication::activeModalWidget();
    try {
      if (!dialog) throw std::runtime_error(std::string("nothing opens: ") + button);
      visit(Hands(*dialog));
    } catch (...) {
      failure = std::current_exception();
    }
    if (dialog) dialog->close();
  });
  hands.Click(button);
  if (!QTest::qWaitFor([&] { return hasVisited; })) throw std::runtime_error("no visit");
  window.activateWindow();  // nobody else does on a display without a window manager
  Settle();
  if (failure) std::rethrow_exception(failure);
}

void Steps::InHistory(const std::function<void(const Hands&)>& visit) {
  InDialog("PushButton_Undo", visit);
}

void Steps::InTagEditor(int row, const std::function<void(const Hands&)>& visit) {
  hands.ClickRow("ListView1", row);
  InDialog("PushButton_EditID3", visit);
}

// The main window, with what stands over it.
void Steps::Picture(const char* what) {
  QPixmap picture = window.grab();
  QPainter painter(&picture);
  for (QWidget* over : QApplication::topLevelWidgets()) {
    if (over == &window || !over->isVisible()) continue;
    const QPixmap inner = over->grab();
    const QPoint place = window.mapFromGlobal(over->mapToGlobal(QPoint()));
    painter.drawPixmap(place, inner);
    painter.drawRect(QRect(place, over->size()));
  }
  painter.end();
  album_.Add(picture, what);
}

}  // namespace tallowbrook
