#include "desktop/copy_move.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "desktop/look.h"
#include "desktop/text.h"

namespace tallowbrook {

QWidget* MakeCopyMovePanel(Form1& form, Binder& binder, QWidget* parent) {
  RenameSettings& s = form.settings;
  RenamePages& pages = form.pages;
  auto* panel = new QGroupBox(WithAccessKey(pages.Frame_CopyMove.Caption(), 0), parent);
  binder.BindPanel(pages.Frame_CopyMove, panel);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(spacing);

  QCheckBox* enable = binder.Add(s.Check_MoveEnable, panel, 'b');
  auto* method = new QHBoxLayout;
  method->setSpacing(2 * spacing);
  method->addWidget(binder.Add(s.Option_Copy, panel, 'c'));
  method->addWidget(binder.Add(s.Option_Move, panel, 'm'));
  method->addStretch();
  QLineEdit* target = binder.Add(s.Txt_MoveTo, panel);
  auto* head = new QHBoxLayout;
  head->addWidget(binder.AddCaption(pages.Lbl_MoveTo, target));
  head->addStretch();
  QPushButton* browse = binder.Add(pages.BrowseMoveTo.styled, panel, 'w');
  head->addWidget(browse);
  QWidget::setTabOrder(browse, target);  // as they stand, one above the other
  column->addWidget(enable);
  column->addLayout(method);
  column->addLayout(head);
  column->addWidget(target);
  return panel;
}

}  // namespace tallowbrook
