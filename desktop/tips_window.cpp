#include "desktop/tips_window.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include "desktop/look.h"
#include "desktop/text.h"

namespace tallowbrook {

TipsWindow::TipsWindow(StartupTips& model, QWidget* over)
    : ModelDialog(model.screen, model.close, "frmTips", StartupTips::caption, over, windowOffset) {
  auto* tip = new QLabel(this);
  tip->setObjectName(ToText(model.Lbl_Tip.Name()));
  tip->setTextFormat(Qt::PlainText);
  tip->setWordWrap(true);
  const auto show = [tip, &model] { tip->setText(VisibleLines(model.Lbl_Tip.Caption())); };
  Bind().Watch(model.Lbl_Tip, show);
  show();
  tip->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  tip->setMargin(margin);
  // A tip may be of any length.
  auto* card = new QScrollArea(this);
  card->setObjectName(QStringLiteral("TipCard"));
  card->setWidgetResizable(true);
  card->setWidget(tip);
  Body()->addWidget(card, 1);
  Body()->addWidget(Bind().Add(model.Check1, this, 's'));
  AddButtons({{&model.Cmd_Next, 'n'}, {&model.Cmd_Previous, 'p'}, {&model.Cmd_Close, 'c'}});
  resize(420, 230);
}

void TipsWindow::Open() {
  if (!isVisible()) move(parentWidget()->frameGeometry().topLeft() + windowOffset);
  show();
  raise();
}

}  // namespace tallowbrook
