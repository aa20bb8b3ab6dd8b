#include "desktop/popup_menu.h"

#include <QMenu>

#include "desktop/text.h"

namespace tallowbrook {

namespace {

// The first letter of a word, or else any letter, that no item before has taken; 0 without one.
char FreeAccessKey(const std::string& caption, std::string& taken) {
  for (const bool anyLetter : {false, true}) {
    char before = ' ';
    for (const char letter : caption) {
      const auto key = static_cast<char>(QChar::toLower(static_cast<unsigned char>(letter)));
      const bool isLetter = key >= 'a' && key <= 'z';
      if (isLetter && (anyLetter || before == ' ') && taken.find(key) == std::string::npos) {
        taken += key;
        return key;
      }
      before = letter;
    }
  }
  return 0;
}

}  // namespace

void PopUpMenu(const std::vector<ListOperations::MenuItem>& items, QPoint place, QWidget* over) {
  auto* menu = new QMenu(over);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  std::string taken;
  for (const auto& [button, separatorBehind] : items) {
    const char key = FreeAccessKey(button.Caption(), taken);
    QAction* action = menu->addAction(WithAccessKey(button.Caption(), key));
    action->setObjectName(ToText(button.Name()));
    action->setEnabled(button.Enabled());
    // Once the menu has done with the click: what a button does may last, let events through, and
    // with them the menu's own end.
    QObject::connect(
        action, &QAction::triggered, over, [&pressed = button] { pressed.Press(); },
        Qt::QueuedConnection);
    if (separatorBehind) menu->addSeparator();
  }
  menu->popup(place);
}

}  // namespace tallowbrook
