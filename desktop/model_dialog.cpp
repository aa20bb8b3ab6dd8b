#include "desktop/model_dialog.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look.h"
#include "desktop/text.h"

namespace tallowbrook {

ModelDialog::ModelDialog(Screen& screen, std::function<void()>& close, const char* name,
                         std::string_view caption, QWidget* over, QPoint offset)
    : QDialog(over), binder_(screen), close_(close), body_(new QVBoxLayout(this)) {
  setObjectName(QLatin1String(name));
  setWindowTitle(ToText(caption));
  body_->setContentsMargins(2 * margin, 2 * margin, 2 * margin, 2 * margin);
  body_->setSpacing(margin);
  close_ = [this] { accept(); };
  if (over) move(over->frameGeometry().topLeft() + offset);
}

ModelDialog::~ModelDialog() {
  close_ = nullptr;
}

void ModelDialog::AddButtons(std::initializer_list<std::pair<Button*, char>> buttons, int enters) {
  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  row->addStretch();
  for (const auto& [button, accessKey] : buttons) {
    QPushButton* push = binder_.Add(*button, this, accessKey);
    push->setDefault(enters-- == 0);
    push->setMinimumWidth(84);
    row->addWidget(push);
  }
  body_->addSpacing(margin);
  body_->addLayout(row);
}

}  // namespace tallowbrook
