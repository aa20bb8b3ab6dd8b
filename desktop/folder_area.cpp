#include "desktop/folder_area.h"

#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QVBoxLayout>

#include "desktop/look.h"

namespace tallowbrook {

FolderArea::FolderArea(Form1& form, Files& files, const std::string& home, Binder& binder,
                       QWidget* parent)
    : QWidget(parent),
      form_(form),
      tree_(*new FolderTree(files, home, form.pane.FolderTreeview1.Caption(), this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(spacing);
  QuietCombo* box = binder.Add(form.pane.Combo1, this);
  SetUpCompletion(*box);
  column->addWidget(box);
  column->addWidget(&tree_, 1);
  setTabOrder(box, &tree_);

  tree_.folderSelected = [this](const std::string& path) {
    form_.scan.SelectFolder(path);
    // A folder that is gone leaves the one before selected.
    ShowSelected();
  };
  binder.Watch(form.pane.FolderTreeview1, [this] { ShowSelected(); });
  ShowSelected();
}

void FolderArea::SetUpCompletion(QuietCombo& box) {
  box.SetWidth(QuietCombo::Width::OfCharacters, 8);
  box.lineEdit()->setPlaceholderText(QStringLiteral("Go to folder, e.g. /home/"));
  auto* completer = new QCompleter(box.model(), &box);
  completer->setCompletionMode(QCompleter::PopupCompletion);
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  box.setCompleter(completer);
  connect(box.lineEdit(), &QLineEdit::returnPressed, this,
          [this] { form_.scan.SelectFolder(form_.pane.Combo1.Value()); });
}

void FolderArea::ShowSelected() {
  if (const std::string& path = form_.pane.FolderTreeview1.Value(); !path.empty()) {
    tree_.ShowFolder(path);
  }
}

}  // namespace tallowbrook
