#include "desktop/dialogs.h"

#include <QApplication>
#include <QMessageBox>

#include "desktop/text.h"

namespace tallowbrook {

namespace {

// Its line ends are those of the widget; every other control character shows as its picture.
QString BoxText(std::string_view text) {
  QString result;
  while (true) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    result += VisibleText(line);
    if (end == std::string_view::npos) return result;
    result += QLatin1Char('\n');
    text.remove_prefix(end + 1);
  }
}

}  // namespace

Answer WindowDialogs::Ask(const MessageBox& box) {
  QWidget* over = QApplication::activeModalWidget();
  QMessageBox shown(over ? over : parent_.data());
  shown.setTextFormat(Qt::PlainText);
  shown.setWindowTitle(VisibleText(box.title));
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
