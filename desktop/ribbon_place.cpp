#include "desktop/ribbon_place.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QToolButton>

#include "desktop/look.h"
#include "desktop/text.h"
#include "shell/commands.h"
#include "shell/ribbon.h"

namespace tallowbrook {

RibbonPlace::RibbonPlace(std::function<void(int)> dispatch, QWidget* parent) : QFrame(parent) {
  setObjectName(QStringLiteral("RibbonPlace"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(margin + 4, 5, margin, 5);
  row->setSpacing(spacing);

  auto* icon = new QLabel(this);
  icon->setPixmap(ProgramIcon().pixmap(24, 24));
  auto* name = new QLabel(QStringLiteral("Tallowbrook"), this);
  name->setObjectName(QStringLiteral("ProgramName"));
  row->addWidget(icon);
  row->addWidget(name);
  row->addSpacing(16);

  for (const RibbonItem& command : Layout().systemMenu) {
    auto* button = new QToolButton(this);
    button->setObjectName(QStringLiteral("Command%1").arg(command.number));
    button->setText(ToText(command.caption));
    button->setToolTip(PlainToolTip(ToText(FindCommand(command.number)->tip)));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this,
            [dispatch, number = command.number] { dispatch(number); });
    row->addWidget(button);
  }
  row->addStretch();
}

}  // namespace tallowbrook
