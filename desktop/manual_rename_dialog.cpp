#include "desktop/manual_rename_dialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/look.h"
#include "desktop/text.h"

namespace tallowbrook {

ManualRenameDialog::ManualRenameDialog(ManualRename& model, QWidget* over)
    : QDialog(over), model_(model), binder_(model.screen) {
  setObjectName(QStringLiteral("frmRenameFile"));
  setWindowTitle(ToText(ManualRename::caption));
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(2 * margin, 2 * margin, 2 * margin, 2 * margin);
  grid->setSpacing(spacing);
  QLineEdit* oldName = binder_.Add(model.Txt_OldName, this);
  QLineEdit* newName = binder_.Add(model.Txt_NewFileName, this);
  newName->setMinimumWidth(newName->fontMetrics().averageCharWidth() * 60);
  grid->addWidget(binder_.AddCaption(model.Label1, oldName, 'o'), 0, 0);
  grid->addWidget(oldName, 0, 1);
  grid->addWidget(binder_.AddCaption(model.Label2, newName, 'e'), 1, 0);
  grid->addWidget(newName, 1, 1);

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(spacing);
  buttons->addStretch();
  QPushButton* rename = binder_.Add(model.Cmd_Rename, this, 'r');
  rename->setDefault(true);
  buttons->addWidget(rename);
  buttons->addWidget(binder_.Add(model.Cmd_Cancel, this, 'c'));
  grid->setRowMinimumHeight(2, margin);
  grid->addLayout(buttons, 3, 0, 1, 2);

  model.close = [this] { accept(); };
  newName->setFocus();
  newName->selectAll();
  move(over->frameGeometry().topLeft() + windowOffset);
}

ManualRenameDialog::~ManualRenameDialog() {
  model_.close = nullptr;
}

}  // namespace tallowbrook
