#include "desktop/history_window.h"

#include <QPushButton>
#include <QStackedLayout>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/history_tables.h"
#include "desktop/look.h"
#include "desktop/text.h"

namespace tallowbrook {

namespace {
constexpr QSize firstSize(820, 480);
}

HistoryWindow::HistoryWindow(LogHistory& model, QWidget* over)
    : QDialog(over), model_(model), binder_(model.screen) {
  setObjectName(QStringLiteral("frmHistory"));
  setWindowTitle(ToText(LogHistory::caption));
  setWindowModality(Qt::WindowModal);
  setSizeGripEnabled(false);
  QVBoxLayout* body = MakeBody(*this, model.statusBar, status_);
  body->addLayout(MakeLists(), 1);
  body->addLayout(MakeButtons());
  model_.close = [this] { accept(); };
  resize(firstSize);
}

HistoryWindow::~HistoryWindow() {
  model_.close = nullptr;
}

QLayout* HistoryWindow::MakeLists() {
  auto* pages = new QStackedLayout;
  auto* batches = new BatchTable(model_, this);
  auto* files = new BatchFileTable(model_, this);
  pages->addWidget(batches);
  pages->addWidget(files);
  const auto show = [this, pages, batches, files] {
    pages->setCurrentWidget(model_.ListView1.Visible() ? static_cast<QWidget*>(batches) : files);
  };
  binder_.Watch(model_.ListView1, show);
  show();
  batches->setFocus();
  return pages;
}

QLayout* HistoryWindow::MakeButtons() {
  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  row->addStretch();
  row->addWidget(binder_.Add(model_.Cmd_Undo, this, 'u'));
  row->addWidget(binder_.Add(model_.Cmd_Switch, this, 'v'));
  row->addWidget(binder_.Add(model_.Cmd_Close, this, 'c'));
  return row;
}

// What the history does as it opens may ask a question, which stands over this window.
void HistoryWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (opened_) return;
  opened_ = true;
  QTimer::singleShot(0, this, [this] { model_.Open(); });
}

void HistoryWindow::reject() {
  if (model_.CanClose()) QDialog::reject();
}

}  // namespace tallowbrook
