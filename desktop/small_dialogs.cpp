#include "desktop/small_dialogs.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/elided_label.h"
#include "desktop/folder_tree.h"
#include "desktop/look.h"
#include "desktop/text.h"

namespace tallowbrook {

ManualRenameDialog::ManualRenameDialog(ManualRename& model, QWidget* over)
    : ModelDialog(model.screen, model.close, "frmRenameFile", ManualRename::caption, over,
                  windowOffset) {
  auto* grid = new QGridLayout;
  grid->setSpacing(spacing);
  QLineEdit* oldName = Bind().Add(model.Txt_OldName, this);
  QLineEdit* newName = Bind().Add(model.Txt_NewFileName, this);
  newName->setMinimumWidth(newName->fontMetrics().averageCharWidth() * 60);
  grid->addWidget(Bind().AddCaption(model.Label1, oldName, 'o'), 0, 0);
  grid->addWidget(oldName, 0, 1);
  grid->addWidget(Bind().AddCaption(model.Label2, newName, 'e'), 1, 0);
  grid->addWidget(newName, 1, 1);
  Body()->addLayout(grid);
  AddButtons({{&model.Cmd_Rename, 'r'}, {&model.Cmd_Cancel, 'c'}});
  newName->setFocus();
  newName->selectAll();
}

OptionsDialog::OptionsDialog(Options& model, QWidget* over)
    : ModelDialog(model.screen, model.close, "frmOptions", Options::caption, over, optionsOffset) {
  const auto addFrame = [this](Frame& frame) {
    auto* box = new QGroupBox(WithAccessKey(frame.Caption(), 0), this);
    Bind().BindPanel(frame, box);
    Body()->addWidget(box);
    auto* column = new QVBoxLayout(box);
    column->setSpacing(spacing);
    return column;
  };
  QVBoxLayout* general = addFrame(model.Frame3);
  general->addWidget(Bind().Add(model.Check_StartupTips, this, 't'));
  general->addWidget(Bind().Add(model.Check_AutoUpdate, this, 'u'));
  general->addWidget(Bind().Add(model.Check_LoadSavedSettings, this, 'l'));
  QVBoxLayout* dates = addFrame(model.Frame1);
  dates->addWidget(Bind().Add(model.Option_DateCreated, this, 'd'));
  dates->addWidget(Bind().Add(model.Option_DateModified, this, 'm'));
  dates->addSpacing(spacing);
  dates->addWidget(Bind().Add(model.Check_ShowEXIFDateCreated, this, 'e'));
  AddButtons({{&model.Command_Save, 's'}, {&model.Command_Done, 'c'}});
}

BrowseDialog::BrowseDialog(Browse& model, Files& files, const std::string& home, QWidget* over)
    : ModelDialog(model.screen, model.close, "frmBrowse", Browse::caption, over, windowOffset),
      model_(model) {
  auto* tree = new FolderTree(files, home, "My Computer", this);
  Body()->addWidget(tree, 1);
  auto* selected = new ElidedLabel(this);
  selected->setObjectName(QStringLiteral("StatusPane0"));
  Body()->addWidget(selected);
  const auto show = [&model, selected] { selected->ShowText(model.statusBar.Pane(0)); };
  tree->reportsAtOnce = true;
  tree->folderSelected = [&model](const std::string& path) { model.FolderTreeview1.Set(path); };
  // The pane follows by the folder's rule, which runs behind what watches the folder.
  model.statusBar.changed = [show](std::size_t) { show(); };
  AddButtons({{&model.Command_Save, 'o'}, {&model.Command_Done, 'c'}});
  tree->ShowFolder(model.FolderTreeview1.Value());
  tree->setFocus();
  resize(420, 480);
  show();
}

BrowseDialog::~BrowseDialog() {
  model_.statusBar.changed = nullptr;
}

AboutDialog::AboutDialog(About& model, QWidget* over)
    : ModelDialog(model.screen, model.close, "frmAbout", About::caption, over, windowOffset) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(2 * margin);
  grid->setVerticalSpacing(spacing);
  auto* icon = new QLabel(this);
  icon->setObjectName(QStringLiteral("picIcon"));
  icon->setPixmap(ProgramIcon().pixmap(QSize(64, 64), devicePixelRatioF()));
  grid->addWidget(icon, 0, 0, 3, 1, Qt::AlignTop);
  QLabel* title = Bind().Add(model.lblTitle1, this);
  QFont large = title->font();
  large.setPointSizeF(large.pointSizeF() * 1.5);
  large.setBold(true);
  title->setFont(large);
  int row = 0;
  for (QWidget* line :
       {title, Bind().Add(model.lblVersion, this), Bind().Add(model.lblPurpose, this)}) {
    grid->addWidget(line, row++, 1);
  }
  grid->setRowMinimumHeight(row++, spacing);
  for (Button* link : {&model.Label1, &model.Label12, &model.Label14, &model.Label5}) {
    QPushButton* push = Bind().Add(*link, this);
    push->setProperty("link", true);
    push->setCursor(Qt::PointingHandCursor);
    grid->addWidget(push, row++, 1, Qt::AlignLeft);
  }
  Body()->addLayout(grid);
  AddButtons({{&model.cmdOK, 'o'}});
}

}  // namespace tallowbrook
