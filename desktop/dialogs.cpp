#include "desktop/dialogs.h"

#include <QApplication>
#include <QMessageBox>

#include "base/text.h"
#include "desktop/text.h"

namespace tallowbrook {

namespace {

// What a box has room for: a text may come from a file or from the net.
constexpr std::size_t mostLines = 20;
constexpr std::size_t mostCharacters = 1000;
constexpr std::size_t mostOfTitle = 100;
constexpr qsizetype longestWord = 40;
constexpr QChar ellipsis(0x2026);
constexpr QChar breakHere(0x200B);

// The start of a text, of at most so many characters.
std::string_view StartOf(std::string_view text, std::size_t characters) {
  std::size_t end = 0;
  while (end < text.size() && characters-- > 0) end += FirstCharacter(text.substr(end)).length;
  return text.substr(0, end);
}

QString BoundedLine(std::string_view line, std::size_t characters) {
  const std::string_view start = StartOf(line, characters);
  QString shown = VisibleText(start);
  if (start.size() < line.size()) shown += ellipsis;
  return shown;
}

// A box grows as wide as its longest word, and what the screen has no room for is cut.
QString WithBreaks(const QString& line) {
  QString result;
  qsizetype length = 0;
  for (const QChar unit : line) {
    length = unit.isSpace() ? 0 : length + 1;
    if (length > longestWord && !unit.isLowSurrogate()) {
      result += breakHere;
      length = 1;
    }
    result += unit;
  }
  return result;
}

// As much of a text as there is room for. Its line ends are those of the widget; every other
// control character shows as its picture.
QString BoxText(std::string_view text) {
  std::string_view rest = StartOf(text, mostCharacters);
  const bool isCut = rest.size() < text.size();
  QString result;
  for (std::size_t lines = 1;; ++lines) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    result += WithBreaks(VisibleText(line));
    if (end == std::string_view::npos) return isCut ? result + ellipsis : result;
    if (lines == mostLines) return result + ellipsis;
    result += QLatin1Char('\n');
    rest.remove_prefix(end + 1);
  }
}

}  // namespace

Answer WindowDialogs::Ask(const MessageBox& box) {
  QWidget* over = QApplication::activeModalWidget();
  QMessageBox shown(over ? over : parent_.data());
  shown.setTextFormat(Qt::PlainText);
  shown.setWindowTitle(BoundedLine(box.title, mostOfTitle));
  shown.setText(BoxText(box.text));
  if (box.buttons == Buttons::Ok) {
    shown.setIcon(QMessageBox::Information);
    shown.setStandardButtons(QMessageBox::Ok);
    shown.exec();
    return Answer::Ok;
  }
  shown.setIcon(QMessageBox::Question);
  shown.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  shown.setEscapeButton(QMessageBox::No);
  shown.setDefaultButton(box.enter == Answer::No ? QMessageBox::No : QMessageBox::Yes);
  return shown.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

}  // namespace tallowbrook
